"""Readers: tracks of files of any format."""

from __future__ import annotations

import os
from collections.abc import Iterator
from typing import NamedTuple

from tavelin import _tavelin
from tavelin._errors import TavelinError
from tavelin._tavelin import Track

PathLike = str | os.PathLike[str]

_SURE = 90


class ElementSet(NamedTuple):
    """The element set of a satellite: its name line and two lines of elements, whole."""

    name: str
    line1: str
    line2: str


def _must_be_readable(path: PathLike) -> None:
    # The library takes a missing file for one without tracks, which nobody means here. A number is no path, though
    # open() takes it for a descriptor.
    with open(os.fspath(path), "rb"):
        pass


def format_of(path: PathLike) -> str:
    """The format of a file, by its content: "mea", "telegram", "tdm", "ssmas", "mpc", "tdm.xml", "table", "horizons",
    "elements" and others. Raises OSError for a file that cannot be read, and TavelinError with the code "V003" for one
    of no known format.

    >>> format_of(examples / "K88_20240120.mea")
    'mea'
    """
    _must_be_readable(path)
    word, points = _tavelin.recognise(path)
    if points < _SURE:
        guess = f"; it may be {word}" if word else ""
        raise TavelinError(f"the format is not known{guess}; name it", "V003", os.fsdecode(path))
    return word


def sources(
    path: PathLike, *, format: str | None = None, originator: str = "observatory", reuse: bool = False
) -> Iterator[Track]:
    """The tracks of a file one after the other, for files of any size: some 48 bytes of memory for each mark, and one
    track.

    The format is that of the content, unless ``format`` names another. ``originator`` is taken where the format has
    none (MEA and SSMAS). With ``reuse`` the memory of a track is used again as soon as nobody holds it, which is
    faster; a track or an array that is kept stays what it is.

    The file is read to its end by this call, which raises what cannot be read: OSError for a missing file, FormatError
    with line and column for a line that the reader refuses, ValueError for a format without tracks.

    >>> sum(len(track) for track in sources(examples / "K88_20240120.mea", reuse=True))
    130
    """
    word = format or format_of(path)
    _must_be_readable(path)
    return _tavelin.TrackStream(word, path, originator, reuse)


def read(path: PathLike, *, format: str | None = None, originator: str = "observatory") -> list[Track]:
    """All tracks of a file. See sources() for formats and errors.

    >>> read(examples / "K88_20240120.mea")
    [<tavelin.Track 'K24B01X', 130 marks>]
    """
    return list(sources(path, format=format, originator=originator))


def read_mea(path: PathLike, originator: str = "observatory") -> list[Track]:
    """The tracks of a MEA file, one for each object in the order of its first line.

    >>> read_mea(examples / "K88_20240120.mea")[0].telescope
    'K88'
    """
    return read(path, format="mea", originator=originator)


def read_telegram(path: PathLike) -> list[Track]:
    """The tracks of a telegram, one for each closed block.

    >>> len(read_telegram(examples / "807_20160609.tel"))
    2
    """
    return read(path, format="telegram")


def read_tdm(path: PathLike) -> list[Track]:
    """The tracks of a Tracking Data Message in its text form, one for each segment.

    >>> len(read_tdm(examples / "TFRM_20121029.tdm"))
    2
    """
    return read(path, format="tdm")


def read_ssmas(path: PathLike, originator: str = "observatory") -> list[Track]:
    """The tracks of a SSMAS report, one for each object.

    >>> len(read_ssmas(examples / "H21_20160607.ssm"))
    3
    """
    return read(path, format="ssmas", originator=originator)


def read_mpc(path: PathLike) -> list[Track]:
    """The tracks of a report in 80 columns. Lines of another length are skipped, those that the library writes for
    positive declinations among them.

    >>> read_mpc(examples / "W85_20180216.mpc.txt")[0].MPCHeader["COD"]
    'W85'
    """
    return read(path, format="mpc")


def read_track_table(path: PathLike) -> list[Track]:
    """The tracks of a track table, with each value of its columns.

    >>> tracks = read_track_table(examples / "series/ptf_i41_20101104/tavelin/dataVO/obj-asteroids-mpc.txt")
    >>> len(tracks)
    3
    """
    return read(path, format="table")


def read_tdm_xml(path: PathLike) -> list[Track]:
    """The first segment of a Tracking Data Message in XML, as one track. Raises TavelinError with code 5 for a file
    that is no document.

    >>> write_tdm_xml(folder / "night.xml", read_mea(examples / "K88_20240120.mea"))
    >>> len(read_tdm_xml(folder / "night.xml")[0])
    130
    """
    return read(path, format="tdm.xml")


def read_horizons(path: PathLike) -> list[Track]:
    """The ephemeris of an observer table of Horizons, as one track; none for a file without an ephemeris.

    >>> len(read_horizons(fixtures / "horizons/fixed_columns.txt")[0]) > 0
    True
    """
    return read(path, format="horizons")


def read_elements(path: PathLike) -> list[ElementSet]:
    """The element sets of a list of three lines for each satellite.

    >>> read_elements(fixtures / "element_sets/names_with_zero.txt")[0].name[:2]
    '0 '
    """
    _must_be_readable(path)
    return [ElementSet(*each) for each in _tavelin.read_elements(path)]
