"""The module asked the same thing many times in one process: nothing of the system may stay behind. The long form is
tools/load-campaign."""

import unittest

from hostcase import HostCase

from garmtools import modulebench


class LoadTest(HostCase):
    def test_calls_checks_and_openings_leave_nothing_behind(self):
        rows = modulebench.load(self.prefix, self.folder, modulebench.Load(calls=300, checks=60, openings=20), seconds=120)
        self.assertEqual(len(rows), 24)
        for row in rows:
            with self.subTest(f"{row.what}, {row.count}"):
                self.assertTrue(row.verdict.held, row.verdict.text)


if __name__ == "__main__":
    unittest.main()
