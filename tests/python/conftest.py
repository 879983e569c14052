"""Where the tests find the project and the tool, and what several of them need."""

from __future__ import annotations

import os
import resource
import subprocess
from collections.abc import Callable
from pathlib import Path

import pytest
from hypothesis import settings

PROJECT = Path(__file__).resolve().parent.parent.parent
FIXTURES = PROJECT / "tests" / "fixtures"
EXAMPLES = PROJECT / "examples"
NIGHTS = sorted((FIXTURES / "mea_nights").glob("*.mea"))

# The machine that runs the tests may be busy with others. They try the same values each time; "search" tries others:
# HYPOTHESIS_PROFILE=search.
settings.register_profile("tests", deadline=None, max_examples=60, derandomize=True)
settings.register_profile("search", deadline=None, max_examples=1000)
settings.load_profile(os.environ.get("HYPOTHESIS_PROFILE", "tests"))

TASK = """<task>
    <path_in>{night}</path_in>
    <out_dir>{folder}</out_dir>
    <outputextension>.out</outputextension>
    <inputformat>mea</inputformat>
    <outputformat>{word}</outputformat>
    <originator>MPC</originator>
    <REFERENCE_FRAME>ICRF</REFERENCE_FRAME>
    <PARTICIPANT_1>T1</PARTICIPANT_1>
    <path_res>{folder}/result.xml</path_res>
</task>
"""

Convert = Callable[[Path, str, Path], bytes]


@pytest.fixture(scope="session")
def convert_by_tool() -> Convert:
    """Converts a MEA file by the program vomar and returns the bytes that it writes."""
    tool = os.environ["VOMAR_TOOL"]

    def convert(night: Path, word: str, folder: Path) -> bytes:
        task = folder / "task.xml"
        task.write_text(TASK.format(night=night, folder=folder, word=word))
        subprocess.run([tool, task], check=True)
        return (folder / f"{night.stem}.out").read_bytes()

    return convert


def memory_in_use() -> int:
    """The bytes of memory that the process holds."""
    pages = int(Path("/proc/self/statm").read_text().split()[1])
    return pages * resource.getpagesize()


def lines_of_mea(count: int, objects: int = 1) -> str:
    """A MEA file of so many marks."""
    lines = ["T1 2000.0 UTC"]
    for mark in range(count):
        seconds = mark % 86400
        time = f"{seconds // 3600:02}{seconds // 60 % 60:02}{seconds % 60:02}0000"
        lines.append(f"OBJ{mark % objects:04} 250223 {time} 0100000000 -0030000000 001 {mark % 10 + 9}.50")
    return "\n".join(lines) + "\n"
