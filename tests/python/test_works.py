"""Works: tasks, and the subcommands that look at files."""

from __future__ import annotations

import os
from pathlib import Path

import pytest
from conftest import EXAMPLES, PROJECT

import tavelin

NIGHT = EXAMPLES / "K88_20240120.mea"
SERIES = ["ptf_i41_20101104", "ptf_i41_20101106"]


def conversion(folder: Path, **keys: object) -> dict[str, object]:
    """A conversion of the night."""
    return {
        "path_in": str(NIGHT),
        "out_dir": str(folder),
        "outputextension": ".tdm",
        "inputformat": "mea",
        "outputformat": "tdm",
        "REFERENCE_FRAME": "ICRF",
        "PARTICIPANT_1": "K88",
        **keys,
    }


def test_a_conversion_names_the_file_that_it_writes(tmp_path: Path) -> None:
    result = tavelin.convert(conversion(tmp_path))
    assert (result.code, result.comment, result.description) == (0, "OK", str(tmp_path / "K88_20240120.tdm"))
    tracks = tavelin.read(tmp_path / "K88_20240120.tdm")
    assert [len(track) for track in tracks] == [130]


def test_a_conversion_that_fails_has_the_code_of_its_result(tmp_path: Path) -> None:
    with pytest.raises(tavelin.TavelinError) as told:
        tavelin.convert(conversion(tmp_path, inputformat="fits"))
    assert told.value.code == -1
    with pytest.raises(tavelin.TavelinError) as told:
        tavelin.convert(conversion(NIGHT.parent, outputextension=".mea"))
    assert told.value.code == -3
    with pytest.raises(ValueError, match="colour"):
        tavelin.convert(conversion(tmp_path, colour="red"))


@pytest.mark.parametrize("name", ["mea_to_mpc", "tdm_to_mag", "telegram_to_ssmas"])
def test_runs_of_the_tool_by_their_task_files_have_its_bytes(
    name: str, tmp_path: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    run = PROJECT / "tests" / "runs" / name
    for file in run.iterdir():
        if file.is_file():
            (tmp_path / file.name).write_bytes(file.read_bytes())
    monkeypatch.chdir(tmp_path)
    Path("out").mkdir()
    tavelin.convert("task.xml")
    # The result file is the work of the program around.
    expected = [file for file in (run / "expected").iterdir() if "result" not in file.name]
    assert sorted(file.name for file in expected) == os.listdir("out")
    for file in expected:
        assert Path("out", file.name).read_bytes() == file.read_bytes()


def test_a_report_of_two_series_lists_its_files(tmp_path: Path) -> None:
    task = tavelin.Task()
    task.out_dir, task.outputextension, task.outputformat = str(tmp_path), "txt", "mpc"
    task.inputformat, task.toSeparateFile, task.whatSave = "vomar", "eachobject", "all"
    tables = [next((EXAMPLES / "series" / name / "tavelin" / "dataVO").glob("*.txt")) for name in SERIES]
    task.paths = [tavelin.series(table, telescope="T1") for table in tables]
    assert [each.path for each in task.paths] == [str(table) for table in tables]
    files = tavelin.report(task).description.rstrip(";").split(";")
    assert len(files) > 1 and all(Path(file).is_file() for file in files)


def test_excludes_of_a_series_are_pairs() -> None:
    series = tavelin.series("night.txt", excludes=[(0, [1, 2])])
    assert series.excludes == [(0, [1, 2])]
    with pytest.raises(TypeError):
        series.excludes = [1]


def test_a_task_that_would_never_end_is_refused(tmp_path: Path) -> None:
    endless = "<task><paths><seria><path>a</path></seria><seria/></paths></task>"
    (tmp_path / "task.xml").write_text(endless)
    with pytest.raises(tavelin.TavelinError):
        tavelin.load_task(tmp_path / "task.xml")
    (tmp_path / "task.xml").write_text("no task")
    with pytest.raises(tavelin.TavelinError):
        tavelin.load_task(tmp_path / "task.xml")
    with pytest.raises(tavelin.TavelinError):
        tavelin.load_task(tmp_path / "none.xml")


def test_subcommands_return_their_documents(tmp_path: Path) -> None:
    assert tavelin.check(EXAMPLES / "mea_to_mpc.xml", folder=EXAMPLES)["schema"] == "tavelin.check/1"
    assert tavelin.info(NIGHT, tracks=True)["files"][0]["track_list"][0]["object"] == "K24B01X"
    assert tavelin.lint(NIGHT, for_="mpc")["schema"] == "tavelin.lint/1"
    assert tavelin.diff(NIGHT, NIGHT)["schema"] == "tavelin.diff/1"
    assert tavelin.explain("V240")["schema"] == "tavelin.explain/1"
    ready = tavelin.ready(NIGHT, for_="mpc", station="K88", output=tmp_path / "night.txt", dry_run=True)
    assert ready["schema"] == "tavelin.ready/1"
    assert tavelin.normalise(NIGHT, output=tmp_path / "same.mea")["schema"] == "tavelin.normalise/1"
    assert (tmp_path / "same.mea").is_file()


def test_options_are_those_of_the_command() -> None:
    layers = tavelin.lint(NIGHT, layer=["reader", "person"])
    assert layers["schema"] == "tavelin.lint/1"
    with pytest.raises(tavelin.TavelinError) as told:
        tavelin.info(NIGHT, colour="red")
    assert told.value.code == "V002"
    with pytest.raises(tavelin.TavelinError) as told:
        tavelin.info("none.mea")
    assert told.value.code == "V003"


def test_a_name_that_begins_with_a_dash_is_a_file(tmp_path: Path, monkeypatch: pytest.MonkeyPatch) -> None:
    monkeypatch.chdir(tmp_path)
    Path("-night.mea").write_bytes(NIGHT.read_bytes())
    assert tavelin.info("-night.mea")["files"][0]["marks"] == 130
