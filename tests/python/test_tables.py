"""Tables: units, times and positions, files of astropy, and the way back."""

from __future__ import annotations

from pathlib import Path

import astropy.units as u
import numpy as np
import pytest
from astropy.coordinates import SkyCoord
from astropy.table import QTable
from astropy.time import Time
from conftest import EXAMPLES, NIGHTS
from hypothesis import given
from hypothesis import strategies as st

import tavelin

NIGHT = EXAMPLES / "K88_20240120.mea"
NANOSECOND = 1e-9 / 86400


def night() -> tavelin.Track:
    """The one track of the night."""
    return tavelin.read(NIGHT)[0]


def test_times_positions_and_numbers_have_their_units() -> None:
    rows = night().table()
    assert isinstance(rows, QTable)
    assert rows["time"].scale == "utc" and rows["time"][0].isot == "2024-01-20T21:48:27.360"
    assert rows["position"].ra.deg[0] == pytest.approx(116.61941667, abs=1e-8)
    assert (rows["m"].unit, rows["FWHM"].unit, rows["RMSFit"].dtype) == (u.mag, u.pix, float)
    assert rows["filtr"].tolist() == ["R"] * 130
    assert rows.meta["head"]["telescope"] == "K88"


def test_a_table_is_no_view_of_the_track() -> None:
    track = night()
    rows = track.table()
    track.marks["m"], track.marks["RA"], track.marks["iF"] = 0.0, 0.0, 9
    assert rows["m"].value.max() > 12 and rows["position"].ra.deg.max() > 100 and rows["iF"].max() == 0


def test_only_known_columns_can_be_wanted() -> None:
    assert night().table(["m", "filtr"]).colnames == ["object", "time", "position", "m", "filtr"]
    with pytest.raises(ValueError, match="colour"):
        night().table(["colour"])


@given(st.lists(st.tuples(st.integers(-100000, 200000), st.floats(0, 1, exclude_max=True)), min_size=1, max_size=40))
def test_times_come_back_to_the_nanosecond(times: list[tuple[int, float]]) -> None:
    track = tavelin.Track()
    track.resize(len(times))
    track.marks["date"], track.marks["time"] = zip(*times)
    again = tavelin.from_table(track.table(["m"])).tracks[0].marks
    lag = (again["date"] - track.marks["date"]) + (again["time"] - track.marks["time"])
    assert np.abs(lag).max() < NANOSECOND / 100
    assert (again["time"] >= 0).all() and (again["time"] < 1).all()


@pytest.mark.parametrize(("suffix", "options"), [(".fits", {"astropy_native": True}), (".ecsv", {})])
def test_102_nights_come_back_from_a_file_of_astropy(suffix: str, options: dict[str, bool], tmp_path: Path) -> None:
    tracks = [track for each in NIGHTS for track in tavelin.sources(each)]
    rows = tavelin.tables(tracks, columns=["m", "filtr"])
    rows.meta = {}
    path = tmp_path / f"nights{suffix}"
    rows.write(path)
    again = tavelin.from_table(QTable.read(path, **options)).tracks
    assert len(again) == len(tracks) == 946
    for a, b in zip(again, tracks):
        assert (a.QRVName, len(a)) == (b.QRVName, len(b))
        lag = (a.marks["date"] - b.marks["date"]) + (a.marks["time"] - b.marks["time"])
        assert np.abs(lag).max() < NANOSECOND
        np.testing.assert_allclose(a.marks["RA"], b.marks["RA"], rtol=0, atol=1e-12)
        assert np.array_equal(a.marks["m"], b.marks["m"])


def test_a_table_of_the_virtual_observatory_is_written(tmp_path: Path) -> None:
    rows = night().table(["m"])
    rows.meta = {}
    plain = QTable({"mjd": rows["time"].mjd, "ra": rows["position"].ra, "dec": rows["position"].dec, "m": rows["m"]})
    plain.write(tmp_path / "night.vot", format="votable")
    again = QTable.read(tmp_path / "night.vot")
    assert np.array_equal(again["mjd"], rows["time"].mjd) and again["ra"].unit == u.deg


def test_heads_texts_and_headers_come_back() -> None:
    tracks = tavelin.read(EXAMPLES / "W85_20180216.mpc.txt")
    made = tavelin.from_table(tavelin.tables(tracks))
    assert made.lacking == [] and made.left_out == []
    for a, b in zip(made.tracks, tracks):
        assert (a.QRVName, a.telescope, a.MPCHeader) == (b.QRVName, b.telescope, b.MPCHeader)
        assert a.texts("filtr") == b.texts("filtr")


def test_what_a_table_lacks_is_told() -> None:
    rows = night().table(["m"])
    rows["colour"] = 1.0
    made = tavelin.Track.from_table(rows)
    assert "filtr" in made.lacking and "FWHM" in made.lacking and "m" not in made.lacking
    assert made.left_out == ["colour"]
    del rows["time"]
    with pytest.raises(ValueError, match="time"):
        tavelin.from_table(rows)


def test_other_scales_frames_and_units_become_ours() -> None:
    rows = QTable(
        {
            "time": Time([2460000.5], format="jd", scale="tai"),
            "position": SkyCoord([0.0] * u.deg, [90.0] * u.deg, frame="galactic"),
            "FWHM": [2.0] * u.pix,
        }
    )
    mark = tavelin.from_table(rows).tracks[0].mark(0)
    assert (mark.date + mark.time - 60000) * 86400 == pytest.approx(-37.0, abs=1e-4)
    assert (mark.RA, mark.DE) == (pytest.approx(192.859, abs=1e-2), pytest.approx(27.128, abs=1e-2))


def test_masked_values_have_no_place() -> None:
    rows = QTable(night().table(["m"]), masked=True)
    rows["iF"] = np.ma.masked_array(np.zeros(130, dtype=int), mask=[True] + [False] * 129)
    with pytest.raises(ValueError, match="iF"):
        tavelin.from_table(rows)


def test_empty_tracks_make_empty_tables() -> None:
    empty = tavelin.Track()
    assert len(empty.table()) == 0
    assert len(tavelin.tables([])) == 0 and len(tavelin.tables([empty])) == 0
    assert len(tavelin.from_table(empty.table()).tracks[0]) == 0
