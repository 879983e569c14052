"""Numerics: against NumPy and hand-computed values, over arrays of any kind."""

from __future__ import annotations

import numpy as np
import pytest
from conftest import EXAMPLES
from hypothesis import given
from hypothesis import strategies as st
from hypothesis.extra.numpy import arrays

import tavelin
from tavelin import numerics

NUMBERS = st.floats(-1e6, 1e6)
SOME = arrays(np.float64, st.integers(1, 300), elements=NUMBERS)


@given(SOME)
def test_mean_and_deviation_are_those_of_the_population(values: np.ndarray) -> None:
    assert numerics.mean(values) == pytest.approx(values.mean(), abs=1e-6)
    assert numerics.deviation(values) == pytest.approx(values.std(), abs=1e-6)
    assert numerics.deviation(values, about=0.0) == pytest.approx(np.sqrt((values**2).mean()), abs=1e-6)


@given(SOME, st.data())
def test_masked_values_are_left_out(values: np.ndarray, data: st.DataObject) -> None:
    mask = data.draw(arrays(bool, len(values)))
    if mask.all():
        assert np.isnan(numerics.mean(values, mask))
    else:
        assert numerics.mean(values, mask) == pytest.approx(values[~mask].mean(), abs=1e-6)
        assert numerics.deviation(values, mask=mask) == pytest.approx(values[~mask].std(), abs=1e-6)


@given(SOME)
def test_sorts_are_those_of_numpy_but_for_ties(values: np.ndarray) -> None:
    for descending in (False, True):
        ordered, index = numerics.sort(values, descending=descending)
        assert np.array_equal(ordered, np.sort(values)[:: -1 if descending else 1])
        assert np.array_equal(values[index], ordered)


@given(SOME, st.integers(1, 50))
def test_a_histogram_counts_each_value_in_the_first_bin_that_holds_it(values: np.ndarray, bins: int) -> None:
    lower, upper, counts = numerics.histogram(values, bins)
    assert len(lower) == len(upper) == len(counts) == bins
    holds = (values[:, None] >= lower) & (values[:, None] < upper)
    first = holds.argmax(axis=1)[holds.any(axis=1)]
    assert np.array_equal(counts, np.bincount(first, minlength=bins))


def test_memory_of_an_array_is_used_as_it_is() -> None:
    keys = np.array([3.0, 1.0, 2.0])
    place = keys.__array_interface__["data"][0]
    assert numerics.sort_in_place(keys).tolist() == [1, 2, 0]
    assert keys.tolist() == [1.0, 2.0, 3.0] and keys.__array_interface__["data"][0] == place


def read_only() -> np.ndarray:
    """An array that must stay."""
    values = np.array([2.0, 1.0])
    values.flags.writeable = False
    return values


@pytest.mark.parametrize(
    "wrong",
    [
        np.arange(4.0)[::2],
        np.arange(3, dtype="f4"),
        np.arange(3),
        np.arange(3, dtype=">f8"),
        read_only(),
        np.array(["a"]),
    ],
)
def test_only_plain_arrays_are_changed_in_place(wrong: np.ndarray) -> None:
    before = wrong.copy()
    with pytest.raises((ValueError, TypeError)):
        numerics.sort_in_place(wrong)
    with pytest.raises((ValueError, TypeError)):
        numerics.blank(np.zeros(len(wrong)), wrong, 0.0, 1.0)
    assert np.array_equal(wrong, before)


def test_arrays_of_any_kind_are_looked_at() -> None:
    expected = 4.0
    for values in (
        [2, 4, 6],
        (2.0, 4.0, 6.0),
        np.array([2, 4, 6], dtype="i2"),
        np.array([6.0, 0, 4, 0, 2])[::-2],
        np.array([[2.0, 4.0, 6.0]]).T,
        np.array([2, 4, 6], dtype=">f8"),
        read_only() * 0 + 4,
    ):
        assert numerics.mean(values) == expected
    marks = tavelin.read(EXAMPLES / "K88_20240120.mea")[0].marks
    assert numerics.mean(marks["m"]) == pytest.approx(marks["m"].mean())


def test_no_values_are_no_crash() -> None:
    empty = np.array([])
    assert np.isnan(numerics.mean(empty)) and np.isnan(numerics.deviation(empty))
    assert (numerics.median(empty), numerics.lower_median(empty)) == (0.0, 0.0)
    assert len(numerics.histogram(empty, 5).counts) == 0
    assert len(numerics.peak_histogram(empty, 5, 3).counts) == 0
    assert numerics.sort(empty)[1].tolist() == []
    assert np.isnan(numerics.clipped_mean(empty)[0])


def test_odd_arguments_are_no_crash() -> None:
    values = [1.0, np.nan, np.inf, -np.inf, 2.0]
    numerics.sort(values), numerics.median(values), numerics.lower_median(values)
    assert numerics.histogram(values, -1).counts.tolist() == []
    numerics.clipped_mean(values, iterations=-5, k=np.nan, eps=-1.0)
    with pytest.raises(ValueError, match="mask"):
        numerics.mean([1.0, 2.0], [True])
    with pytest.raises(TypeError):
        numerics.mean(["a"])
    with pytest.raises(TypeError):
        numerics.histogram([1.0], 2**40)


def test_clipping_drops_what_is_far() -> None:
    values = np.concatenate([np.tile([9.0, 11.0], 50), [1000.0]])
    mean, sigma = numerics.clipped_mean(values, iterations=10, k=3.0, eps=1e-6)
    assert (mean, sigma) == (pytest.approx(10.0), pytest.approx(1.0))


def test_medians_are_those_of_the_pipeline() -> None:
    assert [numerics.median(values) for values in ([5.0], [1.0, 2.0], [1.0, 2.0, 3.0])] == [5.0, 1.5, 3.0]
    assert [numerics.lower_median(values) for values in ([5.0, 4.0], [1.0, 2.0, 3.0, 4.0])] == [5.0, 2.0]
