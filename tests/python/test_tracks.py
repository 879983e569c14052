"""Tracks: heads, marks over their memory, texts of marks."""

from __future__ import annotations

import copy
import csv
import pickle
from collections.abc import Iterator
from pathlib import Path

import numpy as np
import pytest
from conftest import EXAMPLES, FIXTURES, NIGHTS, lines_of_mea
from hypothesis import given
from hypothesis import strategies as st
from numpy.lib.recfunctions import repack_fields

import tavelin
from tavelin import _tavelin

NIGHT = EXAMPLES / "K88_20240120.mea"
TABLE = EXAMPLES / "series/ptf_i41_20101104/tavelin/dataVO/obj-asteroids-mpc.txt"


def one_track() -> tavelin.Track:
    """The one track of the night."""
    return tavelin.read_mea(NIGHT)[0]


def truth() -> dict[str, list[dict[str, str]]]:
    """The true values of each night's marks."""
    rows: dict[str, list[dict[str, str]]] = {}
    with open(FIXTURES / "mea_nights" / "truth.csv", encoding="utf-8") as file:
        for row in csv.DictReader(file):
            rows.setdefault(f"{row['station']}_{row['night']}", []).append(row)
    return rows


def test_marks_of_102_nights_are_what_the_truth_says() -> None:
    true_rows = truth()
    assert len(NIGHTS) == len(true_rows) == 102
    for night in NIGHTS:
        tracks = tavelin.read(night)
        marks = np.concatenate([track.marks for track in tracks])
        rows = true_rows[night.stem]
        assert [track.QRVName for track in tracks for _ in range(len(track))] == [row["object"] for row in rows]
        np.testing.assert_allclose(
            marks["date"] + marks["time"], [float(row["mjd"]) for row in rows], rtol=0, atol=2e-9
        )
        np.testing.assert_allclose(marks["RA"], [float(row["ra_deg"]) for row in rows], rtol=0, atol=1e-9)
        np.testing.assert_allclose(marks["DE"], [float(row["dec_deg"]) for row in rows], rtol=0, atol=1e-9)
        np.testing.assert_allclose(marks["m"], [float(row["mag"]) for row in rows], rtol=0, atol=1e-9)


def test_the_type_of_marks_is_that_of_the_packed_record() -> None:
    kind = tavelin.Track().marks.dtype
    names = [name for name, _, _ in _tavelin.mark_numbers()]
    assert kind.names == tuple(names)
    assert kind.itemsize == 17 * 4 + 1 + 45 * 8 + 24 + 8 * 32
    assert kind.fields["X_bf"] == (np.dtype("f8"), 4)
    assert kind.fields["AuxFlag"] == (np.dtype("?"), 48)
    assert kind.fields["SpareTail"] == (np.dtype("f8"), kind.itemsize - 8)
    ends = 0
    for name in names:
        assert kind.fields[name][1] >= ends
        ends = kind.fields[name][1] + kind.fields[name][0].itemsize


def test_numbers_of_a_mark_and_of_the_array_are_the_same() -> None:
    track = one_track()
    for name in track.marks.dtype.names or ():
        assert getattr(track.mark(7), name) == track.marks[name][7]
    track.mark(7).m = 3.5
    assert track.marks["m"][7] == 3.5
    track.marks["iF"][7] = 12
    assert track.mark(7).iF == 12


def test_a_new_mark_has_the_defaults_of_the_library() -> None:
    track = tavelin.Track()
    track.resize(1)
    mark = track.mark(0)
    assert (mark.filtr, mark.MTYPE, mark.CNAME, mark.CHART, mark.mjd) == ("R", "DIF", "ENSEMBLE", "na", "")
    assert (mark.LinkIndex, mark.RefValue4, mark.m) == (-1, -1.0, 0.0)


def test_fields_of_the_head_are_attributes() -> None:
    track = one_track()
    assert (track.QRVName, track.telescope, track.FindOrb) == ("K24B01X", "K88", 999.0)
    track.QRVName, track.V, track.TrMade = "2024 BX1", 1.5, 5
    assert (track.QRVName, track.V, track.TrMade) == ("2024 BX1", 1.5, 5)
    for name, _ in _tavelin.head_fields():
        setattr(track, name, getattr(track, name))


@pytest.mark.parametrize(("name", "value"), [("QRVName", 5), ("V", "fast"), ("N", 1.5), ("N", 2**40), ("V", None)])
def test_a_value_of_another_type_is_refused(name: str, value: object) -> None:
    with pytest.raises(TypeError):
        setattr(one_track(), name, value)
    with pytest.raises(TypeError):
        setattr(one_track().mark(0), "filtr", b"V")


def test_the_header_of_a_report_is_a_dictionary() -> None:
    track = tavelin.read_mpc(EXAMPLES / "W85_20180216.mpc.txt")[0]
    assert track.MPCHeader["COD"] == "W85"
    track.MPCHeader = {"COD": "500", "OBS": "A. Observer"}
    assert (track.MPCHeader["COD"], track.MPCHeader["OBS"]) == ("500", "A. Observer")
    with pytest.raises(KeyError):
        track.MPCHeader = {"COD": "W84", "XYZ": ""}
    assert track.MPCHeader["COD"] == "500"


def test_residuals_are_dictionaries_of_numbers_and_lists() -> None:
    track = one_track()
    assert track.ResidSecond == {**{f"Value{i}": 0.0 for i in range(1, 5)}, **{f"List{i}": [] for i in range(1, 5)}}
    track.ResidFirst = {"Value2": 0.5, "List4": [1, 2.5]}
    assert (track.ResidFirst["Value2"], track.ResidFirst["List4"]) == (0.5, [1.0, 2.5])
    assert (track.ResidFirst["Value1"], track.ResidSecond["Value2"]) == (0.0, 0.0)
    with pytest.raises(KeyError):
        track.ResidFirst = {"Value1": 1.0, "Value5": 1.0}
    with pytest.raises(TypeError):
        setattr(track, "ResidFirst", {"Value1": 1.0, "List1": 1.0})
    assert track.ResidFirst["Value1"] == 0.0
    assert pickle.loads(pickle.dumps(track)).ResidFirst == track.ResidFirst == track.copy().ResidFirst


def test_texts_of_a_report_survive_an_array_that_writes_over_everything() -> None:
    track = tavelin.read_mpc(EXAMPLES / "W85_20180216.mpc.txt")[0]
    bands = track.texts("filtr")
    assert set(bands) != {"R"}
    track.marks.view(np.uint8)[:] = 255
    assert track.texts("filtr") == bands
    track.mark(1).filtr = "a text that is too long for its place in the record"
    assert track.mark(1).filtr == "a text that is too long for its place in the record"
    assert track.texts("filtr")[2:] == bands[2:]


def test_an_array_that_is_sorted_in_place_leaves_texts_at_their_places() -> None:
    track = tavelin.read_track_table(TABLE)[0]
    times, names = track.texts("mjd"), [each.QRVID for each in map(track.mark, range(len(track)))]
    order = np.argsort(track.marks["m"], kind="stable")
    magnitudes = track.marks["m"][order].tolist()
    track.marks.sort(order="m")
    assert track.marks["m"].tolist() == magnitudes
    assert track.texts("mjd") == times
    assert [each.QRVID for each in map(track.mark, range(len(track)))] == names


def test_texts_are_set_for_all_marks_at_once() -> None:
    track = one_track()
    track.set_texts("filtr", ["V"] * 130)
    assert set(track.texts("filtr")) == {"V"}
    with pytest.raises(ValueError, match="each mark"):
        track.set_texts("filtr", ["V"])
    with pytest.raises(ValueError, match="no text"):
        track.texts("colour")


def test_texts_that_change_the_track_do_no_harm() -> None:
    track = one_track()

    def shrinking() -> Iterator[str]:
        for number in range(130):
            track.resize(130 - number)
            yield "a text that is too long for its place in the record"

    with pytest.raises(ValueError, match="each mark"):
        track.set_texts("filtr", shrinking())
    assert set(track.texts("filtr")) == {"R"}


@pytest.mark.parametrize("count", [2**62, 10**13, -1])
def test_more_marks_than_memory_has_are_refused(count: int) -> None:
    track = one_track()
    with pytest.raises((MemoryError, ValueError, TypeError)):
        track.resize(count)
    assert len(track) == 130


def test_a_track_that_grows_leaves_older_arrays_what_they_were() -> None:
    track = one_track()
    track.mark(3).filtr = "V"
    old = track.marks
    track.resize(200)
    assert len(track) == 200 and len(old) == 130
    assert np.array_equal(track.marks["RA"][:130], old["RA"]) and track.mark(3).filtr == "V"
    track.marks["m"] = 1.0
    assert old["m"].max() > 12.0
    track.resize(2)
    assert len(track) == 2 and len(old) == 130


def test_marks_are_set_from_an_array_of_any_stride_and_type() -> None:
    track = one_track()
    every_other = track.marks[::-2]
    track.marks = every_other
    assert len(track) == 65
    assert np.array_equal(track.marks["RA"], every_other["RA"])
    bare = np.zeros(3, dtype=[("RA", "f4"), ("m", ">i2"), ("colour", "U3")])
    bare["RA"], bare["m"] = [1, 2, 3], [10, 11, 12]
    bare.flags.writeable = False
    track.marks = bare
    assert track.marks["RA"].tolist() == [1.0, 2.0, 3.0] and track.marks["m"].tolist() == [10.0, 11.0, 12.0]


@pytest.mark.parametrize(
    "wrong", [np.zeros(3), np.zeros((2, 2), dtype=[("RA", "f8")]), np.zeros((), dtype=[("RA", "f8")])]
)
def test_an_array_that_is_no_list_of_marks_is_refused(wrong: np.ndarray) -> None:
    track = one_track()
    with pytest.raises(TypeError):
        track.marks = wrong
    assert len(track) == 130


def test_an_array_of_texts_for_numbers_is_refused() -> None:
    with pytest.raises(ValueError):
        one_track().marks = np.array([("x",)], dtype=[("RA", "U1")])


def test_indexes_outside_the_track_are_refused() -> None:
    track = one_track()
    assert track.mark(-1).m == track.marks["m"][-1]
    for index in (130, -131, 2**62):
        with pytest.raises(IndexError):
            track.mark(index)


def test_a_copy_has_memory_of_its_own() -> None:
    track = one_track()
    track.marks["m"][0] = 1.0
    for other in (track.copy(), copy.copy(track), copy.deepcopy(track)):
        other.marks["m"][0] = 2.0
        other.QRVName = "other"
        assert (track.marks["m"][0], track.QRVName) == (1.0, "K24B01X")


def test_tracks_go_to_other_processes_and_back() -> None:
    for track in [one_track(), *tavelin.read_track_table(TABLE), tavelin.Track()]:
        again = pickle.loads(pickle.dumps(track))
        assert [getattr(again, name) for name, _ in _tavelin.head_fields()] == [
            getattr(track, name) for name, _ in _tavelin.head_fields()
        ]
        assert (again.MPCHeader, again.Candidates, again.Cast) == (track.MPCHeader, track.Candidates, track.Cast)
        assert np.array_equal(repack_fields(again.marks), repack_fields(track.marks))
        assert np.array_equal(again.InterBlobs, track.InterBlobs)
        for name, _ in _tavelin.mark_texts():
            assert again.texts(name) == track.texts(name)


def test_inter_frame_measurements_are_an_array_over_their_memory() -> None:
    track = one_track()
    assert len(track.InterBlobs) == 0
    entries = np.zeros(130, dtype=track.InterBlobs.dtype)
    entries["m_MPC"] = 7.0
    track.InterBlobs = entries
    shown = track.InterBlobs
    shown["Value2"][5] = 180.0
    assert track.InterBlobs["Value2"][5] == 180.0 and track.InterBlobs["m_MPC"][129] == 7.0
    track.InterBlobs = entries[:1]
    assert len(shown) == 130


def test_bytes_that_are_no_text_go_through_unharmed(tmp_path: Path) -> None:
    path = tmp_path / "night.mea"
    path.write_bytes(b"T\xe9 2000.0 UTC\nOBJ\xff 250223 1200000000 0100000000 -0030000000 001 09.50\n")
    track = tavelin.read_mea(path)[0]
    assert track.telescope.encode("utf-8", "surrogateescape") == b"T\xe9"
    tavelin.write_mea(tmp_path / "copy.mea", track)
    assert (tmp_path / "copy.mea").read_bytes().startswith(b"T\xe9 2000.0 UTC\nOBJ\xff ")


def test_a_stream_that_reuses_memory_gives_the_tracks_of_a_list(tmp_path: Path) -> None:
    path = tmp_path / "many.mea"
    path.write_text(lines_of_mea(500, objects=20))
    for number, track in enumerate(tavelin.sources(path, reuse=True)):
        assert (track.QRVName, len(track)) == (f"OBJ{number:04}", 25)
        assert track.marks["date"].tolist() == [60000] * 25
        assert not track.marks["iF"].any()
        track.marks.view(np.uint8)[:] = 255
        track.mark(0).filtr = "V"


def test_tracks_and_arrays_that_are_kept_from_a_stream_stay(tmp_path: Path) -> None:
    path = tmp_path / "many.mea"
    path.write_text(lines_of_mea(500, objects=20))
    kept = [(track, track.marks) for track in tavelin.sources(path, reuse=True)]
    for number, (track, marks) in enumerate(kept):
        assert track.QRVName == f"OBJ{number:04}"
        assert marks["m"].tolist() == [(mark % 10) + 9.5 for mark in range(number, 500, 20)]


def test_memory_is_used_again_only_where_nobody_holds_it(tmp_path: Path) -> None:
    path = tmp_path / "many.mea"
    path.write_text(lines_of_mea(500, objects=20))
    places = set()
    for track in tavelin.sources(path, reuse=True):
        marks = track.marks
        places.add(marks.__array_interface__["data"][0])
    assert len(places) == 2


@given(
    st.lists(
        st.tuples(st.sampled_from(["write", "text", "grow", "shrink", "sort", "copy", "array"]), st.integers(0, 40))
    )
)
def test_no_order_of_changes_harms_a_track(steps: list[tuple[str, int]]) -> None:
    track, arrays, expected = one_track(), [], ["R"] * 130
    for step, number in steps:
        if step == "write" and len(track):
            track.marks.view(np.uint8)[number::7] = number
        elif step == "text" and number < len(track):
            track.mark(number).filtr = expected[number] = "text of a length that needs memory" * (number % 3)
        elif step in ("grow", "shrink"):
            count = len(track) + number if step == "grow" else max(len(track) - number, 0)
            track.resize(count)
            expected = (expected + ["R"] * count)[:count]
        elif step == "sort":
            track.marks.sort(order="m")
        elif step == "copy":
            track = track.copy()
        else:
            arrays.append(track.marks)
        assert track.texts("filtr") == expected
    assert all(len(array) == len(array["m"]) for array in arrays)
