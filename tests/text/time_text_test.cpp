#include "text/date_text.h"

#include "base/text_buffer.h"
#include "support/locales.h"
#include "support/written.h"
#include "text/written_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>

using namespace tavelinUtils;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// The rules of the time texts a second time, with the printing and reading of the C library.

std::string printed(double value, int precision)
{
    return printInC("%.*f", precision, value);
}

std::string twoDigits(int value)
{
    return (value <= 9 ? "0" : "") + std::to_string(value);
}

struct PlainTime
{
    int hour, minute;
    double second;
};

PlainTime plainTimeOf(double day)
{
    const double hours = readInC(printed((day - std::floor(day) + 1e-14) * 24.0, 12));
    const int hour = static_cast<int>(hours);
    const double minutes = (hours - hour) * 60.0;
    const int minute = static_cast<int>(minutes);
    return {hour, minute, (minutes - minute) * 60.0};
}

std::string plainMea(double day, int precision, bool rounded)
{
    const PlainTime time = plainTimeOf(day);
    std::string seconds = printed(time.second, rounded ? precision : 15);
    if (seconds.find('.') != std::string::npos) {
        seconds.erase(seconds.find('.'), 1);
    }
    if (time.second < 10.0) {
        seconds = "0" + seconds;
    }
    if (!rounded) {
        seconds = seconds.substr(0, static_cast<std::size_t>(precision) + 2);
    }
    return twoDigits(time.hour) + twoDigits(time.minute) + seconds;
}

std::string plainTime(double day, int precision)
{
    PlainTime time = plainTimeOf(day);
    std::string seconds = printed(time.second, precision);
    if (seconds.substr(0, 2) == "60") {
        seconds = printed(0.0, precision);
        ++time.minute;
    }
    if (time.minute == 60) {
        time.minute = 0;
        ++time.hour;
    }
    if (time.hour == 24) {
        time.hour = 0;
    }
    if (readInC(seconds) < 10.0) {
        seconds = "0" + seconds;
    }
    return twoDigits(time.hour) + ":" + twoDigits(time.minute) + ":" + seconds;
}

/// Random fractions of a day, every second one a whole number of milliseconds, every fourth one added to a
/// whole MJD.
class Days
{
public:
    double next()
    {
        state = state * 6364136223846793005u + 1442695040888963407u;
        const std::uint64_t bits = state >> 11;
        double day = 0.0;
        if (++count % 2 == 0) {
            const auto milliseconds = static_cast<int>(bits % 86400000);
            day = (milliseconds % 60000 / 1000.0 / 3600.0 +
                   (milliseconds / 60000 % 60 / 60.0 + milliseconds / 3600000)) /
                  24.0;
        } else {
            day = static_cast<double>(bits) / 9007199254740992.0;
        }
        return count % 4 == 0 ? day + 60000.0 : day;
    }

private:
    std::uint64_t state = 20230225;
    int count = 0;
};

} // namespace

TEST(TimeText, HourMinuteAndRoundedSeconds)
{
    EXPECT_EQ(DayToTime(1, 2, 3.456, 1, ":"), "01:02:03.5");
    EXPECT_EQ(DayToTime(12, 34, 56.0, 3, ":"), "12:34:56.000");
    EXPECT_EQ(DayToTime(0, 0, 0.0, 2, ":"), "00:00:00.00");
    EXPECT_EQ(DayToTime(9, 10, 11.0, 0, ":"), "09:10:11");
    EXPECT_EQ(DayToTime(10, 9, 9.5, 6, ":"), "10:09:09.500000");
}

TEST(TimeText, SeparatorIsAnyText)
{
    EXPECT_EQ(DayToTime(1, 2, 3.456, 2, ""), "010203.46");
    EXPECT_EQ(DayToTime(1, 2, 3.456, 2, " "), "01 02 03.46");
    EXPECT_EQ(DayToTime(1, 2, 3.456, 2, "--"), "01--02--03.46");
}

TEST(TimeText, PrecisionZeroGivesNoPointAndTiesGoToTheEvenSecond)
{
    EXPECT_EQ(DayToTime(1, 2, 2.5, 0, ":"), "01:02:02");
    EXPECT_EQ(DayToTime(1, 2, 3.5, 0, ":"), "01:02:04");
    EXPECT_EQ(DayToTime(1, 2, 9.5, 0, ":"), "01:02:10");
    EXPECT_EQ(DayToTime(1, 2, 59.5, 0, ":"), "01:03:00");
}

TEST(TimeText, SecondsThatRoundUpTo60AreCarried)
{
    EXPECT_EQ(DayToTime(11, 59, 59.9999, 2, ":"), "12:00:00.00");
    EXPECT_EQ(DayToTime(11, 58, 59.9999, 2, ":"), "11:59:00.00");
    EXPECT_EQ(DayToTime(9, 9, 59.96, 1, ":"), "09:10:00.0");
    EXPECT_EQ(DayToTime(11, 59, 59.9999, 4, ":"), "11:59:59.9999");
    EXPECT_EQ(DayToTime(11, 59, 59.994, 2, ":"), "11:59:59.99");
}

TEST(TimeText, CarryOverMidnightGivesHourZero)
{
    EXPECT_EQ(DayToTime(23, 59, 59.9999, 2, ":"), "00:00:00.00");
    EXPECT_EQ(DayToTime(23, 59, 59.5, 0, ":"), "00:00:00");
}

// The carry looks at the first two characters of the seconds.
TEST(TimeText, AnyTextOfSecondsThatBeginsWith60IsCarried)
{
    EXPECT_EQ(DayToTime(1, 2, 60.0, 2, ":"), "01:03:00.00");
    EXPECT_EQ(DayToTime(1, 2, 60.99, 2, ":"), "01:03:00.00");
    EXPECT_EQ(DayToTime(1, 2, 60.99, 1, ":"), "01:02:61.0");
    EXPECT_EQ(DayToTime(1, 2, 600.0, 1, ":"), "01:03:00.0");
    EXPECT_EQ(DayToTime(1, 2, 6.0, 0, ":"), "01:02:06");
    EXPECT_EQ(DayToTime(1, 2, 6.04, 1, ":"), "01:02:06.0");
    EXPECT_EQ(DayToTime(1, 2, 75.5, 1, ":"), "01:02:75.5");
}

TEST(TimeText, Minute60AndHour24AreCarriedAlsoWithoutSeconds)
{
    EXPECT_EQ(DayToTime(1, 60, 5.0, 1, ":"), "02:00:05.0");
    EXPECT_EQ(DayToTime(23, 60, 5.0, 1, ":"), "00:00:05.0");
    EXPECT_EQ(DayToTime(24, 0, 0.0, 1, ":"), "00:00:00.0");
    EXPECT_EQ(DayToTime(24, 5, 6.0, 1, ":"), "00:05:06.0");
    EXPECT_EQ(DayToTime(1, 61, 5.0, 1, ":"), "01:61:05.0");
    EXPECT_EQ(DayToTime(25, 0, 0.0, 1, ":"), "25:00:00.0");
    EXPECT_EQ(DayToTime(1, 60, 60.0, 1, ":"), "01:61:00.0");
}

TEST(TimeText, LeadingZeroLooksAtTheRoundedText)
{
    EXPECT_EQ(DayToTime(1, 2, 9.996, 2, ":"), "01:02:10.00");
    EXPECT_EQ(DayToTime(1, 2, 9.994, 2, ":"), "01:02:09.99");
}

TEST(TimeText, NegativePartsHaveTheZeroBeforeTheirSign)
{
    EXPECT_EQ(DayToTime(-1, -5, -1.5, 1, ":"), "0-1:0-5:0-1.5");
    EXPECT_EQ(DayToTime(1, 2, -0.0, 1, ":"), "01:02:0-0.0");
    EXPECT_EQ(DayToTime(1, 2, -60.0, 1, ":"), "01:02:0-60.0");
}

TEST(TimeText, SecondsThatAreNoFiniteNumber)
{
    EXPECT_EQ(DayToTime(1, 2, notANumber, 2, ":"), "01:02:nan");
    EXPECT_EQ(DayToTime(1, 2, infinity, 2, ":"), "01:02:inf");
    EXPECT_EQ(DayToTime(1, 2, -infinity, 2, ":"), "01:02:0-inf");
}

TEST(TimeText, NegativePrecisionCountsAsSix)
{
    EXPECT_EQ(DayToTime(1, 2, 3.5, -1, ":"), "01:02:03.500000");
}

TEST(TimeText, FractionOfADayIsSplitAndCarriedLikewise)
{
    const struct
    {
        double day;
        int precision;
        const char* text;
    } rows[] = {
        {0.5, 2, "12:00:00.00"},
        {0.5242592592592593, 3, "12:34:56.000"},
        {0.5242592592592593, 12, "12:34:55.999999999202"},
        {0.49999999884259255, 2, "12:00:00.00"},
        {0.9999999988425926, 3, "00:00:00.000"},
        {0.9999999988425926, 4, "23:59:59.9999"},
        {0.99999999999999, 1, "00:00:00.0"},
        {0.43749999999, 3, "10:30:00.000"},
        {0.45833333331, 3, "11:00:00.000"},
        {0.04317125, 2, "01:02:10.00"},
        {0.04317125, 3, "01:02:09.996"},
        {51544.25, 0, "06:00:00"},
        {60000.52425925926, 6, "12:34:56.000000"},
        {60000.52425925926, 7, "12:34:56.0000003"},
        {-0.25, 1, "18:00:00.0"},
        {1e300, 0, "00:00:00"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(DayToTime(row.day, row.precision, ":"), row.text);
    }
    EXPECT_EQ(DayToTime(0.25, 1, " "), "06 00 00.0");
    EXPECT_EQ(DayToTime(notANumber, 2, ":"), "00:00:nan");
}

TEST(TimeText, ManyTimesKeepTheRules)
{
    Days days;
    int wrong = 0;
    for (int i = 0; i < 30000 && wrong < 3; ++i) {
        const double day = days.next();
        const int precision = i % 7;
        if (DayToTime(day, precision, ":") != plainTime(day, precision)) {
            ++wrong;
            EXPECT_EQ(DayToTime(day, precision, ":"), plainTime(day, precision)) << printed(day, 20);
        }
    }
}

TEST(TimeText, WrittenTimesAreThoseOfTheTextFunction)
{
    for (const double day :
         {0.0, 0.5, 0.5242592592592593, 0.99999999999999, -0.25, 60000.25, 1e300, notANumber}) {
        for (const int precision : {-1, 0, 2, 5, 20}) {
            for (const char separator : {':', ' ', '.'}) {
                SCOPED_TRACE(std::to_string(day) + " " + std::to_string(precision) + separator);
                EXPECT_EQ(written([=](char* to) { return writeTime(to, day, precision, separator); }),
                          DayToTime(day, precision, std::string(1, separator)));
            }
        }
    }
}

TEST(TimeTextMea, SecondsAreCutToThePrecision)
{
    const struct
    {
        double day;
        int precision;
        const char* text;
    } rows[] = {
        {0.0, 3, "000000000"},
        {0.5, 3, "120000000"},
        {0.5, 0, "120000"},
        {60000.25, 3, "060000000"},
        {-0.25, 3, "180000000"},
        {0.5242592592592593, 3, "123455999"}, // 12:34:56; hours are rounded first, seconds cut then
        {0.04309555555555556, 0, "010203"},
        {0.04309555555555556, 3, "010203456"},
        {0.04309555555555556, 5, "01020345600"},
        {0.04309555555555556, -1, "01020"},
        {0.04309555555555556, -2, "0102"},
        {0.04309555555555556, -9, "0102"},
        {0.04374999537037038, 3, "010259999"}, // 59.9996 s
        {0.04317125, 2, "01020999"},           // 9.996 s
        {0.2133015046296296, 1, "0507092"},
        {0.9999999988425926, 3, "235959999"},
        {1.1574074074074074e-08, 3, "000000001"},
        {1.1574074074074074e-08, 2, "00000000"},
        {0.99999999999999, 3, "240000000"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(DayToTimeMEA(row.day, row.precision, false), row.text);
    }
}

TEST(TimeTextMea, TwelveThirtyFourFiftySixLosesItsLastMillisecond)
{
    EXPECT_EQ(DayToTimeMEA(TimeToDay(12, 34, 56.0), 3, false), "123455999");
}

TEST(TimeTextMea, CutSecondsHaveFifteenDecimalsAtMost)
{
    EXPECT_EQ(DayToTimeMEA(0.04309555555555556, 13, false), "0102034560000024003");
    EXPECT_EQ(DayToTimeMEA(0.04309555555555556, 15, false), "010203456000002400312");
    EXPECT_EQ(DayToTimeMEA(0.04309555555555556, 20, false), "010203456000002400312");
    EXPECT_EQ(DayToTimeMEA(0.5242592592592593, 20, false), "123455999999999202146");
}

TEST(TimeTextMea, RoundedSecondsAreNotCarried)
{
    const struct
    {
        double day;
        int precision;
        const char* text;
    } rows[] = {
        {0.5, 2, "12000000"},
        {0.5, 0, "120000"},
        {0.5242592592592593, 3, "123456000"},
        {0.04309555555555556, 2, "01020346"},
        {0.04309555555555556, 0, "010203"},
        {0.04374995370370371, 2, "01026000"},  // 59.996 s
        {0.04374999537037038, 3, "010260000"}, // 59.9996 s
        {0.9999999988425926, 3, "235960000"},
        {0.2133015046296296, 1, "0507092"},
        {0.2133015046296296, 2, "05070925"},
        {0.99999999999999, 3, "240000000"},
        {-0.25, 2, "18000000"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(DayToTimeMEA(row.day, row.precision, true), row.text);
    }
}

TEST(TimeTextMea, LeadingZeroLooksAtTheValueAndNotAtTheRoundedText)
{
    EXPECT_EQ(DayToTimeMEA(0.04317125, 2, true), "010201000"); // 9.996 s
    EXPECT_EQ(DayToTimeMEA(0.04317125, 0, true), "0102010");
    EXPECT_EQ(DayToTimeMEA(0.04317125, 3, true), "010209996");
}

TEST(TimeTextMea, SecondsThatAreNoNumber)
{
    EXPECT_EQ(DayToTimeMEA(notANumber, 3, true), "0000nan");
    EXPECT_EQ(DayToTimeMEA(notANumber, 3, false), "0000nan");
}

TEST(TimeTextMea, ManyTimesKeepTheRules)
{
    Days days;
    int wrong = 0;
    for (int i = 0; i < 60000 && wrong < 3; ++i) {
        const double day = days.next();
        const int precision = i % 6;
        const bool rounded = i % 3 == 0;
        if (DayToTimeMEA(day, precision, rounded) != plainMea(day, precision, rounded)) {
            ++wrong;
            EXPECT_EQ(DayToTimeMEA(day, precision, rounded), plainMea(day, precision, rounded))
                << printed(day, 20);
        }
    }
}

TEST(TimeTextMea, WrittenTimesAreThoseOfTheTextFunction)
{
    for (const double day : {0.0, 0.5, 0.5242592592592593, 0.04317125, 0.04374999537037038, 0.99999999999999,
                             -0.25, 60000.25, 1e300, notANumber})
    {
        for (const int precision : {0, 1, 2, 3, 6, 15, 20}) {
            for (const bool rounded : {false, true}) {
                SCOPED_TRACE(day);
                EXPECT_EQ(written([=](char* to) { return writeTimeMEA(to, day, precision, rounded); }),
                          DayToTimeMEA(day, precision, rounded));
            }
        }
    }
}

TEST(TimeTextTelegram, TwoDecimalsRoundedWithoutCarry)
{
    EXPECT_EQ(DayToTimeTEL(0.5), "12:00:00.00");
    EXPECT_EQ(DayToTimeTEL(0.5242592592592593), "12:34:56.00");
    EXPECT_EQ(DayToTimeTEL(0.04309555555555556), "01:02:03.46");
    EXPECT_EQ(DayToTimeTEL(60000.25), "06:00:00.00");
    EXPECT_EQ(DayToTimeTEL(0.04374995370370371), "01:02:60.00");
    EXPECT_EQ(DayToTimeTEL(0.9999999988425926), "23:59:60.00");
    EXPECT_EQ(DayToTimeTEL(0.99999999999999), "24:00:00.00");
}

TEST(TimeTextTelegram, LeadingZeroLooksAtTheValueAndNotAtTheRoundedText)
{
    EXPECT_EQ(DayToTimeTEL(0.04317125), "01:02:010.00");
}

TEST(TimeTextTelegram, WrittenTimesAreThoseOfTheTextFunction)
{
    for (const double day :
         {0.0, 0.5, 0.04317125, 0.04374995370370371, 0.99999999999999, -0.25, 60000.25, notANumber})
    {
        SCOPED_TRACE(day);
        EXPECT_EQ(written([day](char* to) { return writeTimeTEL(to, day); }), DayToTimeTEL(day));
    }
}
