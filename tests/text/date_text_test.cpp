#include "text/date_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <type_traits>

using namespace tavelinUtils;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Puts the process into a time zone for the length of a test.
class ClockIn
{
public:
    explicit ClockIn(const char* zone)
    {
        if (const char* old = std::getenv("TZ")) {
            before = old;
        }
        setenv("TZ", zone, 1);
        tzset();
    }
    ~ClockIn()
    {
        if (before) {
            setenv("TZ", before->c_str(), 1);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }
    ClockIn(const ClockIn&) = delete;
    ClockIn& operator=(const ClockIn&) = delete;

private:
    std::optional<std::string> before;
};

// The rules of the time texts a second time, with the printing and reading of the C library.

std::string printed(double value, int precision)
{
    char text[400];
    std::snprintf(text, sizeof text, "%.*f", precision, value);
    return text;
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
    const double hours = std::strtod(printed((day - std::floor(day) + 1e-14) * 24.0, 12).c_str(), nullptr);
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
    if (std::strtod(seconds.c_str(), nullptr) < 10.0) {
        seconds = "0" + seconds;
    }
    return twoDigits(time.hour) + ":" + twoDigits(time.minute) + ":" + seconds;
}

/// Random fractions of a day, every second one a whole number of milliseconds, every fourth one behind a
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

static_assert(std::is_same_v<decltype(DateToMJD("", "")), int>);
static_assert(std::is_same_v<decltype(StrTELToDate("")), int>);

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

TEST(TimeTextMea, AppendedTimesAreThoseOfTheTextFunction)
{
    for (const double day : {0.0, 0.5, 0.5242592592592593, 0.04317125, 0.04374999537037038, 0.99999999999999,
                             -0.25, 60000.25, 1e300, notANumber})
    {
        for (const int precision : {0, 1, 2, 3, 6, 15, 20}) {
            for (const bool rounded : {false, true}) {
                SCOPED_TRACE(day);
                std::string out = "before";
                appendTimeMEA(out, day, precision, rounded);
                EXPECT_EQ(out, "before" + DayToTimeMEA(day, precision, rounded));
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

TEST(DateText, YearMonthAndDay)
{
    EXPECT_EQ(DateToStr(2023, 2, 25, "-"), "2023-02-25");
    EXPECT_EQ(DateToStr(2023, 12, 9, "."), "2023.12.09");
    EXPECT_EQ(DateToStr(2023, 10, 10, ""), "20231010");
    EXPECT_EQ(DateToStr(2023, 9, 30, " / "), "2023 / 09 / 30");
}

TEST(DateText, YearHasAsManyDigitsAsItHas)
{
    EXPECT_EQ(DateToStr(5, 3, 4, "-"), "5-03-04");
    EXPECT_EQ(DateToStr(0, 0, 0, "-"), "0-00-00");
    EXPECT_EQ(DateToStr(-44, 3, 15, "-"), "-44-03-15");
    EXPECT_EQ(DateToStr(12345, 6, 7, "-"), "12345-06-07");
}

TEST(DateText, NegativeMonthAndDayHaveTheZeroBeforeTheirSign)
{
    EXPECT_EQ(DateToStr(2023, -1, -12, "/"), "2023/0-1/0-12");
    EXPECT_EQ(DateToStr(2023, 100, 123, "/"), "2023/100/123");
}

TEST(DateText, DateOfAnMjd)
{
    EXPECT_EQ(MJDToDate(60000.0, "-"), "2023-02-25");
    EXPECT_EQ(MJDToDate(51544.9, "-"), "2000-01-01");
    EXPECT_EQ(MJDToDate(0.0, "."), "1858.11.17");
    EXPECT_EQ(MJDToDate(-677052.0, "-"), "5-03-04");
    EXPECT_EQ(MJDToDate(60000.0, ""), "20230225");
}

TEST(DateText, RefusedMjdIsAllZeros)
{
    EXPECT_EQ(MJDToDate(1e10, "-"), "0-00-00");
    EXPECT_EQ(MJDToDate(-1e10, "-"), "0-00-00");
    EXPECT_EQ(MJDToDate(notANumber, "-"), "0-00-00");
}

TEST(DateText, MeaDateHasTheLastTwoCharactersOfTheYear)
{
    EXPECT_EQ(MJDToDateMEA(60000.0), "250223");
    EXPECT_EQ(MJDToDateMEA(60000.75), "250223");
    EXPECT_EQ(MJDToDateMEA(51544.0), "010100");
    EXPECT_EQ(MJDToDateMEA(51543.0), "311299");
    EXPECT_EQ(MJDToDateMEA(53433.0), "040305");
    EXPECT_EQ(MJDToDateMEA(3830135.0), "070645"); // 12345
    EXPECT_EQ(MJDToDateMEA(-694938.0), "150344"); // -44
}

TEST(DateText, MeaDateOfAShortYearHasItWhole)
{
    EXPECT_EQ(MJDToDateMEA(-677052.0), "04035");
    EXPECT_EQ(MJDToDateMEA(-679306.0), "0101-1");
    EXPECT_EQ(MJDToDateMEA(1e10), "00000");
}

TEST(DateText, TelegramDateHasTheWholeYearAtItsEnd)
{
    EXPECT_EQ(MJDToDateTEL(60000.0), "25.02.2023");
    EXPECT_EQ(MJDToDateTEL(51543.5), "31.12.1999");
    EXPECT_EQ(MJDToDateTEL(-677052.0), "04.03.5");
    EXPECT_EQ(MJDToDateTEL(3830135.0), "07.06.12345");
    EXPECT_EQ(MJDToDateTEL(1e10), "00.00.0");
}

TEST(PackedDate, DayMonthAndTwoDigitsOfAYearAfter2000)
{
    const struct
    {
        const char* text;
        int mjd;
    } rows[] = {
        {"250223", 60000},     {"010100", 51544}, {"040305", 53433}, {"311299", 88068}, // 2099, not 1999
        {"010199", 87704},     {" 1 223", 59976}, {"+1+223", 59976}, {"310223", 60006}, // 3 March
        {"xx0223", 59975},                                                              // day 0
        {"2502231234", 60000}, // what follows the six characters is not looked at
        {"25022x", -605107},   // the year 202
        {"250023", 0},         // no month
        {"25xx23", 0},         {"251323", 0},     {"      ", 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(StrTELToDate(row.text), row.mjd);
        EXPECT_EQ(packedDate(row.text), row.mjd);
    }
}

TEST(PackedDate, FiveAndFourCharactersPassWithTheYearThatIsThere)
{
    EXPECT_EQ(StrTELToDate("01012"), -605162); // the year 202
    EXPECT_EQ(StrTELToDate("0101"), -671636);  // the year 20
    EXPECT_EQ(packedDate("01012"), -605162);
    EXPECT_EQ(packedDate("0101"), -671636);
}

TEST(PackedDate, BelowFourCharactersIsOutOfRange)
{
    for (const char* text : {"", "2", "25", "250"}) {
        SCOPED_TRACE(text);
        EXPECT_THROW(StrTELToDate(text), std::out_of_range);
        EXPECT_THROW(packedDate(text), std::out_of_range);
    }
}

TEST(PackedTime, SecondsHaveAnyNumberOfDecimals)
{
    const struct
    {
        const char* text;
        double day;
    } rows[] = {
        {"000000", 0.0},
        {"120000", 0.5},
        {"12000050", 0.500005787037037},
        {"123456", 0.5242592592592593},
        {"1234560000000", 0.5242592592592593},
        {"123456789", 0.5242683912037037},
        {"235959999", 0.999999988425926},
        {"240000", 1.0},
        {"120000abc", 0.5},
        {"abcdef", 0.0},
        {"-10000", -0.041666666666666664},
        {".50000", 0.020833333333333332},  // half an hour: hours may be a fraction, too
        {"120.50", 0.5005787037037037},    // minutes "0.", seconds "50."
        {"1200005e1", 0.5000578703703703}, // 00.5e1 seconds
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(StrTELToTime(row.text), row.day);
        EXPECT_EQ(packedTime(row.text), row.day);
    }
}

TEST(PackedTime, BelowSixCharactersIsOutOfRange)
{
    for (const char* text : {"", "1", "12", "123", "1234", "12345"}) {
        SCOPED_TRACE(text);
        EXPECT_THROW(StrTELToTime(text), std::out_of_range);
        EXPECT_THROW(packedTime(text), std::out_of_range);
    }
}

TEST(DateTimeText, EachSeparatorHasItsPlace)
{
    EXPECT_EQ(DateTimeToStr(2023, 2, 25, 1, 2, 3.456, "-", ":", "T", 2), "2023-02-25T01:02:03.46");
    EXPECT_EQ(DateTimeToStr(2023, 12, 9, 10, 11, 12.0, "/", ".", "  ", 0), "2023/12/09  10.11.12");
    EXPECT_EQ(DateTimeToStr(5, 3, 4, 5, 6, 7.0, "", "", "", 1), "50304050607.0");
}

TEST(DateTimeText, NothingIsCarried)
{
    EXPECT_EQ(DateTimeToStr(2023, 2, 25, 23, 59, 59.9996, "-", ":", "T", 3), "2023-02-25T23:59:60.000");
    EXPECT_EQ(DateTimeToStr(2023, 2, 25, 24, 60, 60.0, "-", ":", "T", 1), "2023-02-25T24:60:60.0");
}

TEST(DateTimeText, LeadingZeroOfTheSecondsLooksAtTheRoundedText)
{
    EXPECT_EQ(DateTimeToStr(2023, 2, 25, 1, 2, 9.996, "-", ":", "T", 2), "2023-02-25T01:02:10.00");
    EXPECT_EQ(DateTimeToStr(2023, 2, 25, 1, 2, 9.5, "-", ":", "T", 0), "2023-02-25T01:02:10");
    EXPECT_EQ(DateTimeToStr(2023, 2, 25, 1, 2, 8.5, "-", ":", "T", 0), "2023-02-25T01:02:08");
}

TEST(DateTimeText, NegativePartsAndSecondsThatAreNoNumber)
{
    EXPECT_EQ(DateTimeToStr(-1, -2, -3, -4, -5, -6.5, "/", ":", " ", 1), "-1/0-2/0-3 0-4:0-5:0-6.5");
    EXPECT_EQ(DateTimeToStr(2023, 2, 25, 1, 2, notANumber, "-", ":", "T", 1), "2023-02-25T01:02:nan");
}

TEST(DateTimeText, ARecordGivesTheSame)
{
    EXPECT_EQ(DateTimeToStr(TDateTime{2023, 2, 25, 1, 2, 3.456}, "-", ":", "T", 2), "2023-02-25T01:02:03.46");
    EXPECT_EQ(DateTimeToStr(TDateTime{2023, 2, 25, 23, 59, 59.9996}, "/", ".", " ", 3),
              "2023/02/25 23.59.60.000");
    EXPECT_EQ(DateTimeToStr(TDateTime{}, "-", ":", "T", 0), "0-00-00T00:00:00");
}

TEST(DateTimeText, DateAndTimeOfAnMjd)
{
    EXPECT_EQ(MJDToDateTime(60000.5, "-", ":", "T", 3), "2023-02-25T12:00:00.000");
    EXPECT_EQ(MJDToDateTime(60000.52425925926, "/", ".", " ", 2), "2023/02/25 12.34.56.00");
    EXPECT_EQ(MJDToDateTime(0.25, "-", ":", "T", 0), "1858-11-17T06:00:00");
    EXPECT_EQ(MJDToDateTime(-0.25, "-", ":", "T", 0), "1858-11-16T18:00:00");
    EXPECT_EQ(MJDToDateTime(-1e10, "-", ":", "T", 0), "0-00-00T00:00:00");
}

TEST(DateTimeText, MjdWithSeconds60OrHour24StandsSo)
{
    EXPECT_EQ(MJDToDateTime(60000.49999999884, "-", ":", "T", 3), "2023-02-25T11:59:60.000");
    EXPECT_EQ(MJDToDateTime(60000.49999999884, "-", ":", "T", 4), "2023-02-25T11:59:59.9999");
    EXPECT_EQ(MJDToDateTime(-1e-15, "-", ":", "T", 3), "1858-11-17T24:00:00.000");
}

TEST(DateTimeText, SecondsSinceTheEpochInLocalTime)
{
    {
        const ClockIn zone("UTC0");
        EXPECT_EQ(SysToDateTime(1709957106), "2024-03-09 04:05:06");
        EXPECT_EQ(SysToDateTime(0), "1970-01-01 00:00:00");
        EXPECT_EQ(SysToDateTime(-1), "1969-12-31 23:59:59");
        EXPECT_EQ(SysToDateTime(-62167219200), "0-01-01 00:00:00");
        EXPECT_EQ(SysToDateTime(std::numeric_limits<long>::max()), "0-00-00 00:00:00");
    }
    {
        const ClockIn zone("IST-5:30");
        EXPECT_EQ(SysToDateTime(1709957106), "2024-03-09 09:35:06");
    }
    {
        const ClockIn zone("CET-1CEST,M3.5.0,M10.5.0/3");
        EXPECT_EQ(SysToDateTime(1711846799), "2024-03-31 01:59:59");
        EXPECT_EQ(SysToDateTime(1711846800), "2024-03-31 03:00:00");
    }
}

TEST(NightDate, FirstHalfOfTheDayBelongsToTheNightBefore)
{
    EXPECT_EQ(DateOfNight(51544.75, 0.0, "-"), "2000-01-01");
    EXPECT_EQ(DateOfNight(51544.25, 0.0, "-"), "1999-12-31");
    EXPECT_EQ(DateOfNight(51544.0, 0.0, "-"), "1999-12-31");
    EXPECT_EQ(DateOfNight(51544.5, 0.0, "-"), "2000-01-01");
    EXPECT_EQ(DateOfNight(51544.499, 0.0, "-"), "1999-12-31");
    EXPECT_EQ(DateOfNight(60000.25, 0.0, ""), "20230224");
}

TEST(NightDate, OffsetInHoursShiftsTheTime)
{
    EXPECT_EQ(DateOfNight(51544.25, 6.0, "."), "2000.01.01");
    EXPECT_EQ(DateOfNight(51544.25, 5.0, "."), "1999.12.31");
    EXPECT_EQ(DateOfNight(51544.75, -12.0, "."), "1999.12.31");
    EXPECT_EQ(DateOfNight(51544.75, -6.0, "."), "2000.01.01");
    EXPECT_EQ(DateOfNight(51544.25, -6.0, "."), "1999.12.31"); // shifted to exactly 0
}

TEST(NightDate, TimesShiftedOutOfTheDayDoNotStepBack)
{
    EXPECT_EQ(DateOfNight(51544.125, -6.0, "-"), "2000-01-01");
    EXPECT_EQ(DateOfNight(51544.75, 12.0, "-"), "2000-01-01");
    EXPECT_EQ(DateOfNight(51544.0, 48.0, "-"), "2000-01-01");
}

TEST(NightDate, NegativeMjdHasItsTimeAboveTheFloor)
{
    EXPECT_EQ(DateOfNight(-0.25, 0.0, "-"), "1858-11-16");
    EXPECT_EQ(DateOfNight(-0.75, 0.0, "-"), "1858-11-15");
}

TEST(DateOfOneText, ThreePartsGiveAWholeMjd)
{
    EXPECT_EQ(DateToMJD("2023-02-25", "-"), 60000);
    EXPECT_EQ(DateToMJD("2023/2/25", "/"), 60000);
    EXPECT_EQ(DateToMJD("2023 02 25", " "), 60000);
    EXPECT_EQ(DateToMJD("2023::02::25", "::"), 60000);
    EXPECT_EQ(DateToMJD("2023-02-25-", "-"), 60000);
    EXPECT_EQ(DateToMJD("2023-02-25T12:00", "-"), 60000);
    EXPECT_EQ(DateToMJD("2023-02-31", "-"), 60006);
}

TEST(DateOfOneText, PartsBeyondTheThirdAreNotLookedAt)
{
    EXPECT_EQ(DateToMJD("2023-02-25-99", "-"), 60000);
    EXPECT_EQ(DateToMJD("2023-02-25-x-y-z", "-"), 60000);
}

TEST(DateOfOneText, MissingPartsCountAsZero)
{
    EXPECT_EQ(DateToMJD("2023-02", "-"), 59975); // day 0 of February is 31 January
    EXPECT_EQ(DateToMJD("2023-02-", "-"), 59975);
    EXPECT_EQ(DateToMJD("2023", "-"), 0);
    EXPECT_EQ(DateToMJD("", "-"), 0);
    EXPECT_EQ(DateToMJD("-", "-"), 0);
    EXPECT_EQ(DateToMJD("2023--25", "-"), 0);
    EXPECT_EQ(DateToMJD("-1-1", "-"), -678941); // an empty year is the year 0
    EXPECT_EQ(DateToMJD("2023-02-25", "/"), 0);
    EXPECT_EQ(DateToMJD("date", "-"), 0);
}

TEST(TimeOfOneText, ThreePartsGiveAFractionOfADay)
{
    EXPECT_EQ(TimeToDay("12:00:00", ":"), 0.5);
    EXPECT_EQ(TimeToDay("12:34:56", ":"), 0.5242592592592593);
    EXPECT_EQ(TimeToDay("12:34:56.5", ":"), 0.5242650462962962);
    EXPECT_EQ(TimeToDay("12 34 56.5", " "), 0.5242650462962962);
    EXPECT_EQ(TimeToDay("12::34::56.5", "::"), 0.5242650462962962);
    EXPECT_EQ(TimeToDay("24:00:00", ":"), 1.0);
    EXPECT_EQ(TimeToDay("25:61:61.5", ":"), 1.0847395833333333);
    EXPECT_EQ(TimeToDay("-1:30:0", ":"), -0.020833333333333332);
}

TEST(TimeOfOneText, HoursAndMinutesAreIntegersSecondsAreNot)
{
    EXPECT_EQ(TimeToDay("12.9:0.9:0", ":"), 0.5);
    EXPECT_EQ(TimeToDay("12:0:1e1", ":"), 0.5001157407407407);
    EXPECT_EQ(TimeToDay("0:0:1e1", ":"), 0.00011574074074074075);
    EXPECT_EQ(TimeToDay("1e1:0:0", ":"), 0.041666666666666664);
}

TEST(TimeOfOneText, MissingPartsCountAsZeroAndFurtherOnesDoNotCount)
{
    EXPECT_EQ(TimeToDay("12:30", ":"), 0.5208333333333334);
    EXPECT_EQ(TimeToDay("12", ":"), 0.5);
    EXPECT_EQ(TimeToDay("", ":"), 0.0);
    EXPECT_EQ(TimeToDay("::", ":"), 0.0);
    EXPECT_EQ(TimeToDay(":30:", ":"), 0.020833333333333332);
    EXPECT_EQ(TimeToDay("ab:cd:ef", ":"), 0.0);
    EXPECT_EQ(TimeToDay("12:34:56.5:78:90", ":"), 0.5242650462962962);
    EXPECT_EQ(TimeToDay("12-34-56", ":"), 0.5);
}

TEST(DateAndTimeTexts, MakeOneMjd)
{
    EXPECT_EQ(StrToDateTime("2023-02-25", "12:00:00", "-", ":"), 60000.5);
    EXPECT_EQ(StrToDateTime("2023.02.25", "12 34 56", ".", " "), 60000.52425925926);
    EXPECT_EQ(StrToDateTime("2023-02-25", "24:00:00", "-", ":"), 60001.0);
    EXPECT_EQ(StrToDateTime("2023-02-25", "", "-", ":"), 60000.0);
    EXPECT_EQ(StrToDateTime("", "12:00:00", "-", ":"), 0.5);
    EXPECT_EQ(StrToDateTime("2023-02-25", "-6:0:0", "-", ":"), 59999.75);
}

TEST(DateAndTimeTexts, MakeARecord)
{
    const struct
    {
        const char *date, *time;
        TDateTime dateTime;
    } rows[] = {
        {"2023-02-25", "12:00:00", {2023, 2, 25, 12, 0, 0.0}},
        {"2023-02-25", "12:34:56.5", {2023, 2, 25, 12, 34, 56.499999999600306}},
        {"2023-02-31", "06:00:00", {2023, 3, 3, 6, 0, 0.0}},
        {"2023-02-25", "25:61:61.5", {2023, 2, 25, 2, 2, 1.4999999999998082}}, // the date stays
        {"2023-02-25", "-1:30:0", {2023, 2, 25, 23, 30, 0.0}},
        {"2023-02-25", "", {2023, 2, 25, 0, 0, 0.0}},
        {"", "", {1858, 11, 17, 0, 0, 0.0}}, // a date that is none is MJD 0
        {"2023/02/25", "12.00.00", {1858, 11, 17, 12, 0, 0.0}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.date) + " " + row.time);
        const TDateTime dateTime = StrDateTimeToDTCode(row.date, row.time);
        EXPECT_EQ(dateTime.year, row.dateTime.year);
        EXPECT_EQ(dateTime.month, row.dateTime.month);
        EXPECT_EQ(dateTime.day, row.dateTime.day);
        EXPECT_EQ(dateTime.hour, row.dateTime.hour);
        EXPECT_EQ(dateTime.minute, row.dateTime.minute);
        EXPECT_EQ(dateTime.seconds, row.dateTime.seconds);
    }
}

TEST(ClockOfTheOtherPlatform, ShowsZerosWhateverTheTime)
{
    EXPECT_EQ(NowToDateTimeWin(false, "T"), "0-00-00T00:00:00");
    EXPECT_EQ(NowToDateTimeWin(true, "T"), "0-00-00T00:00:00.000");
    EXPECT_EQ(NowToDateTimeWin(false, ""), "0-00-0000:00:00");
    EXPECT_EQ(NowToDateTimeWin(true, "   "), "0-00-00   00:00:00.000");
}

TEST(ClockOfTheOtherPlatform, TakesSeparators)
{
    EXPECT_EQ(NowToDateTimeWin(false, " ", "/", "."), "0/00/00 00.00.00");
    EXPECT_EQ(NowToDateTimeWin(true, "_", "", "-"), "00000_00-00-00.000");
}

TEST(ClockOfTheOtherPlatform, ShowsAZeroDate)
{
    EXPECT_EQ(NowToDate("-"), "0-00-00");
    EXPECT_EQ(NowToDate("."), "0.00.00");
    EXPECT_EQ(NowToDate(""), "00000");
}
