"""Numerics: the statistics, clipping, histograms and the sort of the library, over arrays.

Arrays of float64 without gaps are looked at where they are; others are copied first, and so are fields of marks, which
lie between others. Arrays of several dimensions count in the order of rows. Deviations are of the population: squares
are divided by the count. Results have the unit of the values. More than 2147483647 values are a ValueError. The name of
the library's operation follows in brackets.
"""

from __future__ import annotations

from typing import Any, NamedTuple

import numpy as np
from numpy.typing import ArrayLike, NDArray

from tavelin import _tavelin


class Histogram(NamedTuple):
    """A histogram: lower limits, which belong to their bin, upper limits, which do not, and numbers of values."""

    lower: NDArray[np.float64]
    upper: NDArray[np.float64]
    counts: NDArray[np.int32]


def _none_of(values: ArrayLike) -> NDArray[np.bool_]:
    return np.zeros(np.size(values), dtype=bool)


def mean(values: ArrayLike, mask: ArrayLike | None = None) -> float:
    """The mean; a mask is true where a value is left out. Not-a-number where none counts. (CalculateAverage)

    >>> mean([1.0, 2.0, 6.0]), mean([1.0, 2.0, 6.0], mask=[False, False, True])
    (3.0, 1.5)
    """
    places = _none_of(values) if mask is None else mask
    return _tavelin.masked_mean(values, places)[0]


def deviation(values: ArrayLike, about: float | None = None, mask: ArrayLike | None = None) -> float:
    """The root of the mean squared deviation from a number, the mean where none is given. Not-a-number where no value
    counts. (CalculateSKO)

    >>> deviation([1.0, 3.0])
    1.0
    """
    places = _none_of(values) if mask is None else mask
    centre = mean(values, places) if about is None else about
    return _tavelin.masked_deviation(values, places, centre)[0]


def blank(values: ArrayLike, mask: NDArray[np.bool_], lower: float, upper: float) -> None:
    """Sets a mask, in place, where a value is outside the limits; what is set stays so. Raises ValueError for a mask
    that is no writable array of bool without gaps. (BlankARR)

    >>> mask = np.zeros(3, dtype=bool)
    >>> blank([1.0, 5.0, 9.0], mask, 2.0, 8.0)
    >>> mask.tolist()
    [True, False, True]
    """
    _tavelin.blank(values, mask, lower, upper)


def clipped_mean(values: ArrayLike, iterations: int = 10, k: float = 3.0, eps: float = 0.0) -> tuple[float, float]:
    """Mean and sigma by iterative clipping at k sigma, which stops where sigma changes by no more than eps. They are of
    what the clip before the last left. No iterations, or an eps of 1000.0 and more, give not-a-number and -1.0.
    (pcMathSKO)

    >>> clipped_mean([1.0] * 20 + [1000.0])
    (1.0, 0.0)
    """
    return _tavelin.clipped_mean(values, iterations, k, eps)


def median(values: ArrayLike) -> float:
    """The median of the pipeline: of an odd number of values the one above the middle, of an even number a mean, as the
    library's page on numerics says; 0.0 of none. (Median)

    >>> median([3.0, 1.0, 2.0])
    3.0
    """
    return _tavelin.median(values)


def lower_median(values: ArrayLike) -> float:
    """The lower median; of fewer than three values the first, 0.0 of none. (Median2)

    >>> lower_median([3.0, 1.0, 2.0, 4.0])
    2.0
    """
    return _tavelin.lower_median(values)


def histogram(values: ArrayLike, bins: int) -> Histogram:
    """The histogram between the smallest and the largest value, which is in no bin. (calcGisto)

    >>> histogram([0.0, 1.0, 1.5, 4.0], 4).counts.tolist()
    [1, 2, 0, 0]
    """
    return Histogram(*_tavelin.histogram(values, bins))


def peak_histogram(values: ArrayLike, bins: int, iterations: int) -> Histogram:
    """The histogram about the peak: so many times the values in the greatest bin and its neighbours make the next.
    (calcGistoIteratio)

    >>> peak_histogram([0.0, 5.0, 5.1, 5.2, 9.0], 3, 1).counts.tolist()
    [1, 0, 2]
    """
    return Histogram(*_tavelin.peak_histogram(values, bins, iterations))


def sort(values: ArrayLike, *, descending: bool = False) -> tuple[NDArray[np.float64], NDArray[np.uint64]]:
    """A sorted copy, and where each value was. Values that are equal are in the order that the steps of the library's
    sort give them. (QuickSort, QuickSortDown)

    >>> values, index = sort([3.0, 1.0, 2.0])
    >>> values.tolist(), index.tolist()
    ([1.0, 2.0, 3.0], [1, 2, 0])
    """
    keys: NDArray[np.float64] = np.array(values, dtype=np.float64, order="C", ndmin=1)
    return keys, sort_in_place(keys, descending=descending)


def sort_in_place(keys: NDArray[np.float64], *, descending: bool = False) -> NDArray[np.uint64]:
    """Sorts an array where it is, and returns where each value was. Raises ValueError for what is no writable array of
    float64 without gaps. (quickSortInternal, quickSortInternalDown)

    >>> keys = np.array([3.0, 1.0, 2.0])
    >>> sort_in_place(keys, descending=True).tolist(), keys.tolist()
    ([0, 2, 1], [3.0, 2.0, 1.0])
    """
    index: Any = _tavelin.sort_in_place(keys, descending)
    return np.asarray(index, dtype=np.uint64)
