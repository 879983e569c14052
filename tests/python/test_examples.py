"""The examples: each is run as a person would run it, and makes its picture."""

from __future__ import annotations

import subprocess
import sys
from pathlib import Path

import pytest
from conftest import EXAMPLES, FIXTURES

import tavelin

NIGHT = EXAMPLES / "K88_20240120.mea"
NIGHTS = FIXTURES / "mea_nights"


def run(name: str, *arguments: object) -> str:
    """What an example prints."""
    call = [sys.executable, EXAMPLES / "python" / f"{name}.py", *map(str, arguments)]
    return subprocess.run(call, check=True, capture_output=True, text=True).stdout


def is_picture(path: Path) -> bool:
    """Whether a file is a picture with something on it."""
    content = path.read_bytes()
    return content.startswith(b"\x89PNG") and len(content) > 5000


def test_a_light_curve_is_drawn(tmp_path: Path) -> None:
    assert run("light_curve", NIGHT, tmp_path / "p.png") == "130 marks\n"
    assert is_picture(tmp_path / "p.png")


def test_motion_on_the_sky_is_drawn(tmp_path: Path) -> None:
    printed = run("motion", NIGHT, tmp_path / "p.png")
    assert printed.startswith("K24B01X: ") and is_picture(tmp_path / "p.png")
    motion = tavelin.info(NIGHT, tracks=True)["files"][0]["track_list"][0]["motion"]
    rows = tavelin.read(NIGHT)[0].table([])
    minutes = (rows["time"][-1] - rows["time"][0]).to_value("min")
    assert float(printed.split()[1]) / minutes == pytest.approx(motion, rel=1e-3)


def test_residuals_against_an_ephemeris_are_drawn(tmp_path: Path) -> None:
    ephemeris = FIXTURES / "horizons" / "fixed_columns.txt"
    track = tavelin.read_horizons(ephemeris)[0]
    track.QRVName = "OBJECT"
    track.marks["DE"] += 2.0 / 3600
    tavelin.write_mea(tmp_path / "night.mea", track)
    printed = run("residuals", tmp_path / "night.mea", ephemeris, tmp_path / "p.png").split()
    assert is_picture(tmp_path / "p.png")
    assert (float(printed[1]), float(printed[4])) == (pytest.approx(0.0, abs=0.05), pytest.approx(2.0, abs=0.05))


def test_an_archive_of_102_nights_becomes_one_table(tmp_path: Path) -> None:
    assert run("archive", NIGHTS, tmp_path / "a.fits", tmp_path / "p.png") == "3241 marks\n"
    assert is_picture(tmp_path / "p.png") and (tmp_path / "a.fits").stat().st_size > 3241 * 40
