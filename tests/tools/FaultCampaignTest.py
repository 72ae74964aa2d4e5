"""The matrix of lost print servers covers every step, and its judge is not easily content."""

import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
from garmtools import faultcampaign
from garmtools import spoolerfaults as faults
from garmtools.spoolerfaults import BUILT_IN, NOT_OPENED, PARTIAL, UNDISTURBED, Outcome, Step

UNCERTAIN = (UNDISTURBED, BUILT_IN, PARTIAL, NOT_OPENED)
STEPS = [Step("ask", asks=True), Step("wait", waits=True), Step("later"), Step("last")]


class CellsTest(unittest.TestCase):
    def of(self, fault):
        return [cell for cell in faults.cells(STEPS) if cell.fault == fault]

    def test_a_server_that_ends_does_so_before_every_step(self):
        for fault in ("kill for good", "stop for good", "remove the queue", "kill, and start before the next step"):
            self.assertEqual([cell.step for cell in self.of(fault)], [0, 1, 2, 3], fault)

    def test_what_comes_of_it_depends_on_whether_the_driver_has_asked(self):
        self.assertEqual([cell.expected for cell in self.of("kill for good")],
                         [(BUILT_IN,), UNCERTAIN, (UNDISTURBED,), (UNDISTURBED,)])

    def test_what_comes_before_the_driver_asks_is_no_better(self):
        steps = [Step("first"), *STEPS]
        gone = [cell.expected for cell in faults.cells(steps) if cell.fault == "kill for good"]
        self.assertEqual(gone, [(BUILT_IN,), (BUILT_IN,), UNCERTAIN, (UNDISTURBED,), (UNDISTURBED,)])
        back = [cell.expected for cell in faults.cells(steps) if cell.fault == "kill, and start before the next step"]
        self.assertEqual(back[:3], [(UNDISTURBED,), UNCERTAIN, UNCERTAIN])
        self.assertEqual([cell.step for cell in faults.cells(steps) if cell.fault == "freeze for good"], [3, 4])

    def test_nothing_waits_for_a_driver_that_waits_for_a_frozen_server(self):
        self.assertEqual([cell.step for cell in self.of("freeze, and go on before the next step")], [0, 2, 3])
        self.assertEqual([cell.step for cell in self.of("freeze for good")], [2, 3])

    def test_the_server_comes_back_before_the_next_step(self):
        self.assertEqual([cell.actions for cell in self.of("stop, and start before the next step")],
                         [{i: "stop", i + 1: "start"} for i in range(4)])

    def test_at_every_step_the_server_is_gone_but_for_the_driver_to_answer(self):
        self.assertEqual(faults.at_every_step(STEPS, "kill", "start"),
                         {2: ("start", "kill"), 3: ("start", "kill"), 4: "start"})


class DeletionsTest(unittest.TestCase):
    def test_every_place_but_one_has_its_kind_in_the_order_of_the_session(self):
        places = list(faults.deletions())
        opened = faults.TWIN_SESSION.index("dialog")
        self.assertEqual([index for index, _ in places],
                         [i for i in range(1, faults.TWIN_SESSION.index("get-devmode x.pc3") + 1) if i != opened])
        kinds = list(dict.fromkeys(kind for _, kind in places))
        self.assertEqual(kinds, [faults.REBOUND, faults.NO_DRIVER, faults.SETTINGS_TAKEN, faults.RESET])
        self.assertEqual(sorted(kinds, key=[kind for _, kind in places].index), kinds)

    def test_the_printer_is_deleted_once_where_it_was_said(self):
        for index, _ in faults.deletions():
            lines = [step.line for step in faults.with_deletion(index)]
            self.assertEqual(lines.count(faults.DELETE), 1)
            self.assertEqual(lines.index(faults.DELETE), index)

    def test_a_printer_that_is_gone_has_no_dialog_to_wait_for(self):
        pressed = faults.TWIN_SESSION.index(faults.DRIVER_DIALOG[0])
        before = [step.line for step in faults.with_deletion(pressed)]
        after = [step.line for step in faults.with_deletion(pressed + 1)]
        self.assertNotIn(faults.DRIVER_DIALOG[2], before)
        self.assertIn(faults.DRIVER_DIALOG[2], after)


class ReportTest(unittest.TestCase):
    def test_the_sessions_of_a_fault_are_one_row(self):
        report = faultcampaign.Report(lambda _: None)
        report.add("first", "kill", {UNDISTURBED: 3, BUILT_IN: 1}, [])
        report.add("first", "stop", {UNDISTURBED: 4}, [])
        report.add("second", "kill", {UNDISTURBED: 1, "something else": 1}, ["second, kill: why"])
        self.assertEqual(report.plays(), 10)
        self.assertEqual(report.wrong, ["second, kill: why"])
        self.assertEqual(report.table().splitlines()[2:],
                         ["| kill | 2 | 6 | 4 undisturbed, 1 built-in defaults, 1 something else | 1 |",
                          "| stop | 1 | 4 | 4 undisturbed | 0 |"])


class JudgeTest(unittest.TestCase):
    REFERENCES = {UNDISTURBED: Outcome("said", {"x.pc3": b"new"}), BUILT_IN: Outcome("other", {"x.pc3": b"A4"})}

    def judged(self, outcome, *expected):
        return faultcampaign.judge(outcome, self.REFERENCES, expected)

    def test_only_what_equals_a_reference_whole_is_right(self):
        self.assertEqual(self.judged(Outcome("said", {"x.pc3": b"new"}), UNDISTURBED), (UNDISTURBED, None))
        for other in (Outcome("said", {"x.pc3": b"ne"}), Outcome("sai", {"x.pc3": b"new"}),
                      Outcome("said", {"x.pc3": b"new", "left.tmp": b""}), Outcome("said", {})):
            name, problem = self.judged(other, UNDISTURBED, BUILT_IN)
            self.assertEqual(name, "something else")
            self.assertIn("something else", problem)

    def test_of_two_references_that_are_the_same_either_is_right(self):
        same = {UNDISTURBED: Outcome("said", {}), BUILT_IN: Outcome("said", {})}
        self.assertEqual(faultcampaign.judge(Outcome("said", {}), same, (BUILT_IN,)), (BUILT_IN, None))

    def test_not_opened_is_what_left_nothing_behind(self):
        original = {"x.pc3": b"old"}
        for said, files, right in (("outputs: none\nmore", original, True), ("title: x", original, False),
                                   ("outputs: none\n", {"x.pc3": b"ol"}, False),
                                   ("outputs: none\n", {**original, "copy.pc3": b""}, False)):
            outcome = Outcome(said, files)
            name, problem = faultcampaign.judge(outcome, self.REFERENCES, UNCERTAIN, b"old")
            self.assertEqual(problem is None, right, said)
            self.assertEqual(name == NOT_OPENED, right, said)
            self.assertIsNotNone(faultcampaign.judge(outcome, self.REFERENCES, (UNDISTURBED,), b"old")[1])

    def test_another_reference_than_expected_is_wrong(self):
        name, problem = self.judged(self.REFERENCES[BUILT_IN], UNDISTURBED)
        self.assertEqual(name, BUILT_IN)
        self.assertIn(UNDISTURBED, problem)


if __name__ == "__main__":
    unittest.main()
