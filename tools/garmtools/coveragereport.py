"""Runs the tests of the coverage build and reports what they cover.

    python3 -m garmtools.coveragereport [--missed] [--write]
"""

import sys

from . import coverage
from .places import ROOT
from .processes import run_main, say

LEAST = 95.0  # percent of the lines of all files
LEAST_OF_ONE = 90.0
DOCUMENT = ROOT / "docs" / "reliability.md"


def too_low(files):
    """What falls short of the least share of lines, as sentences."""
    found = [f"{path}: only {coverage.lines_of(file)} of the lines ran" for path, file in sorted(files.items())
             if coverage.lines_of(file).percent() < LEAST_OF_ONE]
    total = coverage.summary(files)[-1][2]
    if total.percent() < LEAST:
        found.append(f"all files: only {total} of the lines ran")
    return found


def main(*words):
    tests = coverage.run_tests()
    for name, text in tests.failures:
        say(f"FAILED {name}\n{text}")
    if tests.failures or not tests.passed:
        return 1
    files = coverage.read_counts()
    print(coverage.table(files))
    if "--missed" in words:
        print(coverage.missed(files))
    if "--write" in words:
        text = DOCUMENT.read_text(encoding="utf-8")
        DOCUMENT.write_text(coverage.replace_between(text, coverage.document(files)), encoding="utf-8")
    for sentence in too_low(files):
        say(sentence)
    return 1 if too_low(files) else 0


if __name__ == "__main__":
    run_main(main, *sys.argv[1:])
