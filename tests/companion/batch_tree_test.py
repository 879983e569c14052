#!/usr/bin/env python3
"""A batch that is killed at random moments and started again leaves the tree of one that was not broken.

batch_tree_test.py TAVELIN VOMAR PROJECT [NIGHTS [KILLS [SEED]]]: makes an archive, runs a batch over it without a break, then
kills a batch over a copy at random moments, starts it again and compares all files: receipts less their times and
seconds, results less their dates. Plan and receipts are held against their schemas. Prints what was done; ends with 1
where anything differs."""

import json
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time

import jsonschema

MARKS = 30
TEMPLATE = """<task>
    <path_in>{path}</path_in>
    <out_dir>reports/{night}</out_dir>
    <outputextension>.mpc.txt</outputextension>
    <inputformat>mea</inputformat>
    <outputformat>mpc</outputformat>
    <originator>MPC</originator>
    <REFERENCE_FRAME>ICRF</REFERENCE_FRAME>
    <PARTICIPANT_1>{scope}</PARTICIPANT_1>
    <autoname>false</autoname>
    <path_res>reports/{night}/{stem}.result.xml</path_res>
</task>
"""


def make_archive(folder, nights):
    (folder / "t.xml").write_text(TEMPLATE, encoding="ascii")
    for night in range(nights):
        path = folder / f"archive/n{night:05}"
        path.mkdir(parents=True)
        lines = ["K88 2000.0 UTC"]
        for mark in range(MARKS):
            lines.append(f"K24B{night % 90 + 10:02}X 200124 21{mark:02}{night % 60:02}0000 0746286600 +4523283000 001 18.00")
        (path / "K88_night.mea").write_text("\n".join(lines) + "\n", encoding="ascii")


def command(tavelin, vomar, *options):
    pattern = "archive/{night}/{scope}_*.mea"
    return [tavelin, "batch", "t.xml", "--over", pattern, "--into", "work", "-j2", "--vomar", vomar, *options]


def without_times(value):
    if isinstance(value, dict):
        return {key: without_times(each) for key, each in value.items() if key not in ("time", "began", "seconds")}
    if isinstance(value, list):
        return [without_times(each) for each in value]
    return value


def content(path):
    if path.suffix == ".json" and path.parent.name == "receipts":
        return without_times(json.loads(path.read_bytes()))
    if path.name.endswith(".result.xml"):
        return re.sub(rb"<Date>[^<]*</Date>", b"<Date/>", path.read_bytes())
    return path.read_bytes()


def tree(folder):
    return {str(path.relative_to(folder)): content(path) for path in sorted(folder.rglob("*")) if path.is_file()}


def members(one, other):
    """Those of a receipt that differ."""
    if not isinstance(one, dict):
        return ""
    return "".join(f"; {key}: {other.get(key)} for {one.get(key)}" for key in one if one.get(key) != other.get(key))


def differences(one, other):
    faults = [f"{name} is only in one tree" for name in one.keys() ^ other.keys()]
    differing = [name for name in one.keys() & other.keys() if one[name] != other[name]]
    return faults + [f"{name} differs{members(one[name], other[name])}" for name in differing]


def run(folder, *call):
    return subprocess.run(call, cwd=folder, stdout=subprocess.PIPE, text=True, check=False)


def schema_faults(project, folder):
    faults = []
    for name, paths in (("plan", [folder / "work/plan.json"]), ("receipt", (folder / "work/receipts").iterdir())):
        schema = json.loads((project / f"companion/schema/json/{name}.json").read_text(encoding="utf-8"))
        validator = jsonschema.Draft202012Validator(schema)
        for path in paths:
            for error in validator.iter_errors(json.loads(path.read_text(encoding="utf-8"))):
                faults.append(f"{path.name}: {error.json_path}: {error.message[:300]}")
    return faults


def kill_at(folder, call, moment):
    """Whether the call was still running at the moment, and so was killed."""
    with subprocess.Popen(call, cwd=folder, stdout=subprocess.DEVNULL) as process:
        try:
            process.wait(moment)
        except subprocess.TimeoutExpired:
            process.kill()
            return True
    return False


def copied(source, target):
    shutil.rmtree(target, ignore_errors=True)
    target.mkdir()
    shutil.copytree(source / "archive", target / "archive")
    shutil.copy2(source / "t.xml", target / "t.xml")


def main():
    tavelin, vomar, project = sys.argv[1], sys.argv[2], pathlib.Path(sys.argv[3])
    nights, kills, seed = (int(each) for each in [*sys.argv[4:], *("20", "20", "1")[len(sys.argv) - 4 :]])
    chance = random.Random(seed)
    with tempfile.TemporaryDirectory() as name:
        whole, broken = pathlib.Path(name, "whole"), pathlib.Path(name, "broken")
        os.environ["TMPDIR"] = name
        whole.mkdir()
        make_archive(whole, nights)
        start = time.monotonic()
        end = run(whole, *command(tavelin, vomar))
        seconds = time.monotonic() - start
        wanted = f"batch: {nights:,} tasks: {nights:,} good; {nights * MARKS:,} of {nights * MARKS:,} marks\n"
        faults = [] if end.stdout == wanted else [f"the unbroken run said: {end.stdout}"]
        faults += schema_faults(project, whole)
        expected = tree(whole)
        killed = tries = 0
        while killed < kills and tries < 5 * kills and not faults:
            tries += 1
            copied(whole, broken)
            if kill_at(broken, command(tavelin, vomar), chance.uniform(0, seconds)):
                killed += 1
                end = run(broken, *command(tavelin, vomar))
                faults += [] if end.returncode == 0 else [f"after a kill: {end.stdout}"]
                faults += differences(expected, tree(broken))
        summary = json.loads(run(broken, tavelin, "batch", "work", "--summary", "--json", "--vomar", vomar).stdout)
        if [(task["read"], task["found"]) for task in summary["tasks"]] != [(MARKS, MARKS)] * nights:
            faults.append("the summary has other marks")
        if killed < kills and not faults:
            faults.append(f"only {killed} runs were killed")
        print("\n".join([*faults[:20], f"{nights} nights in {seconds:.2f} s; killed {killed} times; seed {seed}"]))
    return 1 if faults else 0


sys.exit(main())
