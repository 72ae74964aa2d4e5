"""The runner believes a report only when the whole run bears it out."""

import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
from garmtools import gtestrun

CASE = '<testcase name="{name}" classname="Suite" status="{status}" result="{result}">{inside}</testcase>'
REPORT = '<testsuites><testsuite name="Suite">{cases}</testsuite></testsuites>'


def case(name, inside="", status="run", result="completed"):
    return CASE.format(name=name, inside=inside, status=status, result=result)


class GtestRunTest(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.folder = Path(holder.name)

    def run_script(self, body, runner=None):
        """Runs a shell script in place of a test program; $xml is where its report belongs."""
        program = self.folder / "program"
        program.write_text('#!/bin/sh\nxml=${1#--gtest_output=xml:}\n' + body)
        program.chmod(0o755)
        return gtestrun.run_program(runner or gtestrun.NativeRunner(), program, self.folder)

    def writing(self, *cases, status=0):
        return f"cat >$xml <<'END'\n{REPORT.format(cases=''.join(cases))}\nEND\nexit {status}\n"

    def test_every_case_counts(self):
        result = self.run_script(self.writing(case("a"), case("b")))
        self.assertEqual((result.passed, result.failures), (2, []))

    def test_a_failing_case_is_named_with_its_text(self):
        result = self.run_script(self.writing(case("a"), case("b", '<failure message="m">why</failure>'), status=1))
        self.assertEqual((result.passed, result.failures), (1, [("Suite.b", "why")]))

    def test_a_skipped_or_disabled_case_is_a_failure(self):
        result = self.run_script(self.writing(case("a", result="skipped"), case("b", status="notrun")))
        self.assertEqual((result.passed, len(result.failures)), (0, 2))

    def test_a_crash_is_a_failure_with_the_output(self):
        result = self.run_script("echo last words; kill -SEGV $$\n")
        self.assertEqual((result.passed, len(result.failures)), (0, 1))
        self.assertIn("last words", result.failures[0][1])

    def test_success_without_a_report_is_a_failure(self):
        self.assertEqual(len(self.run_script("exit 0\n").failures), 1)

    def test_an_old_report_is_not_believed(self):
        (self.folder / "program.xml").write_text(REPORT.format(cases=case("a")))
        self.assertEqual(self.run_script("exit 0\n").passed, 0)

    def test_half_a_report_is_a_failure(self):
        self.assertEqual(len(self.run_script("echo '<testsuites><testsuite>' >$xml\n").failures), 1)

    def test_no_tests_is_a_failure(self):
        self.assertEqual(len(self.run_script(self.writing()).failures), 1)

    def test_a_bad_end_after_good_tests_is_a_failure(self):
        result = self.run_script(self.writing(case("a"), status=23))
        self.assertEqual((result.passed, len(result.failures)), (1, 1))
        self.assertIn("23", result.failures[0][1])

    def test_a_program_that_cannot_be_started_is_a_failure(self):
        result = gtestrun.run_all([self.folder / "missing"], [gtestrun.NativeRunner()], self.folder)
        self.assertEqual((result.passed, len(result.failures)), (0, 1))

    def test_a_hiccup_of_the_carrier_gets_one_second_try(self):
        class Hiccups(gtestrun.NativeRunner):
            @staticmethod
            def try_again(log):
                return "hiccup" in log

        once = "if [ ! -e tried ]; then touch tried; echo hiccup; exit 1; fi\n"
        self.assertEqual(self.run_script(once + self.writing(case("a")), Hiccups()).passed, 1)
        self.assertEqual(len(self.run_script("echo hiccup; exit 1\n", Hiccups()).failures), 1)

    def test_programs_are_shared_out_and_each_is_run_once(self):
        programs = []
        for number in range(6):
            program = self.folder / f"p{number}"
            program.write_text('#!/bin/sh\nxml=${1#--gtest_output=xml:}\necho run >>"$0.runs"\n'
                               + self.writing(case(f"c{number}")))
            program.chmod(0o755)
            programs.append(program)
        result = gtestrun.run_all(programs, [gtestrun.NativeRunner() for _ in range(3)], self.folder)
        self.assertEqual((result.passed, result.failures), (6, []))
        for program in programs:
            self.assertEqual(Path(f"{program}.runs").read_text(), "run\n")

    def test_programs_are_sorted_by_the_scale_they_run_at(self):
        lines = ["/bin/a", "/bin/b c", "/bin/b c\t144", "/bin/b c\t192", "/bin/d\t144", ""]
        self.assertEqual(gtestrun.programs_by_scale(lines),
                         {None: [Path("/bin/a"), Path("/bin/b c")], 144: [Path("/bin/b c"), Path("/bin/d")],
                          192: [Path("/bin/b c")]})

    def test_named_programs_are_chosen_and_must_exist(self):
        programs = [Path("/bin/a"), Path("/bin/b.exe"), Path("/bin/c")]
        self.assertEqual(gtestrun.chosen(programs, []), programs)
        self.assertEqual(gtestrun.chosen(programs, ["c", "b"]), programs[1:])
        self.assertRaises(ValueError, gtestrun.chosen, programs, ["a", "nowhere"])

    def test_memcheck_leaves_out_only_what_it_says(self):
        command = gtestrun.MemcheckRunner().command
        limits = command(Path("/bin/pia_limits_test"), Path("x.xml"))
        self.assertIn("--error-exitcode=99", limits)
        self.assertEqual(sum(word.startswith("--gtest_filter=-") for word in limits), 1)
        self.assertFalse(any("filter" in word for word in command(Path("/bin/pia_test"), Path("x.xml"))))

    def test_a_list_without_programs_has_none_at_any_scale(self):
        self.assertEqual(gtestrun.programs_by_scale([""]), {None: []})


if __name__ == "__main__":
    unittest.main()
