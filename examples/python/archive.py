"""An archive of nights as one table: all marks of a folder in a file that other programs read, and a picture of them.

    python3 archive.py nights archive.fits archive.png
"""

from __future__ import annotations

import sys
from collections.abc import Iterator
from pathlib import Path

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt

import tavelin


def tracks_below(folder: str) -> Iterator[tavelin.Track]:
    """The tracks of all files of MEA in a folder, in the order of their names."""
    for night in sorted(Path(folder).glob("*.mea")):
        yield from tavelin.sources(night, format="mea")


def make(folder: str, archive: str, picture: str) -> int:
    """Writes the table and draws where its marks are; returns how many there are."""
    rows = tavelin.tables(tracks_below(folder), columns=["m"])
    # The heads of tracks are dictionaries, which FITS has no place for.
    rows.meta = {}
    rows.write(archive, overwrite=True)
    figure, axes = plt.subplots(figsize=(8, 4))
    dots = axes.scatter(rows["position"].ra.deg, rows["position"].dec.deg, c=rows["m"].value, s=4)
    axes.set_xlabel("right ascension, degrees")
    axes.set_ylabel("declination, degrees")
    figure.colorbar(dots, label="magnitude")
    figure.savefig(picture)
    plt.close(figure)
    return len(rows)


if __name__ == "__main__":
    print(make(*sys.argv[1:4]), "marks")
