"""The package's own texts: examples of docstrings and of its page are run, types are checked."""

from __future__ import annotations

import doctest
import importlib
import inspect
import os
import pkgutil
import re
import subprocess
import sys
from collections.abc import Callable
from pathlib import Path

import numpy as np
import pytest
from conftest import EXAMPLES, FIXTURES, PROJECT

import tavelin

MODULES = ["tavelin"] + [
    f"tavelin.{each.name}" for each in pkgutil.iter_modules(tavelin.__path__) if each.name != "_tavelin"
]
SETTINGS = PROJECT / "bindings" / "python" / "pyproject.toml"


@pytest.mark.parametrize("name", MODULES)
def test_examples_of_docstrings_hold(name: str, tmp_path: Path) -> None:
    module = importlib.import_module(name)
    names = {each: getattr(tavelin, each) for each in tavelin.__all__}
    names |= {"np": np, "examples": EXAMPLES, "fixtures": FIXTURES, "folder": tmp_path}
    runner = doctest.DocTestRunner()
    for test in doctest.DocTestFinder().find(module, globs={**vars(module), **names}):
        runner.run(test)
    assert runner.failures == 0


def own_functions() -> list[Callable[..., object]]:
    """The public functions of the package."""
    spaces = [{name: getattr(tavelin, name) for name in tavelin.__all__}, vars(tavelin.numerics), vars(tavelin.texts)]
    values = [value for space in spaces for name, value in space.items() if not name.startswith("_")]
    return [value for value in values if inspect.isfunction(value) and value.__module__.startswith("tavelin")]


def test_each_function_has_an_example() -> None:
    assert len(own_functions()) > 60
    assert [each.__name__ for each in own_functions() if ">>>" not in (each.__doc__ or "")] == []


def blocks_of(page: str) -> list[str]:
    """The blocks of Python on a page."""
    text = (PROJECT / page).read_text(encoding="utf-8")
    return re.findall(r"^```python\n(.*?)^```", text, re.DOTALL | re.MULTILINE)


def test_the_page_of_examples_shows_the_examples() -> None:
    programs = [path.read_text(encoding="utf-8") for path in (EXAMPLES / "python").glob("*.py")]
    assert sorted(blocks_of("docs/python_examples.md")) == sorted(programs)


@pytest.mark.parametrize(("page", "fewest", "fewest_values"), [("docs/python.md", 6, 9), ("README.md", 1, 0)])
def test_blocks_of_a_page_run(
    page: str, fewest: int, fewest_values: int, tmp_path: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    blocks = blocks_of(page)
    assert len(blocks) >= fewest
    for file in EXAMPLES.iterdir():
        if file.is_file():
            (tmp_path / file.name).write_bytes(file.read_bytes())
    monkeypatch.chdir(tmp_path)
    monkeypatch.setenv("MPLBACKEND", "Agg")
    told = 0
    names: dict[str, object] = {}
    for block in blocks:
        exec(compile(block, page, "exec"), names)
        for expression, value in re.findall(r"^(\w.*\S) +# ([\d'\"({\[].*)$", block, re.MULTILINE):
            assert eval(expression, names) == eval(value), expression
            told += 1
    assert told >= fewest_values


def environment() -> dict[str, str]:
    """Where mypy finds the package as it was built."""
    return {**os.environ, "MYPYPATH": str(Path(tavelin.__file__).parent.parent)}


def checked(folder: Path, *call: str | Path) -> None:
    """Runs a check that prints what it finds, in a folder for what it keeps."""
    command = [sys.executable, "-m", *map(str, call)]
    done = subprocess.run(command, cwd=folder, env=environment(), capture_output=True, text=True)
    assert done.returncode == 0, done.stdout + done.stderr


def test_types_of_the_package_and_of_the_examples_hold(tmp_path: Path) -> None:
    folder = EXAMPLES / "python"
    checked(tmp_path, "mypy", "--config-file", SETTINGS, "-p", "tavelin")
    for example in sorted(folder.glob("*.py")):
        checked(tmp_path, "mypy", "--config-file", SETTINGS, example)


def test_the_stubs_are_those_of_the_extension(tmp_path: Path) -> None:
    allowed = Path(__file__).with_name("stubtest_allowed")
    checked(tmp_path, "mypy.stubtest", "--mypy-config-file", SETTINGS, "--allowlist", allowed, "tavelin._tavelin")
