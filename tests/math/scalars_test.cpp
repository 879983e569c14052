#include "math/scalars.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

using namespace tavelinMath;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int lowest = -2147483647 - 1;
constexpr int highest = 2147483647;

// What the outputs hold before a call: no result of these tests.
constexpr int untouched = -777;

struct Two
{
    int first = untouched, second = untouched;

    bool operator==(const Two&) const = default;
};

struct Three
{
    int first = untouched, second = untouched, third = untouched;

    bool operator==(const Three&) const = default;
};

Two columnAndRow(int index, int width)
{
    Two place;
    Ind1DTo2D(index, width, place.first, place.second);
    return place;
}

Two slowAndFast(int index, int sizeJ)
{
    Two place;
    Ind1DTo2D_(index, sizeJ, place.first, place.second);
    return place;
}

Three slowToFast(int index, int sizeJ, int sizeK)
{
    Three place;
    Ind1DTo3D_(index, sizeJ, sizeK, place.first, place.second, place.third);
    return place;
}

} // namespace

static_assert(std::is_same_v<decltype(&Frac), double (*)(const double&)>);
static_assert(std::is_same_v<decltype(&IsNumber), bool (*)(const std::string&)>);
static_assert(std::is_same_v<decltype(&RoundInt), int (*)(double)>);
static_assert(std::is_same_v<decltype(&RoundDouble), double (*)(double)>);
static_assert(
    std::is_same_v<decltype(&GetMapCount), int (*)(const std::map<std::string, int>&, std::string)>);
static_assert(std::is_same_v<decltype(&Ind1DTo2D), void (*)(const int&, const int&, int&, int&)>);

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

TEST(Scalars, IntegersAreRoundedUpFromTheHalf)
{
    struct
    {
        double number;
        int rounded;
    } const rows[] = {
        {0.0, 0},   {-0.0, 0},  {0.25, 0},          {0.5, 1},   {-0.5, 0},  {-0.75, -1},
        {1.5, 2},   {2.4, 2},   {2.5, 3},           {-2.5, -2}, {2.6, 3},   {-2.4, -2},
        {-2.6, -3}, {-1.5, -1}, {100000.5, 100001}, {-3.0, -3}, {-3.5, -3}, {1e-300, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.number);
        EXPECT_EQ(RoundInt(row.number), row.rounded);
    }
}

TEST(Scalars, RoundedIntegersKeepToTheirRange)
{
    EXPECT_EQ(RoundInt(2147483646.4), 2147483646);
    EXPECT_EQ(RoundInt(2147483646.5), highest);
    EXPECT_EQ(RoundInt(2147483647.4), highest);
    EXPECT_EQ(RoundInt(2147483647.5), highest);
    EXPECT_EQ(RoundInt(1e300), highest);
    EXPECT_EQ(RoundInt(infinity), highest);
    EXPECT_EQ(RoundInt(-2147483647.5), -2147483647);
    EXPECT_EQ(RoundInt(-2147483647.75), lowest);
    EXPECT_EQ(RoundInt(-2147483648.5), lowest);
    EXPECT_EQ(RoundInt(-2147483648.75), lowest);
    EXPECT_EQ(RoundInt(-1e300), lowest);
    EXPECT_EQ(RoundInt(-infinity), lowest);
    EXPECT_EQ(RoundInt(notANumber), 0);
}

// A half is added first, and the sum is a double: just below 0.5 that makes 1.
TEST(Scalars, TheSumWithAHalfIsWhatIsRounded)
{
    EXPECT_EQ(RoundInt(0.49999999999999994), 1);
    EXPECT_EQ(RoundDouble(0.49999999999999994), 1.0);
    EXPECT_EQ(RoundDouble(-0.49999999999999994), -1.0);
    EXPECT_EQ(RoundDouble(4503599627370497.0), 4503599627370498.0);
}

TEST(Scalars, DoublesAreRoundedAwayFromZeroAtTheHalf)
{
    struct
    {
        double number, rounded;
    } const rows[] = {
        {0.0, 0.0},
        {-0.0, 0.0},
        {0.25, 0.0},
        {-0.25, 0.0},
        {0.5, 1.0},
        {-0.5, -1.0},
        {1.5, 2.0},
        {-1.5, -2.0},
        {2.4, 2.0},
        {2.5, 3.0},
        {-2.5, -3.0},
        {2.6, 3.0},
        {-2.4, -2.0},
        {-2.6, -3.0},
        {3.0, 3.0},
        {-3.0, -3.0},
        {1e300, 1e300},
        {-1e300, -1e300},
        {3000000000.5, 3000000001.0},
        {-3000000000.5, -3000000001.0},
        {infinity, infinity},
        {-infinity, -infinity},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.number);
        EXPECT_EQ(RoundDouble(row.number), row.rounded);
    }
    EXPECT_TRUE(std::isnan(RoundDouble(notANumber)));
}

TEST(Scalars, NumbersAreEqualUpToAndWithEps)
{
    EXPECT_TRUE(IsEquals(1.5, 1.25, 0.25));
    EXPECT_TRUE(IsEquals(1.25, 1.5, 0.25));
    EXPECT_FALSE(IsEquals(1.5, 1.25, 0.2499));
    EXPECT_TRUE(IsEquals(-1.0, 1.0, 2.0));
    EXPECT_FALSE(IsEquals(-1.0, 1.0, 1.0));
    EXPECT_TRUE(IsEquals(0.1, 0.1, 0.0));
    EXPECT_TRUE(IsEquals(0.0, -0.0, 0.0));
    EXPECT_FALSE(IsEquals(0.1 + 0.2, 0.3, 0.0));
    EXPECT_FALSE(IsEquals(1.0, 1.0, -1.0));
    EXPECT_TRUE(IsEquals(1.0, -1e300, infinity));
}

TEST(Scalars, WithoutEpsNumbersAreEqualBelowTheDoubleEpsilonWhateverTheirSize)
{
    EXPECT_TRUE(IsEquals(0.1, 0.1));
    EXPECT_TRUE(IsEquals(0.0, -0.0));
    EXPECT_TRUE(IsEquals(0.0, 2.22e-16));
    EXPECT_FALSE(IsEquals(0.0, 2.220446049250313e-16));
    EXPECT_FALSE(IsEquals(2.220446049250313e-16, 0.0));
    EXPECT_TRUE(IsEquals(1.0, 1.0 - 1.1102230246251565e-16));
    EXPECT_FALSE(IsEquals(1.0, 1.0 + 2.220446049250313e-16));
    EXPECT_TRUE(IsEquals(1e-17, 9e-17));
    EXPECT_TRUE(IsEquals(0.1 + 0.2, 0.3));
    EXPECT_FALSE(IsEquals(1e17, 1e17 + 16.0));
    EXPECT_FALSE(IsEquals(1.0, -1.0));
}

TEST(Scalars, NothingEqualsNotANumberAndNoInfinityItself)
{
    EXPECT_FALSE(IsEquals(notANumber, notANumber));
    EXPECT_FALSE(IsEquals(notANumber, 1.0));
    EXPECT_FALSE(IsEquals(notANumber, notANumber, 1.0));
    EXPECT_FALSE(IsEquals(1.0, notANumber, infinity));
    EXPECT_FALSE(IsEquals(1.0, 1.0, notANumber));
    EXPECT_FALSE(IsEquals(infinity, infinity));
    EXPECT_FALSE(IsEquals(infinity, infinity, 1.0));
}

TEST(Scalars, EvenNumbersHaveALowestBitOfZero)
{
    for (const int even : {0, 2, -2, 100, -100, lowest, highest - 1}) {
        SCOPED_TRACE(even);
        EXPECT_TRUE(IsEven(even));
    }
    for (const int odd : {1, -1, 3, -3, 99, highest, lowest + 1}) {
        SCOPED_TRACE(odd);
        EXPECT_FALSE(IsEven(odd));
    }
    for (const unsigned long even : {0UL, 2UL, 4294967296UL, 18446744073709551614UL}) {
        SCOPED_TRACE(even);
        EXPECT_TRUE(IsEven(even));
    }
    for (const unsigned long odd : {1UL, 3UL, 4294967297UL, 18446744073709551615UL}) {
        SCOPED_TRACE(odd);
        EXPECT_FALSE(IsEven(odd));
    }
}

TEST(Scalars, DegreesAndRadians)
{
    struct
    {
        double degrees, radians;
    } const rows[] = {
        {0.0, 0.0},
        {1.0, 0.017453292519943295},
        {-45.0, -0.7853981633974483},
        {90.0, 1.5707963267948966},
        {180.0, 3.141592653589793},
        {360.0, 6.283185307179586},
        {720.0, 12.566370614359172},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.degrees);
        EXPECT_DOUBLE_EQ(ToRadian(row.degrees), row.radians);
        EXPECT_DOUBLE_EQ(ToDegree(row.radians), row.degrees);
    }
    EXPECT_DOUBLE_EQ(ToDegree(1.0), 57.29577951308232);
}

TEST(Scalars, DifferenceOfRightAscensionsShrinksWithTheCosineOfTheDeclination)
{
    EXPECT_DOUBLE_EQ(RaDelta(10.5, 10.25, 0.0), 900.0);
    EXPECT_DOUBLE_EQ(RaDelta(10.25, 10.5, 0.0), -900.0);
    EXPECT_DOUBLE_EQ(RaDelta(11.5, 10.0, 60.0), 2700.000000000001);
    EXPECT_DOUBLE_EQ(RaDelta(11.5, 10.0, -60.0), 2700.000000000001);
    EXPECT_NEAR(RaDelta(200.0, 10.0, 90.0), 0.0, 1e-9);
    EXPECT_EQ(RaDelta(7.0, 7.0, 12.0), 0.0);
}

// The circle is not closed: 359.75 and 0.25 are nearly a whole turn apart.
TEST(Scalars, DifferenceOfRightAscensionsDoesNotGoRoundTheCircle)
{
    EXPECT_DOUBLE_EQ(RaDelta(359.75, 0.25, 0.0), 1294200.0);
}

TEST(Scalars, DifferenceOfDeclinations)
{
    EXPECT_EQ(DeDelta(1.5, 1.0), 1800.0);
    EXPECT_EQ(DeDelta(1.0, 1.5), -1800.0);
    EXPECT_EQ(DeDelta(-0.25, 0.25), -1800.0);
    EXPECT_EQ(DeDelta(90.0, -90.0), 648000.0);
}

TEST(Scalars, CountOfDataIsAFractionButNotBelowTheLeast)
{
    struct
    {
        int n, least;
        double fraction;
        int count;
    } const rows[] = {
        {10, 3, 0.5, 5},
        {10, 3, 0.39, 3},
        {10, 3, 0.1, 3},
        {11, 3, 0.5, 5},
        {2, 3, 0.5, 2},
        {2, 3, 100.0, 2},
        {3, 3, 0.9, 3},
        {3, 3, 2.0, 6},
        {0, 0, 0.5, 0},
        {-5, 0, 0.5, -5},
        {-4, -5, 0.5, -2},
        {100, 5, 0.29, 28},
        {100, 5, 1.0, 100},
        {100, 5, 0.0, 5},
        {100, 5, -1.0, 5},
        {100, 5, notANumber, 5},
        {100, 5, 1e300, highest},
        {100, 5, infinity, highest},
        {100, 5, -infinity, 5},
        {highest, 1, 1.0, highest},
        {highest, lowest, -2.0, lowest},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.n << ", " << row.least << ", " << row.fraction);
        EXPECT_EQ(GetCountData(row.n, row.least, row.fraction), row.count);
    }
}

TEST(Scalars, PlaceOfAKeyIsThatInTheOrderOfTheMap)
{
    const std::map<std::string, int> map{{"b", 0}, {"", 7}, {"ab", 100}, {"B", -1}, {"\xc3\xa9", 3}};
    EXPECT_EQ(GetMapCount(map, ""), 0);
    EXPECT_EQ(GetMapCount(map, "B"), 1);
    EXPECT_EQ(GetMapCount(map, "ab"), 2);
    EXPECT_EQ(GetMapCount(map, "b"), 3);
    EXPECT_EQ(GetMapCount(map, "\xc3\xa9"), 4);
}

TEST(Scalars, MissingKeyHasNoPlace)
{
    const std::map<std::string, int> map{{"b", 0}, {"ab", 1}};
    EXPECT_EQ(GetMapCount(map, "a"), -1);
    EXPECT_EQ(GetMapCount(map, "abc"), -1);
    EXPECT_EQ(GetMapCount(map, "z"), -1);
    EXPECT_EQ(GetMapCount(map, ""), -1);
    EXPECT_EQ(GetMapCount(std::map<std::string, int>{}, ""), -1);
    EXPECT_EQ(GetMapCount(std::map<std::string, int>{}, "a"), -1);
}

TEST(Scalars, ColumnComesFirstInTheFormWithoutUnderscore)
{
    EXPECT_EQ(Ind2DTo1D(0, 0, 5, 3), 0);
    EXPECT_EQ(Ind2DTo1D(4, 0, 5, 3), 4);
    EXPECT_EQ(Ind2DTo1D(0, 1, 5, 3), 5);
    EXPECT_EQ(Ind2DTo1D(2, 1, 5, 3), 7);
    EXPECT_EQ(Ind2DTo1D(4, 2, 5, 3), 14);
    EXPECT_EQ(Ind2DTo1D(65535, 32767, 65536, 32768), highest);
    EXPECT_EQ(Ind2DTo1D(0, highest - 1, 1, highest), highest - 1);
}

TEST(Scalars, SlowIndexComesFirstInTheFormWithUnderscore)
{
    EXPECT_EQ(Ind2DTo1D_(0, 0, 3, 5), 0);
    EXPECT_EQ(Ind2DTo1D_(0, 4, 3, 5), 4);
    EXPECT_EQ(Ind2DTo1D_(1, 0, 3, 5), 5);
    EXPECT_EQ(Ind2DTo1D_(1, 2, 3, 5), 7);
    EXPECT_EQ(Ind2DTo1D_(2, 4, 3, 5), 14);
    EXPECT_EQ(Ind2DTo1D_(32767, 65535, 32768, 65536), highest);
}

TEST(Scalars, LastOfThreeIndexesIsTheFastest)
{
    EXPECT_EQ(Ind3DTo1D_(0, 0, 0, 2, 3, 4), 0);
    EXPECT_EQ(Ind3DTo1D_(0, 0, 3, 2, 3, 4), 3);
    EXPECT_EQ(Ind3DTo1D_(0, 1, 0, 2, 3, 4), 4);
    EXPECT_EQ(Ind3DTo1D_(1, 0, 0, 2, 3, 4), 12);
    EXPECT_EQ(Ind3DTo1D_(1, 2, 3, 2, 3, 4), 23);
    EXPECT_EQ(Ind3DTo1D_(127, 255, 65535, 128, 256, 65536), highest);
}

TEST(Scalars, CoordinatesOutOfRangeHaveNoPlace)
{
    for (const Two& place : {Two{-1, 0},
                             {0, -1},
                             {5, 0},
                             {0, 3},
                             {-1, -1},
                             {5, 3},
                             {6, 1},
                             {1, 4},
                             {lowest, 0},
                             {0, lowest},
                             {highest, 0},
                             {0, highest}})
    {
        SCOPED_TRACE(testing::Message() << place.first << ", " << place.second);
        EXPECT_EQ(Ind2DTo1D(place.first, place.second, 5, 3), -1);
        EXPECT_EQ(Ind2DTo1D_(place.first, place.second, 5, 3), -1);
    }
    for (const Three& place : {Three{-1, 0, 0},
                               {0, -1, 0},
                               {0, 0, -1},
                               {2, 0, 0},
                               {0, 3, 0},
                               {0, 0, 4},
                               {lowest, 0, 0},
                               {0, highest, 0},
                               {0, 0, lowest},
                               {2, 3, 4}})
    {
        SCOPED_TRACE(testing::Message() << place.first << ", " << place.second << ", " << place.third);
        EXPECT_EQ(Ind3DTo1D_(place.first, place.second, place.third, 2, 3, 4), -1);
    }
}

TEST(Scalars, ArraysWithoutElementsHaveNoPlace)
{
    EXPECT_EQ(Ind2DTo1D(0, 0, 0, 3), -1);
    EXPECT_EQ(Ind2DTo1D(0, 0, 5, 0), -1);
    EXPECT_EQ(Ind2DTo1D_(0, 0, 0, 5), -1);
    EXPECT_EQ(Ind2DTo1D_(0, 0, 3, 0), -1);
    EXPECT_EQ(Ind3DTo1D_(0, 0, 0, 0, 3, 4), -1);
    EXPECT_EQ(Ind3DTo1D_(0, 0, 0, 2, 0, 4), -1);
    EXPECT_EQ(Ind3DTo1D_(0, 0, 0, 2, 3, 0), -1);
    EXPECT_EQ(Ind2DTo1D(0, 0, -5, -3), -1);
}

// 100,000 rows of 100,000: the low 32 bits of 10,000,000,000 are 1,410,065,408.
TEST(Scalars, PlacesBeyondTheRangeOfAnIndexKeepTheirLowBits)
{
    EXPECT_EQ(Ind2DTo1D(0, 100000, 100000, 200000), 1410065408);
    EXPECT_EQ(Ind2DTo1D_(100000, 0, 200000, 100000), 1410065408);
    EXPECT_EQ(Ind3DTo1D_(1, 0, 0, 2, 100000, 100000), 1410065408);
    EXPECT_EQ(Ind2DTo1D(1, 32768, 65536, 65536), lowest + 1);
}

TEST(Scalars, PlacesComeBackAsCoordinates)
{
    EXPECT_EQ(columnAndRow(0, 5), (Two{0, 0}));
    EXPECT_EQ(columnAndRow(4, 5), (Two{4, 0}));
    EXPECT_EQ(columnAndRow(5, 5), (Two{0, 1}));
    EXPECT_EQ(columnAndRow(7, 5), (Two{2, 1}));
    EXPECT_EQ(columnAndRow(highest, 65536), (Two{65535, 32767}));
    EXPECT_EQ(columnAndRow(7, 1), (Two{0, 7}));

    EXPECT_EQ(slowAndFast(0, 5), (Two{0, 0}));
    EXPECT_EQ(slowAndFast(4, 5), (Two{0, 4}));
    EXPECT_EQ(slowAndFast(5, 5), (Two{1, 0}));
    EXPECT_EQ(slowAndFast(7, 5), (Two{1, 2}));
    EXPECT_EQ(slowAndFast(highest, 65536), (Two{32767, 65535}));

    EXPECT_EQ(slowToFast(0, 3, 4), (Three{0, 0, 0}));
    EXPECT_EQ(slowToFast(3, 3, 4), (Three{0, 0, 3}));
    EXPECT_EQ(slowToFast(4, 3, 4), (Three{0, 1, 0}));
    EXPECT_EQ(slowToFast(12, 3, 4), (Three{1, 0, 0}));
    EXPECT_EQ(slowToFast(23, 3, 4), (Three{1, 2, 3}));
    EXPECT_EQ(slowToFast(24, 3, 4), (Three{2, 0, 0}));
    EXPECT_EQ(slowToFast(highest, 256, 65536), (Three{127, 255, 65535}));
}

TEST(Scalars, EveryPlaceOfASmallArrayGoesThereAndBack)
{
    for (int index = 0; index < 2 * 3 * 4; ++index) {
        SCOPED_TRACE(index);
        const Two flat = columnAndRow(index, 4);
        EXPECT_EQ(Ind2DTo1D(flat.first, flat.second, 4, 6), index);
        EXPECT_EQ(slowAndFast(index, 4), (Two{flat.second, flat.first}));
        const Three deep = slowToFast(index, 3, 4);
        EXPECT_EQ(Ind3DTo1D_(deep.first, deep.second, deep.third, 2, 3, 4), index);
    }
}

TEST(Scalars, PlacesOutsideAnArrayAreDividedAsTheyStand)
{
    EXPECT_EQ(columnAndRow(100, 5), (Two{0, 20}));
    EXPECT_EQ(columnAndRow(-7, 5), (Two{-2, -1}));
    EXPECT_EQ(slowAndFast(-7, 5), (Two{-1, -2}));
}

TEST(Scalars, SizesOfZeroGiveZero)
{
    EXPECT_EQ(columnAndRow(7, 0), (Two{0, 0}));
    EXPECT_EQ(columnAndRow(0, 0), (Two{0, 0}));
    EXPECT_EQ(slowAndFast(7, 0), (Two{0, 0}));
    EXPECT_EQ(slowToFast(7, 0, 4), (Three{0, 0, 3}));
    EXPECT_EQ(slowToFast(7, 3, 0), (Three{0, 0, 0}));
    EXPECT_EQ(slowToFast(7, 0, 0), (Three{0, 0, 0}));
}

TEST(Scalars, SizesBeyondAllIndexesAreStillDivisors)
{
    EXPECT_EQ(slowToFast(highest, 65536, 65536), (Three{0, 32767, 65535}));
    EXPECT_EQ(slowToFast(highest, highest, highest), (Three{0, 1, 0}));
    EXPECT_EQ(columnAndRow(lowest, -1).first, 0);
    EXPECT_EQ(slowAndFast(lowest, -1).second, 0);
    EXPECT_EQ(slowToFast(lowest, 1, -1).third, 0);
}

TEST(Scalars, NotANumberStandsBehindAllOthersInOrder)
{
    EXPECT_TRUE(isBelowNanLast(1.0, 2.0));
    EXPECT_FALSE(isBelowNanLast(2.0, 1.0));
    EXPECT_FALSE(isBelowNanLast(1.0, 1.0));
    EXPECT_FALSE(isBelowNanLast(0.0, -0.0));
    EXPECT_TRUE(isBelowNanLast(infinity, notANumber));
    EXPECT_TRUE(isBelowNanLast(-infinity, notANumber));
    EXPECT_FALSE(isBelowNanLast(notANumber, infinity));
    EXPECT_FALSE(isBelowNanLast(notANumber, notANumber));

    std::vector<double> values{notANumber, 3.0, notANumber, -infinity, infinity, 1.0};
    std::sort(values.begin(), values.end(), isBelowNanLast);
    EXPECT_EQ((std::vector<double>(values.begin(), values.begin() + 4)),
              (std::vector<double>{-infinity, 1.0, 3.0, infinity}));
    EXPECT_TRUE(std::isnan(values[4]));
    EXPECT_TRUE(std::isnan(values[5]));
}
