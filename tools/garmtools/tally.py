"""Counts the test cases in JUnit reports for ./test.

    python3 -m garmtools.tally REPORT [FOLDER]    (with PYTHONPATH=tools)

REPORT is from pytest or ctest. With a FOLDER each of its entries is a GoogleTest program, whose cases are in a report
of that name in the folder: a program that crashes, hangs or leaves no report is a failure, and so is a case that was
not run, because it proves nothing. Failures are printed, the last line is "PASSED FAILED".
"""

import sys
import textwrap
import xml.etree.ElementTree as ElementTree
from pathlib import Path

MOST_LINES = 80


def cases_of(report):
    """(name, why it failed or None) of each case; none when the report is missing or incomplete."""
    try:
        root = ElementTree.parse(report).getroot()
    except (OSError, ElementTree.ParseError):
        return []
    return [(f"{case.get('classname')}.{case.get('name')}", why_failed(case)) for case in root.iter("testcase")]


def why_failed(case):
    problems = [child for child in case if child.tag in ("failure", "error", "skipped")]
    if problems:
        output = [child for child in case if child.tag in ("system-out", "system-err")]
        return "\n".join(child.text or child.get("message") or child.tag for child in [*problems, *output])
    # GoogleTest and ctest say it of each case, pytest only of the others.
    if case.get("status", "run") != "run" or case.get("result", "completed") != "completed":
        return "\n".join(["was not run to its end", *(child.text or "" for child in case)])
    return None


def cases_of_programs(report, folder):
    """Of all programs in ctest's report the cases of each. What a program's own report does not explain is one more."""
    found = []
    for name, problem in cases_of(report):
        program = name.rsplit(".", 1)[-1]
        cases = [(f"{program}: {case}", why) for case, why in cases_of(folder / f"{program}.xml")]
        found += cases
        if not cases:
            found.append((program, f"left no report of its cases\n{problem or ''}"))
        elif problem and not any(why for _, why in cases):
            found.append((program, f"failed after its cases\n{problem}"))
    return found


def shortened(text):
    lines = text.strip().splitlines()
    if len(lines) > MOST_LINES:
        lines[20:-60] = [f"... {len(lines) - MOST_LINES} lines ..."]
    return textwrap.indent("\n".join(lines), "    ")


def main(report, folder=None):
    cases = cases_of_programs(report, Path(folder)) if folder else cases_of(report)
    failures = [(name, why) for name, why in cases if why is not None] if cases else [(report, "has no cases")]
    for name, why in failures:
        print(f"FAILED {name}\n{shortened(why)}")
    print(len(cases) - len(failures) if cases else 0, len(failures))


if __name__ == "__main__":
    main(*sys.argv[1:])
