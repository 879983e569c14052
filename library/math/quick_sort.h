// The sort of the system: a quicksort that carries a vector of indexes along with the keys.
//
//   std::vector<unsigned long> index;
//   QuickSort(std::vector<double>{3.0, 1.0, 2.0}, index);   // 1, 2, 3; index: 1, 2, 0
//
// After a sort, element k of the index is the place in the input of the element that is now at k. Keys are
// sorted apart from their records, so that the long records move only once, after the sort.
//
// The sort is not stable, but what it does with ties is fixed by its steps: the pivot is the key in the
// middle of the range, and keys equal to it change places. A key that is not a number stops both walks of a
// partition, as a key equal to the pivot does. Input whose middle key is again and again the least or the
// greatest of its range takes quadratic time, but no more stack than other input.

#pragma once

#include "../export.h"

#include <cstddef>
#include <functional>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// A point and its distance from where it should be, in one unit.
struct FarPoint
{
    double X = 0;
    double Y = 0;
    double Distance = 0;
};

/// Keys that are sorted alone.
template <class Key>
struct BareKeys
{
    Key* keys;

    /// The key at a place.
    Key keyAt(int place) const
    {
        return keys[place];
    }
    /// Exchanges what is at two places.
    void exchange(int a, int b) const
    {
        std::swap(keys[a], keys[b]);
    }
};

/// Keys that move together with their indexes.
template <class Key>
struct IndexedKeys
{
    Key* keys;
    unsigned long* index;

    /// The key at a place.
    Key keyAt(int place) const
    {
        return keys[place];
    }
    /// Exchanges what is at two places.
    void exchange(int a, int b) const
    {
        std::swap(keys[a], keys[b]);
        std::swap(index[a], index[b]);
    }
};

/// Points that are their own keys.
struct FarPoints
{
    FarPoint* points;

    /// The key at a place.
    double keyAt(int place) const
    {
        return points[place].Distance;
    }
    /// Exchanges what is at two places.
    void exchange(int a, int b) const
    {
        std::swap(points[a], points[b]);
    }
};

/// The outcome of a partition: the left part of the range ends at leftEnd, the right part begins at
/// rightBegin. A key between them is already in its place.
struct Partition
{
    int leftEnd;
    int rightBegin;
};

/// The stops of a walk within one block, as steps from the begin of the block.
struct BlockStops
{
    static constexpr int blockSize = 64;

    unsigned char steps[blockSize];
    int next = 0;
    int count = 0;

    /// Whether no stop is left.
    bool isEmpty() const
    {
        return next == count;
    }
    /// The next stop.
    int nextStep() const
    {
        return steps[next];
    }
    /// Writes down the steps that are stops, without a branch that can be predicted wrong.
    template <class IsStop>
    void find(IsStop isStop)
    {
        int found = 0;
        for (int step = 0; step < blockSize; ++step) {
            steps[found] = static_cast<unsigned char>(step);
            found += isStop(step) ? 1 : 0;
        }
        next = 0;
        count = found;
    }
};

/// How far the two walks of a partition have come.
struct Walks
{
    int fromLeft;
    int fromRight;
};

/// Moves the walks towards each other block by block while they are far apart: the stops of both sides are
/// found first and then change places in order.
template <class Keys, class Key, class IsBefore>
Walks walkByBlocks(Keys keys, const Key& pivot, int i, int j, IsBefore isBefore)
{
    constexpr int size = BlockStops::blockSize;
    BlockStops left;
    BlockStops right;
    while (j - i >= 2 * size) {
        if (left.isEmpty()) {
            left.find([=, &pivot](int step) { return !isBefore(keys.keyAt(i + step), pivot); });
        }
        if (right.isEmpty()) {
            right.find([=, &pivot](int step) { return !isBefore(pivot, keys.keyAt(j - step)); });
        }
        for (; !left.isEmpty() && !right.isEmpty(); ++left.next, ++right.next) {
            keys.exchange(i + left.nextStep(), j - right.nextStep());
        }
        i += left.isEmpty() ? size : 0;
        j -= right.isEmpty() ? size : 0;
    }
    return {i + (left.isEmpty() ? 0 : left.nextStep()), j - (right.isEmpty() ? 0 : right.nextStep())};
}

/// Moves the walks key by key until they meet.
template <class Keys, class Key, class IsBefore>
Walks walkByKeys(Keys keys, const Key& pivot, int i, int j, IsBefore isBefore)
{
    while (i <= j) {
        while (isBefore(keys.keyAt(i), pivot)) {
            ++i;
        }
        while (isBefore(pivot, keys.keyAt(j))) {
            --j;
        }
        if (j < i) {
            break;
        }
        keys.exchange(i, j);
        ++i;
        --j;
    }
    return {i, j};
}

/// Splits a range, both ends included, about the key in its middle: a walk from the left stops at each key
/// that is not before the pivot, one from the right at each that is not after it, and the two keys change
/// places, until the walks meet.
template <class Keys, class IsBefore>
Partition partitionAboutMiddle(Keys keys, int left, int right, IsBefore isBefore)
{
    const auto pivot = keys.keyAt(left + (right - left) / 2);
    const Walks far = walkByBlocks(keys, pivot, left, right, isBefore);
    const Walks met = walkByKeys(keys, pivot, far.fromLeft, far.fromRight, isBefore);
    return {met.fromRight, met.fromLeft};
}

/// Sorts a range, both ends included. The two parts of a partition are independent, so the shorter one may go
/// first: the outcome is the same, and the stack grows with the logarithm of the size.
template <class Keys, class IsBefore>
void sortByPartitions(Keys keys, int left, int right, IsBefore isBefore)
{
    while (left < right) {
        const Partition parts = partitionAboutMiddle(keys, left, right, isBefore);
        if (parts.leftEnd - left < right - parts.rightBegin) {
            sortByPartitions(keys, left, parts.leftEnd, isBefore);
            left = parts.rightBegin;
        } else {
            sortByPartitions(keys, parts.rightBegin, right, isBefore);
            right = parts.leftEnd;
        }
    }
}

/// The key that a sort would bring to a place, without sorting the rest: of each partition only the part that
/// holds the place is partitioned again. Keys are reordered.
template <class Key>
Key keyAtSortedPlace(std::vector<Key>& keys, int place)
{
    int left = 0;
    int right = static_cast<int>(keys.size()) - 1;
    while (left < right) {
        const Partition parts =
            partitionAboutMiddle(BareKeys<Key>{keys.data()}, left, right, std::less<Key>());
        if (place <= parts.leftEnd) {
            right = parts.leftEnd;
        } else if (place >= parts.rightBegin) {
            left = parts.rightBegin;
        } else {
            break;
        }
    }
    return keys[static_cast<std::size_t>(place)];
}

/// Sorts a range of keys, both ends included, with the elements of the index at the same places, ascending. A
/// range of fewer than two places changes nothing.
template <class T>
void quickSortInternal(std::vector<T>& keys, int left, int right, std::vector<unsigned long>& index)
{
    sortByPartitions(IndexedKeys<T>{keys.data(), index.data()}, left, right, std::less<T>());
}

/// The same, descending.
template <class T>
void quickSortInternalDown(std::vector<T>& keys, int left, int right, std::vector<unsigned long>& index)
{
    sortByPartitions(IndexedKeys<T>{keys.data(), index.data()}, left, right, std::greater<T>());
}

/// Sorts a range of points, both ends included, ascending by Distance.
inline void quickSortFarPointsInternal(std::vector<FarPoint>& points, int left, int right)
{
    sortByPartitions(FarPoints{points.data()}, left, right, std::less<double>());
}

/// A sorted copy of the keys, ascending; the index is filled anew. An empty list empties the index. A list
/// holds at most 2147483647 keys.
template <class T>
std::vector<T> QuickSort(const std::vector<T>& keys, std::vector<unsigned long>& index)
{
    std::vector<T> sorted = keys;
    index.resize(keys.size());
    std::iota(index.begin(), index.end(), 0UL);
    quickSortInternal(sorted, 0, static_cast<int>(sorted.size()) - 1, index);
    return sorted;
}

/// The same, descending.
template <class T>
std::vector<T> QuickSortDown(const std::vector<T>& keys, std::vector<unsigned long>& index)
{
    std::vector<T> sorted = keys;
    index.resize(keys.size());
    std::iota(index.begin(), index.end(), 0UL);
    quickSortInternalDown(sorted, 0, static_cast<int>(sorted.size()) - 1, index);
    return sorted;
}

/// A sorted copy of the keys, ascending, without an index.
template <class T>
std::vector<T> QuickSort1(const std::vector<T>& keys)
{
    std::vector<T> sorted = keys;
    sortByPartitions(BareKeys<T>{sorted.data()}, 0, static_cast<int>(sorted.size()) - 1, std::less<T>());
    return sorted;
}

/// Whether a sorts before b by plain byte comparison, the shorter first on a common prefix.
inline bool mycomp(std::string a, std::string b)
{
    return a < b;
}

} // namespace tavelinUtils
