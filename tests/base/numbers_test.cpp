#include "base/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace tavelinUtils;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int lowest = -2147483647 - 1;
constexpr int highest = 2147483647;

} // namespace

TEST(Numbers, DoublesAreCutTowardsZero)
{
    struct
    {
        double number;
        int cut;
    } const rows[] = {
        {0.0, 0},
        {-0.0, 0},
        {0.999999, 0},
        {-0.999999, 0},
        {1.0, 1},
        {1.9, 1},
        {-1.9, -1},
        {2.5, 2},
        {-2.5, -2},
        {60000.999, 60000},
        {-1.0, -1},
        {1e-300, 0},
        {123456.7, 123456},
        {-2147483647.5, -2147483647},
        {2147483646.5, 2147483646},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.number);
        EXPECT_EQ(cutToInt(row.number), row.cut);
    }
}

TEST(Numbers, DoublesBesideTheEndsOfTheRangeAreCutInsideIt)
{
    EXPECT_EQ(cutToInt(2147483647.0), highest);
    EXPECT_EQ(cutToInt(2147483647.9), highest);
    EXPECT_EQ(cutToInt(std::nextafter(2147483648.0, 0.0)), highest);
    EXPECT_EQ(cutToInt(-2147483648.0), lowest);
    EXPECT_EQ(cutToInt(-2147483648.9), lowest);
    EXPECT_EQ(cutToInt(std::nextafter(-2147483648.0, 0.0)), -2147483647);
}

TEST(Numbers, DoublesBeyondTheRangeGiveItsNearestEnd)
{
    EXPECT_EQ(cutToInt(2147483648.0), highest);
    EXPECT_EQ(cutToInt(4294967296.0), highest);
    EXPECT_EQ(cutToInt(1e19), highest);
    EXPECT_EQ(cutToInt(1e300), highest);
    EXPECT_EQ(cutToInt(infinity), highest);
    EXPECT_EQ(cutToInt(-2147483649.0), lowest);
    EXPECT_EQ(cutToInt(-4294967296.0), lowest);
    EXPECT_EQ(cutToInt(-1e19), lowest);
    EXPECT_EQ(cutToInt(-1e300), lowest);
    EXPECT_EQ(cutToInt(-infinity), lowest);
}

TEST(Numbers, NotANumberIsCutToZero)
{
    EXPECT_EQ(cutToInt(notANumber), 0);
    EXPECT_EQ(cutToInt(-notANumber), 0);
}
