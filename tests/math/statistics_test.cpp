#include "math/statistics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

using namespace tavelinMath;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

using Values = std::vector<double>;
using Pixels = std::vector<pixel>;
using Integers = std::vector<int>;
using Mask = std::vector<bool>;

// Pixels whose other fields would spoil each result.
Pixels pixelsOf(const Values& brightness)
{
    Pixels pixels;
    for (const double value : brightness) {
        pixels.push_back({.X = 70 + static_cast<int>(pixels.size()), .Y = -80, .C = value, .A = -1e6});
    }
    return pixels;
}

Values brightnessOf(const Pixels& pixels)
{
    Values brightness;
    for (const pixel& one : pixels) {
        brightness.push_back(one.C);
    }
    return brightness;
}

// What stays in mean and sigma where a clipping writes nothing.
constexpr double untouched = -777.0;

struct Clipped
{
    double mean = untouched;
    double sigma = untouched;
};

Clipped clipped(int width, int height, Values values, int iterations, double k, double eps)
{
    const Values before = values;
    Clipped result;
    pcMathSKO(width, height, values.data(), iterations, k, eps, result.mean, result.sigma);
    EXPECT_EQ(values, before);
    return result;
}

Values sorted(Values values)
{
    std::sort(values.begin(), values.end());
    return values;
}

} // namespace

static_assert(
    std::is_same_v<decltype(&pcMathSKO), void (*)(int, int, double*, int, double, double, double&, double&)>);
static_assert(std::is_same_v<decltype(&BlankARR), void (*)(int, double*, bool*, double, double)>);
static_assert(std::is_same_v<decltype(&CalculateMulti), double (*)(Values, Values)>);
static_assert(std::is_same_v<decltype(&CalculatePow), Values (*)(Values, const double&, Mask)>);
static_assert(std::is_same_v<decltype(&Median), double (*)(Values&)>);
static_assert(std::is_same_v<decltype(&Median2), double (*)(Values&)>);
static_assert(std::is_same_v<decltype(&cMinC), double (*)(Pixels&)>);
static_assert(std::is_integral_v<decltype(FindMaxInd(Values{}))>);
static_assert(std::is_integral_v<decltype(FindMinInd(Values{}))>);

TEST(Statistics, AverageOfValues)
{
    EXPECT_EQ(CalculateAverage(Values{5.0}), 5.0);
    EXPECT_EQ(CalculateAverage(Values{1.0, 2.0, 3.0, 5.0}), 2.75);
    EXPECT_EQ(CalculateAverage(Values{-1.5, 1.5}), 0.0);
    EXPECT_EQ(CalculateAverage(Values{}), 0.0);
    EXPECT_TRUE(std::isnan(CalculateAverage(Values{1.0, notANumber, 3.0})));
    EXPECT_EQ(CalculateAverage(Values{1.0, infinity}), infinity);
}

TEST(Statistics, AverageOfPixelsIsThatOfTheirBrightness)
{
    EXPECT_EQ(CalculateAverage(pixelsOf({1.0, 2.0, 3.0, 5.0})), 2.75);
    EXPECT_EQ(CalculateAverage(pixelsOf({-4.5})), -4.5);
    EXPECT_EQ(CalculateAverage(Pixels{}), 0.0);
}

TEST(Statistics, AverageOfCountsIsADouble)
{
    EXPECT_EQ(CalculateAverage(std::vector<unsigned long>{1, 2}), 1.5);
    EXPECT_EQ(CalculateAverage(std::vector<unsigned long>{7}), 7.0);
    EXPECT_EQ(CalculateAverage(std::vector<unsigned long>{4294967296, 4294967298}), 4294967297.0);
    EXPECT_EQ(CalculateAverage(std::vector<unsigned long>{}), 0.0);
}

TEST(Statistics, AverageOfCountsThatAreTogetherBeyondTheirRange)
{
    EXPECT_EQ(CalculateAverage(std::vector<unsigned long>{9223372036854775808UL, 9223372036854775808UL}),
              9223372036854775808.0);
}

TEST(Statistics, AverageOfWhatAMaskLeavesComesWithItsCount)
{
    double values[] = {1.0, 100.0, 3.0, notANumber, 8.0};
    bool mask[] = {false, true, false, true, false};
    unsigned long count = 99;
    EXPECT_EQ(CalculateAverage(5, values, mask, count), 4.0);
    EXPECT_EQ(count, 3UL);
    EXPECT_EQ(CalculateAverage(3, values, mask, count), 2.0);
    EXPECT_EQ(count, 2UL);
    EXPECT_EQ(CalculateAverage(1, values, mask, count), 1.0);
    EXPECT_EQ(count, 1UL);
    EXPECT_EQ(mask[1], true);
    EXPECT_EQ(values[1], 100.0);
}

TEST(Statistics, AverageWithNothingThatCountsIsNotANumber)
{
    double values[] = {1.0, 2.0};
    bool mask[] = {true, true};
    unsigned long count = 99;
    EXPECT_TRUE(std::isnan(CalculateAverage(2, values, mask, count)));
    EXPECT_EQ(count, 0UL);
    count = 99;
    EXPECT_TRUE(std::isnan(CalculateAverage(0, values, mask, count)));
    EXPECT_EQ(count, 0UL);
    count = 99;
    EXPECT_TRUE(std::isnan(CalculateAverage(0, nullptr, nullptr, count)));
    EXPECT_EQ(count, 0UL);
}

TEST(Statistics, Sums)
{
    EXPECT_EQ(CalculateSumma(Values{1.5, -4.0, 10.0}), 7.5);
    EXPECT_EQ(CalculateSumma(Values{}), 0.0);
    EXPECT_TRUE(std::isnan(CalculateSumma(Values{1.0, notANumber})));
}

TEST(Statistics, SumOfWhatAMaskLeaves)
{
    const Values values{1.0, 2.0, 4.0, 8.0};
    EXPECT_EQ(CalculateSumma(values, Mask{false, true, false, true}), 5.0);
    EXPECT_EQ(CalculateSumma(values, Mask{false, false, false, false}), 15.0);
    EXPECT_EQ(CalculateSumma(values, Mask{true, true, true, true}), 0.0);
    EXPECT_EQ(CalculateSumma(Values{}, Mask{}), 0.0);
    EXPECT_EQ(CalculateSumma(Values{notANumber, 2.0}, Mask{true, false}), 2.0);
}

TEST(Statistics, PlacesBehindTheEndOfAMaskCount)
{
    const Values values{1.0, 2.0, 4.0, 8.0};
    EXPECT_EQ(CalculateSumma(values, Mask{true}), 14.0);
    EXPECT_EQ(CalculateSumma(values, Mask{}), 15.0);
    EXPECT_EQ(CalculateUmn(values, values, Mask{true, true}), 80.0);
    EXPECT_EQ(CalculatePow(values, 2.0, Mask{false, true}), (Values{1.0, 0.0, 16.0, 64.0}));
    EXPECT_EQ(CalculateSqr(values, Mask{true}), 84.0);
}

TEST(Statistics, LongerMasksAreReadOverTheValues)
{
    const Mask mask{false, true, true, true};
    EXPECT_EQ(CalculateSumma(Values{3.0, 2.0}, mask), 3.0);
    EXPECT_EQ(CalculateUmn(Values{3.0, 2.0}, Values{5.0, 2.0}, mask), 15.0);
    EXPECT_EQ(CalculatePow(Values{3.0, 2.0}, 1.0, mask), (Values{3.0, 0.0}));
    EXPECT_EQ(CalculateSqr(Values{3.0, 2.0}, mask), 9.0);
}

TEST(Statistics, SumOverAllPairsIsTheProductOfTheSums)
{
    EXPECT_EQ(CalculateMulti(Values{1.0, 2.0, 3.0}, Values{10.0, -4.0}), 36.0);
    EXPECT_EQ(CalculateMulti(Values{2.0}, Values{1.0, 2.0, 3.0}), 12.0);
    EXPECT_EQ(CalculateMulti(Values{}, Values{1.0}), 0.0);
    EXPECT_EQ(CalculateMulti(Values{1.0}, Values{}), 0.0);
    EXPECT_EQ(CalculateMulti(Values{}, Values{}), 0.0);
}

TEST(Statistics, DotProductGoesOverTheFirstList)
{
    EXPECT_EQ(CalculateUmn(Values{1.0, 2.0, 3.0}, Values{4.0, -5.0, 6.0}), 12.0);
    EXPECT_EQ(CalculateUmn(Values{1.0, 2.0}, Values{4.0, 5.0, 6.0}), 14.0);
    EXPECT_EQ(CalculateUmn(Values{}, Values{4.0}), 0.0);
    EXPECT_EQ(CalculateUmn(Values{1.0, 2.0, 3.0}, Values{4.0, 5.0, 6.0}, Mask{false, true, false}), 22.0);
    EXPECT_EQ(CalculateUmn(Values{1.0, 2.0}, Values{4.0, 5.0, 6.0}, Mask{false, true, false}), 4.0);
    EXPECT_EQ(CalculateUmn(Values{1.0, 2.0}, Values{4.0, 5.0}, Mask{true, true}), 0.0);
    EXPECT_EQ(CalculateUmn(Values{}, Values{}, Mask{}), 0.0);
    EXPECT_EQ(CalculateUmn(Values{1.0, notANumber}, Values{4.0, 5.0}, Mask{false, true}), 4.0);
}

TEST(Statistics, DotProductWithAShorterSecondListEndsThere)
{
    EXPECT_EQ(CalculateUmn(Values{1.0, 2.0, 3.0}, Values{4.0, 5.0}), 14.0);
    EXPECT_EQ(CalculateUmn(Values{1.0, 2.0}, Values{}), 0.0);
    EXPECT_EQ(CalculateUmn(Values{1.0, 2.0, 3.0}, Values{4.0, 5.0}, Mask{true, false, false}), 10.0);
}

TEST(Statistics, PowersAreZeroAtTheMaskedPlaces)
{
    EXPECT_EQ(CalculatePow(Values{2.0, 3.0, -4.0, 0.0}, 2.0, Mask{false, true, false, false}),
              (Values{4.0, 0.0, 16.0, 0.0}));
    EXPECT_EQ(CalculatePow(Values{4.0, 0.25}, 0.5, Mask{false, false}), (Values{2.0, 0.5}));
    EXPECT_EQ(CalculatePow(Values{0.0, 5.0}, 0.0, Mask{false, true}), (Values{1.0, 0.0}));
    EXPECT_EQ(CalculatePow(Values{0.0, 2.0}, -1.0, Mask{true, false}), (Values{0.0, 0.5}));
    EXPECT_EQ(CalculatePow(Values{}, 2.0, Mask{}), Values{});
    EXPECT_TRUE(std::isnan(CalculatePow(Values{-1.0}, 0.5, Mask{false})[0]));
}

TEST(Statistics, Squares)
{
    EXPECT_EQ(CalculateSqr(-1.5), 2.25);
    EXPECT_EQ(CalculateSqr(0.0), 0.0);
    EXPECT_EQ(CalculateSqr(Values{1.0, -2.0, 3.0}), 14.0);
    EXPECT_EQ(CalculateSqr(Values{}), 0.0);
    EXPECT_EQ(CalculateSqr(Values{1.0, -2.0, 3.0}, Mask{false, false, true}), 5.0);
    EXPECT_EQ(CalculateSqr(Values{1.0, -2.0}, Mask{true, true}), 0.0);
    EXPECT_EQ(CalculateSqr(Values{}, Mask{}), 0.0);
}

TEST(Statistics, SumOfSquaresIsTakenWithoutARoot)
{
    EXPECT_EQ(CalculateRSS(Values{3.0, -4.0}), 25.0);
    EXPECT_EQ(CalculateRSS(Values{0.5}), 0.25);
    EXPECT_EQ(CalculateRSS(Values{}), 0.0);
}

TEST(Statistics, DeviationFromAGivenMeanIsDividedByTheCount)
{
    EXPECT_EQ(CalculateSKO(Values{1.0, 3.0}, 2.0), 1.0);
    EXPECT_EQ(CalculateSKO(Values{2.0, 4.0, 4.0, 4.0, 5.0, 5.0, 7.0, 9.0}, 5.0), 2.0);
    EXPECT_EQ(CalculateSKO(Values{1.0, 1.0}, 4.0), 3.0);
    EXPECT_EQ(CalculateSKO(Values{7.0}, 7.0), 0.0);
    EXPECT_EQ(CalculateSKO(Values{}, 4.0), 0.0);
    EXPECT_TRUE(std::isnan(CalculateSKO(Values{1.0, notANumber}, 1.0)));
}

TEST(Statistics, DeviationOfPixelsIsThatOfTheirBrightness)
{
    EXPECT_EQ(CalculateSKO(pixelsOf({2.0, 4.0, 4.0, 4.0, 5.0, 5.0, 7.0, 9.0}), 5.0), 2.0);
    EXPECT_EQ(CalculateSKO(pixelsOf({1.0, 1.0}), -2.0), 3.0);
    EXPECT_EQ(CalculateSKO(Pixels{}, 4.0), 0.0);
}

TEST(Statistics, DeviationInOnePass)
{
    EXPECT_EQ(CalculateSKO(Values{2.0, 4.0, 4.0, 4.0, 5.0, 5.0, 7.0, 9.0}), 2.0);
    EXPECT_EQ(CalculateSKO(Values{1.0, 2.0, 3.0, 4.0}), std::sqrt(1.25));
    EXPECT_EQ(CalculateSKO(Values{3.0}), 0.0);
    EXPECT_EQ(CalculateSKO(Values{}), 0.0);
}

// The squares of 0.1 add up to a little less than three times the square of their mean.
TEST(Statistics, DeviationInOnePassOfEqualValuesCanBeNotANumber)
{
    EXPECT_TRUE(std::isnan(CalculateSKO(Values{0.1, 0.1, 0.1})));
    EXPECT_NEAR(CalculateSKO(Values{0.1, 0.1, 0.1}, 0.1), 0.0, 1e-15);
}

// Beside 1e18 doubles are 128 apart, and the squares differ from that of the mean by 1.
TEST(Statistics, DeviationInOnePassLosesWhatIsSmallBesideTheMean)
{
    EXPECT_EQ(CalculateSKO(Values{1e9, 1e9 + 2.0}), 0.0);
    EXPECT_EQ(CalculateSKO(Values{1e9, 1e9 + 2.0}, 1e9 + 1.0), 1.0);
}

TEST(Statistics, DeviationOfWhatAMaskLeavesComesWithItsCount)
{
    double values[] = {1.0, 100.0, 3.0, notANumber, 2.0};
    bool mask[] = {false, true, false, true, true};
    unsigned long count = 99;
    EXPECT_EQ(CalculateSKO(5, values, mask, count, 2.0), 1.0);
    EXPECT_EQ(count, 2UL);
    EXPECT_EQ(CalculateSKO(1, values, mask, count, 4.0), 3.0);
    EXPECT_EQ(count, 1UL);
}

TEST(Statistics, DeviationWithNothingThatCountsIsNotANumber)
{
    double values[] = {1.0, 2.0};
    bool mask[] = {true, true};
    unsigned long count = 99;
    EXPECT_TRUE(std::isnan(CalculateSKO(2, values, mask, count, 1.5)));
    EXPECT_EQ(count, 0UL);
    count = 99;
    EXPECT_TRUE(std::isnan(CalculateSKO(0, nullptr, nullptr, count, 1.5)));
    EXPECT_EQ(count, 0UL);
}

TEST(Statistics, ValuesOutsideTheLimitsAreMasked)
{
    std::array<double, 7> values{0.5, 1.0, 1.5, 2.0, 2.5, infinity, -infinity};
    std::array<bool, 7> mask{};
    BlankARR(7, values.data(), mask.data(), 1.0, 2.0);
    EXPECT_EQ(mask, (std::array<bool, 7>{true, false, false, false, true, true, true}));
    EXPECT_EQ(values[0], 0.5);
    EXPECT_EQ(values[4], 2.5);
}

TEST(Statistics, MasksSetEarlierStaySet)
{
    std::array<double, 4> values{1.0, 5.0, 2.0, 9.0};
    std::array<bool, 4> mask{true, false, false, true};
    BlankARR(4, values.data(), mask.data(), 0.0, 4.0);
    EXPECT_EQ(mask, (std::array<bool, 4>{true, true, false, true}));
    BlankARR(4, values.data(), mask.data(), -100.0, 100.0);
    EXPECT_EQ(mask, (std::array<bool, 4>{true, true, false, true}));
}

TEST(Statistics, MaskingEndsAtTheGivenCount)
{
    std::array<double, 3> values{9.0, 9.0, 9.0};
    std::array<bool, 3> mask{};
    BlankARR(2, values.data(), mask.data(), 0.0, 1.0);
    EXPECT_EQ(mask, (std::array<bool, 3>{true, true, false}));
    BlankARR(0, nullptr, nullptr, 0.0, 1.0);
}

// The lower limit is first here: 3 and 1 leave no value between them.
TEST(Statistics, MaskingWithTheUpperLimitBelowTheLowerTakesAll)
{
    std::array<double, 5> values{0.0, 1.0, 2.0, 3.0, 4.0};
    std::array<bool, 5> mask{};
    BlankARR(5, values.data(), mask.data(), 3.0, 1.0);
    EXPECT_EQ(mask, (std::array<bool, 5>{true, true, true, true, true}));
}

// Not-a-number is neither below nor above a limit.
TEST(Statistics, NotANumberLiesOutsideNoLimits)
{
    std::array<double, 3> values{notANumber, 5.0, 0.5};
    std::array<bool, 3> mask{};
    BlankARR(3, values.data(), mask.data(), 0.0, 1.0);
    EXPECT_EQ(mask, (std::array<bool, 3>{false, true, false}));

    Values list{0.5, notANumber, 5.0};
    BracData(list, 1.0, 0.0);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0], 0.5);
    EXPECT_TRUE(std::isnan(list[1]));
}

TEST(Statistics, UpperLimitComesFirstWhereValuesAreRemoved)
{
    Values values{5.0, 1.0, 0.5, 2.0, 3.0, 2.5, 1.0, -7.0};
    BracData(values, 2.5, 1.0);
    EXPECT_EQ(values, (Values{1.0, 2.0, 2.5, 1.0}));

    Values nothing;
    BracData(nothing, 2.5, 1.0);
    EXPECT_TRUE(nothing.empty());

    Values one{4.0};
    BracData(one, 4.0, 4.0);
    EXPECT_EQ(one, Values{4.0});
}

TEST(Statistics, UpperLimitBelowTheLowerRemovesAll)
{
    Values values{0.0, 1.0, 2.0, 3.0, 4.0};
    BracData(values, 1.0, 3.0);
    EXPECT_TRUE(values.empty());

    Pixels pixels = pixelsOf({0.0, 1.0, 2.0, 3.0, 4.0});
    BracData(pixels, 1.0, 3.0);
    EXPECT_TRUE(pixels.empty());
}

TEST(Statistics, PixelsAreRemovedByTheirBrightness)
{
    Pixels pixels = pixelsOf({5.0, 1.0, 0.5, 2.5, 2.0});
    BracData(pixels, 2.5, 1.0);
    EXPECT_EQ(brightnessOf(pixels), (Values{1.0, 2.5, 2.0}));
    EXPECT_EQ(pixels[0].X, 71);
    EXPECT_EQ(pixels[1].X, 73);
    EXPECT_EQ(pixels[2].X, 74);
    EXPECT_EQ(pixels[2].Y, -80);
    EXPECT_EQ(pixels[2].A, -1e6);

    Pixels nothing;
    BracData(nothing, 2.5, 1.0);
    EXPECT_TRUE(nothing.empty());
}

// Eight zeros, 10 and 100. The passes: mean 11 and sigma sqrt(889) = 29.8 of all ten, which masks 100 at two
// sigmas; mean 10/9 and sigma sqrt(800)/9 = 3.14 of nine, which masks 10; then 0 and 0, and again 0 and 0.
TEST(Statistics, ClippingGoesOnUntilSigmaStaysOrThePassesAreDone)
{
    const Values block{0.0, 0.0, 100.0, 0.0, 0.0, 0.0, 10.0, 0.0, 0.0, 0.0};
    const double firstSigma = std::sqrt(889.0);
    const double secondSigma = std::sqrt(800.0) / 9.0;
    struct
    {
        int iterations;
        double eps, mean, sigma;
    } const rows[] = {
        {1, 0.0, 11.0, firstSigma},
        {2, 0.0, 10.0 / 9.0, secondSigma},
        {3, 0.0, 0.0, 0.0},
        {4, 0.0, 0.0, 0.0},
        {1000, 0.0, 0.0, 0.0},
        {1000, 0.001, 0.0, 0.0},
        {1000, 3.14, 0.0, 0.0},
        {1000, 3.15, 0.0, 0.0},                 // stops at the third pass already
        {1000, 26.67, 0.0, 0.0},                // 29.816 - 3.143 = 26.673 is above it
        {1000, 26.68, 10.0 / 9.0, secondSigma}, // and not above it
        {1000, 30.8, 10.0 / 9.0, secondSigma},  // 29.816 + 1 = 30.816, since sigma starts at -1
        {1000, 30.82, 11.0, firstSigma},
        {1000, 999.9, 11.0, firstSigma},
        {7, -1.0, 0.0, 0.0},
        {-1, 0.0, 11.0, firstSigma}, // reached from the first pass on
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.iterations << " passes, eps " << row.eps);
        for (const auto& [width, height] : {std::pair{5, 2}, {2, 5}, {10, 1}, {1, 10}}) {
            const Clipped result = clipped(width, height, block, row.iterations, 2.0, row.eps);
            EXPECT_DOUBLE_EQ(result.mean, row.mean);
            EXPECT_DOUBLE_EQ(result.sigma, row.sigma);
        }
    }
}

// Two values a sigma from their mean each, so at k = 1 both are on a limit.
TEST(Statistics, ValuesOnALimitAreNotClipped)
{
    const Clipped result = clipped(2, 1, {-1.0, 1.0}, 5, 1.0, -1.0);
    EXPECT_EQ(result.mean, 0.0);
    EXPECT_EQ(result.sigma, 1.0);
}

TEST(Statistics, BothSidesAreClipped)
{
    for (const double outlier : {100.0, -100.0}) {
        SCOPED_TRACE(outlier);
        const Clipped result = clipped(3, 2, {5.0, 5.0, 5.0, outlier, 5.0, 5.0}, 2, 1.5, 0.0);
        EXPECT_EQ(result.mean, 5.0);
        EXPECT_EQ(result.sigma, 0.0);
    }
}

// The first pass (mean 6.67, sigma 5.02) masks 1 and both 12, the second (5, 4.24) masks 11. Its lower limit
// is 0.76, but 1 stays masked: else the third mean were 5/3.
TEST(Statistics, ClippedValuesDoNotComeBack)
{
    const Values block{1.0, 2.0, 2.0, 11.0, 12.0, 12.0};
    const Clipped first = clipped(3, 2, block, 1, 1.0, -1.0);
    EXPECT_DOUBLE_EQ(first.mean, 40.0 / 6.0);
    EXPECT_DOUBLE_EQ(first.sigma, 5.022173057773122);
    const Clipped second = clipped(3, 2, block, 2, 1.0, -1.0);
    EXPECT_DOUBLE_EQ(second.mean, 5.0);
    EXPECT_DOUBLE_EQ(second.sigma, std::sqrt(18.0));
    const Clipped third = clipped(3, 2, block, 3, 1.0, -1.0);
    EXPECT_EQ(third.mean, 2.0);
    EXPECT_EQ(third.sigma, 0.0);
}

TEST(Statistics, LargeEpsOrNoPassesAskForNoClipping)
{
    const Values block{1.0, 3.0};
    for (const auto& [iterations, eps] :
         {std::pair{10, 1000.0}, {10, 1e300}, {10, infinity}, {0, 0.1}, {0, 1000.0}, {0, -1.0}})
    {
        SCOPED_TRACE(testing::Message() << iterations << " passes, eps " << eps);
        const Clipped result = clipped(2, 1, block, iterations, 3.0, eps);
        EXPECT_EQ(result.mean, untouched);
        EXPECT_EQ(result.sigma, -1.0);
    }
    const Clipped justBelow = clipped(2, 1, block, 10, 3.0, 999.9999999);
    EXPECT_EQ(justBelow.mean, 2.0);
    EXPECT_EQ(justBelow.sigma, 1.0);

    Clipped empty;
    pcMathSKO(0, 0, nullptr, 10, 3.0, 1000.0, empty.mean, empty.sigma);
    EXPECT_EQ(empty.mean, untouched);
    EXPECT_EQ(empty.sigma, -1.0);
}

TEST(Statistics, ConstantBlockHasNoDeviation)
{
    for (const int iterations : {1, 2, 3, 1000000000}) {
        SCOPED_TRACE(iterations);
        const Clipped result = clipped(4, 3, Values(12, 6.5), iterations, 3.0, 0.0);
        EXPECT_EQ(result.mean, 6.5);
        EXPECT_EQ(result.sigma, 0.0);
    }
    const Clipped one = clipped(1, 1, {-4.0}, 10, 3.0, 0.01);
    EXPECT_EQ(one.mean, -4.0);
    EXPECT_EQ(one.sigma, 0.0);
}

TEST(Statistics, EmptyBlockGivesNotANumber)
{
    for (const auto& [width, height] : {std::pair{0, 0}, {0, 7}, {7, 0}}) {
        SCOPED_TRACE(testing::Message() << width << " x " << height);
        Clipped result;
        pcMathSKO(width, height, nullptr, 1000000000, 3.0, -1.0, result.mean, result.sigma);
        EXPECT_TRUE(std::isnan(result.mean));
        EXPECT_TRUE(std::isnan(result.sigma));
    }
}

// 0 and 10 lie one sigma from their mean; at half a sigma none is left for the second pass. A comparison with
// not-a-number is not above any eps, so that the passes end there.
TEST(Statistics, BlockThatIsClippedAwayGivesNotANumber)
{
    const Clipped first = clipped(2, 1, {0.0, 10.0}, 1, 0.5, -1.0);
    EXPECT_EQ(first.mean, 5.0);
    EXPECT_EQ(first.sigma, 5.0);
    for (const int iterations : {2, 3, 1000000000}) {
        SCOPED_TRACE(iterations);
        const Clipped later = clipped(2, 1, {0.0, 10.0}, iterations, 0.5, -1.0);
        EXPECT_TRUE(std::isnan(later.mean));
        EXPECT_TRUE(std::isnan(later.sigma));
    }
}

TEST(Statistics, BlockWithNotANumberEndsAfterOnePass)
{
    Values block{1.0, notANumber, 3.0, 2.0};
    Clipped result;
    pcMathSKO(2, 2, block.data(), 1000000000, 3.0, -1.0, result.mean, result.sigma);
    EXPECT_TRUE(std::isnan(result.mean));
    EXPECT_TRUE(std::isnan(result.sigma));
}

TEST(Statistics, NotANumberAsEpsEndsAfterOnePass)
{
    const Clipped result = clipped(2, 3, {0.0, 0.0, 0.0, 0.0, 0.0, 60.0}, 1000, 1.0, notANumber);
    EXPECT_DOUBLE_EQ(result.mean, 10.0);
    EXPECT_DOUBLE_EQ(result.sigma, std::sqrt(500.0));
}

TEST(Statistics, SignalInUnitsOfSigma)
{
    EXPECT_EQ(cSN3(110.0, 100.0, 4.0), 2.5);
    EXPECT_EQ(cSN3(90.0, 100.0, 4.0), -2.5);
    EXPECT_EQ(cSN3(110.0, 100.0, 0.0), 0.0);
    EXPECT_EQ(cSN3(110.0, 100.0, -4.0), 0.0);
    EXPECT_EQ(cSN3(110.0, 100.0, notANumber), 0.0);
    EXPECT_EQ(cSN3(notANumber, 100.0, -1.0), 0.0);
}

TEST(Statistics, LargestOfAnArrayOfIntegers)
{
    int values[] = {-5, 7, 3, 9};
    EXPECT_EQ(FindMax(values, 4UL), 9);
    EXPECT_EQ(FindMax(values, 3UL), 7);
    EXPECT_EQ(FindMax(values, 1UL), -5);
    int negative[] = {-5, -3, std::numeric_limits<int>::min()};
    EXPECT_EQ(FindMax(negative, 3UL), -3);
}

// The first one is read whatever the count.
TEST(Statistics, LargestOfNoneOfAnArrayIsItsFirst)
{
    int values[] = {-5, 7};
    EXPECT_EQ(FindMax(values, 0UL), -5);
}

TEST(Statistics, LargestAndSmallestValue)
{
    EXPECT_EQ(FindMax(Values{3.5, -1.0, 8.25, 8.0}), 8.25);
    EXPECT_EQ(FindMin(Values{3.5, -1.0, 8.25, -0.5}), -1.0);
    EXPECT_EQ(FindMax(Values{-3.0, -2.0}), -2.0);
    EXPECT_EQ(FindMin(Values{3.0, 2.0}), 2.0);
    EXPECT_EQ(FindMax(Values{-infinity}), -infinity);
    EXPECT_EQ(FindMin(Values{infinity}), infinity);
    EXPECT_EQ(FindMax(Values{}), 0.0);
    EXPECT_EQ(FindMin(Values{}), 0.0);
}

TEST(Statistics, LargestAndSmallestInteger)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    EXPECT_EQ(FindMax(Integers{3, -1, 8, 7}), 8);
    EXPECT_EQ(FindMin(Integers{3, -1, 8, 0}), -1);
    EXPECT_EQ(FindMax(Integers{-3, -2}), -2);
    EXPECT_EQ(FindMin(Integers{3, 2}), 2);
    EXPECT_EQ(FindMax(Integers{lowest, highest}), highest);
    EXPECT_EQ(FindMin(Integers{highest, lowest}), lowest);
    EXPECT_EQ(FindMax(Integers{lowest}), lowest);
    EXPECT_EQ(FindMin(Integers{highest}), highest);
    EXPECT_EQ(FindMin(Integers{2147483647, 2147483646}), 2147483646);
    EXPECT_EQ(FindMax(Integers{}), 0);
    EXPECT_EQ(FindMin(Integers{}), 0);
}

TEST(Statistics, IndexOfTheFirstLargestAndOfTheFirstSmallest)
{
    EXPECT_EQ(FindMaxInd(Values{1.0, 5.0, 2.0, 5.0}), 1U);
    EXPECT_EQ(FindMinInd(Values{4.0, 1.0, 2.0, 1.0}), 1U);
    EXPECT_EQ(FindMaxInd(Values{-3.0, -1.0, -2.0}), 1U);
    EXPECT_EQ(FindMinInd(Values{3.0, 4.0, 2.0}), 2U);
    EXPECT_EQ(FindMaxInd(Values{2.0, 2.0, 2.0}), 0U);
    EXPECT_EQ(FindMinInd(Values{2.0, 2.0, 2.0}), 0U);
    EXPECT_EQ(FindMaxInd(Values{7.0}), 0U);
    EXPECT_EQ(FindMinInd(Values{7.0}), 0U);
    EXPECT_EQ(FindMaxInd(Values{}), 0U);
    EXPECT_EQ(FindMinInd(Values{}), 0U);
}

TEST(Statistics, NotANumberBehindTheFirstIsNoExtreme)
{
    EXPECT_EQ(FindMax(Values{1.0, notANumber, 3.0}), 3.0);
    EXPECT_EQ(FindMin(Values{3.0, notANumber, 1.0}), 1.0);
    EXPECT_EQ(FindMaxInd(Values{1.0, notANumber, 3.0}), 2U);
    EXPECT_EQ(FindMinInd(Values{3.0, notANumber, 1.0}), 2U);
    EXPECT_EQ(FindMaxInd(Values{1.0, notANumber}), 0U);
}

TEST(Statistics, SmallestBrightnessOfPixels)
{
    Pixels pixels = pixelsOf({4.0, 1.5, 2.0});
    EXPECT_EQ(cMinC(pixels), 1.5);
    EXPECT_EQ(brightnessOf(pixels), (Values{4.0, 1.5, 2.0}));
    Pixels negative = pixelsOf({-4.0, -1.5});
    EXPECT_EQ(cMinC(negative), -4.0);
    Pixels one = pixelsOf({9.0});
    EXPECT_EQ(cMinC(one), 9.0);
    Pixels none;
    EXPECT_EQ(cMinC(none), 0.0);
}

// One above the middle, for odd and for even counts.
TEST(Statistics, MedianStandsOneAboveTheMiddle)
{
    struct
    {
        Values values;
        double median;
    } const rows[] = {
        {{}, 0.0},
        {{-4.5}, -4.5},
        {{5.0, 7.0}, 6.0},
        {{7.0, 5.0}, 6.0},
        {{1.0, 2.0, 3.0}, 3.0},
        {{3.0, 1.0, 2.0}, 3.0},
        {{1.0, 2.0, 3.0, 4.0}, 3.5},
        {{4.0, 1.0, 3.0, 2.0}, 3.5},
        {{5.0, 4.0, 3.0, 2.0, 1.0}, 4.0},
        {{6.0, 1.0, 5.0, 2.0, 4.0, 3.0}, 4.5},
        {{10.0, 70.0, 20.0, 60.0, 30.0, 50.0, 40.0}, 50.0},
        {{80.0, 10.0, 70.0, 20.0, 60.0, 30.0, 50.0, 40.0}, 55.0},
        {{2.0, 2.0, 2.0}, 2.0},
        {{1.0, 1.0, 1.0, 9.0}, 5.0},
        {{-infinity, 0.0, infinity}, infinity},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.values));
        Values values = row.values;
        EXPECT_EQ(Median(values), row.median);
        EXPECT_EQ(sorted(values), sorted(row.values));
    }
}

TEST(Statistics, MedianOfLongLists)
{
    // 7 and 1,009 have no common divisor, so that each of the numbers from 0 to 1,008 comes once.
    Values odd;
    for (int i = 0; i < 1009; ++i) {
        odd.push_back((7 * i + 13) % 1009);
    }
    EXPECT_EQ(Median(odd), 505.0);
    Values even;
    for (int i = 0; i < 1010; ++i) {
        even.push_back((7 * i + 13) % 1010);
    }
    EXPECT_EQ(Median(even), 505.5);
}

TEST(Statistics, MedianCountsNotANumberAsTheLargest)
{
    Values five{notANumber, 1.0, 4.0, 2.0, 3.0};
    EXPECT_EQ(Median(five), 4.0);
    Values six{1.0, notANumber, 5.0, 2.0, 4.0, 3.0};
    EXPECT_EQ(Median(six), 4.5);
    Values three{notANumber, 2.0, 1.0};
    EXPECT_TRUE(std::isnan(Median(three)));
    Values four{2.0, notANumber, 1.0, 3.0};
    EXPECT_TRUE(std::isnan(Median(four)));
    Values one{notANumber};
    EXPECT_TRUE(std::isnan(Median(one)));
    Values all(100, notANumber);
    EXPECT_TRUE(std::isnan(Median(all)));
    Values many(101, 1.0);
    for (std::size_t i = 0; i < 49; ++i) {
        many[2 * i] = notANumber;
    }
    EXPECT_EQ(Median(many), 1.0);
}

TEST(Statistics, LowerMedianOfACopy)
{
    struct
    {
        Values values;
        double median;
    } const rows[] = {
        {{}, 0.0},
        {{-4.5}, -4.5},
        {{7.0, 5.0}, 7.0},
        {{5.0, 7.0}, 5.0},
        {{1.0, 2.0, 3.0}, 2.0},
        {{3.0, 1.0, 2.0}, 2.0},
        {{1.0, 2.0, 3.0, 4.0}, 2.0},
        {{4.0, 3.0, 2.0, 1.0}, 2.0},
        {{5.0, 4.0, 3.0, 2.0, 1.0}, 3.0},
        {{6.0, 1.0, 5.0, 2.0, 4.0, 3.0}, 3.0},
        {{9.0, 9.0, 1.0}, 9.0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.values));
        Values values = row.values;
        EXPECT_EQ(Median2(values), row.median);
        EXPECT_EQ(values, row.values);
    }
}

TEST(Statistics, LowerMedianOfLongLists)
{
    Values odd;
    for (int i = 0; i < 1009; ++i) {
        odd.push_back((7 * i + 13) % 1009);
    }
    EXPECT_EQ(Median2(odd), 504.0);
    EXPECT_EQ(odd[1], 20.0);
    Values even;
    for (int i = 0; i < 1010; ++i) {
        even.push_back((7 * i + 13) % 1010);
    }
    EXPECT_EQ(Median2(even), 504.0);
}

// Of 1, x, 3 the pivot is x and stops both walks: 1 and 3 change places, then x with itself, and nothing is
// left to sort. Of 3, 1, x the pivot is 1: 3 changes places with x, 1 with itself, and both parts have one.
TEST(Statistics, LowerMedianTakesNotANumberWhereTheSortLeavesIt)
{
    Values middle{1.0, notANumber, 3.0};
    EXPECT_TRUE(std::isnan(Median2(middle)));
    Values end{3.0, 1.0, notANumber};
    EXPECT_EQ(Median2(end), 1.0);
    Values two{notANumber, 1.0};
    EXPECT_TRUE(std::isnan(Median2(two)));
}
