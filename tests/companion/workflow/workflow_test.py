#!/usr/bin/env python3
"""The files for Snakemake, and the one-line forms for GNU parallel and Slurm, with real engines and 102 real nights.

workflow_test.py snakemake|slurm TAVELIN VOMAR WORKFLOW [full]: WORKFLOW is the folder of the Snakefile. The nights are
those of tests/fixtures, of which half have findings. Ends with 77 where an engine is not installed
(scripts/install_dependencies --workflow). Slurm runs on one node, its daemons in the foreground with a configuration of
the test's own; "full" also sends it an array with a job for each night."""

import contextlib
import getpass
import json
import os
import pathlib
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time

FIXTURES = pathlib.Path(__file__).resolve().parents[2] / "fixtures/mea_nights"
FILES = sorted(FIXTURES.glob("*.mea"))
NIGHTS = len(FILES)
MARKS = sum(len(path.read_text(encoding="ascii").splitlines()) - 1 for path in FILES)  # a line each, behind a head
PARTS = 8
ALLOWED = "--allow=V311,V313,V319"  # what stands in these nights
TEMPLATE = """<task>
    <path_in>{path}</path_in>
    <out_dir>reports/{night}</out_dir>
    <outputextension>.mpc.txt</outputextension>
    <inputformat>mea</inputformat>
    <outputformat>mpc</outputformat>
    <REFERENCE_FRAME>ICRF</REFERENCE_FRAME>
    <PARTICIPANT_1>{scope}</PARTICIPANT_1>
    <autoname>false</autoname>
    <path_res>reports/{night}/{stem}.result.xml</path_res>
</task>
"""


class Archive:
    """102 nights in a folder, with a command and a tool of their own."""

    def __init__(self, folder, tavelin, vomar):
        self.folder = folder
        (folder / "t.xml").write_text(TEMPLATE, encoding="ascii")
        for number, path in enumerate(FILES, 1):
            self.night(number).parent.mkdir(parents=True)
            shutil.copy(path, self.night(number))
        # On demand slower than the tool, so that there is a time to kill it in.
        self.script("vomar", f'[ ! -e {folder}/slow ] || sleep 0.1\nexec {vomar} "$1"\n')
        self.script("tavelin", f'exec {tavelin} "$@" --vomar {folder}/vomar\n')

    def night(self, number):
        """In the order of bytes, so that its task has the same number."""
        return self.folder / f"archive/n{number:03}" / FILES[number - 1].name

    def script(self, name, text):
        path = self.folder / name
        path.write_text("#!/bin/sh\n" + text, encoding="ascii")
        path.chmod(0o755)

    def call(self, *words, **options):
        return subprocess.run(words, cwd=self.folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              check=False, **options)

    def tavelin(self, *words):
        return self.call("./tavelin", "batch", *words)

    def make(self):
        """A new plan, and nothing of an earlier one."""
        for name in ("work", "reports", ".snakemake"):
            shutil.rmtree(self.folder / name, ignore_errors=True)
        end = self.tavelin("t.xml", "--over", "archive/{night}/{scope}_*.mea", "--into", "work", "--only-make")
        expect(end.returncode == 0, end.stdout)

    @contextlib.contextmanager
    def slow(self):
        (self.folder / "slow").touch()
        yield
        (self.folder / "slow").unlink()

    def receipts(self):
        return len(list((self.folder / "work/receipts").glob("*.json")))

    def part(self, number):
        """The totals of a part's last call."""
        return json.loads((self.folder / f"work/workflow/{number}-of-{PARTS}.json").read_text())["totals"]

    def expect_whole(self):
        end = self.tavelin("work", "--summary", ALLOWED)
        expect(end.stdout == f"batch: {NIGHTS} tasks: {NIGHTS} up to date; {MARKS:,} of {MARKS:,} marks\n", end.stdout)


def expect(statement, text):
    if not statement:
        raise SystemExit("failed: " + str(text))


def timed(title, function, *arguments):
    start = time.monotonic()
    end = function(*arguments)
    print(f"{time.monotonic() - start:7.1f} s  {title}", flush=True)
    return end


def need(*programs):
    for program in programs:
        if shutil.which(program) is None:
            print(f"skipped: {program} is not installed; scripts/install_dependencies --workflow installs it")
            sys.exit(77)


def snakemake_call(workflow, profile):
    return ["snakemake", "-s", f"{workflow}/Snakefile", "--profile", f"{profile}", "--config", "work=work",
            f"parts={PARTS}", f"tavelin=./tavelin {ALLOWED}"]


def kill_when(archive, call, receipts):
    """Starts a call and kills it, as a failure of the machine would, once so many nights are done."""
    with subprocess.Popen(call, cwd=archive.folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                          start_new_session=True) as process:
        while archive.receipts() < receipts and process.poll() is None:
            time.sleep(0.01)
        expect(process.poll() is None, "it ended before it was killed")
        os.killpg(process.pid, signal.SIGKILL)
    deadline = time.monotonic() + 30
    count = archive.receipts()
    while time.monotonic() < deadline:  # what it had started may end its night
        time.sleep(0.5)
        if archive.receipts() == count:
            break
        count = archive.receipts()


def on_this_machine(archive, workflow):
    call = snakemake_call(workflow, workflow / "profiles/local")
    archive.make()
    parallel = ["parallel", "-j2", "--joblog", "log", "--resume-failed", "./tavelin", "batch", "work", ALLOWED,
                "--part", f"{{}}/{PARTS}", ":::", *map(str, range(1, PARTS + 1))]
    end = timed(f"GNU parallel, {PARTS} parts", archive.call, *parallel)
    expect(end.returncode == 0, end.stdout)
    archive.expect_whole()

    archive.make()
    strict = [word.replace(f" {ALLOWED}", "") for word in call]
    end = timed("Snakemake, findings are not allowed", archive.call, *strict)
    expect(end.returncode == 1, end.stdout)
    log = (archive.folder / f"work/workflow/1-of-{PARTS}.log").read_text()
    expect(": findings: " in log and "[V311]" in log, log)
    receipts = archive.receipts()
    end = timed("Snakemake, the findings are allowed now", archive.call, *call)
    expect(end.returncode == 0 and archive.receipts() == receipts, end.stdout)
    expect(archive.part(1)["good"] == 0, archive.part(1))
    archive.expect_whole()

    archive.make()
    end = timed(f"Snakemake on this machine, {PARTS} parts", archive.call, *call)
    expect(end.returncode == 0, end.stdout)
    archive.expect_whole()
    end = timed("Snakemake, nothing to be done", archive.call, *call)
    expect(end.returncode == 0 and "Nothing to be done" in end.stdout, end.stdout)

    archive.make()
    with archive.slow():
        kill_when(archive, call, 24)
    night = archive.night(PARTS)  # of part 1
    night.rename(archive.folder / "kept.mea")
    (archive.folder / f"work/receipts/{PARTS:06}.json").unlink(missing_ok=True)
    end = timed("Snakemake killed, one night removed, started again", archive.call, *call)
    expect(end.returncode == 1, end.stdout)
    done = sorted(path.name for path in (archive.folder / "work/workflow").glob("*.json"))
    expect(done == [f"{part}-of-{PARTS}.json" for part in range(2, PARTS + 1)], done)
    in_part = NIGHTS // PARTS
    expect(archive.receipts() == NIGHTS - 1, f"{archive.receipts()} receipts")

    (archive.folder / "kept.mea").rename(night)
    end = timed("the night put back, started again", archive.call, *call)
    expect(end.returncode == 0, end.stdout)
    expect((archive.part(1)["good"], archive.part(1)["upToDate"]) == (1, in_part - 1), archive.part(1))
    archive.expect_whole()


def free_ports():
    with socket.socket() as one, socket.socket() as other:
        one.bind(("127.0.0.1", 0))
        other.bind(("127.0.0.1", 0))
        return one.getsockname()[1], other.getsockname()[1]


@contextlib.contextmanager
def slurm(folder):
    """Slurm on one node, without its authentication service and its accounting database."""
    host = socket.gethostname().split(".")[0]
    ports = free_ports()
    state = folder / "slurm"
    (state / "spool").mkdir(parents=True)
    configuration = state / "slurm.conf"
    configuration.write_text(
        f"""ClusterName=test
SlurmctldHost={host}(127.0.0.1)
SlurmUser={getpass.getuser()}
SlurmdUser={getpass.getuser()}
AuthType=auth/none
CredType=cred/none
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
SwitchType=switch/none
MpiDefault=none
JobAcctGatherType=jobacct_gather/none
AccountingStorageType=accounting_storage/none
SelectType=select/cons_tres
SelectTypeParameters=CR_CPU
SlurmctldPort={ports[0]}
SlurmdPort={ports[1]}
SlurmctldPidFile={state}/ctld.pid
SlurmdPidFile={state}/d.pid
StateSaveLocation={state}
SlurmdSpoolDir={state}/spool
SlurmdParameters=config_overrides
ReturnToService=2
SchedulerType=sched/builtin
SchedulerParameters=batch_sched_delay=0,sched_interval=1,sched_min_interval=10000
NodeName={host} NodeAddr=127.0.0.1 CPUs=8 RealMemory=16000 State=UNKNOWN
PartitionName=all Nodes=ALL Default=YES MaxTime=INFINITE State=UP
""",
        encoding="ascii",
    )
    os.environ["SLURM_CONF"] = str(configuration)
    with contextlib.ExitStack() as stack:
        for daemon in ("slurmctld", "slurmd"):
            log = stack.enter_context(open(state / f"{daemon}.log", "wb"))
            # setpriv: it goes with the test, also where that is killed.
            process = stack.enter_context(
                subprocess.Popen(["setpriv", "--pdeathsig", "TERM", daemon, "-D"], stdout=log,
                                 stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL))
            stack.callback(process.terminate)
        wait_for_node(state)
        yield


def wait_for_node(state):
    for _ in range(60):
        end = subprocess.run(["sinfo", "-h", "-o", "%T"], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                             check=False)
        if end.stdout.strip() == "idle":
            return
        time.sleep(0.5)
    raise SystemExit("failed: no node: " + end.stdout + (state / "slurmctld.log").read_text(errors="replace"))


def array(archive, parts):
    archive.make()
    wrapped = f"{archive.folder}/tavelin batch {archive.folder}/work {ALLOWED} --part $SLURM_ARRAY_TASK_ID/{parts}"
    timed(f"Slurm array, {parts} parts", sent_and_ended, archive, f"--array=1-{parts}", "--wrap", wrapped)
    archive.expect_whole()


def jobs():
    end = subprocess.run(["squeue", "-h", "-o", "%i"], stdout=subprocess.PIPE, text=True, check=True)
    return end.stdout.split()


def wait_for_jobs():
    while jobs():
        time.sleep(0.2)


def sent_and_ended(archive, *words):
    end = archive.call("sbatch", "--output=/dev/null", *words)  # its own --wait looks every ten seconds
    expect(end.returncode == 0, end.stdout)
    wait_for_jobs()


def cancel_one_and_kill(archive, call):
    with subprocess.Popen(call, cwd=archive.folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                          start_new_session=True) as process:
        while archive.receipts() < 6 and process.poll() is None:
            time.sleep(0.05)
        first = jobs()
        expect(first, "no job is there to be cancelled")
        subprocess.run(["scancel", first[0]], check=True)
        while archive.receipts() < 12 and process.poll() is None:
            time.sleep(0.05)
        os.killpg(process.pid, signal.SIGKILL)
    subprocess.run(["scancel", *jobs()], check=False)
    wait_for_jobs()


def on_slurm(archive, workflow, is_full):
    with slurm(archive.folder):
        array(archive, PARTS)
        if is_full:
            array(archive, NIGHTS)
        archive.make()
        call = [*snakemake_call(workflow, workflow / "profiles/slurm"), "--max-status-checks-per-second=20"]
        with archive.slow():
            timed("Snakemake over Slurm, one job cancelled, killed", cancel_one_and_kill, archive, call)
        expect(0 < archive.receipts() < NIGHTS, f"{archive.receipts()} receipts")
        end = timed("started again", archive.call, *call)
        expect(end.returncode == 0, end.stdout)
        again = sum(archive.part(part)["upToDate"] for part in range(1, PARTS + 1))
        expect(again > 0, "nothing was left out")
        archive.expect_whole()


def main():
    engine, tavelin, vomar, workflow = sys.argv[1], sys.argv[2], sys.argv[3], pathlib.Path(sys.argv[4])
    is_full = sys.argv[5:] == ["full"]
    os.environ["PATH"] += ":/usr/sbin"  # where daemons are
    need("snakemake", *(("parallel",) if engine == "snakemake" else ("slurmctld", "slurmd", "sbatch")))
    with tempfile.TemporaryDirectory() as name:
        archive = Archive(pathlib.Path(name), tavelin, vomar)
        os.environ["HOME"] = name  # Snakemake keeps a cache there
        os.environ["CI"] = "true"  # it looks for ended jobs each second then, else every ten
        if engine == "snakemake":
            on_this_machine(archive, workflow)
        else:
            on_slurm(archive, workflow, is_full)
    print(f"{NIGHTS} of {NIGHTS} nights")


main()
