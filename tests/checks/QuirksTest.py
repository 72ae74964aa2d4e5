"""docs/quirks.md agrees with the sources: what the code refers to is listed, and what is listed is tested."""

import re
import unittest
from pathlib import Path

from sources import CODE, code, text, tracked

LIST = Path("docs/quirks.md")
ENTRY = re.compile(r"^\*\*(\d+)\. ")
TEST = re.compile(r"`(\w+)\.(\w+)`")


def entries():
    """[(number, names of tests)] in the order of the page: an entry begins with its number in bold."""
    found = []
    for line in text(LIST).splitlines():
        if line.startswith("#"):
            continue
        if start := ENTRY.match(line):
            found.append((int(start[1]), []))
        if found:
            found[-1][1].extend(f"{suite}.{name}" for suite, name in TEST.findall(line))
    return found


def written_tests():
    macro = re.compile(r"^TEST(?:_F|_P)?\((\w+),\s*(\w+)\)", re.MULTILINE)
    return {f"{suite}.{name}" for path in code() if path.parts[0] == "tests" for suite, name in macro.findall(text(path))}


class QuirksTest(unittest.TestCase):
    def test_numbers_are_unique_and_ascend(self):
        numbers = [number for number, _ in entries()]
        assert numbers != []
        assert numbers == sorted(set(numbers))

    def test_each_quirk_has_a_test(self):
        assert [number for number, tests in entries() if not tests] == []

    def test_the_tests_exist(self):
        written = written_tests()
        assert [f"{number}: {test}" for number, tests in entries() for test in tests if test not in written] == []

    def test_what_refers_to_a_quirk_finds_it(self):
        known = {number for number, _ in entries()}
        places = [path for path in tracked() if path.suffix in (*CODE, ".md")]
        self.assertEqual([f"{path}: quirk {number}" for path in places
                          for number in map(int, re.findall(r"\b[Qq]uirk (\d+)", text(path))) if number not in known], [])
