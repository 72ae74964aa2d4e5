"""The runner of the fuzz targets believes a run only when it ended well after having tried something."""

import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
from garmtools import fuzzrun

LOG = """INFO: Seed: 1
#170	INITED cov: 4137 ft: 13093 corp: 142/14241b exec/s: 0 rss: 92Mb
#3901	DONE   cov: 4483 ft: 19820 corp: 718/117Kb lim: 2048 exec/s: 185 rss: 470Mb
stat::number_of_executed_units: 3901
stat::average_exec_per_sec:     185
seconds: 21.500 9.250 0.750
"""
CRASH = """SUMMARY: UndefinedBehaviorSanitizer: undefined-behavior
artifact_prefix='/b/tree-'; Test unit written to /b/tree-crash-1234
stat::number_of_executed_units: 17
"""


class FuzzRunTest(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.folder = Path(holder.name)
        self.target = fuzzrun.Target(Path("/b/bin/fuzz_tree"), 4096)

    def script(self, body):
        """A shell script in place of a target."""
        program = self.folder / "fuzz_script"
        program.write_text("#!/bin/sh\n" + body)
        program.chmod(0o755)
        return fuzzrun.Target(program, 64)

    def run_script(self, body, seconds=1):
        return fuzzrun.run_target(self.script(body), seconds, self.folder / "corpus", self.folder)

    def test_a_list_names_programs_and_longest_inputs(self):
        self.assertEqual(fuzzrun.targets("/b/bin/fuzz_tree\t4096\n/b/fuzz_custom\t64\n\n"),
                         [self.target, fuzzrun.Target(Path("/b/fuzz_custom"), 64)])
        self.assertEqual([target.name for target in fuzzrun.targets("/b/bin/fuzz_tree\t4096\n")], ["tree"])
        self.assertEqual(fuzzrun.targets("\n"), [])

    def test_a_log_tells_executions_edges_and_time(self):
        told = fuzzrun.figures(LOG)
        self.assertEqual((told.executions, told.edges, told.inputs), (3901, 4483, 718))
        self.assertEqual((told.wall, told.cpu), (21.5, 10.0))

    def test_a_log_without_figures_has_none(self):
        self.assertEqual(fuzzrun.figures("no such file\n"), fuzzrun.Figures())

    def test_a_run_that_ended_well_passes(self):
        result = fuzzrun.judge("tree", "fuzzing", self.target, 0, LOG)
        self.assertEqual((result.passed, result.failures), (1, []))

    def test_a_run_that_tried_nothing_fails(self):
        for log in ("", "stat::number_of_executed_units: 0\n"):
            result = fuzzrun.judge("tree", "fuzzing", self.target, 0, log)
            self.assertEqual((result.passed, len(result.failures)), (0, 1))

    def test_a_run_that_ended_badly_fails(self):
        result = fuzzrun.judge("tree", "replay", self.target, 124, LOG)
        self.assertEqual((result.passed, len(result.failures)), (0, 1))
        self.assertIn("124", result.failures[0][1])

    def test_a_finding_fails_with_the_command_that_tries_it_again(self):
        for status in (77, 0):
            result = fuzzrun.judge("tree", "fuzzing", self.target, status, CRASH)
            self.assertEqual((result.passed, len(result.failures)), (0, 1))
            self.assertTrue(result.failures[0][1].endswith("/b/bin/fuzz_tree /b/tree-crash-1234"))

    def test_a_target_replays_and_then_fuzzes(self):
        result, told = self.run_script('echo "$@"; echo "stat::number_of_executed_units: 5"\n')
        self.assertEqual((result.passed, result.failures), (2, []))
        self.assertEqual(told.executions, 5)
        self.assertIsNotNone(told.cpu)
        replay = (self.folder / "logs" / "script-replay.log").read_text()
        fuzzing = (self.folder / "logs" / "script-fuzzing.log").read_text()
        self.assertIn("-runs=0", replay)
        self.assertNotIn(str(self.folder / "corpus"), replay)
        self.assertIn("-max_total_time=1", fuzzing)
        self.assertIn("-max_len=64", fuzzing)
        # New inputs go to the first folder that is named.
        self.assertEqual([word for word in fuzzing.split() if word.startswith("/")][0], str(self.folder / "corpus"))

    def test_a_crash_in_the_replay_is_a_failure_of_its_own(self):
        result, _ = self.run_script('case "$*" in *-runs=0*) kill -SEGV $$;; esac\n'
                                    'echo "stat::number_of_executed_units: 5"\n')
        self.assertEqual((result.passed, [name for name, _ in result.failures]), (1, ["fuzz script: replay"]))

    def test_every_target_is_run_once(self):
        found = []
        for name in ("a", "b", "c"):
            program = self.folder / f"fuzz_{name}"
            program.write_text(f"#!/bin/sh\necho run >>{self.folder}/{name}.runs\n"
                               "echo 'stat::number_of_executed_units: 5'\n")
            program.chmod(0o755)
            found.append(fuzzrun.Target(program, 64))
        result, told = fuzzrun.run_all(found, 1, self.folder / "corpora", self.folder, 2)
        self.assertEqual((result.passed, result.failures), (6, []))
        self.assertEqual(sorted(told), ["a", "b", "c"])
        for name in told:
            self.assertEqual((self.folder / f"{name}.runs").read_text(), "run\nrun\n")

    def test_a_target_that_is_missing_is_a_failure(self):
        result, _ = fuzzrun.run_all([fuzzrun.Target(self.folder / "fuzz_none", 64)], 1, self.folder / "corpora",
                                    self.folder, 1)
        self.assertEqual((result.passed, len(result.failures)), (0, 2))

    def test_the_table_has_a_line_per_target(self):
        lines = fuzzrun.table({"tree": fuzzrun.figures(LOG), "custom": fuzzrun.Figures()}).split("\n")
        self.assertEqual(lines[1].split(), ["custom"])
        self.assertEqual(lines[2].split(), ["tree", "22", "10", "3901", "4483", "718"])

    def test_long_runs_are_recorded_one_after_the_other(self):
        record = self.folder / "runs.tsv"
        for when in ("now", "then"):
            fuzzrun.keep_record(record, {"tree": fuzzrun.figures(LOG)}, when)
        self.assertEqual(record.read_text().split("\n")[1], "then\ttree\t21.5\t10.0\t3901\t4483\t718")

    def test_minutes_are_a_positive_number(self):
        self.assertEqual(fuzzrun.seconds_of("60"), 3600)
        for wrong in ("0", "-1", "many", "nan", "inf", "1e9"):
            with self.assertRaises(ValueError, msg=wrong):
                fuzzrun.seconds_of(wrong)


if __name__ == "__main__":
    unittest.main()
