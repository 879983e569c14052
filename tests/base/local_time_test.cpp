#include "base/local_time.h"

#include "support/time_zone.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

using namespace tavelinUtils;

TEST(LocalTime, IsThatOfTheZone)
{
    const TimeZone zone("XXX-3:30");
    const std::optional<std::tm> local = localTime(86399);
    ASSERT_TRUE(local);
    EXPECT_EQ(local->tm_year, 70);
    EXPECT_EQ(local->tm_mon, 0);
    EXPECT_EQ(local->tm_mday, 2);
    EXPECT_EQ(local->tm_hour, 3);
    EXPECT_EQ(local->tm_min, 29);
    EXPECT_EQ(local->tm_sec, 59);
}

TEST(LocalTime, FollowsAChangeOfTheZoneAtOnce)
{
    const TimeZone zone("XXX-1");
    setenv("TZ", "XXX-5", 1);
    EXPECT_EQ(localTime(0)->tm_hour, 5);
}

TEST(LocalTime, NoneWhereTheYearDoesNotFit)
{
    EXPECT_FALSE(localTime(std::numeric_limits<std::time_t>::max()));
}
