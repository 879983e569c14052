#include "math/histogram.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>
#include <vector>

using namespace tavelinMath;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double largest = std::numeric_limits<double>::max();
constexpr int lowest = std::numeric_limits<int>::min();

using Numbers = std::vector<double>;
using Counts = std::vector<int>;

Counts countsOf(const std::vector<THisto>& histogram)
{
    Counts counts;
    for (const THisto& bin : histogram) {
        counts.push_back(bin.Count);
    }
    return counts;
}

Numbers lowerLimits(const std::vector<THisto>& histogram)
{
    Numbers limits;
    for (const THisto& bin : histogram) {
        limits.push_back(bin.Lo);
    }
    return limits;
}

Numbers upperLimits(const std::vector<THisto>& histogram)
{
    Numbers limits;
    for (const THisto& bin : histogram) {
        limits.push_back(bin.Hi);
    }
    return limits;
}

std::vector<std::vector<int>> indexesOf(const std::vector<THisto>& histogram)
{
    std::vector<std::vector<int>> indexes;
    for (const THisto& bin : histogram) {
        indexes.push_back(bin.Ind);
    }
    return indexes;
}

void expectNothingCounted(Numbers values, int bins)
{
    const std::vector<THisto> histogram = calcGisto(values, bins);
    ASSERT_EQ(histogram.size(), static_cast<std::size_t>(bins));
    for (const THisto& bin : histogram) {
        EXPECT_EQ(bin.Count, 0);
        EXPECT_TRUE(bin.Ind.empty());
    }
}

} // namespace

static_assert(std::is_same_v<decltype(&calcGisto), std::vector<THisto> (*)(std::vector<double>&, int)>);
static_assert(std::is_same_v<decltype(&calcGistoIteratio),
                             std::vector<THisto> (*)(const std::vector<double>&, int, int)>);
static_assert(std::is_same_v<decltype(&PutDataToHisto), void (*)(double, int, std::vector<THisto>&)>);
static_assert(std::is_same_v<decltype(THisto::Count), int>);
static_assert(std::is_same_v<decltype(THisto::Ind), std::vector<int>>);
static_assert(std::is_same_v<THisto, tavelinUtils::THisto>);

TEST(Histogram, NewBinIsZeroAndEmpty)
{
    const THisto bin;
    EXPECT_EQ(bin.Lo, 0.0);
    EXPECT_EQ(bin.Hi, 0.0);
    EXPECT_EQ(bin.Count, 0);
    EXPECT_TRUE(bin.Ind.empty());
}

TEST(Histogram, ValueIsAddedToTheBinThatHoldsIt)
{
    std::vector<THisto> histogram{{0.0, 1.0, 0, {}}, {1.0, 2.0, 4, {9}}, {2.0, 3.0, 0, {}}};
    PutDataToHisto(1.5, 7, histogram);
    EXPECT_EQ(countsOf(histogram), (Counts{0, 5, 0}));
    EXPECT_EQ(indexesOf(histogram), (std::vector<std::vector<int>>{{}, {9, 7}, {}}));
    EXPECT_EQ(lowerLimits(histogram), (Numbers{0.0, 1.0, 2.0}));
    EXPECT_EQ(upperLimits(histogram), (Numbers{1.0, 2.0, 3.0}));
}

TEST(Histogram, LowerLimitBelongsToTheBinAndUpperDoesNot)
{
    std::vector<THisto> histogram{{0.0, 1.0, 0, {}}, {1.0, 2.0, 0, {}}};
    PutDataToHisto(0.0, 1, histogram);
    PutDataToHisto(1.0, 2, histogram);
    PutDataToHisto(2.0, 3, histogram);
    EXPECT_EQ(indexesOf(histogram), (std::vector<std::vector<int>>{{1}, {2}}));
}

TEST(Histogram, FirstOfTwoBinsThatHoldAValueTakesIt)
{
    std::vector<THisto> histogram{{0.0, 1.0, 0, {}}, {2.0, 5.0, 0, {}}, {1.0, 9.0, 0, {}}};
    PutDataToHisto(3.0, 0, histogram);
    PutDataToHisto(1.0, 1, histogram);
    EXPECT_EQ(indexesOf(histogram), (std::vector<std::vector<int>>{{}, {0}, {1}}));
}

TEST(Histogram, ValueInNoBinChangesNothing)
{
    std::vector<THisto> histogram{{0.0, 1.0, 2, {5, 6}}, {2.0, 2.0, 0, {}}, {4.0, 3.0, 0, {}}};
    for (const double value : {-0.5, 1.0, 2.0, 3.5, 4.0, 99.0, infinity, -infinity, notANumber}) {
        SCOPED_TRACE(value);
        PutDataToHisto(value, 1, histogram);
        EXPECT_EQ(indexesOf(histogram), (std::vector<std::vector<int>>{{5, 6}, {}, {}}));
        EXPECT_EQ(countsOf(histogram), (Counts{2, 0, 0}));
    }
}

TEST(Histogram, NoBinsTakeNoValue)
{
    std::vector<THisto> histogram;
    PutDataToHisto(1.0, 0, histogram);
    EXPECT_TRUE(histogram.empty());
}

TEST(Histogram, AnyIndexIsKept)
{
    std::vector<THisto> histogram{{0.0, 1.0, 0, {}}};
    PutDataToHisto(0.5, -1, histogram);
    PutDataToHisto(0.5, lowest, histogram);
    EXPECT_EQ(histogram[0].Ind, (std::vector<int>{-1, lowest}));
}

TEST(Histogram, BinsDivideTheRangeOfTheValues)
{
    Numbers values{3.0, 1.0, 2.0, 0.0, 4.0};
    const std::vector<THisto> histogram = calcGisto(values, 4);
    EXPECT_EQ(lowerLimits(histogram), (Numbers{0.0, 1.0, 2.0, 3.0}));
    EXPECT_EQ(upperLimits(histogram), (Numbers{1.0, 2.0, 3.0, 4.0}));
    EXPECT_EQ(countsOf(histogram), (Counts{1, 1, 1, 1}));
}

TEST(Histogram, ValuesComeBackSorted)
{
    Numbers values{3.0, -1.0, 2.5, 0.0, 4.0, -1.0};
    calcGisto(values, 4);
    EXPECT_EQ(values, (Numbers{-1.0, -1.0, 0.0, 2.5, 3.0, 4.0}));
}

TEST(Histogram, IndexesAreThoseOfTheSortedList)
{
    Numbers values{8.0, 6.5, 0.0, 7.0, 2.0, 0.5, 6.0};
    const std::vector<THisto> histogram = calcGisto(values, 4);
    // Sorted: 0, 0.5, 2, 6, 6.5, 7, 8 in bins of 2.
    EXPECT_EQ(indexesOf(histogram), (std::vector<std::vector<int>>{{0, 1}, {2}, {}, {3, 4, 5}}));
    EXPECT_EQ(countsOf(histogram), (Counts{2, 1, 0, 3}));
}

TEST(Histogram, LimitsOfNegativeValues)
{
    Numbers values{-1.0, -9.0, -5.0};
    const std::vector<THisto> histogram = calcGisto(values, 2);
    EXPECT_EQ(lowerLimits(histogram), (Numbers{-9.0, -5.0}));
    EXPECT_EQ(upperLimits(histogram), (Numbers{-5.0, -1.0}));
    EXPECT_EQ(indexesOf(histogram), (std::vector<std::vector<int>>{{0}, {1}}));
}

TEST(Histogram, AllOfTheLargestValueAreLeftOut)
{
    Numbers values{2.0, 2.0, 0.0, 2.0, 1.0};
    EXPECT_EQ(countsOf(calcGisto(values, 2)), (Counts{1, 1}));
    values = {0.0, 2.0};
    EXPECT_EQ(countsOf(calcGisto(values, 1)), (Counts{1}));
}

// Five sixths of 7 and one sixth of it are a little more than 7 together, as doubles.
TEST(Histogram, RoundingCanPutTheLargestValueIntoTheLastBin)
{
    Numbers values{7.0, 6.0, 5.0, 4.0, 3.0, 2.0, 1.0, 0.0};
    const std::vector<THisto> histogram = calcGisto(values, 6);
    EXPECT_EQ(countsOf(histogram), (Counts{2, 1, 1, 1, 1, 2}));
    EXPECT_EQ(histogram[5].Ind, (std::vector<int>{6, 7}));
    EXPECT_EQ(histogram[5].Hi, 7.000000000000001);
}

TEST(Histogram, EqualValuesAreInNoBin)
{
    Numbers values{5.0, 5.0, 5.0};
    const std::vector<THisto> histogram = calcGisto(values, 3);
    EXPECT_EQ(countsOf(histogram), (Counts{0, 0, 0}));
    EXPECT_EQ(lowerLimits(histogram), (Numbers{5.0, 5.0, 5.0}));
    EXPECT_EQ(upperLimits(histogram), (Numbers{5.0, 5.0, 5.0}));
    EXPECT_EQ(values, (Numbers{5.0, 5.0, 5.0}));
    expectNothingCounted({-2.0}, 4);
}

TEST(Histogram, NoValuesHaveNoBins)
{
    Numbers values;
    EXPECT_TRUE(calcGisto(values, 3).empty());
    EXPECT_TRUE(calcGisto(values, 0).empty());
    EXPECT_TRUE(calcGisto(values, -3).empty());
}

TEST(Histogram, FewerThanOneBinIsNone)
{
    for (const int bins : {0, -1, -1000, lowest}) {
        SCOPED_TRACE(bins);
        Numbers values{2.0, 1.0};
        EXPECT_TRUE(calcGisto(values, bins).empty());
        EXPECT_EQ(values, (Numbers{1.0, 2.0}));
    }
}

TEST(Histogram, NotANumberCountsAsTheLargestAndKeepsAllOutOfTheBins)
{
    Numbers values{2.0, notANumber, 1.0, 3.0, notANumber, 0.0};
    const std::vector<THisto> histogram = calcGisto(values, 3);
    EXPECT_EQ(countsOf(histogram), (Counts{0, 0, 0}));
    EXPECT_EQ(Numbers(values.begin(), values.begin() + 4), (Numbers{0.0, 1.0, 2.0, 3.0}));
    EXPECT_TRUE(std::isnan(values[4]));
    EXPECT_TRUE(std::isnan(values[5]));
    expectNothingCounted({notANumber}, 2);
    expectNothingCounted({notANumber, notANumber, -infinity}, 2);
}

TEST(Histogram, RangeWithoutEndHasNothingInItsBins)
{
    expectNothingCounted({0.0, 1.0, infinity}, 3);
    expectNothingCounted({-infinity, 0.0, 1.0}, 3);
    expectNothingCounted({-infinity, 0.0, infinity}, 3);
    expectNothingCounted({infinity, infinity}, 3);
    expectNothingCounted({-largest, 0.0, largest}, 3);
}

TEST(HistogramPeak, NoFurtherPassGivesTheHistogramOfAllValues)
{
    const Numbers values{8.0, 0.0, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0};
    const std::vector<THisto> histogram = calcGistoIteratio(values, 4, 0);
    EXPECT_EQ(countsOf(histogram), (Counts{1, 3, 2, 1}));
    EXPECT_EQ(lowerLimits(histogram), (Numbers{0.0, 2.0, 4.0, 6.0}));
    EXPECT_EQ(indexesOf(histogram), (std::vector<std::vector<int>>{{0}, {1, 2, 3}, {4, 5}, {6}}));
    EXPECT_EQ(values, (Numbers{8.0, 0.0, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0}));
}

TEST(HistogramPeak, PassesBelowZeroAreNone)
{
    const Numbers values{0.0, 1.0, 2.0};
    for (const int iterations : {-1, -2, -100, lowest}) {
        SCOPED_TRACE(iterations);
        EXPECT_TRUE(calcGistoIteratio(values, 2, iterations).empty());
    }
}

TEST(HistogramPeak, PeakAndItsNeighboursMakeTheNextHistogram)
{
    const Numbers values{8.0, 0.0, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0};
    // Bins 0 to 2 hold 0, 2, 2.5, 3, 4, 5.
    const std::vector<THisto> second = calcGistoIteratio(values, 4, 1);
    EXPECT_EQ(lowerLimits(second), (Numbers{0.0, 1.25, 2.5, 3.75}));
    EXPECT_EQ(upperLimits(second), (Numbers{1.25, 2.5, 3.75, 5.0}));
    EXPECT_EQ(countsOf(second), (Counts{1, 1, 2, 1}));
    EXPECT_EQ(indexesOf(second), (std::vector<std::vector<int>>{{0}, {1}, {2, 3}, {4}}));
    // Now bin 2 is the peak; bins 1 to 3 hold 2, 2.5, 3, 4.
    const std::vector<THisto> third = calcGistoIteratio(values, 4, 2);
    EXPECT_EQ(lowerLimits(third), (Numbers{2.0, 2.5, 3.0, 3.5}));
    EXPECT_EQ(countsOf(third), (Counts{1, 1, 1, 0}));
}

TEST(HistogramPeak, PeakInTheFirstBinTakesTheFirstThree)
{
    const Numbers values{0.0, 0.5, 1.0, 2.0, 3.0, 4.0, 6.0, 7.0, 8.0};
    EXPECT_EQ(countsOf(calcGistoIteratio(values, 4, 0)), (Counts{3, 2, 1, 2}));
    const std::vector<THisto> second = calcGistoIteratio(values, 4, 1);
    EXPECT_EQ(lowerLimits(second), (Numbers{0.0, 1.0, 2.0, 3.0}));
    EXPECT_EQ(countsOf(second), (Counts{2, 1, 1, 1}));
}

TEST(HistogramPeak, PeakInTheLastBinTakesTheLastThree)
{
    const Numbers values{0.0, 2.0, 4.0, 6.0, 6.5, 7.0, 8.0};
    EXPECT_EQ(countsOf(calcGistoIteratio(values, 4, 0)), (Counts{1, 1, 1, 3}));
    const std::vector<THisto> second = calcGistoIteratio(values, 4, 1);
    EXPECT_EQ(lowerLimits(second), (Numbers{2.0, 3.25, 4.5, 5.75}));
    EXPECT_EQ(countsOf(second), (Counts{1, 1, 0, 2}));
}

TEST(HistogramPeak, FirstOfTwoEqualPeaksIsTaken)
{
    const Numbers values{0.0, 2.0, 3.0, 4.0, 5.0, 6.0, 8.0};
    EXPECT_EQ(countsOf(calcGistoIteratio(values, 4, 0)), (Counts{1, 2, 2, 1}));
    const std::vector<THisto> second = calcGistoIteratio(values, 4, 1);
    EXPECT_EQ(lowerLimits(second), (Numbers{0.0, 1.25, 2.5, 3.75}));
    EXPECT_EQ(countsOf(second), (Counts{1, 1, 1, 1}));
}

TEST(HistogramPeak, GreatestBinIsThePeakAndNotTheFirstRise)
{
    const Numbers values{0.0, 2.0, 3.0, 4.0, 6.0, 8.0, 8.5, 9.0, 10.0, 12.0, 16.0};
    EXPECT_EQ(countsOf(calcGistoIteratio(values, 8, 0)), (Counts{1, 2, 1, 1, 3, 1, 1, 0}));
    const std::vector<THisto> second = calcGistoIteratio(values, 8, 1);
    EXPECT_EQ(lowerLimits(second), (Numbers{6.0, 6.5, 7.0, 7.5, 8.0, 8.5, 9.0, 9.5}));
    EXPECT_EQ(countsOf(second), (Counts{1, 0, 0, 0, 1, 1, 1, 0}));
}

// In a later pass a greatest bin 0 is no peak of its own: the place of the peak before is looked at again.
TEST(HistogramPeak, PlaceOfThePeakStaysWhereNoBinBeatsTheFirst)
{
    const Numbers values{0.0, 6.0, 6.25, 7.0, 8.0, 8.25, 9.0, 9.5, 10.0, 16.0};
    EXPECT_EQ(countsOf(calcGistoIteratio(values, 8, 0)), (Counts{1, 0, 0, 3, 4, 1, 0, 0}));
    const std::vector<THisto> second = calcGistoIteratio(values, 8, 1);
    EXPECT_EQ(lowerLimits(second), (Numbers{6.0, 6.5, 7.0, 7.5, 8.0, 8.5, 9.0, 9.5}));
    EXPECT_EQ(countsOf(second), (Counts{2, 0, 1, 0, 2, 0, 1, 1}));
    // Bins 3 to 5 hold 8 and 8.25.
    const std::vector<THisto> third = calcGistoIteratio(values, 8, 2);
    EXPECT_EQ(lowerLimits(third), (Numbers{8.0, 8.03125, 8.0625, 8.09375, 8.125, 8.15625, 8.1875, 8.21875}));
    EXPECT_EQ(countsOf(third), (Counts{1, 0, 0, 0, 0, 0, 0, 0}));
    // Bins 3 to 5 are empty now, although bin 0 is not.
    EXPECT_TRUE(calcGistoIteratio(values, 8, 3).empty());
    EXPECT_TRUE(calcGistoIteratio(values, 8, 4).empty());
}

TEST(HistogramPeak, ThreeBinsLoseTheLargestValueInEachPass)
{
    const Numbers values{0.0, 3.0, 6.0, 9.0, 12.0};
    EXPECT_EQ(countsOf(calcGistoIteratio(values, 3, 0)), (Counts{2, 1, 1}));
    const std::vector<THisto> second = calcGistoIteratio(values, 3, 1);
    EXPECT_EQ(lowerLimits(second), (Numbers{0.0, 3.0, 6.0}));
    EXPECT_EQ(countsOf(second), (Counts{1, 1, 1}));
}

TEST(HistogramPeak, TwoBinsAreBothTaken)
{
    const Numbers values{0.0, 1.0, 2.0, 3.0, 4.0};
    EXPECT_EQ(countsOf(calcGistoIteratio(values, 2, 0)), (Counts{2, 2}));
    const std::vector<THisto> second = calcGistoIteratio(values, 2, 1);
    EXPECT_EQ(lowerLimits(second), (Numbers{0.0, 1.5}));
    EXPECT_EQ(upperLimits(second), (Numbers{1.5, 3.0}));
    EXPECT_EQ(countsOf(second), (Counts{2, 1}));
    // The second bin as the peak takes both as well.
    const std::vector<THisto> other = calcGistoIteratio({0.0, 5.0, 6.0, 8.0}, 2, 1);
    EXPECT_EQ(lowerLimits(other), (Numbers{0.0, 3.0}));
    EXPECT_EQ(countsOf(other), (Counts{1, 1}));
}

TEST(HistogramPeak, OneBinIsTakenUntilItIsEmpty)
{
    const Numbers values{4.0, 2.0, 3.0, 1.0};
    const std::vector<std::vector<int>> counts{{3}, {2}, {1}, {0}, {}, {}};
    for (int iterations = 0; iterations < 6; ++iterations) {
        SCOPED_TRACE(iterations);
        EXPECT_EQ(countsOf(calcGistoIteratio(values, 1, iterations)),
                  counts[static_cast<std::size_t>(iterations)]);
    }
}

TEST(HistogramPeak, EqualValuesLeaveNothingForASecondPass)
{
    EXPECT_EQ(countsOf(calcGistoIteratio({5.0, 5.0}, 4, 0)), (Counts{0, 0, 0, 0}));
    EXPECT_TRUE(calcGistoIteratio({5.0, 5.0}, 4, 1).empty());
    EXPECT_TRUE(calcGistoIteratio({5.0, 5.0}, 4, 5).empty());
}

TEST(HistogramPeak, NoValuesOrNoBinsGiveNoHistogram)
{
    EXPECT_TRUE(calcGistoIteratio(Numbers{}, 4, 0).empty());
    EXPECT_TRUE(calcGistoIteratio(Numbers{}, 4, 3).empty());
    for (const int bins : {0, -1, lowest}) {
        SCOPED_TRACE(bins);
        EXPECT_TRUE(calcGistoIteratio({0.0, 1.0}, bins, 0).empty());
        EXPECT_TRUE(calcGistoIteratio({0.0, 1.0}, bins, 3).empty());
    }
}

TEST(HistogramPeak, NoFiniteRangeLeavesNothingForASecondPass)
{
    for (const double odd : {notANumber, infinity, -infinity}) {
        SCOPED_TRACE(odd);
        EXPECT_EQ(countsOf(calcGistoIteratio({0.0, odd, 1.0}, 3, 0)), (Counts{0, 0, 0}));
        EXPECT_TRUE(calcGistoIteratio({0.0, odd, 1.0}, 3, 1).empty());
    }
}
