#!/usr/bin/env python3
"""What runs leave where calls of the system fail, memory lacks, a process is killed, a disk is full.

faults_test.py WORK VOMAR TAVELIN PROJECT FAULT_DRIVER FAULT_SHIM [--every]

WORK is one of calls, memory, room, kills, signals, sizes, disk and descriptors. Five scenarios are run: a conversion of
MEA to an MPC report, one of TDM to XML, a report by object, `tavelin run` and `tavelin ready`. Each disturbed run ends
in time and without a signal but that of an exception which nothing catches; inputs stay as they were, a file is the old
one, empty or whole, and `tavelin` never says good where marks are missing. Without --every a part of the numbers is
tried. Prints the runs of each scenario and what is wrong; ends with 1 where anything is, with 77 where the system does
not let the faults be made."""

import errno
import os
import pathlib
import re
import resource
import signal
import struct
import subprocess
import sys
import tempfile
from dataclasses import dataclass

from scenarios import (
    End,
    Stage,
    before_of,
    changed_inputs,
    faults_of,
    is_whole,
    lacks_outputs,
    learn,
    outputs_of,
    says_good,
    scenarios,
    signal_faults,
    without_dates,
)

SKIPPED = 77
# Inputs of more than one piece of reading, with outputs of less than one of writing; and of some pages of a disk.
MANY, FEW = 5000, 100
ERRORS = {
    "open": (errno.EMFILE, errno.EACCES, errno.EIO),
    "read": (errno.EIO,),
    "write": (errno.ENOSPC, errno.EIO),
    "close": (errno.EIO, errno.ENOSPC),
    "stat": (errno.EIO, errno.EACCES),
    "readdir": (errno.EIO,),
}


class Skipped(Exception):
    pass


def some_of(count, most, every):
    """The numbers from 1 to the count, or as many of them as are tried, evenly and with both ends."""
    if every or count <= most:
        return range(1, count + 1)
    return sorted({round(1 + step * (count - 1) / (most - 1)) for step in range(most)})


@dataclass
class Run:
    """A disturbed run: what was done to it, how it ended, and what of that is wrong."""

    what: str
    end: End
    faults: list

    def told(self):
        text = self.end.err.decode(errors="replace").strip()[:300]
        how = f"[status {self.end.status}, signal {self.end.signal}: {text}]"
        return [f"{self.what}: {fault} {how}" for fault in self.faults]


def driven(stage, scenario, *order):
    end = stage.drive(before_of(scenario), scenario.command, *order)
    if end is None:
        raise Skipped("no process can be traced here")
    return end


def failing_calls(stage, scenario, every):
    """A call of a kind fails once, or from then on."""
    for kind, errors in ERRORS.items():
        count = driven(stage, scenario, kind, 0).calls
        for error in errors if every else errors[:1]:
            for mode in ("once", "on"):
                for number in some_of(count, 8, every):
                    end = driven(stage, scenario, kind, number, mode, error)
                    what = f"{kind} {number} of {count} {mode}, {errno.errorcode[error]}"
                    yield Run(what, end, faults_of(scenario, end, is_strict=kind == "read"))


def failing_memory(stage, scenario, every):
    """A request for memory fails once, or all from then on."""
    counter = stage.folder / "tmp/counter"

    def run(call, number, mode):
        counter.write_bytes(bytes(8))
        stage.give(counter)
        settings = {
            "LD_PRELOAD": str(stage.folder / "bin/fault_shim.so"),
            "FAULT_CALL": call,
            "FAULT_AT": str(number),
            "FAULT_COUNTER": str(counter),
            **({"FAULT_ON": "1"} if mode == "on" else {}),
        }
        end = stage.run(before_of(scenario), scenario.command, settings)
        return end, struct.unpack("=Q", counter.read_bytes())[0]

    for call in ("malloc", "realloc"):
        count = run(call, 0, "once")[1]
        for mode in ("once", "on"):
            for number in some_of(count, 30, every):
                end = run(call, number, mode)[0]
                yield Run(f"{call} {number} of {count} {mode}", end, faults_of(scenario, end))


def kill_faults(scenario, end, number):
    """A kill leaves a part beside a file that is not whole yet, since nobody can take it away; other signals none. What
    is ended ends its children."""
    if number == signal.SIGKILL:
        end.files = {path: content for path, content in end.files.items() if not path.endswith(".part")}
    return faults_of(scenario, end, allowed=(number, signal.SIGTERM))


def signalled(stage, scenario, kind, number, numbers):
    count = driven(stage, scenario, kind, 0).calls
    for at in numbers(count):
        end = driven(stage, scenario, kind, at, "once", -number)
        yield Run(f"{number.name} at {kind} {at} of {count}", end, kill_faults(scenario, end, number))


def kills(stage, scenario, every):
    """The process is killed before the call."""
    kind = "every" if every else "change"
    yield from signalled(stage, scenario, kind, signal.SIGKILL, lambda count: range(1, count + 1))


def signals(stage, scenario, every):
    """A signal of a terminal or of a time limit comes at the call."""
    for number in (signal.SIGHUP, signal.SIGINT, signal.SIGTERM):
        yield from signalled(stage, scenario, "change", number, lambda count: some_of(count, 8, every))


def is_front(scenario, content):
    """Whether a file that was not cut begins so; a date may be cut too."""
    front = re.sub(rb"<Date>[^<]*(<[^>]*)?$", b"<Date", without_dates(content))
    return any(whole.startswith(front) for whole in scenario.variants)


def is_said(scenario, end, path):
    """Whether a file that is cut is reported: by the command always, by the tool where its format reports it."""
    return end.status > 0 if scenario.of_tavelin() else end.signal == signal.SIGABRT or path in scenario.silent


def full_disk_faults(scenario, end):
    """What does not fit is cut, and that is reported."""
    if end.hangs:
        return ["hangs"]
    faults = signal_faults(end) + changed_inputs(scenario, end)
    for path, content in outputs_of(scenario, end).items():
        if not is_whole(path, content, scenario.variants):
            faults += [] if is_said(scenario, end, path) else [f"{path} is cut, and nothing says so"]
            faults += [] if is_front(scenario, content) else [f"{path} holds what no run writes"]
    if scenario.of_tavelin() and says_good(end) and lacks_outputs(scenario, end):
        faults.append("says good although not all is written")
    return faults


def limited(what, most):
    return lambda: resource.setrlimit(what, (most, most))


def file_sizes(stage, scenario, every):
    """No file may grow beyond a count of bytes."""
    most = max(len(content) for content in scenario.expected.values())
    for number in some_of(most + 2, 40, every):
        end = stage.run(before_of(scenario), scenario.command, before=limited(resource.RLIMIT_FSIZE, number - 1))
        yield Run(f"files of at most {number - 1} bytes", end, full_disk_faults(scenario, end))


def full_disks(stage, scenario, _):
    """The folder of the outputs is a file system of so many pages."""
    page = resource.getpagesize()
    pages = sum(-(-len(content) // page) for content in scenario.expected.values()) + len(scenario.expected) + 1
    out = stage.folder / "out"
    for count in range(1, pages + 1):
        stage.put({})
        if subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={count * page}", "tmpfs", out], check=False).returncode:
            raise Skipped("no file system can be mounted here")
        try:
            end = stage.run(dict(scenario.files), scenario.command)
            stage.put({})
        finally:
            subprocess.run(["umount", out], check=True)
        yield Run(f"a disk of {count} pages", end, full_disk_faults(scenario, end))


def few_descriptors(stage, scenario, _):
    """So many files may be open."""
    for count in range(3, 33):
        end = stage.run(before_of(scenario), scenario.command, before=limited(resource.RLIMIT_NOFILE, count))
        yield Run(f"{count} descriptors", end, faults_of(scenario, end))


def least_number(fits, high):
    """The least number that fits, up to one that does."""
    low = 0
    while low + 1 < high:
        middle = (low + high) // 2
        low, high = (low, middle) if fits(middle) else (middle, high)
    return high


def little_room(stage, scenario, every):
    """So many pages of addresses may be in use, from what lets the program start to what it needs."""

    def run(files, command, pages):
        most = pages * resource.getpagesize()
        return stage.run(files, command, before=limited(resource.RLIMIT_AS, most))

    # A task that is not there, and the version: either program does nothing then.
    idle = [scenario.command[0], "--version" if scenario.of_tavelin() else "missing.xml"]
    files = before_of(scenario)
    least = least_number(lambda pages: run({}, idle, pages).status == 0, 1 << 20)
    enough = least_number(lambda pages: not lacks_outputs(scenario, run(files, scenario.command, pages)), 1 << 20)
    for number in some_of(enough - least + 2, 30, every):
        pages = least + number - 1
        end = run(files, scenario.command, pages)
        yield Run(f"{pages} pages of {enough}", end, faults_of(scenario, end))


# Each with the marks of the inputs of vomar and of tavelin, which asks for memory for each mark.
WORKS = {
    "calls": (failing_calls, MANY, MANY),
    "memory": (failing_memory, MANY, FEW),
    "room": (little_room, MANY, MANY),
    "kills": (kills, MANY, MANY),
    "signals": (signals, MANY, MANY),
    "sizes": (file_sizes, FEW, FEW),
    "disk": (full_disks, FEW, FEW),
    "descriptors": (few_descriptors, FEW, FEW),
}


def in_own_mounts():
    """Starts this program again where it may mount file systems that nobody else sees."""
    if os.environ.get("FAULTS_OWN_MOUNTS") is not None:
        return
    start = ["unshare", "--map-root-user", "--mount"]
    if subprocess.run([*start, "true"], stderr=subprocess.DEVNULL, check=False).returncode != 0:
        raise Skipped("no name space of mounts can be made here")
    os.execvpe(start[0], [*start, sys.executable, *sys.argv], {**os.environ, "FAULTS_OWN_MOUNTS": "1"})


def try_scenario(stage, scenario, work, every):
    """Tells what was done, and how many faults there were; faults that change nothing are one too."""
    learn(stage, scenario)
    runs, changed, faults = 0, 0, []
    for run in work(stage, scenario, every):
        runs += 1
        changed += run.end.status != 0 or run.end.signal != 0 or lacks_outputs(scenario, run.end)
        faults += run.told()
    if changed == 0:
        faults.append("no run was disturbed")
    totals = f"{scenario.name}: {runs} runs, {changed} disturbed, {len(faults)} faults"
    print("\n".join([*faults[:40], totals]), flush=True)
    return len(faults)


def main():
    name, vomar, tavelin, project, driver, shim = sys.argv[1:7]
    work, *marks = WORKS[name]
    programs = {"vomar": vomar, "tavelin": tavelin, "fault_driver": driver, "fault_shim.so": shim}
    try:
        if name == "disk":
            in_own_mounts()
        with tempfile.TemporaryDirectory() as folder:
            stage = Stage(folder, programs, drops_rights=name != "disk")
            every = "--every" in sys.argv[7:]
            count = sum(try_scenario(stage, each, work, every) for each in scenarios(pathlib.Path(project), *marks))
    except Skipped as skipped:
        print(f"Skipped: {skipped}")
        return SKIPPED
    return 1 if count else 0


if __name__ == "__main__":
    sys.exit(main())
