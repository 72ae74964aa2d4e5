"""What we do while a program runs, and that it never outlives us."""

import os
import signal
import subprocess
import sys

import pytest
from garmtools import editorscript, processes

# Ends when its file is removed.
WAITS = [sys.executable, "-c", "import os, sys, time\nwhile os.path.exists(sys.argv[1]): time.sleep(0.001)\n"]


@pytest.fixture
def file(tmp_path):
    (tmp_path / "request").write_text("kill")
    return tmp_path / "request"


def test_meanwhile_is_called_while_the_program_runs(file):
    assert processes.run_to_end([*WAITS, file], lambda: file.unlink(missing_ok=True)) == 0


def test_failing_meanwhile_ends_the_program(file, monkeypatch):
    started = []
    popen = subprocess.Popen
    monkeypatch.setattr(subprocess, "Popen", lambda *words, **settings: started.append(popen(*words, **settings)) or started[0])

    def fail():
        raise ValueError("no server")

    with pytest.raises(ValueError):
        processes.run_to_end([*WAITS, file], fail)
    assert started[0].returncode == -signal.SIGTERM


def test_program_is_waited_for():
    assert processes.run_to_end([sys.executable, "-c", "raise SystemExit(3)"]) == 3


@pytest.mark.parametrize("number", [signal.SIGINT, signal.SIGTERM, signal.SIGHUP])
def test_signal_ends_what_was_started(file, number):
    main = ("import sys\nfrom garmtools import processes\n"
            f"processes.run_main(processes.run_to_end, {[*WAITS, str(file)]!r})\n")
    us = subprocess.Popen([sys.executable, "-c", main], env={**os.environ, "PYTHONPATH": processes.__file__.rsplit("/", 2)[0]})
    children = f"/proc/{us.pid}/task/{us.pid}/children"
    assert processes.wait_until(lambda: open(children).read(), 10)
    child = int(open(children).read().split()[0])
    us.send_signal(number)
    assert us.wait(10) == 128 + number
    with pytest.raises(ProcessLookupError):
        os.kill(child, 0)


def test_request_is_removed_when_it_was_done(file):
    seen = []
    editorscript._attend(file, lambda text: seen.append((text, file.exists())))
    assert seen == [("kill", True)]
    assert not file.exists()
    editorscript._attend(file, seen.append)
    assert len(seen) == 1


def test_request_that_failed_stays(file):
    def fail(_):
        raise RuntimeError("no server")

    with pytest.raises(RuntimeError):
        editorscript._attend(file, fail)
    assert file.exists()
