#include "out/axis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace companion;
using Labels = std::vector<std::string>;

Labels labelsOf(const std::vector<Tick>& ticks)
{
    Labels labels;
    for (const Tick& tick : ticks) {
        labels.push_back(tick.label);
    }
    return labels;
}

// 2024-01-20 is MJD 60329.
double momentOf(int hour, int minute, double second = 0.0)
{
    return 60329.0 + (hour * 3600.0 + minute * 60.0 + second) / 86400.0;
}

TEST(Axis, RoundNumbersAreOneTwoOrFive)
{
    EXPECT_DOUBLE_EQ(roundAbove(0.03), 0.05);
    EXPECT_DOUBLE_EQ(roundAbove(0.05), 0.05);
    EXPECT_DOUBLE_EQ(roundAbove(1.0), 1.0);
    EXPECT_DOUBLE_EQ(roundAbove(1.1), 2.0);
    EXPECT_DOUBLE_EQ(roundAbove(6.0), 10.0);
    EXPECT_DOUBLE_EQ(roundAbove(300.0), 500.0);
}

TEST(Axis, TicksAreTheRoundNumbersOfTheirSpan)
{
    EXPECT_EQ(labelsOf(numberTicks(12.31, 12.99, 4)), (Labels{"12.4", "12.6", "12.8"}));
    EXPECT_EQ(labelsOf(numberTicks(-0.11, 0.1, 4)), (Labels{"-0.1", "0.0", "0.1"}));
    EXPECT_EQ(labelsOf(numberTicks(0.0, 90.0, 5)), (Labels{"0", "20", "40", "60", "80"}));
}

TEST(Axis, SpansWithoutAnEndHaveNoTicks)
{
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(numberTicks(1.0, 1.0, 5).empty());
    EXPECT_TRUE(numberTicks(0.0, infinite, 5).empty());
    EXPECT_TRUE(numberTicks(-1.7e308, 1.7e308, 5).empty());
    EXPECT_TRUE(numberTicks(std::nan(""), 1.0, 5).empty());
}

TEST(Axis, StepsThatAreLostInTheirNumbersComeToAnEnd)
{
    EXPECT_LE(numberTicks(1e20, std::nextafter(1e20, 2e20), 5).size(), 30U);
}

TEST(Axis, LargeNumbersAreShort)
{
    EXPECT_EQ(numberText(-0.0001, 2), "0.00");
    EXPECT_EQ(numberText(-12.5, 1), "-12.5");
    EXPECT_EQ(numberText(1.5e300, 2), "1.50e+300");
}

TEST(Axis, TimesOfADayAreThoseOfAClock)
{
    const Axis axis = timeAxis(momentOf(21, 48), momentOf(23, 10));
    EXPECT_EQ(labelsOf(axis.ticks), (Labels{"22:00", "22:30", "23:00"}));
    EXPECT_EQ(axis.title, "UTC, 2024-01-20");
    EXPECT_DOUBLE_EQ(axis.ticks.front().value, momentOf(22, 0));
}

TEST(Axis, ANightGoesOverMidnight)
{
    const Axis axis = timeAxis(momentOf(22, 10), momentOf(26, 50));
    EXPECT_EQ(labelsOf(axis.ticks), (Labels{"23:00", "00:00", "01:00", "02:00"}));
    EXPECT_EQ(axis.title, "UTC, from 2024-01-20");
}

TEST(Axis, ShortSpansHaveSeconds)
{
    EXPECT_EQ(labelsOf(timeAxis(momentOf(21, 0, 1), momentOf(21, 0, 20)).ticks),
              (Labels{"21:00:05", "21:00:10", "21:00:15", "21:00:20"}));
    EXPECT_EQ(labelsOf(timeAxis(momentOf(21, 0, 0.9), momentOf(21, 0, 2.1)).ticks),
              (Labels{"21:00:01.000", "21:00:01.500", "21:00:02.000"}));
}

TEST(Axis, SpansUpToTwoDaysHaveHalfDays)
{
    EXPECT_EQ(labelsOf(timeAxis(60329.1, 60331.1).ticks), (Labels{"12:00", "00:00", "12:00", "00:00"}));
}

TEST(Axis, MomentsOfNoCalendarAreNumbers)
{
    EXPECT_EQ(labelsOf(timeAxis(2e9, 2e9 + 20).ticks).front(), "2.00e+09");
}

TEST(Axis, LongSpansHaveDates)
{
    const Axis axis = timeAxis(60329.4, 60336.2);
    EXPECT_EQ(labelsOf(axis.ticks), (Labels{"2024-01-21", "2024-01-23", "2024-01-25", "2024-01-27"}));
    EXPECT_EQ(axis.title, "UTC");
}

} // namespace
