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

#include <cstddef>
#include <functional>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace tavelinUtils {

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

    Key keyAt(int place) const
    {
        return keys[place];
    }
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

    Key keyAt(int place) const
    {
        return keys[place];
    }
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

    double keyAt(int place) const
    {
        return points[place].Distance;
    }
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

/// Parts a range, both ends included, about the key in its middle: a walk from the left stops at each key
/// that is not before the pivot, one from the right at each that is not behind it, and the two that they stop
/// at change places, until the walks meet.
template <class Keys, class IsBefore>
Partition partitionAboutMiddle(Keys keys, int left, int right, IsBefore isBefore)
{
    constexpr int blockSize = 64;
    const auto pivot = keys.keyAt(left + (right - left) / 2);
    int i = left;
    int j = right;

    // Where the walks are far apart they go block by block: first the stops of a block are written down,
    // which needs no branch that can be guessed wrong, then the stops of both sides change places in order.
    unsigned char leftStops[blockSize];
    unsigned char rightStops[blockSize];
    int leftNext = 0, leftCount = 0;
    int rightNext = 0, rightCount = 0;
    while (j - i >= 2 * blockSize) {
        if (leftNext == leftCount) {
            leftNext = leftCount = 0;
            for (int step = 0; step < blockSize; ++step) {
                leftStops[leftCount] = static_cast<unsigned char>(step);
                leftCount += isBefore(keys.keyAt(i + step), pivot) ? 0 : 1;
            }
        }
        if (rightNext == rightCount) {
            rightNext = rightCount = 0;
            for (int step = 0; step < blockSize; ++step) {
                rightStops[rightCount] = static_cast<unsigned char>(step);
                rightCount += isBefore(pivot, keys.keyAt(j - step)) ? 0 : 1;
            }
        }
        for (; leftNext < leftCount && rightNext < rightCount; ++leftNext, ++rightNext) {
            keys.exchange(i + leftStops[leftNext], j - rightStops[rightNext]);
        }
        i += leftNext == leftCount ? blockSize : 0;
        j -= rightNext == rightCount ? blockSize : 0;
    }
    i += leftNext < leftCount ? leftStops[leftNext] : 0;
    j -= rightNext < rightCount ? rightStops[rightNext] : 0;

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
    return {j, i};
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

/// Sort a range of keys, both ends included, with the elements of the index at the same places, ascending or
/// descending. A range of fewer than two places changes nothing.
template <class T>
void quickSortInternal(std::vector<T>& keys, int left, int right, std::vector<unsigned long>& index)
{
    sortByPartitions(IndexedKeys<T>{keys.data(), index.data()}, left, right, std::less<T>());
}

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
