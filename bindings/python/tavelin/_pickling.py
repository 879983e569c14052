"""Pickling: tracks on their way to other processes."""

from __future__ import annotations

import copyreg
from collections.abc import Callable
from typing import Any

from numpy.lib.recfunctions import repack_fields

from tavelin import _tavelin
from tavelin._tavelin import Track

_HEAD = [name for name, _ in _tavelin.head_fields()]
_TEXTS = [name for name, _ in _tavelin.mark_texts()]
_LISTS = ["MPCHeader", "ResidFirst", "ResidSecond", "InterBlobs", "Candidates", "Cast"]


def _texts_of(track: Track) -> dict[str, list[str]]:
    # Mostly all texts are those of new marks, which need not go along.
    new = Track()
    new.resize(1)
    texts = {name: track.texts(name) for name in _TEXTS}
    return {name: each for name, each in texts.items() if set(each) - set(new.texts(name))}


def _state_of(track: Track) -> dict[str, Any]:
    state = {name: getattr(track, name) for name in [*_HEAD, *_LISTS]}
    # The numbers alone: what is between them has a meaning in this process only.
    state["marks"] = repack_fields(track.marks)
    state["texts"] = _texts_of(track)
    return state


def _track_of(state: dict[str, Any]) -> Track:
    track = Track()
    for name in ["marks", *_HEAD, *_LISTS]:
        setattr(track, name, state[name])
    for name, texts in state["texts"].items():
        track.set_texts(name, texts)
    return track


def _reduced(track: Track) -> tuple[Callable[..., Track], tuple[Any, ...]]:
    return _track_of, (_state_of(track),)


def enable() -> None:
    """Lets tracks be pickled."""
    copyreg.pickle(Track, _reduced)
