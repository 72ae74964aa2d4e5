"""The runner of Python tests counts what ran, and nothing else as passed."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
from garmtools import unittestrun

TESTS = """import unittest
class A(unittest.TestCase):
    def test_good(self): pass
    def test_bad(self): self.fail("the reason")
    def test_broken(self): raise ValueError("oops")
    @unittest.skip("later")
    def test_skipped(self): pass
    @unittest.expectedFailure
    def test_expected(self): self.fail()
    def test_parts(self):
        for i in range(3):
            with self.subTest(i): self.assertEqual(i, 1)
class B(unittest.TestCase):
    @classmethod
    def setUpClass(cls): raise OSError("no server")
    def test_never_run(self): pass
"""


class UnittestRunTest(unittest.TestCase):
    def setUp(self):
        self.said = []

    def test_only_what_ran_and_held_is_passed(self):
        with tempfile.TemporaryDirectory() as folder:
            Path(folder, "SomeTest.py").write_text(TESTS)
            result = unittestrun.run(folder, [], self.said.append)
        self.assertEqual(result.passed, 1)
        named = " ".join(name for name, _ in result.failures)
        for name in ("test_bad", "test_broken", "test_skipped", "test_expected", "test_parts", "setUpClass"):
            self.assertIn(name, named)
        # Two of the three parts differ; every other failure is one.
        self.assertEqual(len(result.failures), 7)
        self.assertIn("the reason", " ".join(text for _, text in result.failures))
        self.assertEqual(len(self.said), 7, "a failure is said at once, a success is not")

    def test_no_tests_is_a_failure(self):
        with tempfile.TemporaryDirectory() as folder:
            self.assertEqual(len(unittestrun.run(folder, [], self.said.append).failures), 1)

    def test_a_file_that_cannot_be_read_is_a_failure(self):
        with tempfile.TemporaryDirectory() as folder:
            Path(folder, "BrokenTest.py").write_text("import no_such_module_of_ours\n")
            self.assertEqual(len(unittestrun.run(folder, [], self.said.append).failures), 1)


class StopTest(unittest.TestCase):
    """A signal ends what a program of ours has started."""

    def test_a_server_does_not_outlive_its_program(self):
        script = ("import subprocess, sys; sys.path.insert(0, sys.argv[1])\n"
                  "from garmtools import processes\n"
                  "def main():\n"
                  "    server = processes.start_server(['sleep', '600'], '/dev/null')\n"
                  "    print(server.pid, flush=True)\n"
                  "    try:\n"
                  "        processes.run_to_end(['sleep', '600'], stdout=subprocess.DEVNULL)\n"
                  "    finally:\n"
                  "        processes.end_server(server)\n"
                  "processes.run_main(main)\n")
        for number, name in ((2, "SIGINT"), (15, "SIGTERM"), (1, "SIGHUP")):
            with self.subTest(name):
                program = subprocess.Popen([sys.executable, "-c", script, str(ROOT / "tools")], stdout=subprocess.PIPE,
                                           text=True)
                with program:
                    server = int(program.stdout.readline())
                    program.send_signal(number)
                    self.assertEqual(program.wait(30), 128 + number)
                self.assertFalse(running(server), "the server is still there")


def running(pid):
    try:
        return "State:\tZ" not in Path(f"/proc/{pid}/status").read_text()
    except OSError:
        return False


if __name__ == "__main__":
    unittest.main()
