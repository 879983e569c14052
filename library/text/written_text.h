// Written text: angles, dates and times written to where they stay in a line, by the rules of angle_text.h
// and date_text.h. Each function returns the end of its text, and takes sexagesimalRoom at most.

#pragma once

#include "../base/last_answer.h"
#include "../base/numbers.h"

#include <cstddef>

namespace tavelinUtils {

/// The room of an angle, a time or an epoch, whatever the value.
inline constexpr std::size_t sexagesimalRoom = 4 * scaledLength + numberRoom(largestDecimals);

/// What RAToStr and DEToStr give with seconds.
char* writeRA(char* to, double degrees, int precision, char separator);
char* writeDE(char* to, double degrees, int precision, char separator);

/// The same without separator and without the point: "0100000000" for 15.0 with precision 4.
char* writePackedRA(char* to, double degrees, int precision);
char* writePackedDE(char* to, double degrees, int precision);

/// What DayToTime, DayToTimeMEA and DayToTimeTEL give of the fraction of a day.
char* writeTime(char* to, double day, int precision, char separator);
char* writeTimeMEA(char* to, double day, int precision, bool rounded);
char* writeTimeTEL(char* to, double day);

/// What MJDToDate gives of a whole MJD. The memo is for one separator only.
char* writeDate(char* to, DateTexts& dates, int date, char separator);

/// An epoch of a tracking message: "2023-02-25T12:00:00.00000".
char* writeEpoch(char* to, DateTexts& dates, int date, double time);

/// Append what the functions of the same name write.
inline void appendRA(TextBuffer& out, double degrees, int precision, char separator)
{
    out.endAt(writeRA(out.room(sexagesimalRoom), degrees, precision, separator));
}
inline void appendDE(TextBuffer& out, double degrees, int precision, char separator)
{
    out.endAt(writeDE(out.room(sexagesimalRoom), degrees, precision, separator));
}
inline void appendTime(TextBuffer& out, double day, int precision, char separator)
{
    out.endAt(writeTime(out.room(sexagesimalRoom), day, precision, separator));
}
inline void appendDate(TextBuffer& out, DateTexts& dates, int date, char separator)
{
    out.endAt(writeDate(out.room(sexagesimalRoom), dates, date, separator));
}
inline void appendEpoch(TextBuffer& out, DateTexts& dates, int date, double time)
{
    out.endAt(writeEpoch(out.room(sexagesimalRoom), dates, date, time));
}

} // namespace tavelinUtils
