"""Runs modulebench.exe: the module in a host that asks it the same thing many times."""

import statistics
from collections import defaultdict
from typing import NamedTuple

from . import flatness
from .places import WINDOWS_BIN, windows_path

PROGRAM = WINDOWS_BIN / "modulebench.exe"
HOST = WINDOWS_BIN / "plothost.exe"
PRINTER = "DesignJet-3500CP"


class Load(NamedTuple):
    calls: int
    checks: int
    openings: int


class Row(NamedTuple):
    """One count under one kind of load."""

    what: str  # calls, checks or openings
    count: str
    ours: flatness.Course
    bare: flatness.Course
    verdict: flatness.Verdict


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
    """The rows for that load, everything in one process."""
    found = run(prefix, folder, "load", *wanted, seconds=seconds)
    rows = []
    for what, repetitions in wanted._asdict().items():
        for count in flatness.ALLOWED:
            ours, bare = (flatness.course(found[f"{kind}{what} {count}"], repetitions) for kind in ("", "bare "))
            rows.append(Row(what, count, ours, bare, flatness.judge(count, ours, bare)))
    return rows


def load_table(rows, wanted):
    """The rows as a Markdown table."""
    lines = ["| | | after the first tenth | growth, drift | of the bare calls | |", "|---|---|--:|--:|--:|---|"]
    for row in rows:
        what = f"{getattr(wanted, row.what):,} {row.what}" if row.count == next(iter(flatness.ALLOWED)) else ""
        lines.append(f"| {what} | {row.count} | {row.ours.settled:,} | {row.ours.growth:,}, {row.ours.drift:,} "
                     f"| {row.bare.growth:,}, {row.bare.drift:,} | {row.verdict.text} |")
    return "\n".join(lines)


class Spread(NamedTuple):
    """Of a measurement: quartiles."""

    low: float
    median: float
    high: float

    @classmethod
    def of(cls, values):
        return cls(*statistics.quantiles(values, n=4, method="inclusive"))


def speed_table(found, contenders):
    """Markdown: how many microseconds each contender took, and how many times those of the later ones, by rounds."""
    _, *later = contenders
    lines = ["| | median | quartiles |" + "".join(f" ratio to {name} | quartiles |" for name in later),
             "|---|--:|--:|" + "--:|--:|" * len(later)]
    for i, name in enumerate(contenders):
        times = Spread.of([value / 1000 for value in found[name]])
        cells = [name, f"{times.median:,.0f} us", f"{times.low:,.0f} to {times.high:,.0f}"] + ["", ""] * max(i - 1, 0)
        for other in contenders[max(i, 1):]:
            ratios = Spread.of([ours / theirs for ours, theirs in zip(found[name], found[other])])
            cells += [f"{ratios.median:.2f}", f"{ratios.low:.2f} to {ratios.high:.2f}"]
        lines.append(f"| {' | '.join(cells)} |")
    return "\n".join(lines)


def _succeed(done):
    if done.returncode != 0:
        raise RuntimeError(f"{done.args}\n{done.stdout[-2000:]}\n{done.stderr[-2000:]}")
    return done
