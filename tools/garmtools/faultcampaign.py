"""Every way to lose the print server or a printer, at every step of every session, each by itself; see
tools/fault-campaign."""

import shutil
import tempfile
import time
from collections import Counter, defaultdict
from pathlib import Path

from . import editorscript as ed
from . import spoolerfaults as faults
from .editorscript import Answers, Script
from .places import ROOT, WINDOWS_BIN
from .processes import say
from .spoolerfaults import BUILT_IN, NOT_OPENED, PARTIAL, UNDISTURBED


class Report:
    """What came out, for a person: rows of a table, and every cell that went wrong."""

    def __init__(self, tell=say):
        self._tell = tell
        self.rows = []  # (session, fault, plays, {outcome: how often}, wrong)
        self.wrong = []  # texts

    def add(self, session, fault, outcomes, wrong):
        self.rows.append((session, fault, sum(outcomes.values()), outcomes, len(wrong)))
        self.wrong += wrong
        for text in wrong:
            self._tell(f"  WRONG: {text}")
        self._tell(f"  {session} | {fault}: {dict(outcomes)}{f', {len(wrong)} WRONG' if wrong else ''}")

    def plays(self):
        return sum(row[2] for row in self.rows)

    def table(self):
        """As a table of docs/reliability.md: the sessions of one fault together."""
        sums = {}
        for session, fault, plays, outcomes, wrong in self.rows:
            all_sessions, all_plays, all_outcomes, all_wrong = sums.get(fault, ([], 0, Counter(), 0))
            sums[fault] = ([*all_sessions, session], all_plays + plays, all_outcomes + Counter(outcomes),
                           all_wrong + wrong)
        lines = ["| Fault | Sessions | Plays | Outcomes | Wrong |", "|---|--:|--:|---|--:|"]
        for fault, (sessions, plays, outcomes, wrong) in sums.items():
            texts = ", ".join(f"{count} {name}" for name, count in outcomes.most_common())
            lines.append(f"| {fault} | {len(sessions)} | {plays} | {texts} | {wrong} |")
        return "\n".join(lines)


def judge(outcome, references, expected, original=None):
    """The name of the reference that an outcome equals, and what is wrong with it, if anything is. References may be
    the same: a session that asks the driver for nothing does not see its built-in defaults. Not opened is what left no
    value and the original file alone."""
    equal = [name for name, reference in references.items() if outcome == reference]
    if outcome.said.startswith("outputs: none\n") and outcome.files == {"x.pc3": original}:
        equal.append(NOT_OPENED)
    for name in expected:
        if name in equal:
            return name, None
    name = equal[0] if equal else "something else"
    return name, f"expected {' or '.join(expected)}, came {name}"


def is_whole(bench, outcome, reference):
    """Whether a session left what it should, though not byte for byte: a driver that has a part of its data has other
    papers and other defaults."""
    return set(outcome.files) == set(reference.files) and bench.can_be_read(outcome.files)


def run_server_cells(bench, report, sessions):
    """The matrix of the server: each session, each fault, each step."""
    for session in sessions:
        steps = faults.SESSIONS[session]
        references = {UNDISTURBED: bench.play(steps), BUILT_IN: bench.play(steps, {0: "kill"})}
        if bench.play(steps) != references[UNDISTURBED]:
            raise RuntimeError(f"'{session}' does not always come out the same: there is nothing to compare with")
        original = bench.original if any(step.line == "opened" for step in steps) else None
        outcomes, wrong = defaultdict(Counter), defaultdict(list)
        for cell in faults.cells(steps):
            where = f"{session}, {cell.fault}, before step {cell.step} ({steps[cell.step].line})"
            try:
                outcome = bench.play(steps, cell.actions)
                name, problem = judge(outcome, references, cell.expected, original)
                if problem and PARTIAL in cell.expected and is_whole(bench, outcome, references[UNDISTURBED]):
                    name, problem = PARTIAL, None
            except RuntimeError as error:
                name, problem = "broken off", str(error)
            outcomes[cell.fault][name] += 1
            if problem:
                wrong[cell.fault].append(f"{where}: {problem}")
        for fault, counts in outcomes.items():
            report.add(session, fault, counts, wrong[fault])


def run_deletion_cells(bench, report):
    """The matrix of the deleted printer: all places of one kind must come out the same."""
    twin = bench.play(faults.TWIN_MADE).files["x.pc3"]
    outcomes, wrong, references = Counter(), [], {}
    for index, kind in faults.deletions():
        try:
            outcome = bench.play(faults.with_deletion(index), content=twin)
        except RuntimeError as error:
            outcomes["broken off"] += 1
            wrong.append(f"printer deleted before step {index}: {error}")
            continue
        outcomes[kind] += 1
        if outcome != references.setdefault(kind, outcome):
            wrong.append(f"printer deleted before step {index}: not as the others of '{kind}'")
    report.add("a file is edited", "delete its printer", outcomes, wrong)


def run_without_printers(bench, report):
    """Processes that start when the server or the queue is gone."""
    outcomes, wrong = Counter(), []
    for gone in ("stop", "kill", "remove"):
        outcome = bench.play(faults.WITHOUT_PRINTERS, before=gone)
        answers = Answers(outcome.said)
        right = (answers.all("outputs") == ["none"] * 4 and answers.all("output result") == ["false"] * 2
                 and answers.all("checked") == ["not found"] * 2 and outcome.files == {"x.pc3": bench.original})
        outcomes["no printers" if right else "something else"] += 1
        if not right:
            wrong.append(f"{gone} before the process: {outcome.said}")
    report.add("all at once", "gone before the process starts", outcomes, wrong)


class _Clock:
    """What scripts ask for besides the server's actions: to sleep, and to note a moment."""

    def __init__(self, bench):
        self._bench = bench
        self._moments = {}

    def __call__(self, action):
        word, _, rest = action.partition(" ")
        if word == "sleep":
            time.sleep(float(rest))
        elif word == "now":
            self._moments[rest] = time.monotonic()
        else:
            self._bench.act(action)

    def since(self, start):
        """(name, seconds) of every other moment, in their order."""
        return [(name, when - self._moments[start]) for name, when in self._moments.items() if name != start]


def _play_timed(bench, folder, lines):
    """Plays a script in which a check must find its printer; the moments, or what went wrong."""
    clock = _Clock(bench)
    try:
        done = ed.run(bench.prefix, Script(*lines), [folder], cwd=folder, outside=clock, seconds=600)
    finally:
        bench.mend()
    if done.returncode != 0 or Answers(done.stdout).all("checked") != ["found"]:
        return [], [f"status {done.returncode}: {done.stderr}\n{done.stdout}"]
    return clock.since("start"), []


def run_long_waits(bench, report):
    """Servers that do not answer for a long time, in real time. A script waits half a minute for a message, so it
    sleeps before."""
    with tempfile.TemporaryDirectory(prefix="garm-faults-") as name:
        folder = Path(name)
        (folder / "x.pc3").write_bytes(bench.original)
        shutil.copy(ROOT / "samples" / "virtual-pdf.pc3", folder / "file.pc3")

        begin = ["outside freeze", "outside now start", "start-check x.pc3", "outside now started"]
        edit = ["edit file.pc3", "dialog", "tab 1", "tree", f"click {ed.CANCEL}", "end", "outside now edited"]
        end = ["checked", "outside now checked"]
        for title, lines in (
                ("no answer for 30 s", [*begin, *edit, *["outside sleep 15"] * 2, "outside thaw", *end]),
                ("no answer at all", [*begin, *["outside sleep 15"] * 3, *end])):
            moments, wrong = _play_timed(bench, folder, lines)
            texts = ", ".join(f"{what} after {seconds:.2f} s" for what, seconds in moments)
            report.add("a device is checked", f"{title}: {texts}", Counter({"found": 1}), wrong)

        bench.act("freeze")
        began = time.monotonic()
        try:
            done = bench.prefix.run([WINDOWS_BIN / "plothost.exe", "list"], cwd=folder, seconds=600)
        finally:
            bench.mend()
        waited = time.monotonic() - began
        wrong = [] if done.returncode == 0 and "No printers" in done.stdout else [f"{done.returncode}: {done.stderr}"]
        report.add("plothost list", f"no answer at all: over after {waited:.0f} s", Counter({"no printers": 1}), wrong)


DELETIONS, WITHOUT_PRINTERS, LONG_WAITS = "deletions", "without printers", "long waits"
PARTS = (*faults.SESSIONS, DELETIONS, WITHOUT_PRINTERS, LONG_WAITS)


def run_parts(bench, parts):
    report = Report()
    run_server_cells(bench, report, [part for part in parts if part in faults.SESSIONS])
    for part, run in ((DELETIONS, run_deletion_cells), (WITHOUT_PRINTERS, run_without_printers),
                      (LONG_WAITS, run_long_waits)):
        if part in parts:
            run(bench, report)
    return report
