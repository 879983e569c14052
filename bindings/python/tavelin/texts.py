"""Texts of angles, dates, times and numbers, and back, by the rules of the library's formats.

Angles are degrees, dates whole MJD, times fractions of a day. Decimals are 0 to 1100, others a ValueError. The name of
the library's operation follows in brackets.
"""

from __future__ import annotations

from tavelin import _tavelin


def ra_text(degrees: float, decimals: int = 2, separator: str = ":", *, seconds: bool = True) -> str:
    """Right ascension in degrees as sexagesimal hours, seconds rounded without a carry; without seconds cut at the
    minutes. (RAToStr)

    >>> ra_text(15.0)
    '01:00:00.00'
    """
    return _tavelin.ra_text(degrees, decimals, separator, seconds)


def de_text(degrees: float, decimals: int = 2, separator: str = ":", *, seconds: bool = True) -> str:
    """Declination in degrees as sexagesimal degrees; a positive one has no sign. (DEToStr)

    >>> de_text(-0.5), de_text(0.5)
    ('-00:30:00.00', '00:30:00.00')
    """
    return _tavelin.de_text(degrees, decimals, separator, seconds)


def ra_degrees(text: str) -> float:
    """Degrees of a right ascension: three parts with blanks or colons between them are hours, minutes and seconds, one
    part is decimal degrees, any other number of parts gives -100.0. (StrRAToDecimal)

    >>> ra_degrees("01:00:00.00")
    15.0
    """
    return _tavelin.ra_degrees(text)


def de_degrees(text: str) -> float:
    """Degrees of a declination, by the same rules; four parts with points between them are one too, whose last part is
    lost. (StrDEToDecimal)

    >>> de_degrees("-00 30 00")
    -0.5
    """
    return _tavelin.de_degrees(text)


def packed_ra(text: str) -> float:
    """Degrees of a packed right ascension, HHMMSSsss. Raises ValueError below 6 characters. (pStrTelegrammaToRA)

    >>> packed_ra("01000000")
    15.0
    """
    return _tavelin.packed_ra(text)


def packed_de(text: str) -> float:
    """Degrees of a packed declination, sDDMMSSsss. Raises ValueError below 7 characters. (pStrTelegrammaToDE)

    >>> packed_de("-00300000")
    -0.5
    """
    return _tavelin.packed_de(text)


def time_text(day: float, decimals: int = 3, separator: str = ":") -> str:
    """Hour, minute and second of the fraction of a day, rounded with a carry; hour 24 becomes 0. (DayToTime)

    >>> time_text(0.5)
    '12:00:00.000'
    """
    return _tavelin.time_text(day, decimals, separator)


def date_text(mjd: float, separator: str = "-") -> str:
    """Year, month and day of an MJD. (MJDToDate)

    >>> date_text(60000)
    '2023-02-25'
    """
    return _tavelin.date_text(mjd, separator)


def moment_text(mjd: float, decimals: int = 3) -> str:
    """Date and time of an MJD. Seconds that round up are written as 60. (MJDToDateTime)

    >>> moment_text(60000.5)
    '2023-02-25T12:00:00.000'
    """
    return _tavelin.moment_text(mjd, decimals)


def night_text(mjd: float, offset_hours: float, separator: str = "-") -> str:
    """The date on which the night of an MJD began, where local noon is so many hours off. (DateOfNight)

    >>> night_text(60000.1, 0.0)
    '2023-02-24'
    """
    return _tavelin.night_text(mjd, offset_hours, separator)


def date_mjd(text: str, separator: str = "-") -> int:
    """The whole MJD of year, month and day. Missing parts count as 0. (DateToMJD)

    >>> date_mjd("2023-02-25")
    60000
    """
    return _tavelin.date_mjd(text, separator)


def time_day(text: str, separator: str = ":") -> float:
    """The fraction of a day of hour, minute and second. (TimeToDay)

    >>> time_day("12:00:00")
    0.5
    """
    return _tavelin.time_day(text, separator)


def fixed_text(value: float, decimals: int) -> str:
    """A number in fixed notation; a negative one keeps its sign even where all digits are 0. (Str9)

    >>> fixed_text(-0.001, 2)
    '-0.00'
    """
    return _tavelin.fixed_text(value, decimals)


def short_text(value: float) -> str:
    """A number with six significant digits, in the shorter notation. (FloatToStr)

    >>> short_text(123456.7)
    '123457'
    """
    return _tavelin.short_text(value)
