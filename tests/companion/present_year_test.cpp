#include "reading/present_year.h"

#include <gtest/gtest.h>

namespace {

using companion::yearOf;

} // namespace

TEST(PresentYear, OfAnEpochThatIsGiven)
{
    EXPECT_EQ(yearOf("0"), 1970);
    EXPECT_EQ(yearOf("1735689599"), 2024);
    EXPECT_EQ(yearOf("1735689600"), 2025);
}

TEST(PresentYear, AnEpochBeyondTheCalendarIsOfNoYear)
{
    EXPECT_EQ(yearOf("9999999999999999999999"), 1900);
}

TEST(PresentYear, OfNow)
{
    EXPECT_GE(yearOf(nullptr), 2025);
}
