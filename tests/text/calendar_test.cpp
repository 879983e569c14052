#include "text/calendar.h"

#include "support/time_zone.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <ctime>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

using namespace tavelinUtils;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int highest = 2147483647;

using Date = std::array<int, 3>;
using DateAndTime = std::array<int, 6>;

/// The date of an MJD. The outputs hold something else before.
Date dateOf(double mjd)
{
    Date date{77, 77, 77};
    MJDToYMD(mjd, date[0], date[1], date[2]);
    return date;
}

struct Time
{
    int hour = 77;
    int minute = 77;
    double second = 77;
};

Time timeOf(double day)
{
    Time time;
    DayToTime(day, time.hour, time.minute, time.second);
    return time;
}

DateAndTime localTimeOf(long seconds)
{
    DateAndTime fields{77, 77, 77, 77, 77, 77};
    SysToDateTime(seconds, fields[0], fields[1], fields[2], fields[3], fields[4], fields[5]);
    return fields;
}

// A zone without summer time, 14 hours ahead: its clock never shows what UTC shows.
constexpr const char* farZone = "FAR-14";
constexpr long farOffset = 14L * 3600;

DateAndTime farFieldsOf(std::time_t seconds)
{
    const std::time_t shifted = seconds + farOffset;
    std::tm fields{};
    gmtime_r(&shifted, &fields);
    return {fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday,
            fields.tm_hour,        fields.tm_min,     fields.tm_sec};
}

/// Whether the fields are those of a moment between the two in the far zone.
bool isBetween(const DateAndTime& fields, std::time_t begin, std::time_t end)
{
    for (std::time_t moment = begin; moment <= end; ++moment) {
        if (fields == farFieldsOf(moment)) {
            return true;
        }
    }
    return false;
}

} // namespace

static_assert(sizeof(TDateTime) == 32);
static_assert(std::is_same_v<decltype(DateToMJD("", "", "")), int>);
static_assert(std::is_same_v<decltype(Now()), long>);
static_assert(std::is_same_v<decltype(GetNow()), std::chrono::system_clock::time_point>);
static_assert(std::is_same_v<decltype(GetDiff(GetNow(), GetNow())), double>);

TEST(Calendar, NewDateTimeIsAllZeros)
{
    const TDateTime dateTime;
    EXPECT_EQ(dateTime.year, 0);
    EXPECT_EQ(dateTime.month, 0);
    EXPECT_EQ(dateTime.day, 0);
    EXPECT_EQ(dateTime.hour, 0);
    EXPECT_EQ(dateTime.minute, 0);
    EXPECT_EQ(dateTime.seconds, 0.0);
}

TEST(Calendar, MjdIsTheJulianDateLessItsZero)
{
    EXPECT_EQ(MJDtoJD(0.0), 2400000.5);
    EXPECT_EQ(MJDtoJD(51544.5), 2451545.0);
    EXPECT_EQ(MJDtoJD(-2400000.5), 0.0);
    EXPECT_EQ(JDtoMJD(2400000.5), 0.0);
    EXPECT_EQ(JDtoMJD(2451545.0), 51544.5);
    EXPECT_EQ(JDtoMJD(0.0), -2400000.5);
    EXPECT_TRUE(std::isnan(MJDtoJD(notANumber)));
    EXPECT_EQ(JDtoMJD(-infinity), -infinity);
}

TEST(Calendar, JulianDateInDaysSinceTheEndOf1899)
{
    EXPECT_EQ(JDToLazDate(2415019.5), 0.0);
    EXPECT_EQ(JDToLazDate(2415020.25), 0.75);
    EXPECT_EQ(JDToLazDate(2451544.5), 36525.0);
    EXPECT_EQ(JDToLazDate(2415018.5), -1.0);
}

TEST(Calendar, DatesAndTheirMjd)
{
    const struct
    {
        Date date;
        int mjd;
    } rows[] = {
        {{1858, 11, 17}, 0},      {{2000, 1, 1}, 51544},     {{1999, 12, 31}, 51543},
        {{2023, 2, 25}, 60000},   {{1899, 12, 31}, 15019},   {{1600, 2, 29}, -94494},
        {{1900, 3, 1}, 15079},    {{2024, 2, 29}, 60369},    {{2100, 2, 28}, 88127},
        {{2100, 3, 1}, 88128},    {{1582, 10, 15}, -100840}, {{9999, 12, 31}, 2973483},
        {{12345, 6, 7}, 3830135}, {{5, 3, 4}, -677052},      {{0, 1, 1}, -678941},
        {{-1, 1, 1}, -679306},    {{-44, 3, 15}, -694938},   {{-4799, 1, 1}, -2431739},
        {{2023, 12, 31}, 60309},  {{2023, 1, 31}, 59975},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.mjd);
        EXPECT_EQ(YMDToMJD(row.date[0], row.date[1], row.date[2]), row.mjd);
        EXPECT_EQ(dateOf(row.mjd), row.date);
    }
}

TEST(Calendar, YearsAndMonthsThatTheCalendarRefusesGiveZero)
{
    EXPECT_EQ(YMDToMJD(2000, 0, 1), 0.0);
    EXPECT_EQ(YMDToMJD(2000, 13, 1), 0.0);
    EXPECT_EQ(YMDToMJD(2000, -1, 1), 0.0);
    EXPECT_EQ(YMDToMJD(2000, highest, 1), 0.0);
    EXPECT_EQ(YMDToMJD(-4800, 12, 31), 0.0);
    EXPECT_EQ(YMDToMJD(-highest - 1, 1, 1), 0.0);
    EXPECT_EQ(YMDToMJD(0, 0, 0), 0.0);
}

TEST(Calendar, DaysOutsideTheirMonthAreComputed)
{
    EXPECT_EQ(YMDToMJD(2023, 2, 31), 60006.0); // 3 March
    EXPECT_EQ(YMDToMJD(1900, 2, 29), 15079.0); // 1 March
    EXPECT_EQ(YMDToMJD(2000, 1, 0), 51543.0);
    EXPECT_EQ(YMDToMJD(2000, 1, -1), 51542.0);
    EXPECT_EQ(YMDToMJD(2000, 1, 32), 51575.0);
    EXPECT_EQ(YMDToMJD(2000, 1, highest), 2147535190.0);
}

TEST(Calendar, LargestYearHasItsMjd)
{
    EXPECT_EQ(YMDToMJD(highest, 1, 1), 784351616999.0);
}

TEST(Calendar, FractionOfTheDayIsDroppedFromADate)
{
    EXPECT_EQ(dateOf(51544.9), (Date{2000, 1, 1}));
    EXPECT_EQ(dateOf(51544.0), (Date{2000, 1, 1}));
    EXPECT_EQ(dateOf(51544.5), (Date{2000, 1, 1}));
    EXPECT_EQ(dateOf(51543.999), (Date{1999, 12, 31}));
    EXPECT_EQ(dateOf(0.25), (Date{1858, 11, 17}));
    EXPECT_EQ(dateOf(-0.5), (Date{1858, 11, 16}));
    EXPECT_EQ(dateOf(-1.0), (Date{1858, 11, 16}));
}

// The date comes from MJD and zero point as one double, whose steps are 40 microseconds wide.
TEST(Calendar, LastMicrosecondsOfADayHaveTheDateOfTheNext)
{
    EXPECT_EQ(dateOf(60000.999999999), (Date{2023, 2, 25}));
    EXPECT_EQ(dateOf(60000.9999999999), (Date{2023, 2, 26}));
}

TEST(Calendar, NumbersThatTheCalendarRefusesGiveThreeZeros)
{
    EXPECT_EQ(dateOf(-2468570.0), (Date{-4900, 3, 1}));
    EXPECT_EQ(dateOf(-2468571.0), (Date{0, 0, 0}));
    EXPECT_EQ(dateOf(997599999.5), (Date{2733194, 11, 27}));
    EXPECT_EQ(dateOf(997600000.5), (Date{0, 0, 0}));
    EXPECT_EQ(dateOf(1e300), (Date{0, 0, 0}));
    EXPECT_EQ(dateOf(-1e300), (Date{0, 0, 0}));
    EXPECT_EQ(dateOf(infinity), (Date{0, 0, 0}));
    EXPECT_EQ(dateOf(-infinity), (Date{0, 0, 0}));
    EXPECT_EQ(dateOf(notANumber), (Date{0, 0, 0}));
}

TEST(Calendar, TimesAreFractionsOfADay)
{
    const struct
    {
        int hour, minute;
        double second, day;
    } rows[] = {
        {0, 0, 0.0, 0.0},
        {12, 0, 0.0, 0.5},
        {6, 0, 0.0, 0.25},
        {12, 34, 56.0, 0.5242592592592593},
        {12, 34, 56.5, 0.5242650462962962},
        {1, 2, 3.456, 0.04309555555555556},
        {23, 59, 59.9999, 0.9999999988425926},
        {24, 0, 0.0, 1.0},
        {23, 59, 60.0, 1.0},
        {0, 0, 86400.0, 1.0},
        {25, 61, 61.5, 1.0847395833333333},
        {-1, 0, 0.0, -0.041666666666666664},
        {0, -30, 0.0, -0.020833333333333332},
        {0, 0, -86400.0, -1.0},
        {0, 0, infinity, infinity},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.day);
        EXPECT_EQ(TimeToDay(row.hour, row.minute, row.second), row.day);
    }
    EXPECT_TRUE(std::isnan(TimeToDay(0, 0, notANumber)));
}

TEST(Calendar, DateAndTimeMakeOneMjd)
{
    EXPECT_EQ(DateTimeToMJD(2000, 1, 1, 12, 0, 0.0), 51544.5);
    EXPECT_EQ(DateTimeToMJD(2023, 2, 25, 12, 34, 56.0), 60000.52425925926);
    EXPECT_EQ(DateTimeToMJD(2023, 2, 25, 11, 59, 59.9999), 60000.49999999884);
    EXPECT_EQ(DateTimeToMJD(1858, 11, 17, 1, 2, 3.456), 0.04309555555555556);
}

TEST(Calendar, DateAndTimeOfARecordMakeTheSameMjd)
{
    EXPECT_EQ(DateTimeToMJD(TDateTime{2023, 2, 25, 12, 34, 56.0}), 60000.52425925926);
    EXPECT_EQ(DateTimeToMJD(TDateTime{2000, 1, 1, 24, 0, 0.0}), 51545.0);
    EXPECT_EQ(DateTimeToMJD(TDateTime{}), 0.0);
}

TEST(Calendar, TimeBeyondItsRangeCarriesIntoTheDay)
{
    EXPECT_EQ(DateTimeToMJD(2000, 1, 1, 24, 0, 0.0), 51545.0);
    EXPECT_EQ(DateTimeToMJD(2000, 1, 1, 36, 0, 0.0), 51545.5);
    EXPECT_EQ(DateTimeToMJD(2000, 1, 1, 0, 1440, 0.0), 51545.0);
    EXPECT_EQ(DateTimeToMJD(2000, 1, 1, 0, 0, 43200.0), 51544.5);
    EXPECT_EQ(DateTimeToMJD(2000, 1, 1, -12, 0, 0.0), 51543.5);
}

TEST(Calendar, RefusedDateLeavesTheTimeAlone)
{
    EXPECT_EQ(DateTimeToMJD(2000, 13, 1, 12, 0, 0.0), 0.5);
    EXPECT_EQ(DateTimeToMJD(-4800, 1, 1, 6, 0, 0.0), 0.25);
}

TEST(Calendar, DateAndTimeWithoutFiniteSecondsHaveNoFiniteMjd)
{
    EXPECT_TRUE(std::isnan(DateTimeToMJD(2000, 1, 1, 0, 0, notANumber)));
    EXPECT_EQ(DateTimeToMJD(2000, 1, 1, 0, 0, -infinity), -infinity);
}

// Hours are rounded to 12 decimals before they are cut: half a day is 12 h and not 11:59:59.99, but 12:34:56
// comes back with seconds a little below 56.
TEST(Calendar, FractionOfADaySplitsIntoATime)
{
    const struct
    {
        double day;
        int hour, minute;
        double second;
    } rows[] = {
        {0.0, 0, 0, 0.0},
        {0.5, 12, 0, 0.0},
        {0.25, 6, 0, 0.0},
        {0.5242592592592593, 12, 34, 55.999999999202146},
        {0.5242650462962962, 12, 34, 56.499999999600306},
        {0.04309555555555556, 1, 2, 3.4560000024003124},
        {0.49999999884259255, 11, 59, 59.99989999919876},
        {0.9999999988425926, 23, 59, 59.99989999919876},
        {1.1574074074074074e-08, 0, 0, 0.0010000007999999999},
        {0.2133015046296296, 5, 7, 9.249999999601073},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.day);
        const Time time = timeOf(row.day);
        EXPECT_EQ(time.hour, row.hour);
        EXPECT_EQ(time.minute, row.minute);
        EXPECT_EQ(time.second, row.second);
    }
}

TEST(Calendar, WholeDaysOfAnMjdDoNotCountInATime)
{
    const struct
    {
        double mjd;
        int hour, minute;
        double second;
    } rows[] = {
        {51544.0, 0, 0, 0.0},
        {51544.5, 12, 0, 0.0},
        {60000.25, 6, 0, 0.0},
        {60000.52425925926, 12, 34, 56.00000025479929},
        {1.0847395833333333, 2, 2, 1.4999999999998082},
        {-0.25, 18, 0, 0.0},
        {-0.020833333333333332, 23, 30, 0.0},
        {-100.5, 12, 0, 0.0},
        {4503599627370496.0, 0, 0, 0.0},
        {1e300, 0, 0, 0.0},
        {-1e300, 0, 0, 0.0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.mjd);
        const Time time = timeOf(row.mjd);
        EXPECT_EQ(time.hour, row.hour);
        EXPECT_EQ(time.minute, row.minute);
        EXPECT_EQ(time.second, row.second);
    }
}

TEST(Calendar, FractionBesideAWholeDayGivesHour24)
{
    for (const double day : {0.999999999999999, 0.99999999999999, 1.0 - 1e-15, -1e-15}) {
        SCOPED_TRACE(day);
        const Time time = timeOf(day);
        EXPECT_EQ(time.hour, 24);
        EXPECT_EQ(time.minute, 0);
        EXPECT_EQ(time.second, 0.0);
    }
    const Time before = timeOf(0.99999999999995);
    EXPECT_EQ(before.hour, 23);
    EXPECT_EQ(before.minute, 59);
    EXPECT_EQ(before.second, 59.999999996406075);
}

TEST(Calendar, NoFiniteDayHasSecondsThatAreNoNumber)
{
    for (const double day : {notANumber, infinity, -infinity}) {
        SCOPED_TRACE(day);
        const Time time = timeOf(day);
        EXPECT_EQ(time.hour, 0);
        EXPECT_EQ(time.minute, 0);
        EXPECT_TRUE(std::isnan(time.second));
    }
}

TEST(Calendar, MjdSplitsIntoDateAndTime)
{
    const struct
    {
        double mjd;
        TDateTime dateTime;
    } rows[] = {
        {51544.5, {2000, 1, 1, 12, 0, 0.0}},
        {60000.52425925926, {2023, 2, 25, 12, 34, 56.00000025479929}},
        {0.0, {1858, 11, 17, 0, 0, 0.0}},
        {-0.25, {1858, 11, 16, 18, 0, 0.0}},
        {-2468571.5, {0, 0, 0, 12, 0, 0.0}},
        {1e300, {0, 0, 0, 0, 0, 0.0}},
        {60000.9999999999, {2023, 2, 26, 23, 59, 59.99999120159799}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.mjd);
        const TDateTime record = MJDToDateTime(row.mjd);
        EXPECT_EQ(record.year, row.dateTime.year);
        EXPECT_EQ(record.month, row.dateTime.month);
        EXPECT_EQ(record.day, row.dateTime.day);
        EXPECT_EQ(record.hour, row.dateTime.hour);
        EXPECT_EQ(record.minute, row.dateTime.minute);
        EXPECT_EQ(record.seconds, row.dateTime.seconds);

        TDateTime fields{77, 77, 77, 77, 77, 77.0};
        MJDToDateTime(row.mjd, fields.year, fields.month, fields.day, fields.hour, fields.minute,
                      fields.seconds);
        EXPECT_EQ(fields.year, row.dateTime.year);
        EXPECT_EQ(fields.month, row.dateTime.month);
        EXPECT_EQ(fields.day, row.dateTime.day);
        EXPECT_EQ(fields.hour, row.dateTime.hour);
        EXPECT_EQ(fields.minute, row.dateTime.minute);
        EXPECT_EQ(fields.seconds, row.dateTime.seconds);
    }
}

TEST(Calendar, Hour24ChangesNothingInTheDate)
{
    const TDateTime dateTime = MJDToDateTime(-1e-15);
    EXPECT_EQ(dateTime.year, 1858);
    EXPECT_EQ(dateTime.month, 11);
    EXPECT_EQ(dateTime.day, 17);
    EXPECT_EQ(dateTime.hour, 24);
    EXPECT_EQ(dateTime.minute, 0);
    EXPECT_EQ(dateTime.seconds, 0.0);
}

TEST(Calendar, DateTextsGiveAWholeMjd)
{
    const struct
    {
        const char *year, *month, *day;
        int mjd;
    } rows[] = {
        {"2023", "02", "25", 60000},     {"2023", "2", "25", 60000},
        {" 2023", "+02", "\t25", 60000}, {"2023x", "2.9", "25 February", 60000},
        {"1858", "11", "17", 0},         {"1858", "11", "16", -1},
        {"-1", "1", "1", -679306},       {"2023", "02", "31", 60006},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.day);
        EXPECT_EQ(DateToMJD(row.year, row.month, row.day), row.mjd);
    }
}

TEST(Calendar, DateTextThatIsNoNumberCountsAsZero)
{
    EXPECT_EQ(DateToMJD("year", "month", "day"), 0);
    EXPECT_EQ(DateToMJD("", "", ""), 0);
    EXPECT_EQ(DateToMJD("2023", "Feb", "25"), 0);
    EXPECT_EQ(DateToMJD("2023", "02", "x"), 59975);  // day 0 of February is 31 January
    EXPECT_EQ(DateToMJD("year", "1", "1"), -678941); // the year 0
}

TEST(Calendar, DateTextsBeyondTheRange)
{
    EXPECT_EQ(DateToMJD("2147483647", "1", "1"), highest);
    EXPECT_EQ(DateToMJD("1000000", "1", "1"), 364563559);
    EXPECT_EQ(DateToMJD("2023", "13", "1"), 0);
    EXPECT_EQ(DateToMJD("-4800", "1", "1"), 0);
    EXPECT_EQ(DateToMJD("2000", "1", "2147483647"), highest);
    // Numbers of more than 32 bits lose the upper ones: 2^32 + 2023, and -1 for what no long holds.
    EXPECT_EQ(DateToMJD("4294969319", "2", "25"), 60000);
    EXPECT_EQ(DateToMJD("99999999999999999999", "1", "1"), -679306);
}

TEST(Calendar, NowIsTheSystemTime)
{
    const long begin = std::time(nullptr);
    const long now = Now();
    const long end = std::time(nullptr);
    EXPECT_LE(begin, now);
    EXPECT_LE(now, end);
}

TEST(Calendar, GetNowIsThisMoment)
{
    const auto begin = std::chrono::system_clock::now();
    const auto now = GetNow();
    const auto end = std::chrono::system_clock::now();
    EXPECT_LE(begin, now);
    EXPECT_LE(now, end);
}

TEST(Calendar, DifferenceOfMomentsIsInSecondsFromTheFirstToTheSecond)
{
    const std::chrono::system_clock::time_point begin(std::chrono::seconds(1709957106));
    EXPECT_DOUBLE_EQ(GetDiff(begin, begin + std::chrono::milliseconds(1500)), 1.5);
    EXPECT_DOUBLE_EQ(GetDiff(begin + std::chrono::hours(1), begin), -3600.0);
    EXPECT_DOUBLE_EQ(GetDiff(begin, begin + std::chrono::microseconds(1)), 1e-6);
    EXPECT_EQ(GetDiff(begin, begin), 0.0);
}

TEST(CalendarLocalTime, SecondsSinceTheEpochInUtc)
{
    const TimeZone zone("UTC0");
    EXPECT_EQ(localTimeOf(0), (DateAndTime{1970, 1, 1, 0, 0, 0}));
    EXPECT_EQ(localTimeOf(1709957106), (DateAndTime{2024, 3, 9, 4, 5, 6}));
    EXPECT_EQ(localTimeOf(-1), (DateAndTime{1969, 12, 31, 23, 59, 59}));
    EXPECT_EQ(localTimeOf(2147483648), (DateAndTime{2038, 1, 19, 3, 14, 8}));
    EXPECT_EQ(localTimeOf(253402300800), (DateAndTime{10000, 1, 1, 0, 0, 0}));
    EXPECT_EQ(localTimeOf(-62167219200), (DateAndTime{0, 1, 1, 0, 0, 0}));
}

TEST(CalendarLocalTime, FollowsTheTimeZone)
{
    {
        const TimeZone zone("IST-5:30");
        EXPECT_EQ(localTimeOf(0), (DateAndTime{1970, 1, 1, 5, 30, 0}));
        EXPECT_EQ(localTimeOf(1709957106), (DateAndTime{2024, 3, 9, 9, 35, 6}));
    }
    {
        const TimeZone zone("EST5");
        EXPECT_EQ(localTimeOf(0), (DateAndTime{1969, 12, 31, 19, 0, 0}));
        EXPECT_EQ(localTimeOf(1709957106), (DateAndTime{2024, 3, 8, 23, 5, 6}));
    }
}

TEST(CalendarLocalTime, KnowsSummerTime)
{
    const TimeZone zone("CET-1CEST,M3.5.0,M10.5.0/3");
    EXPECT_EQ(localTimeOf(1711846799), (DateAndTime{2024, 3, 31, 1, 59, 59}));
    EXPECT_EQ(localTimeOf(1711846800), (DateAndTime{2024, 3, 31, 3, 0, 0}));
    EXPECT_EQ(localTimeOf(1729990799), (DateAndTime{2024, 10, 27, 2, 59, 59}));
    EXPECT_EQ(localTimeOf(1729990800), (DateAndTime{2024, 10, 27, 2, 0, 0}));
}

TEST(CalendarLocalTime, SecondsThatTheSystemKnowsNoDateForGiveZeros)
{
    const TimeZone zone("UTC0");
    EXPECT_EQ(localTimeOf(std::numeric_limits<long>::max()), (DateAndTime{0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(localTimeOf(std::numeric_limits<long>::min()), (DateAndTime{0, 0, 0, 0, 0, 0}));
    // The last second of the year 2147483647, and the next one, which the system still has a date for.
    EXPECT_EQ(localTimeOf(67767976233532799), (DateAndTime{2147483647, 12, 31, 23, 59, 59}));
    EXPECT_EQ(localTimeOf(67767976233532800), (DateAndTime{0, 0, 0, 0, 0, 0}));
}

TEST(CalendarLocalTime, ThisMomentInSixIntegers)
{
    const TimeZone zone(farZone);
    DateAndTime fields{77, 77, 77, 77, 77, 77};
    const std::time_t begin = std::time(nullptr);
    NowToCode(fields[0], fields[1], fields[2], fields[3], fields[4], fields[5]);
    const std::time_t end = std::time(nullptr);
    EXPECT_TRUE(isBetween(fields, begin, end)) << testing::PrintToString(fields);
}

TEST(CalendarLocalTime, ThisMomentInARecordWithWholeSeconds)
{
    const TimeZone zone(farZone);
    const std::time_t begin = std::time(nullptr);
    const TDateTime now = NowToCode();
    const std::time_t end = std::time(nullptr);
    EXPECT_EQ(now.seconds, std::floor(now.seconds));
    const DateAndTime fields{now.year, now.month,  now.day,
                             now.hour, now.minute, static_cast<int>(now.seconds)};
    EXPECT_TRUE(isBetween(fields, begin, end)) << testing::PrintToString(fields);
}

TEST(CalendarLocalTime, ThisMomentAsMjdIsThatOfTheLocalClock)
{
    const auto mjdOf = [](std::time_t moment) {
        return 40587.0 + static_cast<double>(moment + farOffset) / 86400.0;
    };
    const TimeZone zone(farZone);
    const std::time_t begin = std::time(nullptr);
    const double now = NowToMJD();
    const std::time_t end = std::time(nullptr);
    EXPECT_GE(now, mjdOf(begin) - 1e-9);
    EXPECT_LE(now, mjdOf(end) + 1e-9);
}
