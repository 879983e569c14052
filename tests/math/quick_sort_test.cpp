#include "math/quick_sort.h"

#include "tool.h"

#include "support/child_process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <limits>
#include <numeric>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <pthread.h>

using tavelinUtils::FarPoint;
using tavelinUtils::QuickSort;
using tavelinUtils::QuickSort1;
using tavelinUtils::QuickSortDown;
using tavelinUtils::quickSortFarPointsInternal;
using tavelinUtils::quickSortInternal;
using tavelinUtils::quickSortInternalDown;

namespace {

using Index = std::vector<unsigned long>;
using Doubles = std::vector<double>;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// The same sort without any haste: one walk from each side, and the left part first. What the fast one leaves
// must be this, place by place. Swap changes the elements at two places, comesBefore compares keys.
template <class KeyAt, class Swap, class ComesBefore>
void plainSort(KeyAt keyAt, Swap swap, ComesBefore comesBefore, int left, int right)
{
    while (left < right) {
        const auto pivot = keyAt((left + right) / 2);
        int i = left;
        int j = right;
        while (i <= j) {
            while (comesBefore(keyAt(i), pivot)) {
                ++i;
            }
            while (comesBefore(pivot, keyAt(j))) {
                --j;
            }
            if (j < i) {
                break;
            }
            swap(i, j);
            ++i;
            --j;
        }
        if (left < j) {
            plainSort(keyAt, swap, comesBefore, left, j);
        }
        left = i;
    }
}

template <class T, class ComesBefore>
void plainSortKeys(std::vector<T>& keys, int left, int right, Index& index, ComesBefore comesBefore)
{
    const auto keyAt = [&](int place) { return keys[static_cast<std::size_t>(place)]; };
    const auto swap = [&](int a, int b) {
        std::swap(keys[static_cast<std::size_t>(a)], keys[static_cast<std::size_t>(b)]);
        std::swap(index[static_cast<std::size_t>(a)], index[static_cast<std::size_t>(b)]);
    };
    plainSort(keyAt, swap, comesBefore, left, right);
}

Index placesOf(std::size_t size)
{
    Index index(size);
    std::iota(index.begin(), index.end(), 0UL);
    return index;
}

int lastOf(std::size_t size)
{
    return static_cast<int>(size) - 1;
}

// Bits distinguish not-a-numbers, and zeros of both signs.
template <class T>
bool isSame(T a, T b)
{
    if constexpr (std::is_same_v<T, double>) {
        return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
    } else {
        return a == b;
    }
}

template <class T>
std::size_t firstDifference(const std::vector<T>& a, const std::vector<T>& b)
{
    std::size_t place = 0;
    while (place < a.size() && place < b.size() && isSame(a[place], b[place])) {
        ++place;
    }
    return place;
}

template <class T>
void expectSame(const std::vector<T>& actual, const std::vector<T>& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    const std::size_t place = firstDifference(actual, expected);
    EXPECT_EQ(place, expected.size())
        << "the first difference: " << actual[place] << " for " << expected[place];
}

template <class T>
void expectPlainOrders(const std::vector<T>& keys)
{
    for (const bool down : {false, true}) {
        SCOPED_TRACE(down ? "descending" : "ascending");
        std::vector<T> expected = keys;
        Index expectedIndex = placesOf(keys.size());
        if (down) {
            plainSortKeys(expected, 0, lastOf(keys.size()), expectedIndex, std::greater<T>());
        } else {
            plainSortKeys(expected, 0, lastOf(keys.size()), expectedIndex, std::less<T>());
        }

        Index index{7, 7, 7};
        if constexpr (std::is_same_v<T, int>) {
            // Whole numbers with a sign have an ascending sort alone.
            std::vector<T> sorted = keys;
            index = placesOf(keys.size());
            down ? quickSortInternalDown(sorted, 0, lastOf(keys.size()), index)
                 : quickSortInternal(sorted, 0, lastOf(keys.size()), index);
            expectSame(sorted, expected);
            expectSame(index, expectedIndex);
            if (!down) {
                index = {7, 7, 7};
                expectSame(QuickSort(keys, index), expected);
                expectSame(index, expectedIndex);
            }
        } else {
            expectSame(down ? QuickSortDown(keys, index) : QuickSort(keys, index), expected);
            expectSame(index, expectedIndex);
        }
    }
}

void expectPlainPoints(const Doubles& keys)
{
    std::vector<FarPoint> points;
    for (const double key : keys) {
        const auto number = static_cast<double>(points.size());
        points.push_back({.X = number, .Y = -number, .Distance = key});
    }
    std::vector<FarPoint> expected = points;
    plainSort([&](int place) { return expected[static_cast<std::size_t>(place)].Distance; },
              [&](int a, int b) {
                  std::swap(expected[static_cast<std::size_t>(a)], expected[static_cast<std::size_t>(b)]);
              },
              std::less<double>(), 0, lastOf(points.size()));

    quickSortFarPointsInternal(points, 0, lastOf(points.size()));
    for (std::size_t place = 0; place < points.size(); ++place) {
        ASSERT_EQ(points[place].X, expected[place].X) << "at " << place;
        ASSERT_EQ(points[place].Y, -points[place].X) << "at " << place;
        ASSERT_TRUE(isSame(points[place].Distance, expected[place].Distance)) << "at " << place;
    }
}

// Arrangements of numbers, as doubles that also fit the other keys.
struct Arrangement
{
    const char* name;
    Doubles (*of)(std::size_t size);
};

Doubles numbersFrom(std::size_t size, const std::function<double(std::size_t)>& numberAt)
{
    Doubles numbers;
    for (std::size_t place = 0; place < size; ++place) {
        numbers.push_back(numberAt(place));
    }
    return numbers;
}

// Each number below a bound may come, in an order that the size alone decides.
Doubles scattered(std::size_t size, unsigned bound)
{
    std::mt19937 random(static_cast<unsigned>(size) + 12345U);
    return numbersFrom(size, [&](std::size_t) { return static_cast<double>(random() % bound); });
}

const Arrangement arrangements[] = {
    {"random", [](std::size_t size) { return scattered(size, 2000000000U); }},
    {"many ties", [](std::size_t size) { return scattered(size, 7U); }},
    {"some ties", [](std::size_t size) { return scattered(size, static_cast<unsigned>(size / 3 + 1)); }},
    {"two values", [](std::size_t size) { return scattered(size, 2U); }},
    {"all equal", [](std::size_t size) { return Doubles(size, 5.0); }},
    {"ascending",
     [](std::size_t size) {
         return numbersFrom(size, [](std::size_t k) { return static_cast<double>(k); });
     }},
    {"descending",
     [](std::size_t size) {
         return numbersFrom(size, [=](std::size_t k) { return static_cast<double>(size - k); });
     }},
    {"ascending with ties",
     [](std::size_t size) {
         return numbersFrom(size, [](std::size_t k) { return static_cast<double>(k / 5); });
     }},
    {"organ pipe",
     [](std::size_t size) {
         return numbersFrom(size, [=](std::size_t k) { return static_cast<double>(std::min(k, size - k)); });
     }},
    {"valley",
     [](std::size_t size) {
         return numbersFrom(size, [=](std::size_t k) { return static_cast<double>(std::max(k, size - k)); });
     }},
    {"saw",
     [](std::size_t size) {
         return numbersFrom(size, [](std::size_t k) { return static_cast<double>(k % 17); });
     }},
};

// Every size up to a few blocks of any kind, and some long lists with sizes beside powers of two.
const std::vector<std::size_t> sizes = [] {
    std::vector<std::size_t> all(301);
    std::iota(all.begin(), all.end(), std::size_t{0});
    for (const std::size_t size : {511U, 512U, 513U, 1000U, 1023U, 1024U, 1025U, 5000U}) {
        all.push_back(size);
    }
    return all;
}();

template <class T>
std::vector<T> keysOf(const Doubles& numbers)
{
    std::vector<T> keys;
    for (const double number : numbers) {
        keys.push_back(static_cast<T>(number));
    }
    return keys;
}

// Checks each arrangement in each size, up to the first one that fails.
void forEachArrangement(const std::function<void(const Doubles&)>& check)
{
    for (const Arrangement& arrangement : arrangements) {
        for (const std::size_t size : sizes) {
            SCOPED_TRACE(testing::Message() << arrangement.name << ", " << size << " keys");
            check(arrangement.of(size));
            if (testing::Test::HasFailure()) {
                return;
            }
        }
    }
}

// The greatest key of each range is in its middle, so that every partition takes one key off the end.
// It is built back to front: a partition moves the last key of a range to the middle.
Doubles slowestArrangement(std::size_t size)
{
    Doubles keys;
    for (std::size_t count = 1; count <= size; ++count) {
        const std::size_t middle = (count - 1) / 2;
        keys.push_back(middle < keys.size() ? keys[middle] : 0.0);
        keys[middle] = static_cast<double>(count);
    }
    return keys;
}

// The same with the least key in the middle: every partition takes one key off the front, and moves the first
// key of a range to the middle.
Doubles slowestFromTheFront(std::size_t size)
{
    Doubles reversed;
    for (std::size_t count = 1; count <= size; ++count) {
        const std::size_t middle = count - 1 - (count - 1) / 2;
        reversed.push_back(0.0);
        reversed.back() = reversed[middle];
        reversed[middle] = -static_cast<double>(count);
    }
    return {reversed.rbegin(), reversed.rend()};
}

Doubles negated(Doubles keys)
{
    for (double& key : keys) {
        key = -key;
    }
    return keys;
}

// Exits of a child in which a sort was right or wrong.
constexpr int wrongOrder = 3;
constexpr int noThread = 4;

// Runs a check on a thread with a small stack: 256 kB are some 26 bytes for each of 10,000 keys, too few for
// a call that waits for each.
void onSmallStack(bool (*check)())
{
    pthread_attr_t attributes;
    pthread_t thread;
    void* isRight = nullptr;
    const auto run = [](void* work) -> void* { return (*static_cast<bool (**)()>(work))() ? work : nullptr; };
    if (pthread_attr_init(&attributes) != 0 || pthread_attr_setstacksize(&attributes, 256 * 1024) != 0 ||
        pthread_create(&thread, &attributes, run, &check) != 0 || pthread_join(thread, &isRight) != 0)
    {
        std::_Exit(noThread);
    }
    if (isRight == nullptr) {
        std::_Exit(wrongOrder);
    }
}

void expectRightOnSmallStack(bool (*check)())
{
    const ChildEnd end = runInChild([&] { onSmallStack(check); }, 120.0);
    EXPECT_FALSE(end.timedOut);
    EXPECT_EQ(end.signal, 0);
    EXPECT_EQ(end.exitStatus, 0) << end.output;
}

constexpr std::size_t slowSize = 20000;

// Whether the keys are in order and each index names the place that its key came from.
bool isOrdered(const Doubles& input, const Doubles& sorted, const Index& index, bool down)
{
    if (sorted.size() != input.size() || index.size() != input.size()) {
        return false;
    }
    std::vector<bool> seen(input.size(), false);
    for (std::size_t k = 0; k < sorted.size(); ++k) {
        if (index[k] >= input.size() || seen[index[k]] || sorted[k] != input[index[k]]) {
            return false;
        }
        seen[index[k]] = true;
        if (k > 0 && (down ? sorted[k - 1] < sorted[k] : sorted[k - 1] > sorted[k])) {
            return false;
        }
    }
    return true;
}

} // namespace

static_assert(std::is_same_v<decltype(&quickSortInternal<double>), void (*)(Doubles&, int, int, Index&)>);
static_assert(std::is_same_v<decltype(&quickSortInternalDown<double>), void (*)(Doubles&, int, int, Index&)>);
static_assert(std::is_same_v<decltype(&QuickSort<double>), Doubles (*)(const Doubles&, Index&)>);
static_assert(std::is_same_v<decltype(&QuickSort1<double>), Doubles (*)(const Doubles&)>);
static_assert(
    std::is_same_v<decltype(&quickSortFarPointsInternal), void (*)(std::vector<FarPoint>&, int, int)>);

TEST(QuickSort, IndexTellsWhereEachKeyCameFrom)
{
    Index index;
    EXPECT_EQ(QuickSort(Doubles{3.0, 1.0, 2.0}, index), (Doubles{1.0, 2.0, 3.0}));
    EXPECT_EQ(index, (Index{1, 2, 0}));
    EXPECT_EQ(QuickSortDown(Doubles{3.0, 1.0, 2.0}, index), (Doubles{3.0, 2.0, 1.0}));
    EXPECT_EQ(index, (Index{0, 2, 1}));
    EXPECT_EQ(QuickSort1(Doubles{3.0, 1.0, 2.0}), (Doubles{1.0, 2.0, 3.0}));
}

TEST(QuickSort, ListsOfOneAndOfNone)
{
    Index index{9, 9, 9};
    EXPECT_EQ(QuickSort(Doubles{5.0}, index), Doubles{5.0});
    EXPECT_EQ(index, Index{0});
    index = {9, 9, 9};
    EXPECT_EQ(QuickSortDown(Doubles{5.0}, index), Doubles{5.0});
    EXPECT_EQ(index, Index{0});
    EXPECT_EQ(QuickSort1(Doubles{5.0}), Doubles{5.0});

    index = {9, 9, 9};
    EXPECT_EQ(QuickSort(Doubles{}, index), Doubles{});
    EXPECT_EQ(index, Index{});
    index = {9, 9, 9};
    EXPECT_EQ(QuickSortDown(Doubles{}, index), Doubles{});
    EXPECT_EQ(index, Index{});
    EXPECT_EQ(QuickSort1(Doubles{}), Doubles{});
}

TEST(QuickSort, InputStaysAndAnOldIndexIsForgotten)
{
    const Doubles keys{3.0, 1.0, 2.0};
    Index index{5, 4, 3, 2, 1, 0};
    QuickSort(keys, index);
    EXPECT_EQ(index, (Index{1, 2, 0}));
    QuickSortDown(keys, index);
    EXPECT_EQ(index, (Index{0, 2, 1}));
    QuickSort1(keys);
    EXPECT_EQ(keys, (Doubles{3.0, 1.0, 2.0}));
}

// Worked by hand: keys equal to the pivot stop both walks and change places.
TEST(QuickSort, TiesFallAsThePartitionsLeaveThem)
{
    struct
    {
        Doubles keys;
        Index ascending, descending;
    } const rows[] = {
        {{2, 2}, {1, 0}, {1, 0}},
        {{1, 2}, {0, 1}, {1, 0}},
        {{2, 1}, {1, 0}, {0, 1}},
        {{1, 1, 1}, {2, 1, 0}, {2, 1, 0}},
        {{1, 1, 1, 1}, {2, 3, 0, 1}, {2, 3, 0, 1}},
        {{1, 1, 1, 1, 1}, {3, 4, 2, 0, 1}, {3, 4, 2, 0, 1}},
        {{2, 1, 2}, {1, 2, 0}, {2, 0, 1}},
        {{1, 2, 1}, {2, 0, 1}, {1, 2, 0}},
        {{2, 2, 1}, {2, 1, 0}, {1, 0, 2}},
        {{1, 1, 2}, {1, 0, 2}, {2, 1, 0}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.keys));
        Index index;
        const Doubles up = QuickSort(row.keys, index);
        EXPECT_EQ(index, row.ascending);
        EXPECT_TRUE(std::is_sorted(up.begin(), up.end()));
        const Doubles down = QuickSortDown(row.keys, index);
        EXPECT_EQ(index, row.descending);
        EXPECT_TRUE(std::is_sorted(down.rbegin(), down.rend()));
    }
}

// A key that is not a number is below and above none: as pivot it lets every pair change places.
TEST(QuickSort, NotANumberStopsBothWalks)
{
    Index index;
    const Doubles middle = QuickSort(Doubles{1.0, notANumber, 3.0}, index);
    EXPECT_EQ(index, (Index{2, 1, 0}));
    EXPECT_EQ(middle[0], 3.0);
    EXPECT_EQ(middle[2], 1.0);
    QuickSort(Doubles{3.0, 1.0, notANumber}, index);
    EXPECT_EQ(index, (Index{2, 1, 0}));
    QuickSort(Doubles{notANumber, 1.0}, index);
    EXPECT_EQ(index, (Index{1, 0}));
    QuickSort(Doubles{notANumber, notANumber, notANumber}, index);
    EXPECT_EQ(index, (Index{2, 1, 0}));
}

TEST(QuickSort, InfinitiesAndZerosOfBothSigns)
{
    Index index;
    EXPECT_EQ(QuickSort(Doubles{infinity, 0.0, -infinity, 1e308, -1e308}, index),
              (Doubles{-infinity, -1e308, 0.0, 1e308, infinity}));
    EXPECT_EQ(index, (Index{2, 4, 1, 3, 0}));
    QuickSort(Doubles{0.0, -0.0}, index);
    EXPECT_EQ(index, (Index{1, 0}));
}

TEST(QuickSort, KeysAtTheEndsOfTheirRange)
{
    Index index;
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    EXPECT_EQ(QuickSort(std::vector<int>{highest, 0, lowest, -1}, index),
              (std::vector<int>{lowest, -1, 0, highest}));
    EXPECT_EQ(index, (Index{2, 3, 1, 0}));
    EXPECT_EQ(QuickSort(std::vector<unsigned long>{18446744073709551615UL, 0, 9223372036854775808UL}, index),
              (std::vector<unsigned long>{0, 9223372036854775808UL, 18446744073709551615UL}));
    EXPECT_EQ(index, (Index{1, 2, 0}));
    EXPECT_EQ(
        QuickSortDown(std::vector<unsigned long>{0, 18446744073709551615UL, 9223372036854775808UL}, index),
        (std::vector<unsigned long>{18446744073709551615UL, 9223372036854775808UL, 0}));
    EXPECT_EQ(index, (Index{1, 2, 0}));
}

TEST(QuickSort, DoublesFallAsInThePlainSort)
{
    forEachArrangement(expectPlainOrders<double>);
}

TEST(QuickSort, FractionsOfBothSignsFallAsInThePlainSort)
{
    for (const std::size_t size : sizes) {
        SCOPED_TRACE(size);
        std::mt19937 random(static_cast<unsigned>(size));
        expectPlainOrders(numbersFrom(
            size, [&](std::size_t) { return (static_cast<double>(random()) - 2147483648.0) / 1e5; }));
    }
}

TEST(QuickSort, IntegersFallAsInThePlainSort)
{
    forEachArrangement([](const Doubles& numbers) {
        std::vector<int> keys = keysOf<int>(numbers);
        for (std::size_t place = 0; place < keys.size(); place += 2) {
            keys[place] = -keys[place];
        }
        expectPlainOrders(keys);
    });
}

TEST(QuickSort, CountsFallAsInThePlainSort)
{
    forEachArrangement([](const Doubles& numbers) { expectPlainOrders(keysOf<unsigned long>(numbers)); });
}

TEST(QuickSort, WithoutAnIndexKeysFallTheSame)
{
    forEachArrangement([](const Doubles& keys) {
        Doubles expected = keys;
        Index index = placesOf(keys.size());
        plainSortKeys(expected, 0, lastOf(keys.size()), index, std::less<double>());
        expectSame(QuickSort1(keys), expected);
    });
}

TEST(QuickSort, PointsFallAsInThePlainSort)
{
    forEachArrangement(expectPlainPoints);
}

TEST(QuickSort, KeysWithNotANumberAmongThemFallAsInThePlainSort)
{
    for (const unsigned outOf : {2U, 3U, 10U, 50U}) {
        for (const std::size_t size : sizes) {
            SCOPED_TRACE(testing::Message() << size << " keys, one of " << outOf << " is no number");
            std::mt19937 random(static_cast<unsigned>(size) * 7U + outOf);
            const Doubles keys = numbersFrom(size, [&](std::size_t) {
                return random() % outOf == 0 ? notANumber : static_cast<double>(random() % 100U);
            });
            expectPlainOrders(keys);
            expectPlainPoints(keys);
            Doubles expected = keys;
            Index index = placesOf(size);
            plainSortKeys(expected, 0, lastOf(size), index, std::less<double>());
            expectSame(QuickSort1(keys), expected);
            if (HasFailure()) {
                return;
            }
        }
    }
}

TEST(QuickSort, RangesAreSortedWithBothTheirEndsAndNothingElse)
{
    Doubles keys{9.0, 8.0, 7.0, 6.0, 5.0, 4.0};
    Index index{10, 11, 12, 13, 14, 15};
    quickSortInternal(keys, 1, 4, index);
    EXPECT_EQ(keys, (Doubles{9.0, 5.0, 6.0, 7.0, 8.0, 4.0}));
    EXPECT_EQ(index, (Index{10, 14, 13, 12, 11, 15}));
    quickSortInternalDown(keys, 2, 5, index);
    EXPECT_EQ(keys, (Doubles{9.0, 5.0, 8.0, 7.0, 6.0, 4.0}));
    EXPECT_EQ(index, (Index{10, 14, 11, 12, 13, 15}));

    std::vector<FarPoint> points{{1, 0, 9}, {2, 0, 8}, {3, 0, 7}, {4, 0, 6}};
    quickSortFarPointsInternal(points, 0, 2);
    EXPECT_EQ(points[0].X, 3.0);
    EXPECT_EQ(points[1].X, 2.0);
    EXPECT_EQ(points[2].X, 1.0);
    EXPECT_EQ(points[3].X, 4.0);
}

TEST(QuickSort, InnerRangesFallAsInThePlainSort)
{
    const Doubles keys = scattered(1000, 300U);
    for (const auto& [left, right] :
         {std::pair{0, 999}, {1, 999}, {0, 998}, {17, 611}, {500, 700}, {998, 999}}) {
        SCOPED_TRACE(testing::Message() << left << " to " << right);
        Doubles expected = keys;
        Index expectedIndex = placesOf(keys.size());
        std::reverse(expectedIndex.begin(), expectedIndex.end());
        Doubles sorted = expected;
        Index index = expectedIndex;
        plainSortKeys(expected, left, right, expectedIndex, std::less<double>());
        quickSortInternal(sorted, left, right, index);
        expectSame(sorted, expected);
        expectSame(index, expectedIndex);
        plainSortKeys(expected, left, right, expectedIndex, std::greater<double>());
        quickSortInternalDown(sorted, left, right, index);
        expectSame(sorted, expected);
        expectSame(index, expectedIndex);
    }
}

TEST(QuickSort, RangesOfFewerThanTwoPlacesChangeNothing)
{
    Doubles keys{2.0, 1.0};
    Index index{0, 1};
    for (const auto& [left, right] : {std::pair{0, 0}, {1, 1}, {1, 0}, {0, -1}}) {
        quickSortInternal(keys, left, right, index);
        quickSortInternalDown(keys, left, right, index);
    }
    EXPECT_EQ(keys, (Doubles{2.0, 1.0}));
    EXPECT_EQ(index, (Index{0, 1}));

    Doubles none;
    Index noIndex;
    quickSortInternal(none, 0, -1, noIndex);
    quickSortInternalDown(none, 0, -1, noIndex);
    EXPECT_TRUE(none.empty());
    std::vector<FarPoint> noPoints;
    quickSortFarPointsInternal(noPoints, 0, -1);
    EXPECT_TRUE(noPoints.empty());
}

// Otherwise the tests after it would show nothing.
TEST(QuickSort, SlowestArrangementsLoseOneKeyWithEachPartition)
{
    Doubles keys = slowestArrangement(200);
    for (std::size_t last = 199; last > 0; --last) {
        ASSERT_EQ(keys[last / 2], static_cast<double>(last + 1));
        std::swap(keys[last / 2], keys[last]);
    }
    EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end()));

    keys = slowestFromTheFront(200);
    for (std::size_t first = 0; first < 199; ++first) {
        ASSERT_EQ(keys[(first + 199) / 2], static_cast<double>(first) - 200.0);
        std::swap(keys[(first + 199) / 2], keys[first]);
    }
    EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end()));
}

TEST(QuickSort, SlowestArrangementsFallAsInThePlainSort)
{
    for (const std::size_t size : {10U, 100U, 1000U}) {
        SCOPED_TRACE(size);
        expectPlainOrders(slowestArrangement(size));
        expectPlainOrders(negated(slowestArrangement(size)));
        expectPlainOrders(slowestFromTheFront(size));
        expectPlainOrders(negated(slowestFromTheFront(size)));
    }
}

TEST(QuickSort, SlowestArrangementNeedsNoStackForEachKey)
{
    expectRightOnSmallStack(+[] {
        const Doubles keys = slowestArrangement(slowSize);
        Index index;
        const Doubles sorted = QuickSort(keys, index);
        return isOrdered(keys, sorted, index, false);
    });
}

TEST(QuickSort, SlowestArrangementForDescendingOrderNeedsNoStackForEachKey)
{
    expectRightOnSmallStack(+[] {
        const Doubles keys = negated(slowestArrangement(slowSize / 2));
        Index index;
        const Doubles sorted = QuickSortDown(keys, index);
        return isOrdered(keys, sorted, index, true);
    });
}

TEST(QuickSort, SlowestArrangementFromTheOtherSideNeedsNoStackForEachKey)
{
    expectRightOnSmallStack(+[] {
        const Doubles keys = slowestFromTheFront(slowSize / 2);
        Index index;
        const Doubles sorted = QuickSort(keys, index);
        return isOrdered(keys, sorted, index, false);
    });
}

TEST(QuickSort, SlowestPointsNeedNoStackForEach)
{
    expectRightOnSmallStack(+[] {
        const Doubles keys = slowestArrangement(slowSize / 2);
        std::vector<FarPoint> points;
        for (const double key : keys) {
            points.push_back({.X = 2.0 * key, .Distance = key});
        }
        quickSortFarPointsInternal(points, 0, lastOf(points.size()));
        for (std::size_t k = 0; k < points.size(); ++k) {
            const auto number = static_cast<double>(k + 1);
            if (points[k].Distance != number || points[k].X != 2.0 * number) {
                return false;
            }
        }
        return true;
    });
}

TEST(QuickSort, DistanceIsTheKeyOfAPointAndTheWholePointMoves)
{
    std::vector<FarPoint> points{
        {.X = 1, .Y = 10, .Distance = 3}, {.X = 2, .Y = 20, .Distance = 1}, {.X = 3, .Y = 30, .Distance = 2}};
    quickSortFarPointsInternal(points, 0, 2);
    EXPECT_EQ(points[0].X, 2.0);
    EXPECT_EQ(points[0].Y, 20.0);
    EXPECT_EQ(points[0].Distance, 1.0);
    EXPECT_EQ(points[1].X, 3.0);
    EXPECT_EQ(points[2].X, 1.0);
    EXPECT_EQ(points[2].Distance, 3.0);
}

TEST(Mycomp, ShorterTextComesFirstOnACommonPrefix)
{
    EXPECT_TRUE(tavelinUtils::mycomp("ab", "abc"));
    EXPECT_FALSE(tavelinUtils::mycomp("abc", "ab"));
    EXPECT_TRUE(tavelinUtils::mycomp("", "a"));
    EXPECT_FALSE(tavelinUtils::mycomp("a", ""));
}

TEST(Mycomp, EqualTextsHaveNoOrder)
{
    EXPECT_FALSE(tavelinUtils::mycomp("abc", "abc"));
    EXPECT_FALSE(tavelinUtils::mycomp("", ""));
}

TEST(Mycomp, FirstDifferentByteDecidesWhateverTheLengths)
{
    EXPECT_TRUE(tavelinUtils::mycomp("abcd", "abd"));
    EXPECT_FALSE(tavelinUtils::mycomp("b", "abc"));
    EXPECT_TRUE(tavelinUtils::mycomp("AST10", "AST9"));
    EXPECT_TRUE(tavelinUtils::mycomp("B", "a"));
    EXPECT_FALSE(tavelinUtils::mycomp("a", "B"));
}

TEST(Mycomp, BytesAboveAsciiComeBehindAscii)
{
    EXPECT_TRUE(tavelinUtils::mycomp("z", "\xc3\xa9"));
    EXPECT_FALSE(tavelinUtils::mycomp("\xc3\xa9", "z"));
    EXPECT_TRUE(tavelinUtils::mycomp("\x7f", "\x80"));
}

TEST(Mycomp, ZeroByteCountsLikeAnyOther)
{
    EXPECT_TRUE(tavelinUtils::mycomp(std::string("a\0a", 3), std::string("a\0b", 3)));
    EXPECT_TRUE(tavelinUtils::mycomp("a", std::string("a\0", 2)));
    EXPECT_TRUE(tavelinUtils::mycomp(std::string("a\0z", 3), "aa"));
}

TEST(Mycomp, SortsTexts)
{
    std::vector<std::string> texts{"b", "abc", "", "ab", "B", "ab"};
    std::sort(texts.begin(), texts.end(), tavelinUtils::mycomp);
    EXPECT_EQ(texts, (std::vector<std::string>{"", "B", "ab", "ab", "abc", "b"}));
}

TEST(Mycomp, OneDefinitionServesBothNamespaces)
{
    using namespace tavelinUtils;
    EXPECT_TRUE(mycomp("ab", "abc"));
    EXPECT_EQ(&::mycomp, &tavelinUtils::mycomp);
}
