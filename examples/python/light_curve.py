"""A light curve: the brightness of each object of a night over time, as a picture.

    python3 light_curve.py night.mea light_curve.png
"""

from __future__ import annotations

import sys

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt

import tavelin


def draw(night: str, picture: str) -> int:
    """Draws the marks of a night and returns how many there are."""
    figure, axes = plt.subplots(figsize=(8, 5))
    count = 0
    for track in tavelin.read(night):
        rows = track.table(["m"])
        axes.plot(rows["time"].datetime64, rows["m"].value, ".-", label=track.QRVName)
        count += len(rows)
    axes.invert_yaxis()
    axes.set_xlabel("UTC")
    axes.set_ylabel("magnitude")
    axes.legend()
    figure.autofmt_xdate()
    figure.savefig(picture)
    plt.close(figure)
    return count


if __name__ == "__main__":
    print(draw(sys.argv[1], sys.argv[2]), "marks")
