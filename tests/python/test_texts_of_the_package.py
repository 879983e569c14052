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


def test_blocks_of_the_page_run(tmp_path: Path, monkeypatch: pytest.MonkeyPatch) -> None:
    page = (PROJECT / "docs" / "python.md").read_text(encoding="utf-8")
    blocks = re.findall(r"^```python\n(.*?)^```", page, re.DOTALL | re.MULTILINE)
    assert len(blocks) > 5
    for file in EXAMPLES.iterdir():
        if file.is_file():
            (tmp_path / file.name).write_bytes(file.read_bytes())
    monkeypatch.chdir(tmp_path)
    monkeypatch.setenv("MPLBACKEND", "Agg")
    told = 0
    names: dict[str, object] = {}
    for block in blocks:
        exec(compile(block, "docs/python.md", "exec"), names)
        for expression, value in re.findall(r"^(\w.*\S) +# ([\d'\"({\[].*)$", block, re.MULTILINE):
            assert eval(expression, names) == eval(value), expression
            told += 1
    assert told > 8


def environment() -> dict[str, str]:
    """Where mypy finds the package as it was built."""
    return {**os.environ, "MYPYPATH": str(Path(tavelin.__file__).parent.parent)}


def checked(*call: str | Path) -> None:
    """Runs a check that prints what it finds."""
    done = subprocess.run([sys.executable, "-m", *map(str, call)], env=environment(), capture_output=True, text=True)
    assert done.returncode == 0, done.stdout + done.stderr


def test_types_of_the_package_and_of_the_examples_hold(tmp_path: Path) -> None:
    folder = EXAMPLES / "python"
    checked("mypy", "--config-file", SETTINGS, "--cache-dir", tmp_path, "-p", "tavelin")
    for example in sorted(folder.glob("*.py")):
        checked("mypy", "--config-file", SETTINGS, "--cache-dir", tmp_path, example)


def test_the_stubs_are_those_of_the_extension() -> None:
    allowed = Path(__file__).with_name("stubtest_allowed")
    checked("mypy.stubtest", "--mypy-config-file", SETTINGS, "--allowlist", allowed, "tavelin._tavelin")
