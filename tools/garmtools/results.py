"""What a group of tests came to, kept as a line in build/test-results so that ./test can add the groups up."""

import sys
from dataclasses import dataclass, field

from .places import RESULTS


@dataclass
class Result:
    passed: int = 0
    failures: list = field(default_factory=list)  # (name, text) of every test that failed

    def fail(self, name, text):
        self.failures.append((name, text))

    def add(self, other):
        self.passed += other.passed
        self.failures += other.failures


def report(group, result):
    """Prints what failed and keeps the numbers; the exit status of the group."""
    for name, text in result.failures:
        print(f"FAILED {name}\n{_indented(text)}", flush=True)
    RESULTS.mkdir(parents=True, exist_ok=True)
    (RESULTS / f"{group}.count").write_text(f"{result.passed} {len(result.failures)}\n")
    print(f"{group}: {result.passed} passed, {len(result.failures)} failed", file=sys.stderr, flush=True)
    return 1 if result.failures else 0


def _indented(text):
    lines = text.rstrip().splitlines()
    if len(lines) > 80:
        lines = [*lines[:20], f"... {len(lines) - 80} lines ...", *lines[-60:]]
    return "\n".join(f"    {line}" for line in lines)
