#include "math/scalars.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <type_traits>

using namespace tavelinMath;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int lowest = -2147483647 - 1;
constexpr int highest = 2147483647;

} // namespace

static_assert(std::is_same_v<decltype(&Frac), double (*)(const double&)>);
static_assert(std::is_same_v<decltype(&IsNumber), bool (*)(const std::string&)>);

TEST(Scalars, FractionIsThePartBehindTheFloor)
{
    struct
    {
        double number, fraction;
    } const rows[] = {
        {3.0, 0.0},    {0.0, 0.0},  {-0.0, 0.0}, {1.25, 0.25},   {0.75, 0.75},      {-0.25, 0.75},
        {-1.25, 0.75}, {-3.0, 0.0}, {-2.5, 0.5}, {51544.5, 0.5}, {-51544.25, 0.75},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.number);
        EXPECT_EQ(Frac(row.number), row.fraction);
    }
}

TEST(Scalars, FractionOfATinyNegativeNumberRoundsToOne)
{
    EXPECT_EQ(Frac(-1e-20), 1.0);
    EXPECT_EQ(Frac(1e-20), 1e-20);
}

TEST(Scalars, NumbersWithoutRoomForAFractionHaveNone)
{
    EXPECT_EQ(Frac(4503599627370495.5), 0.5);
    EXPECT_EQ(Frac(-4503599627370495.5), 0.5);
    EXPECT_EQ(Frac(4503599627370496.0), 0.0);
    EXPECT_EQ(Frac(-4503599627370496.0), 0.0);
    EXPECT_EQ(Frac(4503599627370497.0), 0.0);
    EXPECT_EQ(Frac(1e300), 0.0);
    EXPECT_EQ(Frac(-1e300), 0.0);
}

TEST(Scalars, FractionOfNoFiniteNumberIsNotANumber)
{
    EXPECT_TRUE(std::isnan(Frac(infinity)));
    EXPECT_TRUE(std::isnan(Frac(-infinity)));
    EXPECT_TRUE(std::isnan(Frac(notANumber)));
}

TEST(Scalars, EmptyTextIsNoNumber)
{
    EXPECT_FALSE(IsNumber(""));
}

TEST(Scalars, TextsOfNumberCharactersAreNumbersInAnyOrder)
{
    for (const char* text :
         {"0", "7", "-1", "+1", "1.5", "1,5", "-", "+", ".", ",", "--1", "1-2", "1.2.3", "1,234,567.8",
          "+-.,", "-+.,0123456789", "00000000000000000000000000000000000000000"})
    {
        SCOPED_TRACE(text);
        EXPECT_TRUE(IsNumber(text));
    }
}

TEST(Scalars, TextsWithAnotherCharacterAreNoNumbers)
{
    for (const char* text : {"a", " ", "1 ", " 1", "1 2", "1e5", "0x1", "1;2", "1\n", "1\t", "12a", "a12",
                             "1a2", "nan", "inf", "1/2", "\xd9\xa1"})
    {
        SCOPED_TRACE(text);
        EXPECT_FALSE(IsNumber(text));
    }
    EXPECT_FALSE(IsNumber(std::string("1\0", 2)));
}

TEST(Scalars, FourteenCharactersMakeNumbers)
{
    const std::string numberCharacters = "-+.,0123456789";
    for (int byte = 0; byte < 256; ++byte) {
        SCOPED_TRACE(byte);
        const std::string text(1, static_cast<char>(byte));
        EXPECT_EQ(IsNumber(text), numberCharacters.find(text) != std::string::npos);
    }
}

TEST(Scalars, DoublesAreCutTowardsZero)
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

TEST(Scalars, DoublesBesideTheEndsOfTheRangeAreCutInsideIt)
{
    EXPECT_EQ(cutToInt(2147483647.0), highest);
    EXPECT_EQ(cutToInt(2147483647.9), highest);
    EXPECT_EQ(cutToInt(std::nextafter(2147483648.0, 0.0)), highest);
    EXPECT_EQ(cutToInt(-2147483648.0), lowest);
    EXPECT_EQ(cutToInt(-2147483648.9), lowest);
    EXPECT_EQ(cutToInt(std::nextafter(-2147483648.0, 0.0)), -2147483647);
}

TEST(Scalars, DoublesBeyondTheRangeGiveItsNearestEnd)
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

TEST(Scalars, NotANumberIsCutToZero)
{
    EXPECT_EQ(cutToInt(notANumber), 0);
    EXPECT_EQ(cutToInt(-notANumber), 0);
}
