"""Tables: tracks as tables of astropy, and back."""

from __future__ import annotations

from collections.abc import Iterable, Sequence
from dataclasses import dataclass, field
from typing import Any

import astropy.units as u
import numpy as np
from astropy.coordinates import SkyCoord
from astropy.table import QTable, Table, vstack
from astropy.time import Time

from tavelin import _tavelin
from tavelin._tavelin import Track

_NUMBERS = [(name, unit) for name, unit, _ in _tavelin.mark_numbers()]
_TEXTS = [name for name, _ in _tavelin.mark_texts()]
_HEAD = [name for name, _ in _tavelin.head_fields()]
# They are in the columns time and position.
_JOINED = {"date", "time", "RA", "DE"}
_OBJECT = "object"
_MJD_AS_JD = 2400000.5


def table(track: Track, columns: Sequence[str] | None = None) -> QTable:
    """The marks of a track as a table.

    Its columns are ``object`` (QRVName), ``time`` (an astropy Time in UTC, of whole days and fractions, so that nothing
    is lost), ``position`` (a SkyCoord in ICRS, degrees), and the numbers and texts of the marks with their units;
    ``columns`` names those of them that are wanted, all by default. The head is in ``meta["head"]``, the lines of a
    report's header in ``meta["MPCHeader"]``. Nothing in the table is the track's memory.

    The library does not look at the reference frame of a track: ``meta["head"]["REFERENCE_FRAME"]`` says what its file
    said.

    >>> night = table(read_mea(examples / "K88_20240120.mea")[0], columns=["m"])
    >>> night.colnames, night["m"].unit, night["time"][0].isot
    (['object', 'time', 'position', 'm'], Unit("mag"), '2024-01-20T21:48:27.360')
    """
    wanted = None if columns is None else set(columns)
    _must_be_known(wanted)
    marks = track.marks
    rows = QTable(meta={"head": _head_of(track), "MPCHeader": track.MPCHeader})
    rows[_OBJECT] = np.full(len(marks), track.QRVName, dtype=object if len(marks) == 0 else None)
    rows["time"] = Time(marks["date"].astype(float), marks["time"].copy(), format="mjd", scale="utc")
    _keep_digits(rows)
    rows["position"] = SkyCoord(marks["RA"] * u.deg, marks["DE"] * u.deg, frame="icrs")
    for name, unit in _NUMBERS:
        if name not in _JOINED and (wanted is None or name in wanted):
            rows[name] = u.Quantity(marks[name], unit) if unit else marks[name].copy()
    for name in _TEXTS:
        if wanted is None or name in wanted:
            rows[name] = np.array(track.texts(name), dtype=str)
    return rows


def tables(tracks: Iterable[Track], columns: Sequence[str] | None = None) -> QTable:
    """The marks of many tracks as one table, with the columns of table(); ``meta["tracks"]`` has head and header of
    each track, and the column ``track`` the number of a mark's track, from 0.

    >>> rows = tables(read_ssmas(examples / "H21_20160607.ssm"), columns=["m"])
    >>> sorted(set(rows["track"].tolist()))
    [0, 1, 2]
    """
    parts = [table(track, columns) for track in tracks]
    heads = [part.meta for part in parts]
    for number, part in enumerate(parts):
        part["track"] = np.full(len(part), number)
        part.meta = {}
    joined = vstack([part for part in parts if len(part) > 0], join_type="exact") if any(map(len, parts)) else QTable()
    joined.meta = {"tracks": heads}
    _keep_digits(joined)
    return joined


@dataclass
class FromTable:
    """Tracks made of a table, and what the table lacked."""

    tracks: list[Track]
    #: columns of table() that the table does not have: their fields have the defaults of new marks
    lacking: list[str] = field(default_factory=list)
    #: columns of the table that no mark has, and that are left out
    left_out: list[str] = field(default_factory=list)


def from_table(rows: Table) -> FromTable:
    """The tracks of a table as table() or tables() give it, or of one that has at least ``time`` and ``position``.

    Marks follow the rows; a track begins with each new value of ``track``, or else of ``object``. Times of any scale
    become UTC, positions ICRS, quantities the unit of their field. What the table lacks is told, and has its default;
    one without ``time`` or ``position`` is a ValueError. A masked value is a ValueError too: marks have no place for
    what is not known.

    >>> made = from_table(table(read_mea(examples / "K88_20240120.mea")[0], columns=["m"]))
    >>> made.tracks, "filtr" in made.lacking
    ([<tavelin.Track 'K24B01X', 130 marks>], True)
    """
    for name in ("time", "position"):
        if name not in rows.colnames:
            raise ValueError(f"the table has no column {name}")
    _must_not_be_masked(rows)
    known = [name for name, _ in _NUMBERS if name not in _JOINED] + _TEXTS
    own = {_OBJECT, "track", "time", "position"}
    made = FromTable(
        [],
        [name for name in [_OBJECT, *known] if name not in rows.colnames],
        [name for name in rows.colnames if name not in own and name not in known],
    )
    heads = rows.meta.get("tracks", [rows.meta])
    for number, part in enumerate(_parts(rows)):
        made.tracks.append(_track_of(part, heads[number] if number < len(heads) else {}))
    return made


def _keep_digits(rows: QTable) -> None:
    # In a text file astropy would write one number for a time, which is good to a microsecond.
    if "time" in rows.colnames:
        rows["time"].info.serialize_method["ecsv"] = "jd1_jd2"


def _must_be_known(columns: set[str] | None) -> None:
    unknown = (columns or set()) - {name for name, _ in _NUMBERS} - set(_TEXTS)
    if unknown:
        raise ValueError(f"no mark has {', '.join(sorted(unknown))}")


def _head_of(track: Track) -> dict[str, Any]:
    return {name: getattr(track, name) for name in _HEAD}


def _must_not_be_masked(rows: Table) -> None:
    for name in rows.colnames:
        if np.any(getattr(rows[name], "mask", False)):
            raise ValueError(f"the column {name} has masked values")


def _parts(rows: Table) -> list[Table]:
    key = "track" if "track" in rows.colnames else _OBJECT if _OBJECT in rows.colnames else None
    if key is None or len(rows) == 0:
        return [rows]
    values = np.asarray(rows[key])
    edges = [0, *(np.flatnonzero(values[1:] != values[:-1]) + 1), len(rows)]
    return [rows[first:last] for first, last in zip(edges, edges[1:])]


def _track_of(part: Table, meta: dict[str, Any]) -> Track:
    track = Track()
    for name, value in meta.get("head", {}).items():
        setattr(track, name, value)
    track.MPCHeader = meta.get("MPCHeader", {})
    if _OBJECT in part.colnames and len(part) > 0:
        track.QRVName = str(part[_OBJECT][0])
    track.resize(len(part))
    _set_marks(track, part)
    return track


def _set_marks(track: Track, part: Table) -> None:
    marks = track.marks
    marks["date"], marks["time"] = _days_of(part["time"])
    position = SkyCoord(part["position"]).icrs
    marks["RA"] = position.ra.deg
    marks["DE"] = position.dec.deg
    for name, unit in _NUMBERS:
        if name in part.colnames and name not in _JOINED:
            marks[name] = part[name].to_value(unit) if isinstance(part[name], u.Quantity) else part[name]
    for name in _TEXTS:
        if name in part.colnames:
            track.set_texts(name, [str(text) for text in part[name]])


def _days_of(times: Time) -> tuple[np.ndarray[Any, Any], np.ndarray[Any, Any]]:
    """Whole days and fractions from 0, of the two doubles of a Time, without joining them."""
    utc = Time(times, scale="utc") if times.scale == "utc" else times.utc
    # jd1 is a whole or half day, so that nothing is rounded here.
    whole = utc.jd1 - _MJD_AS_JD
    days = np.floor(whole)
    fraction = (whole - days) + utc.jd2
    step = np.floor(fraction)
    return (days + step).astype(np.int32), fraction - step
