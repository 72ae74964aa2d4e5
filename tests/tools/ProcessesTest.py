"""What we do while a program runs, and that it never outlives us."""

import os
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
from garmtools import editorscript, processes

# Ends when its file has gone.
WAITS = "import os, sys, time\nwhile os.path.exists(sys.argv[1]): time.sleep(0.001)\n"


class MeanwhileTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = Path(folder.name, "request")

    def test_it_is_done_while_the_program_runs(self):
        self.file.write_text("now")
        status = processes.run_to_end([sys.executable, "-c", WAITS, str(self.file)],
                                      lambda: self.file.unlink(missing_ok=True))
        self.assertEqual(status, 0)

    def test_what_it_throws_ends_the_program_first(self):
        self.file.write_text("never taken away")
        pids = []

        def fail():
            pids.extend(process.pid for process in processes._running)
            raise ValueError("no server")

        with self.assertRaises(ValueError):
            processes.run_to_end([sys.executable, "-c", WAITS, str(self.file)], fail)
        self.assertEqual(len(pids), 1)
        with self.assertRaises(ProcessLookupError):
            os.kill(pids[0], 0)

    def test_without_it_the_program_is_just_waited_for(self):
        self.assertEqual(processes.run_to_end([sys.executable, "-c", "raise SystemExit(3)"]), 3)


class RequestTest(unittest.TestCase):
    """The script of editordriver goes on when its request is gone: only after it was done."""

    def test_a_request_is_done_and_then_taken_away(self):
        with tempfile.TemporaryDirectory() as folder:
            request = Path(folder, "request")
            request.write_text("kill")
            seen = []
            editorscript._attend(request, lambda text: seen.append((text, request.exists())))
            self.assertEqual(seen, [("kill", True)])
            self.assertFalse(request.exists())
            editorscript._attend(request, seen.append)
            self.assertEqual(len(seen), 1)

    def test_what_could_not_be_done_stays_asked_for(self):
        with tempfile.TemporaryDirectory() as folder:
            request = Path(folder, "request")
            request.write_text("kill")

            def fail(_):
                raise RuntimeError("no server")

            with self.assertRaises(RuntimeError):
                editorscript._attend(request, fail)
            self.assertTrue(request.exists())


if __name__ == "__main__":
    unittest.main()
