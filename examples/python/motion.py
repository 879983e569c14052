"""Motion on the sky: the path of each object of a night about its first place, as a picture.

    python3 motion.py night.mea motion.png
"""

from __future__ import annotations

import sys

import astropy.units as u
import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt

import tavelin


def draw(night: str, picture: str) -> dict[str, float]:
    """Draws the paths and returns the length of each in arcseconds, from its first to its last place."""
    figure, axes = plt.subplots(figsize=(6, 6))
    lengths = {}
    for track in tavelin.read(night):
        places = track.table([])["position"]
        east, north = places[0].spherical_offsets_to(places)
        axes.plot(east.to_value(u.arcsec), north.to_value(u.arcsec), ".-", label=track.QRVName)
        lengths[track.QRVName] = float(places[0].separation(places[-1]).arcsec)
    axes.invert_xaxis()
    axes.set_aspect("equal", adjustable="datalim")
    axes.set_xlabel("east, arcseconds")
    axes.set_ylabel("north, arcseconds")
    axes.legend()
    figure.savefig(picture)
    plt.close(figure)
    return lengths


if __name__ == "__main__":
    for name, length in draw(sys.argv[1], sys.argv[2]).items():
        print(f"{name}: {length:.1f} arcseconds")
