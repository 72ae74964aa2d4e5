"""Runs the fuzz targets of build/native-fuzz, several at a time, as the group "fuzz" of ./test.

    python3 -m garmtools.fuzzrun [MINUTES]    (with PYTHONPATH=tools)

Each target first replays what is kept in fuzz/seeds and fuzz/regressions, then makes up inputs: for half a minute, from
the kept ones alone, or for MINUTES, from all that earlier long runs found, which stays in build/fuzz/corpus. Both count
as a test. An input that fails is kept in build/fuzz/findings, and the command that tries it again is printed.
"""

import os
import queue
import re
import shutil
import subprocess
import sys
import threading
import time
from dataclasses import dataclass
from pathlib import Path

from .places import BUILD, ROOT
from .processes import allowed_cpus, limited, run_main, run_to_end, say, steady_addresses
from .results import Result, report

SECONDS = 30  # of making up inputs, in ./test
INPUT_SECONDS = 10  # one input that takes longer is a finding
END_SECONDS = 120  # for loading the corpus before the clock starts, and the last input after it
FUZZ = BUILD / "fuzz"
KEPT = ROOT / "fuzz"
# The lines in which the engine and bash tell what a run came to.
EXECUTIONS = re.compile(r"^stat::number_of_executed_units:\s*(\d+)", re.M)
COVERAGE = re.compile(r"\bcov: (\d+) ft: (\d+) corp: (\d+)/")
SECONDS_USED = re.compile(r"^seconds: ([\d.]+) ([\d.]+) ([\d.]+)", re.M)
FINDING = re.compile(r"Test unit written to (\S+)")


@dataclass(frozen=True)
class Target:
    program: Path
    max_bytes: int

    @property
    def name(self):
        return self.program.name.removeprefix("fuzz_")

    def kept(self):
        """The folders of inputs that come with the sources; every file is an input of the targets that read files."""
        folders = [KEPT / "seeds" / self.name, KEPT / "regressions" / self.name]
        if self.name in ("tree", "configuration"):
            folders.append(ROOT / "samples")
        return [folder for folder in folders if folder.is_dir()]


def targets(text):
    """The targets of a list: one per line, program and longest input with a tabulator between them."""
    found = []
    for line in filter(None, text.split("\n")):
        program, max_bytes = line.split("\t")
        found.append(Target(Path(program), int(max_bytes)))
    return found


@dataclass
class Figures:
    """What a run came to, by its own log; None for what it does not tell."""

    executions: int = None
    edges: int = None
    inputs: int = None
    wall: float = None
    cpu: float = None


def figures(log):
    """The figures in a run's log."""
    found = Figures()
    if match := EXECUTIONS.search(log):
        found.executions = int(match[1])
    for match in COVERAGE.finditer(log):
        found.edges, found.inputs = int(match[1]), int(match[3])
    if match := SECONDS_USED.search(log):
        found.wall = float(match[1])
        found.cpu = float(match[2]) + float(match[3])
    return found


def command(target, seconds, folders, findings):
    """The words that run a target: 0 seconds replay the folders' inputs, otherwise the first folder takes new ones."""
    words = [*steady_addresses(), str(target.program), f"-max_len={target.max_bytes}", f"-timeout={INPUT_SECONDS}",
             f"-artifact_prefix={findings}/{target.name}-", f"-dict={KEPT / 'pc3.dict'}", "-print_final_stats=1",
             # Choosing inputs by entropy costs more than these targets do, and so does starting with short ones where
             # an input is a script.
             "-entropic=0", f"-len_control={100 if target.name in ('tree', 'custom', 'configuration') else 0}"]
    words += ["-runs=0"] if seconds == 0 else [f"-max_total_time={seconds}"]
    words += [str(folder) for folder in folders]
    # bash tells the time that was used; ours would be that of all programs together.
    timed = ["bash", "-c", 'TIMEFORMAT="seconds: %R %U %S"; time "$@"', "timed", *words]
    return limited(seconds + END_SECONDS, timed)


def environment():
    """Short stacks for allocations, whose making is most of the cost; and files in memory, where that is possible."""
    settings = {"ASAN_OPTIONS": "malloc_context_size=4:quarantine_size_mb=16", "UBSAN_OPTIONS": "print_stacktrace=1"}
    if os.access("/dev/shm", os.W_OK):
        settings["TMPDIR"] = "/dev/shm"
    return {**os.environ, **settings}


def judge(name, what, target, status, log):
    """The result of one run: passed only when it ended well after having tried something."""
    result = Result()
    told = figures(log)
    finding = FINDING.search(log)
    if finding:
        result.fail(f"fuzz {name}: {what}", f"{log}\n\nto try it again:\n{again(target, finding[1])}")
    elif status != 0:
        result.fail(f"fuzz {name}: {what}", f"ended with status {status}\n{log}")
    elif not told.executions:
        result.fail(f"fuzz {name}: {what}", f"tried no input\n{log}")
    else:
        result.passed += 1
    return result


def again(target, finding):
    words = [*steady_addresses(), str(target.program), finding]
    return " ".join(words)


def run_target(target, seconds, corpus, folder):
    """Replays, then fuzzes; the result and the figures of the second."""
    logs, findings = folder / "logs", folder / "findings"
    for needed in (logs, findings, corpus):
        needed.mkdir(parents=True, exist_ok=True)
    result, told = Result(), Figures()
    for what, time_given, folders in (("replay", 0, target.kept()), ("fuzzing", seconds, [corpus, *target.kept()])):
        log = logs / f"{target.name}-{what}.log"
        with open(log, "wb") as sink:
            status = run_to_end(command(target, time_given, folders, findings), env=environment(), cwd=folder,
                                stdout=sink, stderr=subprocess.STDOUT)
        text = log.read_text(errors="replace")
        result.add(judge(target.name, what, target, status, text))
        told = figures(text)
    return result, told


def run_all(found, seconds, corpora, folder, workers):
    """Shares the targets out among that many threads; the result and the figures of each target by its name."""
    waiting = queue.Queue()
    for target in found:
        waiting.put(target)
    total, told, lock = Result(), {}, threading.Lock()

    def work():
        while True:
            try:
                target = waiting.get_nowait()
            except queue.Empty:
                return
            try:
                result, numbers = run_target(target, seconds, corpora / target.name, folder)
            except Exception as error:  # pylint: disable=broad-except
                result, numbers = Result(), Figures()
                result.fail(f"fuzz {target.name}", f"cannot be run: {error}")
            with lock:
                total.add(result)
                told[target.name] = numbers

    threads = [threading.Thread(target=work, daemon=True) for _ in range(workers)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    return total, told


def table(told):
    """The figures, one line per target."""
    lines = [f"{'target':<14}{'wall s':>9}{'CPU s':>9}{'executions':>13}{'edges':>8}{'inputs':>8}"]
    for name, numbers in sorted(told.items()):
        cells = [("" if value is None else f"{value:.0f}") for value in
                 (numbers.wall, numbers.cpu, numbers.executions, numbers.edges, numbers.inputs)]
        lines.append(f"{name:<14}{cells[0]:>9}{cells[1]:>9}{cells[2]:>13}{cells[3]:>8}{cells[4]:>8}")
    return "\n".join(lines)


def keep_record(path, told, when):
    """Adds a long run's figures to the record of all of them."""
    with open(path, "a", encoding="utf-8") as record:
        for name, numbers in sorted(told.items()):
            values = (when, name, numbers.wall, numbers.cpu, numbers.executions, numbers.edges, numbers.inputs)
            record.write("\t".join("" if value is None else str(value) for value in values) + "\n")


def seconds_of(minutes):
    """Whole seconds; ValueError for what is no time."""
    seconds = float(minutes) * 60
    if not 1 <= seconds <= 7 * 24 * 3600:
        raise ValueError(f"{minutes} is no number of minutes")
    return round(seconds)


def main(minutes=None):
    try:
        seconds = SECONDS if minutes is None else seconds_of(minutes)
    except ValueError:
        say(f"{minutes}: not a number of minutes")
        return 2
    found = targets((BUILD / "native-fuzz" / "fuzz-targets.txt").read_text())
    corpora = FUZZ / "corpus"
    if minutes is None:
        # From the kept inputs alone, so that a run does not depend on what was run before.
        corpora = FUZZ / "short"
        shutil.rmtree(corpora, ignore_errors=True)
    result, told = run_all(found, seconds, corpora, FUZZ, len(allowed_cpus()))
    if minutes is not None:
        keep_record(FUZZ / "runs.tsv", told, time.strftime("%Y-%m-%d %H:%M"))
    say(table(told))
    if not found:
        result.fail("fuzz", "has no targets")
    if result.failures:
        say(f"logs are in {FUZZ / 'logs'}, findings in {FUZZ / 'findings'}")
    return report("fuzz", result)


if __name__ == "__main__":
    run_main(main, *sys.argv[1:2])
