"""tavelin: measurement files of an astronomical observation pipeline, in the shapes in which Python looks at data.

>>> track = read(examples / "K88_20240120.mea")[0]
>>> track.QRVName, len(track), float(track.marks["m"].min())
('K24B01X', 130, 12.6)

A file is a list of tracks; a track is the head of one object and its marks. ``track.marks`` is a NumPy array over the
memory of the marks, ``track.mark(i)`` a mark with its texts, ``table(track)`` an astropy table. Readers, writers, works
and the numerics let other threads run while they work.
"""

from __future__ import annotations

from collections.abc import Sequence
from typing import TYPE_CHECKING, Any

from tavelin import _pickling, numerics, texts
from tavelin._errors import FormatError, TavelinError
from tavelin._reading import (
    ElementSet,
    format_of,
    read,
    read_elements,
    read_horizons,
    read_mea,
    read_mpc,
    read_ssmas,
    read_tdm,
    read_tdm_xml,
    read_telegram,
    read_track_table,
    sources,
)
from tavelin._tavelin import Mark, Result, Series, Task, Track
from tavelin._tavelin import version as __version__
from tavelin._works import check, convert, diff, explain, info, lint, load_task, normalise, ready, report, series
from tavelin._writing import (
    write,
    write_aavso,
    write_elements,
    write_light_curve,
    write_mea,
    write_mpc,
    write_ssmas,
    write_tdm,
    write_tdm_xml,
    write_telegram,
    write_track_table,
)

if TYPE_CHECKING:
    from astropy.table import QTable, Table

    from tavelin._tables import FromTable, from_table, table, tables

__all__ = [
    "ElementSet",
    "FormatError",
    "FromTable",
    "Mark",
    "Result",
    "Series",
    "Task",
    "TavelinError",
    "Track",
    "__version__",
    "check",
    "convert",
    "diff",
    "explain",
    "format_of",
    "from_table",
    "info",
    "lint",
    "load_task",
    "normalise",
    "numerics",
    "read",
    "read_elements",
    "read_horizons",
    "read_mea",
    "read_mpc",
    "read_ssmas",
    "read_tdm",
    "read_tdm_xml",
    "read_telegram",
    "read_track_table",
    "ready",
    "report",
    "series",
    "sources",
    "table",
    "tables",
    "texts",
    "write",
    "write_aavso",
    "write_elements",
    "write_light_curve",
    "write_mea",
    "write_mpc",
    "write_ssmas",
    "write_tdm",
    "write_tdm_xml",
    "write_telegram",
    "write_track_table",
]


def _table(self: Track, columns: Sequence[str] | None = None) -> QTable:
    """The marks as an astropy table, as tavelin.table() makes it."""
    from tavelin import _tables

    return _tables.table(self, columns)


def _from_table(rows: Table) -> FromTable:
    """Tracks of a table, as tavelin.from_table() makes them, and what the table lacks."""
    from tavelin import _tables

    return _tables.from_table(rows)


# The class is one of the extension, which knows nothing of astropy.
setattr(Track, "table", _table)
setattr(Track, "from_table", staticmethod(_from_table))

_pickling.enable()

_OF_TABLES = ("FromTable", "from_table", "table", "tables")


def __getattr__(name: str) -> Any:
    # astropy takes most of a second to import: only those who make tables wait for it.
    if name in _OF_TABLES:
        from tavelin import _tables

        return getattr(_tables, name)
    raise AttributeError(f"module 'tavelin' has no attribute {name!r}")
