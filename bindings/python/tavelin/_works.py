"""Works: conversions and reports by tasks, and the parts of the command tavelin as functions."""

from __future__ import annotations

import json
import os
import re
from collections.abc import Mapping
from typing import Any, Union

from tavelin import _tavelin
from tavelin._errors import TavelinError
from tavelin._reading import PathLike
from tavelin._tavelin import Result, Series, Task

# The status of a call that cannot be carried out, and of one whose input cannot be read.
_REFUSED = 2

AnyTask = Union[Task, PathLike, Mapping[str, Any]]


def load_task(path: PathLike) -> Task:
    """The task of a file. Raises TavelinError for one that cannot be loaded, and for one with which the tool would
    never end.

    >>> load_task(examples / "mea_to_mpc.xml").outputformat
    'mpc'
    """
    return _tavelin.load_task(path)


def _set_all(made: Task | Series, values: Mapping[str, Any], what: str) -> None:
    for key, value in values.items():
        if not hasattr(made, key):
            raise ValueError(f"{what} has no {key}")
        setattr(made, key, value)


def _task_of(task: AnyTask) -> Task:
    if isinstance(task, Task):
        return task
    if not isinstance(task, Mapping):
        return load_task(task)
    made = Task()
    _set_all(made, task, "a task")
    return made


def _good(result: Result) -> Result:
    if result.code != 0:
        raise TavelinError(result.comment, result.code, result.description)
    return result


def convert(task: AnyTask) -> Result:
    """Converts one file as the tool does: by a Task, a mapping with its keys, or the path of a task file, whose
    relative paths count from the folder of the process. No result file is written.

    The result names the file that was tried, which the tool names also where it had nothing to write. Raises
    TavelinError with the code of the result where that is not 0.

    >>> night = examples / "K88_20240120.mea"
    >>> convert({"path_in": str(night), "out_dir": str(folder), "outputextension": ".tdm", "inputformat": "mea",
    ...          "outputformat": "tdm", "REFERENCE_FRAME": "ICRF"}).code
    0
    """
    return _good(_tavelin.convert(_task_of(task)))


def report(task: AnyTask) -> Result:
    """Makes a report of several series as the tool does, by what convert() takes. The description of the result lists
    the files, a ";" after each.

    >>> task = load_task(examples / "report_allobjects.xml")
    >>> task.out_dir = str(folder)
    >>> task.paths = [series(examples / "series/ptf_i41_20101104/tavelin/dataVO/obj-asteroids-mpc.txt")]
    >>> report(task).description.count(";")
    1
    """
    return _good(_tavelin.report(_task_of(task)))


def series(path: PathLike, **values: Any) -> Series:
    """A series of a report: its track table, and ``filter``, ``telescope`` and ``excludes`` where they are given.

    >>> series("night.txt", telescope="T1").telescope
    'T1'
    """
    made = Series()
    made.path = os.fsdecode(path)
    _set_all(made, values, "a series")
    return made


def _operand(path: PathLike) -> str:
    # What begins with a dash would be an option, and a dash alone the standard input.
    name = os.fsdecode(path)
    return f"./{name}" if name.startswith("-") else name


def _options(values: Mapping[str, Any]) -> list[str]:
    options: list[str] = []
    for name, value in values.items():
        option = "--" + name.rstrip("_").replace("_", "-")
        if value is True:
            options.append(option)
        elif value is not None and value is not False:
            values_of_option = value if isinstance(value, (list, tuple)) else [value]
            options += [f"{option}={each}" for each in values_of_option]
    return options


def _document(name: str, operands: list[PathLike], options: Mapping[str, Any]) -> dict[str, Any]:
    call = [name, "--json", *_options(options), *(_operand(each) for each in operands)]
    status, out, err = _tavelin.command(call)
    if status == _REFUSED or not out:
        told = re.fullmatch(r"tavelin: (.*) \[(V\d{3})\]", err.strip(), re.DOTALL)
        message, code = told.groups() if told else (err.strip(), "V001")
        raise TavelinError(message, code)
    document: dict[str, Any] = json.loads(out)
    return document


def check(*tasks: PathLike, **options: Any) -> dict[str, Any]:
    """What tasks would do, and every trap in them, without running them.

    This and the functions below are subcommands of the command tavelin, whose pages tell of their options: ``folder``
    stands for ``--folder``, ``for_`` for ``--for``, True for a flag, a list for an option that is given several times.
    They return the JSON document of the subcommand as a dictionary; its schema is what ``tavelin schema NAME`` prints.
    Findings are in the document and raise nothing. Raises TavelinError for a wrong option and for a file that cannot be
    read, with the code of the finding.

    >>> check(examples / "mea_to_mpc.xml", folder=examples)["schema"]
    'tavelin.check/1'
    """
    return _document("check", list(tasks), options)


def info(*paths: PathLike, **options: Any) -> dict[str, Any]:
    """What is in measurement files.

    >>> info(examples / "K88_20240120.mea")["files"][0]["marks"]
    130
    """
    return _document("info", list(paths), options)


def lint(*paths: PathLike, **options: Any) -> dict[str, Any]:
    """Each line that a reader skips or misreads, and with ``for_`` what a receiver would refuse.

    >>> lint(examples / "K88_20240120.mea")["exit"]
    0
    """
    return _document("lint", list(paths), options)


def ready(path: PathLike, **options: Any) -> dict[str, Any]:
    """A copy of a file that a receiver takes: ``for_`` names the receiver, ``output`` the copy.

    >>> ready(examples / "K88_20240120.mea", for_="mpc", dry_run=True)["schema"]
    'tavelin.ready/1'
    """
    return _document("ready", [path], options)


def normalise(path: PathLike, **options: Any) -> dict[str, Any]:
    """A copy of another maker's file that the readers read right: ``output`` names the copy.

    >>> normalise(examples / "K88_20240120.mea", output=folder / "same.mea")["exit"]
    0
    """
    return _document("normalise", [path], options)


def diff(a: PathLike, b: PathLike, **options: Any) -> dict[str, Any]:
    """Two measurement files, mark by mark, across formats.

    >>> night = examples / "K88_20240120.mea"
    >>> diff(night, night, sums=True)["exit"]
    0
    """
    return _document("diff", [a, b], options)


def explain(what: str | PathLike, **options: Any) -> dict[str, Any]:
    """A task, a result file, a result code, a finding or a format in plain words.

    >>> explain("mea")["schema"]
    'tavelin.explain/1'
    """
    return _document("explain", [what], options)
