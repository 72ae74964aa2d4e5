"""The module in a host that asks it the same thing many times, and whether what the process holds stays flat.

The rule: samples are taken before the first repetition and after every part of them. After the first tenth (and at
least ten repetitions: they fill caches of the system) nothing may

  grow:  the largest later sample minus the one there, and
  drift: the median of the last third of the later samples minus that of their first third,

by more than ALLOWED. What does is compared with the same rule for the bare system calls, windows and threads, which ran
in the same process without the module: it may grow and drift by as much as those and what is allowed, no more.
"""

import math
import statistics
from collections import defaultdict
from typing import NamedTuple

from garmtools.places import WINDOWS_BIN, windows_path

PROGRAM = WINDOWS_BIN / "modulebench.exe"
HOST = WINDOWS_BIN / "plothost.exe"
PRINTER = "DesignJet-3500CP"

KB = 1024


class Allowed(NamedTuple):
    growth: int
    drift: int


NOTHING = Allowed(0, 0)
# The system allocates and frees pages by the megabyte, now and then: one sample means little, the drift a lot.
PAGES = Allowed(2048 * KB, 512 * KB)

# What is counted, in the order of the tables. Handles and objects are whole things: not one more. The heap in use is
# known to the byte; the threads' own blocks come and go.
ALLOWED = {"handles": NOTHING, "views": NOTHING, "gdi": NOTHING, "user": NOTHING, "threads": NOTHING,
           "heap": Allowed(1 * KB, 1 * KB), "private": PAGES, "working-set": PAGES}

FEWEST_REPETITIONS = 10


class Course(NamedTuple):
    """How a count went after the first tenth."""

    settled: int  # its value there
    growth: int
    drift: int

    def within(self, allowed):
        return self.growth <= allowed.growth and self.drift <= allowed.drift


class Verdict(NamedTuple):
    held: bool
    text: str


def course(samples, repetitions):
    parts = len(samples) - 1
    settled = max(math.ceil(parts / 10), math.ceil(FEWEST_REPETITIONS * parts / repetitions))
    later = samples[settled + 1:]
    third = len(later) // 3
    if third == 0:
        raise ValueError(f"{parts} parts of {repetitions} repetitions are too few to judge")
    drift = statistics.median(later[-third:]) - statistics.median(later[:third])
    return Course(samples[settled], max(later) - samples[settled], round(drift))


def judge(name, ours, bare):
    """The verdict on a count by its course and that of the bare calls."""
    allowed = ALLOWED[name]
    if ours.within(allowed):
        return Verdict(True, "flat")
    if ours.within(Allowed(max(bare.growth, 0) + allowed.growth, max(bare.drift, 0) + allowed.drift)):
        return Verdict(True, "grows as the bare calls do")
    return Verdict(False, f"grows by {ours.growth}, drifts by {ours.drift}; the bare calls by {bare.growth} and {bare.drift}")


def run(prefix, folder, action, *numbers, seconds):
    """Runs an action on a new configuration of PRINTER in the folder; {name: [numbers]} of what it printed."""
    file = folder / "load.pc3"
    _succeed(prefix.run([HOST, "create", PRINTER, windows_path(file)]))
    done = _succeed(prefix.run([PROGRAM, action, windows_path(file), PRINTER, *numbers], seconds=seconds))
    found = defaultdict(list)
    for line in done.stdout.splitlines():
        name, _, value = line.partition(": ")
        found[name].append(int(value))
    return found


def load(prefix, folder, wanted, seconds=3600):
    """(load, count, course, course of the bare calls, verdict) of each count under each load, all in one process."""
    found = run(prefix, folder, "load", *wanted.values(), seconds=seconds)
    for what, repetitions in wanted.items():
        for count in ALLOWED:
            ours, bare = (course(found[f"{kind}{what} {count}"], repetitions) for kind in ("", "bare "))
            yield what, count, ours, bare, judge(count, ours, bare)


def _succeed(done):
    if done.returncode != 0:
        raise RuntimeError(f"{done.args}\n{done.stdout[-2000:]}\n{done.stderr[-2000:]}")
    return done
