#include "text/date_text.h"

#include "base/last_answer.h"
#include "base/numbers.h"
#include "base/text_buffer.h"
#include "base/tokens.h"
#include "math/scalars.h"
#include "text/angle_text.h"
#include "text/number_text.h"
#include "text/written_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>

namespace tavelinUtils {
namespace {

struct TimeOfDay
{
    int hour = 0;
    int minute = 0;
    double seconds = 0;
};

TimeOfDay timeOfDay(double day)
{
    TimeOfDay time;
    DayToTime(day, time.hour, time.minute, time.seconds);
    return time;
}

struct Date
{
    int year = 0;
    int month = 0;
    int day = 0;
};

Date dateOf(double mjd)
{
    Date date;
    MJDToYMD(mjd, date.year, date.month, date.day);
    return date;
}

// The room of a date or a time with these separators.
std::size_t roomOf(int precision, std::string_view separator)
{
    return sexagesimalRoom + numberRoom(precision) + 2 * separator.size();
}

char* writeDate(char* to, const Date& date, std::string_view separator)
{
    to = writeText(writeInt(to, date.year), separator);
    to = writeText(writeTwoDigits(to, date.month), separator);
    return writeTwoDigits(to, date.day);
}

// The separator is a character or a text.
template <class Separator>
char* writeHourAndMinute(char* to, int hour, int minute, Separator separator)
{
    to = writeText(writeTwoDigits(to, hour), separator);
    return writeText(writeTwoDigits(to, minute), separator);
}

// The "0" before short seconds depends on the value here: 9.996 gives 010.00 with two decimals.
char* writeSecondsByValue(char* to, double seconds, int precision)
{
    *to = '0';
    return writeFixed(to + (seconds < 10.0 ? 1 : 0), seconds, precision);
}

void carryMinutes(TimeOfDay& time)
{
    if (time.minute == 60) {
        ++time.hour;
        time.minute = 0;
    }
    if (time.hour == 24) {
        time.hour = 0; // the date stays as it was, and the caller does not learn of the carry
    }
}

// Whether the text of the seconds begins with 60.
bool areShownAsSixty(double seconds, int precision)
{
    if (seconds >= 0.0 && seconds < 59.0) {
        return false;
    }
    TextBuffer text;
    appendFixed(text, seconds, precision);
    return text.view().starts_with("60");
}

// With the carry that the other time texts do not have.
template <class Separator>
char* writeCarriedTime(char* to, TimeOfDay time, int precision, Separator separator)
{
    if (areShownAsSixty(time.seconds, precision)) {
        time.seconds = 0;
        ++time.minute;
    }
    carryMinutes(time);
    to = writeHourAndMinute(to, time.hour, time.minute, separator);
    return writeFixedTwoDigits(to, time.seconds, precision);
}

// Cuts seconds without looking at many decimals, where these cannot matter: they are no more than a hair from
// the value, which is further from a digit's end. Nothing is written, and a null pointer returned, elsewhere.
// The seconds are those of a time of day: below 60, or not-a-number.
char* writeClearlyCut(char* to, double seconds, int precision)
{
    constexpr double hair = 0x1p-36;
    constexpr int mostPrecision = 3; // with more the product itself may be further off
    if (!(seconds > 0.0) || precision < 0 || precision > mostPrecision) {
        return nullptr;
    }
    const double product = seconds * exactPowers[precision];
    const auto whole = static_cast<std::uint64_t>(product);
    const double rest = product - static_cast<double>(whole);
    return rest > hair && rest < 1.0 - hair ? writeDigits(to, whole, precision + 2) : nullptr;
}

// The seconds with many decimals, cut to the precision; the decimals that are cut off take part in the
// rounding of the last of the many.
char* writeCutSeconds(char* to, double seconds, int precision)
{
    if (char* const end = writeClearlyCut(to, seconds, precision)) {
        return end;
    }
    constexpr int manyDecimals = 15;
    char* const end = withoutPoint(to, writeSecondsByValue(to, seconds, manyDecimals));
    const std::ptrdiff_t kept = std::ptrdiff_t{std::max(precision, -2)} + 2;
    return to + std::min(end - to, kept);
}

// The first three parts of a text at a separator of any length; a missing part is empty.
std::array<std::string, 3> partsAt(const std::string& text, const std::string& separator)
{
    std::array<std::string, 3> parts;
    std::size_t count = 0;
    forEachToken(text + separator, separator, [&](std::string_view part) {
        if (count < parts.size()) {
            parts[count++] = part;
        }
    });
    return parts;
}

} // namespace

std::string DayToTime(int hour, int minute, double second, int precision, std::string separator)
{
    TextBuffer text;
    char* const to = text.room(roomOf(precision, separator));
    text.endAt(writeCarriedTime(to, {hour, minute, second}, precision, std::string_view(separator)));
    return text.str();
}

char* writeTime(char* to, double day, int precision, char separator)
{
    return writeCarriedTime(to, timeOfDay(day), precision, separator);
}

std::string DayToTime(double day, int precision, std::string separator)
{
    TextBuffer text;
    char* const to = text.room(roomOf(precision, separator));
    text.endAt(writeCarriedTime(to, timeOfDay(day), precision, std::string_view(separator)));
    return text.str();
}

char* writeTimeMEA(char* to, double day, int precision, bool rounded)
{
    const TimeOfDay time = timeOfDay(day);
    to = writeHourAndMinute(to, time.hour, time.minute, std::string_view());
    return rounded ? writePackedByValue(to, time.seconds, precision)
                   : writeCutSeconds(to, time.seconds, precision);
}

std::string DayToTimeMEA(double day, int precision, bool rounded)
{
    TextBuffer text;
    text.endAt(writeTimeMEA(text.room(roomOf(precision, "")), day, precision, rounded));
    return text.str();
}

char* writeTimeTEL(char* to, double day)
{
    const TimeOfDay time = timeOfDay(day);
    return writeSecondsByValue(writeHourAndMinute(to, time.hour, time.minute, ':'), time.seconds, 2);
}

std::string DayToTimeTEL(double day)
{
    TextBuffer text;
    text.endAt(writeTimeTEL(text.room(sexagesimalRoom), day));
    return text.str();
}

std::string DateToStr(int year, int month, int day, std::string separator)
{
    TextBuffer text;
    text.endAt(writeDate(text.room(roomOf(0, separator)), {year, month, day}, separator));
    return text.str();
}

std::string MJDToDate(double mjd, std::string separator)
{
    const Date date = dateOf(mjd);
    return DateToStr(date.year, date.month, date.day, separator);
}

std::string MJDToDateMEA(double mjd)
{
    const Date date = dateOf(mjd);
    TextBuffer text;
    text.endAt(writeTwoDigits(writeTwoDigits(text.room(sexagesimalRoom), date.day), date.month));
    const std::string year = IntToStr(date.year);
    text += year.size() > 2 ? year.substr(year.size() - 2) : year;
    return text.str();
}

std::string MJDToDateTEL(double mjd)
{
    const Date date = dateOf(mjd);
    TextBuffer text;
    char* const day = text.room(sexagesimalRoom);
    char* const month = writeText(writeTwoDigits(day, date.day), '.');
    text.endAt(writeInt(writeText(writeTwoDigits(month, date.month), '.'), date.year));
    return text.str();
}

int packedDate(std::string_view text)
{
    const std::string_view year = text.substr(4, 2);
    return cutToInt(
        YMDToMJD(toInt(std::string("20").append(year)), toInt(text.substr(2, 2)), toInt(text.substr(0, 2))));
}

double packedTime(std::string_view text)
{
    const auto dayOf = [](double hour, double minute, double second) {
        return (second / 3600.0 + (minute / 60.0 + hour)) / 24.0;
    };
    if (const auto packed = packedDigits(text)) {
        return dayOf(packed->whole, packed->minutes, packed->seconds);
    }
    const double second = packedSeconds(text, 4);
    return dayOf(toDouble(text.substr(0, 2)), toDouble(text.substr(2, 2)), second);
}

int StrTELToDate(std::string text)
{
    return packedDate(text);
}

double StrTELToTime(std::string text)
{
    return packedTime(text);
}

std::string DateTimeToStr(int year, int month, int day, int hour, int minute, double second,
                          std::string dateSeparator, std::string timeSeparator, std::string middleSeparator,
                          int precision)
{
    TextBuffer text;
    char* to =
        text.room(roomOf(precision, dateSeparator) + roomOf(0, timeSeparator) + middleSeparator.size());
    to = writeText(writeDate(to, {year, month, day}, dateSeparator), middleSeparator);
    to = writeHourAndMinute(to, hour, minute, std::string_view(timeSeparator));
    text.endAt(writeFixedTwoDigits(to, second, precision));
    return text.str();
}

std::string DateTimeToStr(const TDateTime& dateTime, std::string dateSeparator, std::string timeSeparator,
                          std::string middleSeparator, int precision)
{
    return DateTimeToStr(dateTime.year, dateTime.month, dateTime.day, dateTime.hour, dateTime.minute,
                         dateTime.seconds, dateSeparator, timeSeparator, middleSeparator, precision);
}

std::string MJDToDateTime(double mjd, std::string dateSeparator, std::string timeSeparator,
                          std::string middleSeparator, int precision)
{
    return DateTimeToStr(MJDToDateTime(mjd), dateSeparator, timeSeparator, middleSeparator, precision);
}

std::string SysToDateTime(long time)
{
    TDateTime local;
    int second = 0;
    SysToDateTime(time, local.year, local.month, local.day, local.hour, local.minute, second);
    local.seconds = second;
    return DateTimeToStr(local, "-", ":", " ", 0);
}

std::string DateOfNight(double mjd, double offsetHours, std::string separator)
{
    const double shifted = tavelinMath::Frac(mjd) + offsetHours / 24.0;
    const bool begunTheDayBefore = shifted >= 0.0 && shifted < 0.5;
    return MJDToDate(begunTheDayBefore ? mjd - 1 : mjd, separator);
}

int DateToMJD(std::string text, std::string separator)
{
    const auto [year, month, day] = partsAt(text, separator);
    return DateToMJD(year, month, day);
}

double timeToDay(std::string_view text, char separator)
{
    if (const auto digits = separatedDigits(text, separator)) {
        return TimeToDay(digits->whole, digits->minutes, digits->seconds);
    }
    const auto [hour, minute, second] = threeParts(text, separator);
    return TimeToDay(toInt(hour), toInt(minute), toDouble(second));
}

double TimeToDay(std::string text, std::string separator)
{
    const auto [hour, minute, second] = partsAt(text, separator);
    return TimeToDay(toInt(hour), toInt(minute), toDouble(second));
}

double StrToDateTime(std::string date, std::string time, std::string dateSeparator, std::string timeSeparator)
{
    return DateToMJD(date, dateSeparator) + TimeToDay(time, timeSeparator);
}

TDateTime StrDateTimeToDTCode(std::string date, std::string time)
{
    TDateTime dateTime;
    MJDToYMD(DateToMJD(date, "-"), dateTime.year, dateTime.month, dateTime.day);
    DayToTime(TimeToDay(time, ":"), dateTime.hour, dateTime.minute, dateTime.seconds);
    return dateTime;
}

std::string NowToDateTimeWin(bool fraction, std::string middleSeparator)
{
    return NowToDateTimeWin(fraction, middleSeparator, "-", ":");
}

std::string NowToDateTimeWin(bool fraction, std::string middleSeparator, std::string dateSeparator,
                             std::string timeSeparator)
{
    return DateTimeToStr({}, dateSeparator, timeSeparator, middleSeparator, fraction ? 3 : 0);
}

std::string NowToDate(std::string separator)
{
    return DateToStr(0, 0, 0, separator);
}

char* writeDate(char* to, DateTexts& dates, int date, char separator)
{
    const auto textOf = [separator](int day) { return MJDToDate(day, std::string(1, separator)); };
    return writeText(to, dates.answerTo(date, textOf));
}

char* writeEpoch(char* to, DateTexts& dates, int date, double time)
{
    to = writeText(writeDate(to, dates, date, '-'), 'T');
    return writeTime(to, time, 5, ':');
}

void readEpoch(std::string_view text, DayNumbers& days, int& date, double& time)
{
    if (text.ends_with('T')) {
        text.remove_suffix(1); // a trailing T separates nothing
    }
    std::array<std::string_view, 2> parts;
    if (cutParts(text, 'T', parts) >= parts.size()) {
        date = days.answerTo(parts[0], [](std::string_view day) { return DateToMJD(std::string(day), "-"); });
        time = timeToDay(parts[1], ':');
    }
}

} // namespace tavelinUtils
