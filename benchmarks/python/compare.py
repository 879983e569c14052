"""Compares the package with the library, and with readers of pandas and astropy that were told the format by hand.

    python3 compare.py LIBRARY_PROGRAM [--marks N] [--rounds N]

Prints processor seconds, the least of some rounds, which take turns. Ends with 1 where reading or writing lists takes
more than 1.1 times what the library takes.
"""

from __future__ import annotations

import argparse
import subprocess
import tempfile
import time
from collections.abc import Callable, Sequence
from pathlib import Path
from typing import Any

import numpy as np
import pandas as pd
from astropy.io import ascii as astropy_ascii

import tavelin

FORMATS = ("mea", "tdm", "mpc")
ASKED = 1.1
MARKS_OF_A_TRACK = 1000


def make_inputs(folder: Path, marks: int) -> None:
    """The same made marks as a file of each format."""
    tracks = []
    place = np.arange(MARKS_OF_A_TRACK)
    for number in range(marks // MARKS_OF_A_TRACK):
        track = tavelin.Track()
        track.QRVName = f"K{number % 100:02}A{number // 100:02}B"
        track.resize(MARKS_OF_A_TRACK)
        track.marks["date"] = 60000 + number % 300
        track.marks["time"] = 0.25 + place * 4.56789e-4
        track.marks["RA"] = 10.0 + number * 0.3 % 300 + place * 1.23456e-3
        # Southern ones: the writers of other declinations leave the sign out, and the readers skip such lines.
        track.marks["DE"] = -40.0 + place * 2.34567e-3
        track.marks["m"] = 12.0 + place % 80 * 0.1
        tracks.append(track)
    for word in FORMATS:
        tavelin.write(folder / f"in.{word}", tracks, format=word)


def seconds(work: Callable[[], object]) -> float:
    """The processor time of a call."""
    begin = time.process_time()
    work()
    return time.process_time() - begin


def by_library(program: str, word: str, folder: Path) -> tuple[float, float]:
    """The seconds of reading and of writing by the library, the least of three in one process: as in the package's,
    memory that was used before costs less."""
    call = [program, word, str(folder / f"in.{word}"), str(folder / "out"), "3"]
    printed = subprocess.run(call, check=True, capture_output=True, text=True).stdout
    rows = np.array([line.split() for line in printed.splitlines()], dtype=float)
    reading, writing = rows.min(axis=0)
    return float(reading), float(writing)


def lists_by_package(source: Path, word: str) -> tuple[float, float, float]:
    """The seconds of reading a list, writing it, and writing it once its arrays are made."""
    held: list[list[tavelin.Track]] = []
    reading = seconds(lambda: held.append(tavelin.read(source, format=word)))
    tracks = held.pop()
    target = source.with_name("out")
    writing = seconds(lambda: tavelin.write(target, tracks, format=word))
    for track in tracks:
        track.marks
    return reading, writing, seconds(lambda: tavelin.write(target, tracks, format=word))


def by_package(word: str, folder: Path) -> tuple[float, ...]:
    """The least of three for lists, and the seconds of a stream with a sum."""
    source = folder / f"in.{word}"
    lists = least([lists_by_package(source, word) for _ in range(3)])
    stream = seconds(lambda: sum(t.marks["m"].sum() for t in tavelin.sources(source, format=word, reuse=True)))
    return (*lists, stream)


def degrees(texts: pd.Series, places: list[tuple[int, int]], scale: float) -> Any:
    """Degrees of sexagesimal columns, seconds in units of the scale."""
    parts = [texts.str.slice(*place).astype(float) for place in places]
    return parts[0] + parts[1] / 60 + parts[2] * scale / 3600


def days_of(texts: pd.Series, form: str) -> Any:
    """Whole MJD of dates."""
    return pd.to_datetime(texts, format=form).to_numpy().astype("datetime64[D]").astype(int) + 40587


def mea_by_pandas(path: Path) -> pd.DataFrame:
    """Name, MJD, position and magnitude of the lines of MEA."""
    rows = pd.read_csv(path, sep=r"\s+", skiprows=1, header=None, dtype=str)
    days = days_of(rows[1], "%d%m%y")
    hours = degrees(rows[2], [(0, 2), (2, 4), (4, 10)], 1e-4)
    ra = degrees(rows[3], [(0, 2), (2, 4), (4, 10)], 1e-4) * 15
    de = degrees(rows[4].str.slice(1), [(0, 2), (2, 4), (4, 10)], 1e-4)
    sign = np.where(rows[4].str.startswith("-"), -1, 1)
    magnitudes = rows[6].astype(float)
    return pd.DataFrame({"name": rows[0], "mjd": days + hours / 24, "ra": ra, "de": de * sign, "m": magnitudes})


COLUMNS = [(0, 12), (15, 25), (25, 32), (32, 44), (44, 45), (45, 56), (65, 70), (70, 71)]


def of_report(cells: list[pd.Series]) -> pd.DataFrame:
    """Name, MJD, position and magnitude of the columns of a report."""
    days = days_of(cells[1].str.strip(), "%Y %m %d")
    ra = degrees(cells[3], [(0, 2), (3, 5), (6, 12)], 1.0) * 15
    de = degrees(cells[5], [(0, 2), (3, 5), (6, 11)], 1.0) * np.where(cells[4] == "-", -1, 1)
    mjd = days + cells[2].astype(float)
    magnitudes = cells[6].astype(float)
    return pd.DataFrame({"name": cells[0], "mjd": mjd, "ra": ra, "de": de, "m": magnitudes, "band": cells[7]})


def mpc_by_pandas(path: Path) -> pd.DataFrame:
    """The marks of a report by read_fwf."""
    rows = pd.read_fwf(path, colspecs=COLUMNS, skiprows=1, header=None, dtype=str, delimiter="\0")
    return of_report([rows[number] for number in rows])


def mpc_by_astropy(path: Path) -> pd.DataFrame:
    """The marks of a report by the reader of fixed columns."""
    starts, ends = zip(*((first, last - 1) for first, last in COLUMNS))
    names = [f"c{number}" for number in range(len(COLUMNS))]
    texts = {"*": [astropy_ascii.convert_numpy(str)]}
    columns = {"col_starts": starts, "col_ends": ends, "names": names, "data_start": 1}
    rows = astropy_ascii.read(path, format="fixed_width_no_header", converters=texts, **columns)
    return of_report([pd.Series(np.asarray(rows[name]).astype(str)) for name in names])


def mea_by_astropy(path: Path) -> object:
    """The lines of MEA by the fast reader, as texts; the numbers would take the steps of mea_by_pandas more."""
    texts = {"*": [astropy_ascii.convert_numpy(str)]}
    names = list("abcdefg")
    return astropy_ascii.read(path, format="no_header", data_start=1, names=names, converters=texts, guess=False)


OTHERS = {
    "mea": {"pandas": mea_by_pandas, "astropy, texts alone": mea_by_astropy},
    "mpc": {"pandas": mpc_by_pandas, "astropy": mpc_by_astropy},
}


def must_agree(rows: object, source: Path, word: str) -> None:
    """Whoever reads a file must find in it what the package finds."""
    if isinstance(rows, pd.DataFrame):
        marks = np.concatenate([track.marks for track in tavelin.sources(source, format=word)])
        own_rows = {"mjd": marks["date"] + marks["time"], "ra": marks["RA"], "de": marks["DE"], "m": marks["m"]}
        for name, own in own_rows.items():
            np.testing.assert_allclose(rows[name], own, rtol=0, atol=1e-8)


def least(rounds: Sequence[tuple[float, ...]]) -> list[float]:
    """The least of each figure."""
    return [min(figures) for figures in zip(*rounds)]


def compare(word: str, program: str, folder: Path, rounds: int) -> bool:
    """Prints the rows of a format; returns whether lists are read and written as fast as is asked."""
    measured: list[tuple[float, ...]] = []
    for _ in range(rounds):
        measured.append((*by_library(program, word, folder), *by_package(word, folder)))
    reading, writing, own_reading, own_writing, shown, stream = least(measured)
    rows = [
        ("read", reading, own_reading),
        ("write", writing, own_writing),
        ("write, arrays made", writing, shown),
        ("stream and sum", reading, stream),
    ]
    for read in OTHERS.get(word, {}).values():
        must_agree(read(folder / f"in.{word}"), folder / f"in.{word}", word)
    rows += [
        (f"read by {name}", reading, min(seconds(lambda: read(folder / f"in.{word}")) for _ in range(min(rounds, 2))))
        for name, read in OTHERS.get(word, {}).items()
    ]
    for work, library, other in rows:
        figures = f"library {library:7.3f} s, here {other:7.3f} s: {other / library:6.2f} times"
        print(f"{word:4} {work:28} {figures}", flush=True)
    return own_reading <= ASKED * reading and own_writing <= ASKED * writing


def main() -> int:
    """Measures all formats."""
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("program")
    arguments.add_argument("--marks", type=int, default=300_000)
    arguments.add_argument("--rounds", type=int, default=7)
    call = arguments.parse_args()
    with tempfile.TemporaryDirectory() as name:
        make_inputs(Path(name), call.marks)
        good = [compare(word, call.program, Path(name), call.rounds) for word in FORMATS]
    return 0 if all(good) else 1


if __name__ == "__main__":
    raise SystemExit(main())
