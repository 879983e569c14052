#include "text/date_text.h"

#include "base/last_answer.h"

#include "base/text_buffer.h"
#include "support/time_zone.h"
#include "support/written.h"
#include "text/written_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

using namespace tavelinUtils;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

static_assert(std::is_same_v<decltype(DateToMJD("", "")), int>);
static_assert(std::is_same_v<decltype(StrTELToDate("")), int>);

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

TEST(DateText, WrittenDatesAreThoseOfTheTextFunction)
{
    DateTexts dates;
    for (const int date : {60000, 60000, 0, 60000, 51544, -671581, 0, 2147483647}) {
        SCOPED_TRACE(date);
        EXPECT_EQ(written([&dates, date](char* to) { return writeDate(to, dates, date, '-'); }),
                  MJDToDate(date, "-"));
    }
}

// A memo knows the date alone: the separator of the first question stays in its texts.
TEST(DateText, MemoServesOneSeparator)
{
    DateTexts dates;
    TextBuffer out;
    appendDate(out, dates, 60000, '-');
    appendDate(out, dates, 60000, '/');
    appendDate(out, dates, 60001, '/');
    EXPECT_EQ(out.view(), "2023-02-252023-02-252023/02/26");
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
        const TimeZone zone("UTC0");
        EXPECT_EQ(SysToDateTime(1709957106), "2024-03-09 04:05:06");
        EXPECT_EQ(SysToDateTime(0), "1970-01-01 00:00:00");
        EXPECT_EQ(SysToDateTime(-1), "1969-12-31 23:59:59");
        EXPECT_EQ(SysToDateTime(-62167219200), "0-01-01 00:00:00");
        EXPECT_EQ(SysToDateTime(std::numeric_limits<long>::max()), "0-00-00 00:00:00");
    }
    {
        const TimeZone zone("IST-5:30");
        EXPECT_EQ(SysToDateTime(1709957106), "2024-03-09 09:35:06");
    }
    {
        const TimeZone zone("CET-1CEST,M3.5.0,M10.5.0/3");
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

TEST(TimeOfOneText, AViewGivesWhatItsTextGives)
{
    for (const char* text : {"12:00:00", "12:34:56.5", "24:00:00", "25:61:61.5", "-1:30:0", "12.9:0.9:0",
                             "12:0:1e1", "1e1:0:0", "12:30", "12", "", "::", ":30:", "ab:cd:ef",
                             "12:34:56.5:78:90", "12-34-56", " 1: 2: 3", "12:34:56:"})
    {
        SCOPED_TRACE(text);
        EXPECT_EQ(timeToDay(text, ':'), TimeToDay(text, ":"));
    }
    EXPECT_EQ(timeToDay("12 34 56.5", ' '), 0.5242650462962962);
    EXPECT_EQ(timeToDay(std::string_view("12:34:56.5").substr(0, 5), ':'), 0.5236111111111111);
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
