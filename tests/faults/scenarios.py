"""The runs that the tests of faults disturb, and what such a run may leave."""

import itertools
import os
import pathlib
import re
import shutil
import signal
import subprocess
from dataclasses import dataclass, field

SECONDS = 60  # after which a run counts as one that hangs
NOBODY = 65534
OLD = b"old\n"
OLD_RESULT = b"""<?xml version="1.0" ?>
<ResultsList>
    <Result>
        <Code>0</Code>
        <Comment>OK</Comment>
        <Description>old</Description>
        <Date>2000-01-01 00:00:00.000</Date>
    </Result>
</ResultsList>
"""
RESULT = "out/result.xml"
CONVERSION = """<task>
    <path_in>./{path}</path_in>
    <out_dir>out</out_dir>
    <outputextension>{extension}</outputextension>
    <inputformat>{source}</inputformat>
    <outputformat>{target}</outputformat>
    <originator>MPC</originator>
    <REFERENCE_FRAME>ICRF</REFERENCE_FRAME>
    <PARTICIPANT_1>K88</PARTICIPANT_1>
    <autoname>false</autoname>
    <path_res>out/result.xml</path_res>
</task>
"""
PROFILE = """{"schema": "tavelin.profile/1", "station": "K88", "contact": "A. B. Sender", "email": "a@example.org",
 "observers": ["A. B. Sender"], "measurers": ["C. Reader"],
 "telescope": {"design": "reflector", "aperture": 0.6, "fRatio": 4, "detector": "CCD"},
 "astrometricCatalogue": "Gaia3"}
"""
WHOLE_RESULT = re.compile(rb'<\?xml version="1.0" \?>\n<ResultsList>.*</ResultsList>\n', re.DOTALL)
WHOLE_LOG = re.compile(rb"([0-9-]+ [0-9:.]+ Code=-?[0-9]+//[^\n]*\n)*")
BROKEN_MEMORY = re.compile(rb"free\(\)|malloc\(\)|corrupt|stack smashing|Assertion|buffer overflow")


def night(marks):
    lines = ["K88 2000.0 UTC"]
    for mark in range(marks):
        hour, minute, second = mark // 1800 % 24, mark // 30 % 60, mark % 30
        lines.append(f"K24B01X 200124 {hour:02}{minute:02}{second:02}0000 0746286600 +4523283000 001 18.00")
    return "\n".join(lines) + "\n"


def message(marks):
    head = "CCSDS_TDM_VERS = 2.0\nCREATION_DATE = 2012-10-30T20:00:00\nORIGINATOR = ESA\n"
    meta = "META_START\nTIME_SYSTEM = UTC\nPARTICIPANT_1 = K88\nPARTICIPANT_2 = A1\nMETA_STOP\nDATA_START\n"
    times = (f"2012-10-29T{mark // 3600:02}:{mark // 60 % 60:02}:{mark % 60:02}.02" for mark in range(marks))
    data = (f"ANGLE_1 = {time} 332.2298750\nANGLE_2 = {time} -16.3028389\nMAG = {time} 12.1\n" for time in times)
    return head + meta + "".join(data) + "DATA_STOP\n"


def series(project, repeats):
    """The report by object of the examples with its tables, in which each mark comes so often."""
    files = {"task.xml": (project / "examples/report_eachobject.xml").read_bytes()}
    for path in (project / "examples/series").rglob("*"):
        if path.is_file():
            lines = path.read_bytes().splitlines(keepends=True)
            is_table = path.suffix == ".txt"
            longer = lines[:2] + [line for line in lines[2:] for _ in range(repeats)] if is_table else lines
            files[str(path.relative_to(project / "examples"))] = b"".join(longer)
    return files


@dataclass
class Scenario:
    """Files, and a command that makes others of them."""

    name: str
    files: dict
    command: list
    outputs: list  # whose old files stand there
    silent: tuple = ()  # of these what cannot be written is not reported
    expected: dict = field(default_factory=dict)  # what a run without faults leaves
    variants: set = field(default_factory=set)  # contents that a run leaves where files are missing or empty

    def of_tavelin(self):
        return self.command[0].endswith("tavelin")


def scenarios(project, marks, marks_of_tavelin):
    """In the five of them inputs have as many marks, or some more."""
    conversion = CONVERSION.format(path="night.mea", extension=".txt", source="mea", target="mpc")
    to_xml = CONVERSION.format(path="night.tdm", extension=".xml", source="tdm", target="tdm.xml")
    mea, run = (
        {"task.xml": conversion.encode(), "night.mea": night(count).encode()} for count in (marks, marks_of_tavelin)
    )
    tdm = {"task.xml": to_xml.encode(), "night.tdm": message(2 * marks // 5).encode()}
    ready = {"night.mea": night(marks_of_tavelin).encode(), "profile.json": PROFILE.encode()}
    report = series(project, marks // 70 + 1)
    return [
        Scenario("mea to mpc", mea, ["bin/vomar", "task.xml"], ["out/night.txt", RESULT], (RESULT,)),
        Scenario("tdm to xml", tdm, ["bin/vomar", "task.xml"], ["out/night.xml", RESULT], ("out/night.xml", RESULT)),
        Scenario("report by object", report, ["bin/vomar", "task.xml"], [RESULT], (RESULT,)),
        Scenario("tavelin run", run, ["bin/tavelin", "run", "task.xml"], ["out/night.txt", RESULT]),
        Scenario(
            "tavelin ready",
            ready,
            "bin/tavelin ready night.mea --for mpc --profile profile.json --band V --force -o out/night.txt".split(),
            ["out/night.txt"],
        ),
    ]


def without_dates(content):
    return re.sub(rb"<Date>[^<]*</Date>", b"<Date/>", content)


@dataclass
class End:
    """How a run ended, and the files that it left."""

    status: int = -1
    signal: int = 0
    calls: int = 0
    others: list = field(default_factory=list)  # signals that ended processes below the program
    out: bytes = b""
    err: bytes = b""
    hangs: bool = False
    files: dict = field(default_factory=dict)


class Stage:
    """A folder with copies of the programs, in which scenarios are run."""

    def __init__(self, folder, programs, drops_rights=True):
        self.folder = pathlib.Path(folder)
        (self.folder / "bin").mkdir()
        for name, path in programs.items():
            shutil.copy2(path, self.folder / "bin" / name)
        # As root a report without its folder would go to the root of the machine.
        self.user = NOBODY if drops_rights and os.geteuid() == 0 else None
        self.standing = {}
        self.prepare_folders()

    def prepare_folders(self):
        for path in (self.folder, self.folder / "out", self.folder / "tmp", self.folder / "bin"):
            path.mkdir(exist_ok=True)
            self.give(path)

    def give(self, path):
        if self.user is not None:
            os.chown(path, self.user, self.user)

    def put(self, files):
        """Makes the files the only ones. Those that are there already stay."""
        for name in self.standing.keys() - files.keys():
            (self.folder / name).unlink()
        for name, content in files.items():
            if self.standing.get(name) != content:
                path = self.folder / name
                path.parent.mkdir(parents=True, exist_ok=True)
                path.unlink(missing_ok=True)
                path.write_bytes(content)
                self.give(path)
        self.standing = dict(files)

    def look(self):
        found = {}
        for folder, _, names in os.walk(self.folder):
            place = os.path.relpath(folder, self.folder)
            for name in names:
                path = os.path.normpath(os.path.join(place, name))
                if not path.startswith("tmp/") and (not path.startswith("bin/") or path.endswith(".log")):
                    found[path] = (self.folder / path).read_bytes()
        return found

    def run(self, files, command, environment=None, before=None):
        self.put(files)
        end = End()
        call = [str(self.folder / command[0]), *command[1:]]
        surroundings = {"PATH": os.environ["PATH"], "TMPDIR": str(self.folder / "tmp"), **(environment or {})}
        options = {} if self.user is None else {"user": self.user, "group": self.user, "extra_groups": []}
        with subprocess.Popen(
            call,
            cwd=self.folder,
            env=surroundings,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            preexec_fn=before,
            restore_signals=False,
            **options,
        ) as process:
            try:
                end.out, end.err = process.communicate(timeout=SECONDS)
            except subprocess.TimeoutExpired:
                process.kill()
                end.hangs = True
        end.status, end.signal = max(process.returncode, -1), max(-process.returncode, 0)
        end.files = self.look()
        self.standing = dict(end.files)
        return end

    def drive(self, files, command, kind, number, mode="once", error="0"):
        """Runs under the driver; an error below 0 is a signal."""
        report = self.folder / "tmp/report"
        driver = ["bin/fault_driver", "tmp/report", kind, str(number), mode, str(error)]
        end = self.run(files, [*driver, str(self.folder / command[0]), *command[1:]])
        if end.status == 77:
            return None
        words = [int(word) for word in report.read_text(encoding="ascii").split()] if not end.hangs else [0, -1, 0]
        end.calls, end.status, end.signal, end.others = words[0], words[1], words[2], words[3:]
        return end


def before_of(scenario):
    old = {path: OLD_RESULT if path == RESULT else OLD for path in scenario.outputs}
    return {**scenario.files, **old}


def learn(stage, scenario):
    """Runs without faults, then with each file missing or empty in turn and together."""
    before = before_of(scenario)
    end = stage.run(before, scenario.command)
    scenario.expected = {
        path: without_dates(content) for path, content in end.files.items() if content != before.get(path)
    }
    if end.status != 0 or not set(scenario.outputs) <= scenario.expected.keys():
        raise RuntimeError(f"{scenario.name} does not run: {end.out + end.err}")
    inputs = [path for path in scenario.files if path != "task.xml"]
    for states in itertools.product(("whole", "missing", "empty"), repeat=len(inputs)):
        files = before_of(scenario)
        for path, state in zip(inputs, states):
            if state != "whole":
                del files[path]
            if state == "empty":
                files[path] = b""
        left = stage.run(files, scenario.command).files
        scenario.variants |= {without_dates(content) for path, content in left.items() if path not in scenario.files}


def is_whole(path, content, whole):
    """Whether no file is torn: it is the old one, or one that some run leaves at its end."""
    if content in (OLD, OLD_RESULT, b"") or without_dates(content) in whole:
        return True
    form = WHOLE_RESULT if path.endswith(".xml") else WHOLE_LOG
    return path.endswith((".log", "result.xml")) and form.fullmatch(content) is not None


def outputs_of(scenario, end):
    return {path: content for path, content in end.files.items() if path not in scenario.files}


def torn(scenario, end, whole):
    outputs = outputs_of(scenario, end).items()
    return [path for path, content in outputs if not is_whole(path, content, whole)]


def says_code_0(end):
    result = end.files.get(RESULT, b"")
    return result != OLD_RESULT and b"<Code>0</Code>" in result


def lacks_outputs(scenario, end):
    left = {without_dates(content) for content in outputs_of(scenario, end).values()}
    return any(content not in left for path, content in scenario.expected.items() if path != RESULT)


def lines_in(content):
    return content.count(b"\n")


def lacks_marks(scenario, end):
    """Whether no file holds as many lines as one of the expected: a mark is a line."""
    found = {lines_in(content) for content in outputs_of(scenario, end).values()}
    return any(lines_in(content) not in found for path, content in scenario.expected.items() if path != RESULT)


def says_good(end):
    return end.status == 0 or b": good: " in end.out


def changed_inputs(scenario, end):
    return [f"{path} is changed" for path, content in scenario.files.items() if end.files.get(path) != content]


def signal_faults(end, allowed=()):
    names = [f"signal {each}" for each in end.others if each not in (signal.SIGABRT, signal.SIGKILL, *allowed)]
    if end.signal not in (0, signal.SIGABRT, *allowed):
        names.append(f"ended by signal {end.signal}")
    # A message that cannot be written is missing, but no other stands there.
    if end.signal == signal.SIGABRT and end.err and b"terminate called" not in end.err:
        names.append("ended by SIGABRT, and not for an exception")
    if BROKEN_MEMORY.search(end.err) or BROKEN_MEMORY.search(end.out):
        names.append("the C library found the memory broken")
    return names


def faults_of(scenario, end, is_strict=False, allowed=()):
    """What the end of a disturbed run must not show. A file that cannot be opened counts as missing, so that what a run
    leaves without it is right; strictly, a run leaves the old file, or that of a run without faults, and says nothing
    else of it."""
    if end.hangs:
        return ["hangs"]
    whole = set(scenario.expected.values()) if is_strict else scenario.variants
    faults = signal_faults(end, allowed) + changed_inputs(scenario, end)
    faults += [f"{path} is torn: {len(end.files[path])} bytes" for path in torn(scenario, end, whole)]
    if is_strict and says_code_0(end) and lacks_outputs(scenario, end):
        faults.append("its result is code 0 although outputs are missing")
    if scenario.of_tavelin() and says_good(end) and lacks_marks(scenario, end):
        faults.append(f"says good where marks are missing: {end.out.decode(errors='replace')!r}")
    return faults
