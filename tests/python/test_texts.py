"""Texts: the forms of the library, and back, over any number."""

from __future__ import annotations

import math

import pytest
from hypothesis import given
from hypothesis import strategies as st

from tavelin import texts


def test_each_form_is_that_of_its_format() -> None:
    assert texts.ra_text(359.999999, 2) == "23:59:60.00"
    assert texts.ra_text(15.0, 0, " ", seconds=False) == "01 00"
    assert texts.de_text(-0.5, 1, " ") == "-00 30 00.0"
    assert texts.time_text(0.999999999, 2) == "00:00:00.00"
    assert texts.date_text(60000, ".") == "2023.02.25"
    assert texts.moment_text(60000.25, 0) == "2023-02-25T06:00:00"
    assert texts.fixed_text(0.125, 2) == "0.12"
    assert texts.short_text(1e-5) == "1e-05"


def test_texts_that_are_none_have_the_library_s_answers() -> None:
    assert (texts.ra_degrees("1 2"), texts.de_degrees("a b")) == (-100.0, -100.0)
    assert texts.date_mjd("") == 0 or isinstance(texts.date_mjd(""), int)
    for short in ("", "12345"):
        with pytest.raises(ValueError):
            texts.packed_ra(short)
        with pytest.raises(ValueError):
            texts.packed_de(short)


@given(st.floats(0, 359.99))
def test_angles_come_back(degrees: float) -> None:
    assert texts.ra_degrees(texts.ra_text(degrees, 9)) == pytest.approx(degrees, abs=1e-10)
    assert texts.de_degrees(texts.de_text(degrees - 180, 9)) == pytest.approx(degrees - 180, abs=1e-10)


@given(st.integers(-300000, 300000))
def test_dates_come_back(mjd: int) -> None:
    if texts.date_text(mjd).count("-") == 2:
        assert texts.date_mjd(texts.date_text(mjd)) == mjd


@given(st.floats(), st.integers(0, 20), st.text(max_size=3))
def test_any_number_has_a_text(value: float, decimals: int, separator: str) -> None:
    for make in (texts.ra_text, texts.de_text, texts.time_text):
        assert isinstance(make(value, decimals, separator), str)
    assert isinstance(texts.date_text(value, separator), str)
    assert isinstance(texts.moment_text(value, decimals), str)
    assert isinstance(texts.fixed_text(value, decimals), str)
    assert isinstance(texts.night_text(value, 3.0), str)
    if math.isfinite(value):
        assert float(texts.fixed_text(value, decimals)) == pytest.approx(value, abs=0.51 * 10.0**-decimals, rel=1e-15)


@given(st.text(max_size=30), st.text(max_size=3))
def test_any_text_has_a_number_or_is_refused(text: str, separator: str) -> None:
    assert isinstance(texts.ra_degrees(text), float) and isinstance(texts.de_degrees(text), float)
    assert isinstance(texts.date_mjd(text, separator), int) and isinstance(texts.time_day(text, separator), float)


def test_decimals_have_an_end() -> None:
    assert len(texts.fixed_text(0.1, 1100)) == 1102
    for decimals in (-1, 1101, 2**31 - 1):
        with pytest.raises(ValueError, match="decimals"):
            texts.fixed_text(0.1, decimals)
