"""Loses the print server or a printer in every way at every step of editing sessions and of both commands, each by itself,
and compares what each session printed and left behind with what is allowed there.

    lab/run faults [--only PART]...
"""

import argparse
from collections import Counter
from pathlib import Path

from garmtools import processes
from garmtools.editorscript import Answers

import lab.faults as faults
from lab.faults import BUILT_IN, NOT_OPENED, PARTIAL, UNDISTURBED

BROKEN_OFF = "broken off"


def judge(outcome, references, expected, original=None):
    """The name of the reference that an outcome equals, and whether that is right. References may be the same: a session
    that asks the driver for nothing does not see its built-in defaults. Not opened is what left no value and the original
    file alone."""
    equal = [name for name, reference in references.items() if outcome == reference]
    if outcome.said.startswith("outputs: none\n") and outcome.files == {"x.pc3": original}:
        equal.append(NOT_OPENED)
    right = [name for name in expected if name in equal]
    return (*right, *equal, "something else")[0], bool(right)


def server_plays(bench, session):
    """The matrix of the server, of one session: (fault, outcome, what is wrong) of each fault before each step."""
    steps = faults.SESSIONS[session]
    references = {UNDISTURBED: bench.play(steps), BUILT_IN: bench.play(steps, {0: "kill"})}
    if bench.play(steps) != references[UNDISTURBED]:
        raise RuntimeError(f"'{session}' does not always come out the same: there is nothing to compare with")
    original = bench.original if any(step.line == "opened" for step in steps) else None
    for cell in faults.cells(steps):
        try:
            outcome = bench.play(steps, cell.actions)
            name, right = judge(outcome, references, cell.expected, original)
            # A driver that has a part of its data has other papers and other defaults.
            if not right and PARTIAL in cell.expected and set(outcome.files) == set(references[UNDISTURBED].files) \
                    and bench.can_be_read(outcome.files):
                name, right = PARTIAL, True
        except RuntimeError as error:
            name, right = BROKEN_OFF, False
            print(error)
        yield cell.fault, name, "" if right else f"before step {cell.step} ({steps[cell.step].line}): {name}"


def deletion_plays(bench):
    """The matrix of the deleted printer: all places of one kind must come out the same."""
    twin = bench.play(faults.TWIN_MADE).files["x.pc3"]
    references = {}
    for index, kind in faults.deletions():
        try:
            outcome = bench.play(faults.with_deletion(index), content=twin)
            wrong = "" if outcome == references.setdefault(kind, outcome) else f"before step {index}: not like the others"
        except RuntimeError as error:
            wrong = f"before step {index}: {error}"
        yield "delete its printer", kind, wrong


def plays_without_printers(bench):
    """Processes that start when the server or the queue is gone."""
    for gone in ("stop", "kill", "remove"):
        outcome = bench.play(faults.WITHOUT_PRINTERS, before=gone)
        answers = Answers(outcome.said)
        right = (answers.all("outputs") == ["none"] * 4 and answers.all("output result") == ["false"] * 2
                 and answers.all("checked") == ["not found"] * 2 and outcome.files == {"x.pc3": bench.original})
        yield "gone before the process starts", "no printers", "" if right else f"{gone}: {outcome.said}"


PARTS = {**{name: lambda bench, name=name: server_plays(bench, name) for name in faults.SESSIONS},
         "deletions": deletion_plays, "without printers": plays_without_printers}


def table(plays):
    """The rows of results.tsv, of (part, fault, outcome, what is wrong)."""
    counts = Counter((fault, outcome) for _, fault, outcome, _ in plays)
    yield "fault", "sessions", "outcome", "plays", "wrong"
    for (fault, outcome), count in counts.items():
        sessions = {part for part, its_fault, *_ in plays if its_fault == fault}
        yield fault, len(sessions), outcome, count, sum(bool(play[3]) for play in plays if play[1:3] == (fault, outcome))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--only", action="append", choices=PARTS)
    options = parser.parse_args()
    plays = []
    with faults.bench() as bench:
        for part in options.only or PARTS:
            processes.say(part)
            for fault, outcome, wrong in PARTS[part](bench):
                plays.append((part, fault, outcome, wrong))
                if wrong:
                    print(f"WRONG: {part}, {fault}, {wrong}", flush=True)
    text = "".join("\t".join(map(str, row)) + "\n" for row in table(plays))
    print(text)
    if not options.only:
        Path(__file__).with_name("results.tsv").write_text(text, encoding="utf-8")
    return 1 if any(play[3] for play in plays) else 0


if __name__ == "__main__":
    processes.run_main(main)
