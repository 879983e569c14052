"""Residuals against an ephemeris of Horizons: how far each mark is from the place that was calculated, as a picture.

    python3 residuals.py night.mea ephemeris.txt residuals.png
"""

from __future__ import annotations

import sys
from typing import Any

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt
import numpy as np
from numpy.typing import NDArray

import tavelin

Numbers = NDArray[np.float64]


def days(marks: NDArray[np.void]) -> Numbers:
    """The MJD of marks."""
    return np.asarray(marks["date"] + marks["time"], dtype=np.float64)


def residuals(track: tavelin.Track, ephemeris: tavelin.Track) -> tuple[Numbers, Numbers]:
    """East and north of the calculated place, in arcseconds, for each mark. Between two lines of the ephemeris the
    place is on the line through both."""
    seen, calculated = track.marks, ephemeris.marks
    when = days(calculated)
    ra = np.interp(days(seen), when, np.unwrap(calculated["RA"], period=360.0))
    de = np.interp(days(seen), when, calculated["DE"])
    east = (seen["RA"] - ra + 180.0) % 360.0 - 180.0
    return east * np.cos(np.radians(de)) * 3600.0, (seen["DE"] - de) * 3600.0


def draw(night: str, ephemeris: str, picture: str) -> dict[str, float]:
    """Draws the residuals of the first object and returns their root mean squares in arcseconds."""
    track = tavelin.read(night)[0]
    east, north = residuals(track, tavelin.read_horizons(ephemeris)[0])
    figure, axes = plt.subplots(figsize=(8, 4))
    curves: dict[str, Any] = {"east": east, "north": north}
    for name, values in curves.items():
        axes.plot(days(track.marks), values, ".", label=name)
    axes.axhline(0.0, color="grey")
    axes.set_xlabel("MJD")
    axes.set_ylabel("arcseconds")
    axes.legend()
    figure.savefig(picture)
    plt.close(figure)
    return {name: tavelin.numerics.deviation(values, about=0.0) for name, values in curves.items()}


if __name__ == "__main__":
    for name, rms in draw(*sys.argv[1:4]).items():
        print(f"{name}: {rms:.2f} arcseconds")
