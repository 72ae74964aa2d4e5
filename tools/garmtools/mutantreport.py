"""What a run of mutants came to: the kept verdicts, the mutants that change nothing, and the table for the page."""

import json
import random
from dataclasses import dataclass

from .mutantrun import CAUGHT, NOT_COMPILED, SAME_CODE, SURVIVED

BEGIN, END = "<!-- table of mutants -->", "<!-- end of the table of mutants -->"


class ListError(ValueError):
    """The list of mutants that change nothing is not as it must be."""


def read_equivalents(text):
    """{name of the mutant: reason}. Records are apart by an empty line, each with the four keys, one line each."""
    found = {}
    for block in text.split("\n\n"):
        lines = [line for line in block.splitlines() if line.strip() and not line.startswith("#")]
        if not lines:
            continue
        record = dict(line.split(": ", 1) if ": " in line else (line, "") for line in lines)
        if sorted(record) != ["change", "code", "file", "reason"] or not all(record.values()):
            raise ListError(f"not one each of file, code, change and reason:\n{block}")
        name = (record["file"], record["code"], record["change"])
        if name in found:
            raise ListError(f"twice: {name}")
        found[name] = record["reason"]
    return found


def check_equivalents(equivalents, mutants):
    """Complaints about entries that stand for no mutant of those files."""
    names = {mutant.name for mutant in mutants}
    return [f"no such mutant any more: {' | '.join(name)}" for name in equivalents if name not in names]


def falsely_equivalent(equivalents, verdicts):
    """Complaints about entries whose mutant was noticed, so that it does change something."""
    return [f"not equivalent, {verdict['by']} noticed it: {' | '.join(name)}" for name, verdict in verdicts.items()
            if name in equivalents and verdict["result"] == CAUGHT]


def sample(mutants, number, seed):
    """At most that many of each file, the same for the same seed, in the order of the lines."""
    by_file = {}
    for mutant in mutants:
        by_file.setdefault(mutant.file, []).append(mutant)
    chosen = []
    for file, theirs in by_file.items():
        picked = random.Random(f"{seed} {file}").sample(range(len(theirs)), min(number, len(theirs)))
        chosen += [theirs[i] for i in sorted(picked)]
    return chosen


class Verdicts:
    """Verdicts in a file, a line each as they come, so that a run that was ended has not been for nothing."""

    def __init__(self, path):
        self._path = path

    def forget(self, files):
        """What is known of these files."""
        kept = [record for record in self.read().values() if record["file"] not in files]
        self._path.write_text("".join(json.dumps(record) + "\n" for record in kept))

    def add(self, verdict):
        mutant = verdict.mutant
        record = {"file": mutant.file, "code": mutant.code, "change": mutant.change, "result": verdict.result,
                  "by": verdict.by}
        with open(self._path, "a") as sink:
            sink.write(json.dumps(record) + "\n")

    def read(self):
        """{name: verdict}; the last one of each mutant holds."""
        if not self._path.exists():
            return {}
        records = [json.loads(line) for line in self._path.read_text().splitlines()]
        return {(record["file"], record["code"], record["change"]): record for record in records}


@dataclass
class Count:
    made: int = 0
    equivalent: int = 0
    caught: int = 0
    survived: int = 0
    untried: int = 0

    @property
    def share(self):
        """Of those that change something, in per cent; None when there are none."""
        counted = self.caught + self.survived
        return 100 * self.caught / counted if counted else None


def counts_of(mutants, verdicts, equivalents):
    """A Count by file. What does not compile is no mutant."""
    counts = {}
    for mutant in mutants:
        count = counts.setdefault(mutant.file, Count())
        result = verdicts.get(mutant.name, {}).get("result")
        if result == NOT_COMPILED:
            continue
        if result is None:
            count.untried += 1
            continue
        count.made += 1
        if result == SAME_CODE or result == SURVIVED and mutant.name in equivalents:
            count.equivalent += 1
        elif result == CAUGHT:
            count.caught += 1
        else:
            count.survived += 1
    return counts


def survivors(mutants, verdicts, equivalents):
    return [mutant for mutant in mutants if mutant.name not in equivalents
            and verdicts.get(mutant.name, {}).get("result") == SURVIVED]


def table(counts):
    """The counts in Markdown. Shares are cut off, not rounded, so that 100 means all."""
    total = Count()
    lines = ["| File | Mutants | Equivalent | Caught | Survived | Share caught | Not tried |",
             "| --- | ---: | ---: | ---: | ---: | ---: | ---: |"]
    for file, count in sorted(counts.items()):
        lines.append(_row(f"`{file}`", count))
        for field in ("made", "equivalent", "caught", "survived", "untried"):
            setattr(total, field, getattr(total, field) + getattr(count, field))
    lines.append(_row("**All**", total))
    return "\n".join(lines)


def _row(title, count):
    share = "-" if count.share is None else f"{int(count.share * 10) / 10} %"
    return (f"| {title} | {count.made} | {count.equivalent} | {count.caught} | {count.survived} | {share} "
            f"| {count.untried or ''} |")


def put_into(page, text):
    """The page with the text between its two marks."""
    before, found, rest = page.partition(BEGIN)
    _, closed, after = rest.partition(END)
    if not found or not closed:
        raise ListError(f"the page lacks {BEGIN} or {END}")
    return f"{before}{BEGIN}\n{text}\n{END}{after}"
