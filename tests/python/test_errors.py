"""Errors: codes, paths, lines and columns; nothing that is handed in ends the process."""

from __future__ import annotations

import os
import pickle
from pathlib import Path

import pytest
from conftest import EXAMPLES, FIXTURES
from hypothesis import given
from hypothesis import strategies as st

import tavelin
from tavelin import _tavelin

FORMATS = [*_tavelin.read_formats()]


@pytest.mark.parametrize("format", [*FORMATS, None])
def test_a_missing_file_is_told(format: str | None, tmp_path: Path) -> None:
    with pytest.raises(FileNotFoundError):
        tavelin.read(tmp_path / "none", format=format)
    with pytest.raises(IsADirectoryError):
        tavelin.read(tmp_path, format=format)


def test_a_line_that_is_refused_is_told_with_its_place(tmp_path: Path) -> None:
    good = "12345   250223 1200000000 0100000000 -0030000000 001 09.50\n"
    (tmp_path / "night.mea").write_text("T1 2000.0 UTC\n" + good + "12345 250223 12 0100000000 -0030000000 001 09.50\n")
    with pytest.raises(tavelin.FormatError) as told:
        tavelin.read_mea(tmp_path / "night.mea")
    assert isinstance(told.value, ValueError)
    assert (told.value.line, told.value.column) == (3, 14)
    assert told.value.path == str(tmp_path / "night.mea")
    assert str(told.value).startswith(f"{tmp_path / 'night.mea'}:3:14: ")


@pytest.mark.parametrize(
    ("format", "text", "line"),
    [
        ("telegram", "observatory T1 12345\n250223 12 01000000 -00300000 001095\nEND\n", 2),
        ("mpc", "COD\n", 1),
        ("horizons", "$$SOE\n 2022-Sep-01 00:00\n$$EOE\n", 2),
    ],
)
def test_each_reader_that_throws_tells_the_file(format: str, text: str, line: int, tmp_path: Path) -> None:
    (tmp_path / "file").write_text(text)
    with pytest.raises(tavelin.FormatError) as told:
        tavelin.read(tmp_path / "file", format=format)
    assert told.value.path == str(tmp_path / "file")
    assert told.value.line in (0, line)


def test_a_format_that_is_not_known_must_be_named(tmp_path: Path) -> None:
    (tmp_path / "file").write_text("what is this?\n")
    with pytest.raises(tavelin.TavelinError) as told:
        tavelin.read(tmp_path / "file")
    assert told.value.code == "V003"
    with pytest.raises(ValueError, match="aavso"):
        tavelin.read(tmp_path / "file", format="aavso")


def test_a_document_that_is_none_has_a_code() -> None:
    with pytest.raises(tavelin.TavelinError) as told:
        tavelin.read_tdm_xml(EXAMPLES / "K88_20240120.mea")
    assert told.value.code == 5


def test_errors_can_be_sent_to_another_process() -> None:
    for error in (tavelin.TavelinError("text", 7, "path"), tavelin.FormatError("text", "path", 1, 2)):
        again = pickle.loads(pickle.dumps(error))
        assert str(again) == str(error) and vars(again) == vars(error)


@pytest.mark.parametrize("wrong", [None, 5, 1.5, [], object()])
def test_what_is_no_path_is_refused(wrong: object) -> None:
    with pytest.raises(TypeError):
        tavelin.read(wrong)  # type: ignore[arg-type]
    with pytest.raises(TypeError):
        _tavelin.TrackStream("mea", wrong, "", False)  # type: ignore[arg-type]


def test_a_path_with_a_zero_byte_is_refused() -> None:
    with pytest.raises(ValueError):
        _tavelin.TrackStream("mea", "a\0b", "", False)


def test_paths_of_any_kind_are_taken(tmp_path: Path) -> None:
    name = os.fsdecode(bytes(tmp_path) + b"/n\xe9ight.mea")
    tavelin.write_mea(name, tavelin.read(EXAMPLES / "K88_20240120.mea"))
    assert len(tavelin.read(name)) == len(tavelin.read(os.fsencode(name))) == 1  # type: ignore[arg-type]


ANY_LINES = st.lists(
    st.one_of(st.binary(max_size=90), st.sampled_from([b"END", b"$$SOE", b"META_START", b"DATA_START"]))
)


@given(data=ANY_LINES, format=st.sampled_from(FORMATS))
def test_any_bytes_are_read_or_refused(
    tmp_path_factory: pytest.TempPathFactory, data: list[bytes], format: str
) -> None:
    path = tmp_path_factory.mktemp("any") / "file"
    path.write_bytes(b"\n".join(data))
    try:
        for track in tavelin.sources(path, format=format, reuse=True):
            assert len(track.marks) == len(track)
    except (ValueError, tavelin.TavelinError):
        pass


def lines_of(folder: str) -> list[bytes]:
    """The lines of fixtures, to be mixed."""
    return [line for file in sorted((FIXTURES / folder).glob("*"))[:3] for line in file.read_bytes().splitlines()[:40]]


@pytest.mark.parametrize("format", ["mea", "telegram", "ssmas", "tdm", "mpc", "horizons"])
def test_mixed_lines_are_read_or_refused(format: str, tmp_path: Path) -> None:
    lines = lines_of(format)
    assert lines

    @given(st.lists(st.tuples(st.sampled_from(lines), st.integers(0, 80), st.integers(0, 3)), max_size=30))
    def holds(pieces: list[tuple[bytes, int, int]]) -> None:
        cut = [line[:-place] if kind == 0 and place else line for line, place, kind in pieces]
        (tmp_path / "file").write_bytes(b"\n".join(cut))
        try:
            marks = sum(len(track.marks) for track in tavelin.sources(tmp_path / "file", format=format))
            assert marks <= len(cut)
        except (ValueError, tavelin.TavelinError):
            pass

    holds()
