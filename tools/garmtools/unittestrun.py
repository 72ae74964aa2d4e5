"""Runs Python unittest cases in a folder as one group of ./test.

    python3 -m garmtools.unittestrun GROUP FOLDER [NAMES...]    (names as for python3 -m unittest, to run a few)
"""

import sys
import time
import unittest

from .processes import run_main, say
from .results import Result, report


class _Counting(unittest.TestResult):
    """Counts the cases; says which failed, as soon as they do, and which were slow."""

    SLOW = 5.0

    def __init__(self, say):
        super().__init__()
        self._say = say
        self.result = Result()
        self._began = 0.0

    def startTest(self, test):
        super().startTest(test)
        self._began = time.monotonic()

    def addSuccess(self, test):
        super().addSuccess(test)
        self.result.passed += 1

    def addFailure(self, test, err):
        super().addFailure(test, err)
        self._failed(test, self.failures[-1][1])

    def addError(self, test, err):
        super().addError(test, err)
        self._failed(test, self.errors[-1][1])

    def addSubTest(self, test, subtest, err):
        super().addSubTest(test, subtest, err)
        if err is not None:
            self._failed(subtest, self._exc_info_to_string(err, test))

    def addSkip(self, test, reason):
        super().addSkip(test, reason)
        self._failed(test, f"was skipped: {reason}")

    def addUnexpectedSuccess(self, test):
        super().addUnexpectedSuccess(test)
        self._failed(test, "succeeded unexpectedly")

    def addExpectedFailure(self, test, err):
        super().addExpectedFailure(test, err)
        self._failed(test, "is marked as expected to fail")

    def stopTest(self, test):
        super().stopTest(test)
        seconds = time.monotonic() - self._began
        if seconds > self.SLOW:
            self._say(f"  {test.id()} took {seconds:.0f} s")

    def _failed(self, test, text):
        self.result.fail(str(test), text)
        self._say(f"  {test.id()} FAILED")


def run(folder, names, tell=say):
    """Runs the tests of the folder, or the named ones of them."""
    if folder not in sys.path:
        sys.path.insert(0, folder)
    loader = unittest.TestLoader()
    suite = loader.loadTestsFromNames(names) if names else loader.discover(folder, "*Test.py", folder)
    counting = _Counting(tell)
    suite.run(counting)
    if counting.testsRun == 0 and not counting.result.failures:
        counting.result.fail(folder, "has no tests")
    return counting.result


def main(group, folder, names):
    return report(group, run(folder, names))


if __name__ == "__main__":
    run_main(main, sys.argv[1], sys.argv[2], sys.argv[3:])
