"""Builds the extension by CMake, out of the sources two folders above."""

import os
import re
import shutil
import subprocess
import sys
from pathlib import Path

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

ROOT = Path(__file__).resolve().parent.parent.parent

SETTINGS = {
    "CMAKE_BUILD_TYPE": "Release",
    "VOMAR_PYTHON": "ON",
    "VOMAR_BUILD_TESTING": "OFF",
    "VOMAR_INSTALL": "OFF",
    "Python3_EXECUTABLE": sys.executable,
}


def version() -> str:
    """The version of the library, which is said in one place."""
    text = (ROOT / "library" / "version.h").read_text()
    found = re.search(r' version = "(.*)"', text)
    assert found is not None
    return found.group(1)


class BuildByCMake(build_ext):
    """Configures and builds in the folder for temporary files, and takes the extension from there."""

    def build_extension(self, ext: Extension) -> None:
        """Builds the one extension."""
        folder = Path(self.build_temp).resolve()
        settings = [f"-D{name}={value}" for name, value in SETTINGS.items()]
        subprocess.check_call(["cmake", "-S", ROOT, "-B", folder, *settings])
        jobs = str(os.cpu_count() or 1)
        subprocess.check_call(["cmake", "--build", folder, "--target", "tavelin_python", "--parallel", jobs])
        built = next((folder / "python" / "tavelin").glob("_tavelin*.so"))
        target = Path(self.get_ext_fullpath(ext.name))
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy2(built, target)


setup(version=version(), ext_modules=[Extension("tavelin._tavelin", [])], cmdclass={"build_ext": BuildByCMake})
