// Date and time text: dates and times of the exchange formats, and back.
//
// The forms differ in what matters to a format: whether seconds are rounded or cut, whether a rounded 60 is
// carried, and the order of year, month and day. A date is a whole MJD, a time the fraction of a day.

#pragma once

#include "../export.h"
#include "calendar.h"

#include <string>
#include <string_view>

namespace TAVELIN_API tavelinUtils {

class DayNumbers; // of base/last_answer.h

/// Hour, minute and seconds with the separator between them and seconds rounded to the precision. Seconds
/// that round up to 60 are carried into the minutes, these into the hours, and hour 24 becomes 0; the date
/// belongs to the caller and stays as it was.
std::string DayToTime(int hour, int minute, double second, int precision, std::string separator);

/// The same for the fraction of a day, which may be a whole MJD.
std::string DayToTime(double day, int precision, std::string separator);

/// HHMMSSsss without separators. Not rounded: seconds are cut to the precision. Rounded: there is no carry,
/// and the "0" before short seconds depends on the value and not on the rounded text, so that 9.996 with
/// precision 2 gives five digits, 01000.
std::string DayToTimeMEA(double day, int precision, bool rounded);

/// HH:MM:SS.ss, rounded without carry.
std::string DayToTimeTEL(double day);

/// Year, MM and DD with the separator between them; the year with as many digits as it has.
std::string DateToStr(int year, int month, int day, std::string separator);

/// DateToStr of an MJD.
std::string MJDToDate(double mjd, std::string separator);

/// DDMMYY, the last two characters of the year; a shorter year is written whole.
std::string MJDToDateMEA(double mjd);

/// DD.MM.YYYY.
std::string MJDToDateTEL(double mjd);

/// The MJD of DDMMYY, always in the years 2000 to 2099. Throws std::out_of_range below 4 characters; five
/// or four pass, with the year "20Y" or "20".
int StrTELToDate(std::string text);

/// The fraction of a day of HHMMSS and any number of decimals without a point. Throws std::out_of_range
/// below 6 characters.
double StrTELToTime(std::string text);

/// Date and time in one text, seconds rounded without carry. The date separator is used within the date, the
/// time separator within the time, the middle one between the two.
std::string DateTimeToStr(int year, int month, int day, int hour, int minute, double second,
                          std::string dateSeparator, std::string timeSeparator, std::string middleSeparator,
                          int precision);
std::string DateTimeToStr(const TDateTime& dateTime, std::string dateSeparator, std::string timeSeparator,
                          std::string middleSeparator, int precision);

/// The same of an MJD. There is no carry: the text can hold hour 24 and seconds 60.000.
std::string MJDToDateTime(double mjd, std::string dateSeparator, std::string timeSeparator,
                          std::string middleSeparator, int precision);

/// Local date and time of seconds since the epoch: "2024-03-09 04:05:06".
std::string SysToDateTime(long time);

/// The calendar date on which the observing night began. A time shifted by the hours that falls into the
/// first half of a day belongs to the night of the day before; one shifted below 0 does not step back.
std::string DateOfNight(double mjd, double offsetHours, std::string separator);

/// The whole MJD of year, month and day in one text. Missing parts count as 0, further ones are ignored.
int DateToMJD(std::string text, std::string separator);

/// The fraction of a day of hour, minute and second in one text, by the same rules.
double TimeToDay(std::string text, std::string separator);

/// The MJD of a date text and a time text.
double StrToDateTime(std::string date, std::string time, std::string dateSeparator,
                     std::string timeSeparator);

/// Date and time of a date text with "-" and a time text with ":".
TDateTime StrDateTimeToDTCode(std::string date, std::string time);

/// The clock text of the pipeline's other platform. Here it reads no clock and is made of zeros:
/// "0-00-00T00:00:00" with the middle separator "T", followed by ".000" if the fraction is asked for.
/// Tracking messages carry it as their creation date.
std::string NowToDateTimeWin(bool fraction, std::string middleSeparator);
std::string NowToDateTimeWin(bool fraction, std::string middleSeparator, std::string dateSeparator,
                             std::string timeSeparator);

/// The date of the same clock: "0-00-00" with the separator "-".
std::string NowToDate(std::string separator);

/// The conversions of StrTELToDate, StrTELToTime and TimeToDay, of views.
int packedDate(std::string_view text);
double packedTime(std::string_view text);
double timeToDay(std::string_view text, char separator);

/// Reads an epoch into a whole MJD and the fraction of the day: the first two of the parts between its "T"s.
/// A text of one part leaves both as they were; a "T" at the end makes no further part.
void readEpoch(std::string_view text, DayNumbers& days, int& date, double& time);

} // namespace tavelinUtils
