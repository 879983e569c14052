"""Writers: the bytes of the tool, from tracks, streams and tables."""

from __future__ import annotations

from collections.abc import Iterator
from pathlib import Path

import numpy as np
import pytest
from conftest import EXAMPLES, FIXTURES, NIGHTS, Convert

import tavelin

NIGHT = EXAMPLES / "K88_20240120.mea"
WORDS = ["mea", "telegram", "tdm", "ssmas", "mpc", "tdm.xml", "mag", "aavso"]


def stamped(tracks: Iterator[tavelin.Track], is_looked_at: bool) -> Iterator[tavelin.Track]:
    """The tracks with the names that the task gives them; their arrays are made where they are looked at."""
    for track in tracks:
        track.originator, track.REFERENCE_FRAME, track.telescope = "MPC", "ICRF", "T1"
        if is_looked_at:
            gap = np.setdiff1d(np.arange(track.marks.dtype.itemsize), bytes_of_numbers(track.marks.dtype))
            track.marks.view(np.uint8).reshape(len(track), -1)[:, gap] = 0x41
        yield track


def bytes_of_numbers(kind: np.dtype) -> list[int]:
    """The places of the bytes that belong to a field."""
    fields = (kind.fields or {}).values()
    return [place for each, begin, *_ in fields for place in range(begin, begin + each.itemsize)]


@pytest.mark.parametrize("word", WORDS)
@pytest.mark.parametrize("is_looked_at", [False, True])
def test_102_nights_have_the_bytes_of_the_tool(
    word: str, is_looked_at: bool, convert_by_tool: Convert, tmp_path: Path
) -> None:
    for night in NIGHTS:
        expected = convert_by_tool(night, word, tmp_path)
        tavelin.write(tmp_path / "own", stamped(tavelin.sources(night, reuse=True), is_looked_at), format=word)
        assert (tmp_path / "own").read_bytes() == expected, night.stem


def test_a_table_is_written_as_its_tracks_are(tmp_path: Path) -> None:
    tracks = tavelin.read(EXAMPLES / "H21_20160607.ssm")
    tavelin.write_tdm(tmp_path / "a.tdm", tracks)
    tavelin.write_tdm(tmp_path / "b.tdm", tavelin.tables(tracks))
    assert (tmp_path / "a.tdm").read_bytes() == (tmp_path / "b.tdm").read_bytes()


def test_a_track_table_comes_back_with_its_texts(tmp_path: Path) -> None:
    source = EXAMPLES / "series/ptf_i41_20101104/tavelin/dataVO/obj-asteroids-mpc.txt"
    tracks = tavelin.read_track_table(source)
    for track in tracks:
        track.marks["m"] += 1.0
    tavelin.write_track_table(tmp_path / "t.txt", tracks)
    again = tavelin.read(tmp_path / "t.txt")
    assert [track.texts("filtr") for track in again] == [track.texts("filtr") for track in tracks]
    for a, b in zip(again, tracks):
        np.testing.assert_allclose(a.marks["m"], b.marks["m"], atol=5e-5)


@pytest.mark.parametrize(
    ("name", "suffix"),
    [("mea", ".mea"), ("telegram", ".tel"), ("tdm", ".tdm"), ("ssmas", ".ssm"), ("tdm_xml", ".tdm.xml")],
)
def test_each_writer_is_a_function_and_its_suffix_names_it(name: str, suffix: str, tmp_path: Path) -> None:
    track = tavelin.read(NIGHT)[0]
    getattr(tavelin, f"write_{name}")(tmp_path / "a", track)
    tavelin.write(tmp_path / f"b{suffix}", track)
    assert (tmp_path / "a").read_bytes() == (tmp_path / f"b{suffix}").read_bytes() != b""
    assert tavelin.format_of(tmp_path / "a") == name.replace("_", ".")


@pytest.mark.parametrize("word", [*WORDS, "table"])
def test_a_folder_that_does_not_exist_is_told(word: str, tmp_path: Path) -> None:
    with pytest.raises((tavelin.TavelinError, OSError)) as told:
        tavelin.write(tmp_path / "none" / "file", tavelin.read(NIGHT), format=word)
    if isinstance(told.value, tavelin.TavelinError):
        assert (told.value.code, told.value.path) == (7, str(tmp_path / "none" / "file"))


def test_what_is_no_track_is_refused(tmp_path: Path) -> None:
    for wrong in ([1], ["track"], [None], [tavelin.read(NIGHT)]):
        with pytest.raises(TypeError):
            tavelin.write_mea(tmp_path / "file", wrong)
    with pytest.raises(TypeError):
        tavelin.write_mea(tmp_path / "file", 5)
    with pytest.raises(ValueError, match="suffix"):
        tavelin.write(tmp_path / "file", [])
    with pytest.raises(ValueError, match="format"):
        tavelin.write(tmp_path / "file", [], format="fits")


def test_an_error_of_the_iterable_comes_through(tmp_path: Path) -> None:
    def broken() -> Iterator[tavelin.Track]:
        yield tavelin.read(NIGHT)[0]
        raise RuntimeError("the source is gone")

    with pytest.raises(RuntimeError, match="gone"):
        tavelin.write_mea(tmp_path / "file.mea", broken())


def test_tracks_without_marks_are_written_by_each_writer(tmp_path: Path) -> None:
    for word in [*WORDS, "table"]:
        tavelin.write(tmp_path / "file", [tavelin.Track(), tavelin.Track()], format=word)
        tavelin.write(tmp_path / "file", [], format=word)


def test_element_sets_come_back(tmp_path: Path) -> None:
    sets = tavelin.read_elements(FIXTURES / "element_sets" / "names_with_zero.txt")
    assert sets and all(each.name.startswith("0 ") for each in sets)
    tavelin.write_elements(tmp_path / "sets.txt", sets)
    assert tavelin.read_elements(tmp_path / "sets.txt") == sets
