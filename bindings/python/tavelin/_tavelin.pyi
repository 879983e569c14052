"""The library below the package tavelin."""

import os
from collections.abc import Iterable, Iterator, Sequence
from typing import Any, Mapping

import numpy as np
from astropy.table import QTable, Table
from numpy.typing import ArrayLike, NDArray

from tavelin._tables import FromTable

version: str

class Track:
    """The track of one object: its head and its marks."""

    QRVName: str
    NORAD: str
    MPCChecker: str
    HeadText1: str
    HeadText2: str
    HeadText3: str
    telescope: str
    originator: str
    REFERENCE_FRAME: str
    Series: str
    HeadValue1: float
    HeadValue2: float
    HeadValue3: float
    X0: float
    Y0: float
    Vx: float
    Vy: float
    HeadValue4: float
    HeadValue5: float
    HeadValue6: float
    HeadValue7: float
    HeadValue8: float
    V_ra: float
    V_de: float
    V: float
    HeadValue9: float
    DispX: float
    DispY: float
    DispXY: float
    HeadValue10: float
    HeadValue11: float
    LymX: float
    LymY: float
    LymXY: float
    m_m: float
    m_rms: float
    PA: float
    HeadValue12: float
    Angle_rms: float
    Length_rms: float
    HeadValue13: float
    HeadValue14: float
    HeadValue15: float
    HeadValue16: float
    HeadValue17: float
    HeadValue18: float
    HeadValue19: float
    HeadValue20: float
    HeadValue21: float
    HeadValue22: float
    HeadValue23: float
    HeadValue24: float
    FindOrb: float
    N: int
    NMarks: int
    TrMade: int
    HeadInt: int
    ObsCode: str
    SourceFile: str
    ResidFile: str
    marks: NDArray[np.void]
    InterBlobs: NDArray[np.void]
    @property
    def MPCHeader(self) -> dict[str, str]: ...
    @MPCHeader.setter
    def MPCHeader(self, arg1: Mapping[str, str]) -> None: ...
    @property
    def ResidFirst(self) -> dict[str, float | list[float]]: ...
    @ResidFirst.setter
    def ResidFirst(self, arg1: Mapping[str, float | list[float]]) -> None: ...
    @property
    def ResidSecond(self) -> dict[str, float | list[float]]: ...
    @ResidSecond.setter
    def ResidSecond(self, arg1: Mapping[str, float | list[float]]) -> None: ...
    @property
    def Candidates(self) -> list[str]: ...
    @Candidates.setter
    def Candidates(self, arg1: Iterable[str]) -> None: ...
    @property
    def Cast(self) -> list[str]: ...
    @Cast.setter
    def Cast(self, arg1: Iterable[str]) -> None: ...
    def __init__(self) -> None: ...
    def __len__(self) -> int: ...
    def __copy__(self) -> Track: ...
    def __deepcopy__(self, memo: dict[Any, Any]) -> Track: ...
    def copy(self) -> Track: ...
    def mark(self, index: int) -> Mark: ...
    def texts(self, name: str) -> list[str]: ...
    def set_texts(self, name: str, texts: Iterable[str]) -> None: ...
    def resize(self, count: int) -> None: ...
    def table(self, columns: Sequence[str] | None = None) -> QTable: ...
    @staticmethod
    def from_table(rows: Table) -> FromTable: ...

class Mark:
    """A mark of a track: one measurement on one frame."""

    def __init__(self, *args: Any, **kwargs: Any) -> None: ...
    BlobCode: int
    X_bf: float
    Y_bf: float
    X_f: float
    Y_f: float
    AuxInt1: int
    AuxInt2: int
    TypeBlob: int
    AuxFlag: bool
    AuxInt3: int
    iFRaw: int
    iF: int
    AuxInt4: int
    iB: int
    AuxInt5: int
    LinkIndex: int
    SNRafit: float
    SNRasegm: float
    SNRpeak: float
    FWHM: float
    SigFit: float
    RMSFit: float
    SNcorrnotnorm: float
    corrnorm: float
    Exc: float
    Angle: float
    Length: float
    Width: float
    Radius: float
    A: float
    Asegm: float
    Astrob: float
    mInstr: float
    mInstr1000: float
    date: int
    time: float
    bjd: int
    time_bjd: float
    RA: float
    DE: float
    AuxValue: float
    m: float
    RefValue1: float
    RefValue2: float
    RefValue3: float
    RefValue4: float
    RefValue5: float
    RefValue6: float
    RefValue7: float
    RefValue8: float
    RefValue9: float
    Tag1: int
    Tag2: int
    Tag3: int
    Tag4: int
    Spare1: float
    mEnsemble: float
    Spare2: float
    Spare3: float
    mInstrComp: float
    Spare4: float
    Spare5: float
    SpareTail: float
    filtr: str
    mjd: str
    QRVID: str
    SpareText: str
    KNAME: str
    MTYPE: str
    CNAME: str
    CHART: str

class TrackStream(Iterator[Track]):
    """The tracks of a file, one after the other."""

    def __init__(self, format: str, path: str | os.PathLike[str], originator: str, reuse: bool) -> None: ...
    def __iter__(self) -> TrackStream: ...
    def __next__(self) -> Track: ...
    def __length_hint__(self) -> int: ...

class Series:
    """One series of a report."""

    path: str
    filter: str
    telescope: str
    excludes: list[tuple[int, list[int]]]
    def __init__(self) -> None: ...

class Task:
    """What one run of the tool is to do."""

    autoname: bool
    longname: bool
    autoTelescope: bool
    object: int
    interval: float
    path_in: str
    out_dir: str
    outputextension: str
    inputformat: str
    outputformat: str
    originator: str
    path_res: str
    REFERENCE_FRAME: str
    PARTICIPANT_1: str
    whatSave: str
    toSeparateFile: str
    paths: list[Series]
    def __init__(self) -> None: ...

class Result:
    """How a work ended."""

    def __init__(self, *args: Any, **kwargs: Any) -> None: ...
    @property
    def code(self) -> int: ...
    @property
    def comment(self) -> str: ...
    @property
    def description(self) -> str: ...

def mark_numbers() -> list[tuple[str, str, str]]: ...
def mark_texts() -> list[tuple[str, str]]: ...
def head_fields() -> list[tuple[str, str]]: ...
def write_tracks(path: str | os.PathLike[str], tracks: Iterable[Track], format: str) -> None: ...
def recognise(path: str | os.PathLike[str]) -> tuple[str, int]: ...
def format_of_suffix(path: str | os.PathLike[str]) -> str | None: ...
def read_elements(path: str | os.PathLike[str]) -> list[tuple[str, str, str]]: ...
def write_elements(path: str | os.PathLike[str], sets: Sequence[Sequence[str]]) -> None: ...
def read_formats() -> list[str]: ...
def load_task(path: str | os.PathLike[str]) -> Task: ...
def convert(task: Task) -> Result: ...
def report(task: Task) -> Result: ...
def command(arguments: Sequence[str | os.PathLike[str]]) -> tuple[int, str, str]: ...
def masked_mean(values: ArrayLike, mask: ArrayLike) -> tuple[float, int]: ...
def masked_deviation(values: ArrayLike, mask: ArrayLike, mean: float) -> tuple[float, int]: ...
def blank(values: ArrayLike, mask: NDArray[np.bool_], lower: float, upper: float) -> None: ...
def clipped_mean(values: ArrayLike, iterations: int, k: float, eps: float) -> tuple[float, float]: ...
def median(values: ArrayLike) -> float: ...
def lower_median(values: ArrayLike) -> float: ...
def histogram(values: ArrayLike, bins: int) -> tuple[NDArray[np.float64], NDArray[np.float64], NDArray[np.int32]]: ...
def peak_histogram(
    values: ArrayLike, bins: int, iterations: int
) -> tuple[NDArray[np.float64], NDArray[np.float64], NDArray[np.int32]]: ...
def sort_in_place(keys: NDArray[np.float64], descending: bool) -> NDArray[np.uint64]: ...
def ra_text(degrees: float, decimals: int, separator: str, seconds: bool) -> str: ...
def de_text(degrees: float, decimals: int, separator: str, seconds: bool) -> str: ...
def time_text(day: float, decimals: int, separator: str) -> str: ...
def date_text(mjd: float, separator: str) -> str: ...
def moment_text(mjd: float, decimals: int) -> str: ...
def fixed_text(value: float, decimals: int) -> str: ...
def short_text(value: float) -> str: ...
def ra_degrees(text: str) -> float: ...
def de_degrees(text: str) -> float: ...
def packed_ra(text: str) -> float: ...
def packed_de(text: str) -> float: ...
def date_mjd(text: str, separator: str) -> int: ...
def time_day(text: str, separator: str) -> float: ...
def night_text(mjd: float, offset_hours: float, separator: str) -> str: ...
