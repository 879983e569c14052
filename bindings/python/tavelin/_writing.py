"""Writers: tracks and tables as files of any format."""

from __future__ import annotations

import os
from collections.abc import Iterable
from typing import TYPE_CHECKING, Union

from tavelin import _tavelin
from tavelin._reading import ElementSet, PathLike
from tavelin._tavelin import Track

if TYPE_CHECKING:
    from astropy.table import Table

Tracks = Union[Track, Iterable[Track], "Table"]

# Their writers report no failure, so the file is tried before.
_SILENT = ("mag", "table")


def _tracks_of(tracks: Tracks) -> Iterable[Track]:
    if isinstance(tracks, Track):
        return [tracks]
    if hasattr(tracks, "colnames"):
        from tavelin._tables import from_table

        return from_table(tracks).tracks
    return tracks


def write(path: PathLike, tracks: Tracks, *, format: str | None = None) -> None:
    """Replaces a file by tracks: a track, any iterable of tracks, which is taken one by one, or a table as
    Track.table() and tables() give it.

    Formats are "mea", "telegram", "tdm", "ssmas", "mpc", "tdm.xml", "mag" (a light curve), "aavso" and "table"; without
    one the suffix of the path decides. The file has the bytes that the library writes, odd ones too
    (``docs/known_behaviours.md`` of the project). Without tracks most formats leave the file as it is.

    Raises TavelinError with code 7, or OSError, for a file that cannot be written, ValueError for an unknown format,
    and TypeError for what is no track.

    >>> write(folder / "night.tdm", read(examples / "K88_20240120.mea"))
    >>> (folder / "night.tdm").read_text().splitlines()[0]
    'CCSDS_TDM_VERS = 1.0'
    """
    word = format or _tavelin.format_of_suffix(path)
    if word is None:
        raise ValueError("the suffix of the path names no format; name it by format=")
    if word in _SILENT:
        with open(os.fspath(path), "ab"):
            pass
    _tavelin.write_tracks(path, _tracks_of(tracks), word)


def write_mea(path: PathLike, tracks: Tracks) -> None:
    """Replaces a file by tracks in MEA; the telescope of the first is in the head.

    >>> write_mea(folder / "night", read(examples / "K88_20240120.mea"))
    >>> format_of(folder / "night")
    'mea'
    """
    write(path, tracks, format="mea")


def write_telegram(path: PathLike, tracks: Tracks) -> None:
    """Replaces a file by tracks as a telegram.

    >>> write_telegram(folder / "night", read(examples / "K88_20240120.mea"))
    >>> format_of(folder / "night")
    'telegram'
    """
    write(path, tracks, format="telegram")


def write_tdm(path: PathLike, tracks: Tracks) -> None:
    """Replaces a file by tracks as a Tracking Data Message, text.

    >>> write_tdm(folder / "night", read(examples / "K88_20240120.mea"))
    >>> format_of(folder / "night")
    'tdm'
    """
    write(path, tracks, format="tdm")


def write_tdm_xml(path: PathLike, tracks: Tracks) -> None:
    """Replaces a file by tracks as a Tracking Data Message, XML.

    >>> write_tdm_xml(folder / "night", read(examples / "K88_20240120.mea"))
    >>> format_of(folder / "night")
    'tdm.xml'
    """
    write(path, tracks, format="tdm.xml")


def write_ssmas(path: PathLike, tracks: Tracks) -> None:
    """Replaces a file by tracks as a SSMAS report.

    >>> write_ssmas(folder / "night", read(examples / "K88_20240120.mea"))
    >>> format_of(folder / "night")
    'ssmas'
    """
    write(path, tracks, format="ssmas")


def write_mpc(path: PathLike, tracks: Tracks) -> None:
    """Replaces a file by tracks as a report in 80 columns, under the header of the first.

    >>> write_mpc(folder / "night", read(examples / "K88_20240120.mea"))
    >>> (folder / "night").read_text()[:7]
    'COD 500'
    """
    write(path, tracks, format="mpc")


def write_light_curve(path: PathLike, tracks: Tracks) -> None:
    """Replaces a file by the light curves of tracks, with geocentric Julian dates.

    >>> write_light_curve(folder / "night", read(examples / "K88_20240120.mea"))
    >>> (folder / "night").read_text()[:13]
    'JD geocentric'
    """
    write(path, tracks, format="mag")


def write_aavso(path: PathLike, tracks: Tracks) -> None:
    """Replaces a file by tracks as a report of variable stars, under the observer code of the first.

    >>> write_aavso(folder / "night", read(examples / "K88_20240120.mea"))
    >>> (folder / "night").read_text()[:14]
    '#TYPE=Extended'
    """
    write(path, tracks, format="aavso")


def write_track_table(path: PathLike, tracks: Tracks) -> None:
    """Replaces a file by tracks as a track table with the standard columns.

    >>> write_track_table(folder / "night", read(examples / "K88_20240120.mea"))
    >>> format_of(folder / "night")
    'table'
    """
    write(path, tracks, format="table")


def write_elements(path: PathLike, sets: Iterable[ElementSet]) -> None:
    """Replaces a file by element sets.

    >>> write_elements(folder / "sets.txt", [ElementSet("0 ISS", "1 25544U", "2 25544")])
    >>> read_elements(folder / "sets.txt")
    [ElementSet(name='0 ISS', line1='1 25544U', line2='2 25544')]
    """
    _tavelin.write_elements(path, [tuple(each) for each in sets])
