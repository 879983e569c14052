"""Memory: views keep what they show, nothing is copied for them, nothing grows."""

from __future__ import annotations

import gc
import time
from pathlib import Path

import numpy as np
from conftest import EXAMPLES, lines_of_mea, memory_in_use

import tavelin

NIGHT = EXAMPLES / "K88_20240120.mea"


def test_an_array_keeps_the_marks_when_track_and_stream_are_gone() -> None:
    track = tavelin.read(NIGHT)[0]
    marks, mark = track.marks, track.mark(5)
    expected = marks["RA"].copy()
    assert marks.base is not None and marks.flags.writeable
    del track
    gc.collect()
    junk = [tavelin.read(NIGHT) for _ in range(20)]
    assert np.array_equal(marks["RA"], expected) and mark.RA == expected[5]
    del marks, junk
    gc.collect()
    assert mark.RA == expected[5] and mark.filtr == "R"


def test_arrays_of_one_track_share_its_memory() -> None:
    track = tavelin.read(NIGHT)[0]
    first, second = track.marks, track.marks[10:20]
    assert np.shares_memory(first, second)
    first["m"][10] = -1.0
    assert second["m"][0] == -1.0


def test_a_million_marks_are_shown_without_a_copy(tmp_path: Path) -> None:
    path = tmp_path / "long.mea"
    path.write_text(lines_of_mea(1_000_000))
    track = tavelin.read_mea(path)[0]
    before = memory_in_use()
    # Of this thread: the machine may be busy with others.
    begin = time.thread_time()
    marks = track.marks
    seconds = time.thread_time() - begin
    assert len(marks) == 1_000_000
    assert memory_in_use() - before < 1_000_000
    assert seconds < 1e-3


def rounds_of_work(folder: Path, count: int) -> None:
    """Reads, changes, writes and drops a night so many times."""
    for _ in range(count):
        for track in tavelin.sources(NIGHT, reuse=True):
            marks = track.marks
            marks.sort(order="m")
            track.mark(3).filtr = "a text that is longer than what a record has room for"
            tavelin.write_mpc(folder / "out.txt", track)
        report = tavelin.read(EXAMPLES / "W85_20180216.mpc.txt")
        for track in report:
            track.resize(len(track) + len(track.marks[:1]))
        try:
            tavelin.read(NIGHT, format="telegramm")
        except ValueError:
            pass


def test_nothing_grows_over_a_thousand_rounds(tmp_path: Path) -> None:
    rounds_of_work(tmp_path, 100)
    gc.collect()
    before = memory_in_use()
    rounds_of_work(tmp_path, 1000)
    gc.collect()
    assert memory_in_use() - before < 2_000_000
