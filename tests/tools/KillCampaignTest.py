"""What the kill campaign makes of what it finds."""

import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
from garmtools.killcampaign import (AFTER, BEFORE, BETWEEN, EMPTY, PARTLY, Outcome, Progress, judge, read_check,
                                    read_progress, table)


class ReadingTest(unittest.TestCase):
    def test_progress_is_what_was_finished_and_what_was_begun(self):
        progress = read_progress("start 1 a.pc3\ndone 1\nstart 2 b.pc3\ndone 2\nstart 3 a.pc3\n")
        self.assertEqual((progress.finished, progress.started, progress.done), ({"a.pc3": 1, "b.pc3": 2}, ("a.pc3", 3), 2))

    def test_a_line_without_its_end_was_not_told(self):
        progress = read_progress("start 12 a.pc3\ndone 1")
        self.assertEqual((progress.finished, progress.started), ({}, ("a.pc3", 12)))

    def test_a_save_that_failed_by_itself_is_a_complaint(self):
        self.assertEqual(read_progress("start 1 a.pc3\nfailed 1 no room\n").complaint, "failed 1 no room")

    def test_a_damaged_file_has_no_number(self):
        self.assertEqual(read_check("a.pc3 5\nb.pc3 damaged\n"), {"a.pc3": 5, "b.pc3": None})


class JudgeTest(unittest.TestCase):
    SAVING = Progress(finished={"b.pc3": 6}, started=("a.pc3", 7))

    def found_wrong(self, progress, before, found):
        return judge(progress, before, found, {})[1]

    def test_old_and_new_are_whole(self):
        for number in (3, 7):
            self.assertEqual(self.found_wrong(self.SAVING, {"a.pc3": 3}, {"a.pc3": number, "b.pc3": 6}), [])
        self.assertEqual(self.found_wrong(self.SAVING, {}, {"b.pc3": 6}), [])

    def test_everything_else_is_not(self):
        for found in ({"a.pc3": None, "b.pc3": 6},  # damaged
                      {"b.pc3": 6},  # gone
                      {"a.pc3": 2, "b.pc3": 6},  # older than old
                      {"a.pc3": 3},  # a finished one is gone
                      {"a.pc3": 3, "b.pc3": 5},  # a finished one is old again
                      {"a.pc3": 3, "b.pc3": 6, "c.pc3": 1}):  # nobody wrote it
            self.assertEqual(len(self.found_wrong(self.SAVING, {"a.pc3": 3}, found)), 1, found)

    def test_files_the_writer_did_not_touch_stay_as_they_were(self):
        self.assertEqual(self.found_wrong(Progress(), {"c.pc3": 1}, {"c.pc3": 1}), [])
        self.assertEqual(len(self.found_wrong(Progress(), {"c.pc3": 1}, {})), 1)

    def test_the_moment_follows_from_what_is_there(self):
        old, new = {"a.pc3": 3, "b.pc3": 6}, {"a.pc3": 7, "b.pc3": 6}
        self.assertEqual(judge(Progress(), {}, {}, {})[0], BETWEEN)
        self.assertEqual(judge(self.SAVING, {}, old, {})[0], BEFORE)
        self.assertEqual(judge(self.SAVING, {}, old, {"t": 0})[0], EMPTY)
        self.assertEqual(judge(self.SAVING, {}, old, {"t": 1})[0], PARTLY)
        self.assertEqual(judge(self.SAVING, {}, new, {})[0], AFTER)

    def test_the_table_adds_up(self):
        outcome = Outcome()
        outcome.moments.update({BEFORE: 3, AFTER: 2})
        self.assertEqual(outcome.kills, 5)
        self.assertEqual(table({"native": outcome}).splitlines()[-1], "| in all | 5 |")
