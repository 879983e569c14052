"""Threads: readers and writers at work on different files at once, and on the same track."""

from __future__ import annotations

import threading
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from conftest import NIGHTS, lines_of_mea

import tavelin


def copied(night: Path, folder: Path) -> tuple[bytes, bytes]:
    """A night as a message, by two ways."""
    tracks = tavelin.read(night)
    tavelin.write_tdm(folder / f"{night.stem}.a", tracks)
    tavelin.write_tdm(folder / f"{night.stem}.b", tavelin.sources(night, reuse=True))
    return (folder / f"{night.stem}.a").read_bytes(), (folder / f"{night.stem}.b").read_bytes()


def test_threads_work_on_different_files(tmp_path: Path) -> None:
    alone = [copied(night, tmp_path) for night in NIGHTS]
    with ThreadPoolExecutor(8) as threads:
        together = list(threads.map(lambda night: copied(night, tmp_path), NIGHTS))
    assert together == alone
    assert all(a == b for a, b in together)


def test_others_run_while_a_reader_works(tmp_path: Path) -> None:
    path = tmp_path / "long.mea"
    path.write_text(lines_of_mea(300_000))
    counted, ready = [0], threading.Event()

    def count() -> None:
        while not ready.is_set():
            counted[0] += 1
            time.sleep(0.0005)

    counter = threading.Thread(target=count)
    counter.start()
    before = counted[0]
    stream = tavelin.sources(path, format="mea")
    while_reading = counted[0] - before
    ready.set()
    counter.join()
    assert while_reading > 10
    assert sum(len(track) for track in stream) == 300_000


def test_a_track_that_is_being_written_is_not_changed(tmp_path: Path) -> None:
    path = tmp_path / "long.mea"
    path.write_text(lines_of_mea(300_000))
    track = tavelin.read_mea(path)[0]
    refused = 0
    with ThreadPoolExecutor(1) as threads:
        written = threads.submit(tavelin.write_tdm, tmp_path / "long.tdm", track)
        while not written.done():
            try:
                track.QRVName = "a name that needs memory of its own"
            except BufferError:
                refused += 1
        written.result()
    assert refused > 0
    assert len(tavelin.read(tmp_path / "long.tdm")[0]) == 300_000


def test_one_stream_serves_one_thread_at_a_time(tmp_path: Path) -> None:
    path = tmp_path / "many.mea"
    path.write_text(lines_of_mea(20_000, objects=2000))
    stream = tavelin.sources(path, reuse=True)
    names: list[str] = []

    def take() -> None:
        while True:
            try:
                names.append(next(stream).QRVName)
            except ValueError:
                continue
            except StopIteration:
                return

    with ThreadPoolExecutor(4) as threads:
        for done in [threads.submit(take) for _ in range(4)]:
            done.result()
    assert len(names) == len(set(names)) == 2000


def test_subcommands_wait_for_each_other() -> None:
    with ThreadPoolExecutor(4) as threads:
        for night, document in zip(NIGHTS, threads.map(tavelin.info, NIGHTS[:20])):
            assert document["files"][0]["file"] == str(night)
