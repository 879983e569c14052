#include "reading/tdm_clock.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using companion::meantEpoch;
using companion::TdmClock;

std::string textOf(const std::string& text, TdmClock clock = TdmClock::UTC)
{
    const auto epoch = meantEpoch(text, clock);
    return epoch ? epoch->text : "none";
}

} // namespace

TEST(TdmClock, ACalendarTimeStaysAsItIs)
{
    EXPECT_EQ(textOf("2016-06-11T08:20:14.40960"), "2016-06-11T08:20:14.40960");
    EXPECT_EQ(textOf("2016-06-11T08:20:14"), "2016-06-11T08:20:14");
    EXPECT_EQ(textOf("2016-06-11T08:20:14.123456789012345678"), "2016-06-11T08:20:14.123456789012345678");
}

TEST(TdmClock, ADayOfTheYearBecomesACalendarDay)
{
    EXPECT_EQ(textOf("2005-160T20:15:00"), "2005-06-09T20:15:00");
    EXPECT_EQ(textOf("2000-366T20:15:00.50"), "2000-12-31T20:15:00.50");
    EXPECT_EQ(textOf("0001-001T00:00:00"), "0001-01-01T00:00:00");
}

TEST(TdmClock, ALetterOfUtcAtTheEndIsTakenAway)
{
    EXPECT_EQ(textOf("2005-06-09T20:15:00Z"), "2005-06-09T20:15:00");
    EXPECT_EQ(textOf("2005-160T20:15:00.5Z"), "2005-06-09T20:15:00.5");
}

TEST(TdmClock, Hour24IsTheNextDay)
{
    EXPECT_EQ(textOf("2016-12-31T24:00:00"), "2017-01-01T00:00:00");
    EXPECT_EQ(textOf("2016-366T24:00:00.000Z"), "2017-01-01T00:00:00.000");
    EXPECT_EQ(textOf("2016-12-31T24:00:01"), "none");
    EXPECT_EQ(textOf("2016-12-31T24:00:00.5"), "none");
}

TEST(TdmClock, ALeapSecondStaysSecond60)
{
    EXPECT_EQ(textOf("2016-12-31T23:59:60.25"), "2016-12-31T23:59:60.25");
    EXPECT_EQ(textOf("2016-366T23:59:60.25Z"), "2016-12-31T23:59:60.25");
}

TEST(TdmClock, OtherClocksBecomeUtcByLeapSeconds)
{
    EXPECT_EQ(textOf("2017-01-01T00:00:37", TdmClock::TAI), "2017-01-01T00:00:00");
    EXPECT_EQ(textOf("2017-01-01T00:00:36.5", TdmClock::TAI), "2016-12-31T23:59:60.5");
    EXPECT_EQ(textOf("2017-01-01T00:00:35.5", TdmClock::TAI), "2016-12-31T23:59:59.5");
    EXPECT_EQ(textOf("2017-001T00:00:18.25", TdmClock::GPS), "2017-01-01T00:00:00.25");
    EXPECT_EQ(textOf("2017-01-01T00:01:09.184", TdmClock::TT), "2017-01-01T00:00:00.000");
    EXPECT_EQ(textOf("2017-01-01T00:01:09", TdmClock::TT), "2016-12-31T23:59:60.816");
    EXPECT_EQ(textOf("1999-01-01T00:00:00.123456", TdmClock::TT),
              "1998-12-31T23:58:56.939456"); // 31 s and 32.184 s
    EXPECT_EQ(textOf("1972-01-01T00:00:10", TdmClock::TAI), "1972-01-01T00:00:00");
}

TEST(TdmClock, OtherClocksBeforeThereWereLeapSecondsAreNotConverted)
{
    EXPECT_EQ(textOf("1971-12-31T00:00:00", TdmClock::TAI), "none");
    EXPECT_EQ(textOf("1972-01-01T00:00:09.999", TdmClock::TAI), "none");
    EXPECT_EQ(textOf("1971-12-31T00:00:00"), "1971-12-31T00:00:00");
}

TEST(TdmClock, TextsThatAreNoTimeGiveNothing)
{
    for (const char* text :
         {"", "T", "2016-06-11", "2016-06-31T00:00:00", "2015-366T00:00:00", "2016-06-11T25:00:00",
          "2016-06-11T00:60:00", "2016-06-11 00:00:00", "16-06-11T00:00:00", "2016-06-11T00:00:0x"})
    {
        EXPECT_EQ(textOf(text), "none") << text;
    }
}

TEST(TdmClock, TimesAreEqualWhateverTheirZeros)
{
    const auto a = meantEpoch("2016-06-11T08:20:14.5", TdmClock::UTC);
    const auto b = meantEpoch("2016-163T08:20:14.500Z", TdmClock::UTC);
    const auto c = meantEpoch("2016-06-11T08:20:14.51", TdmClock::UTC);
    EXPECT_TRUE(*a == *b);
    EXPECT_TRUE(*a < *c);
    EXPECT_FALSE(*c < *b);
}
