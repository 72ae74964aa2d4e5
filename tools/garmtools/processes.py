"""Processes that never outlive us and never make us wait for a person."""

import ctypes
import os
import shutil
import signal
import subprocess
import sys
import time
from pathlib import Path

TIMED_OUT = 124

# Address randomisation is off for us and all that we start, where that is allowed (some containers refuse): with it one
# Wine start in a few thousand dies at once, and so do programs under the sanitizers.
ctypes.CDLL(None).personality(0x0040000)


def run_main(main, *arguments):
    """Runs a program's main function and exits with its result. SIGINT, SIGTERM and SIGHUP become an exception, so that
    every finally clause runs once."""
    signals = (signal.SIGINT, signal.SIGTERM, signal.SIGHUP)

    def stop(number, _frame):
        # Not SIG_IGN, which a program that is just being started would inherit and then could not be ended.
        for later in signals:
            signal.signal(later, lambda *_: None)
        sys.exit(128 + number)

    for number in signals:
        signal.signal(number, stop)
    try:
        sys.exit(main(*arguments))
    finally:
        # A signal may come while a program is being started, before anything of ours knows it.
        for child in Path("/proc/thread-self/children").read_text(encoding="ascii").split():
            os.kill(int(child), signal.SIGKILL)
            os.waitpid(int(child), 0)


def allowed_cpus():
    """The CPUs this process may run on, in order."""
    return sorted(os.sched_getaffinity(0))


def as_user(user):
    """The words before a command that is to run as the user of that number; only root may choose another one."""
    return ["setpriv", f"--reuid={user}", f"--regid={user}", "--clear-groups"] if user != os.geteuid() else []


def start_server(command, log, env=None):
    """Starts a foreground server in its own session, so that Ctrl-C reaches only us and we end it in order.

    setpriv makes the kernel end it too if we are killed. Call it from the main thread: that signal
    follows the thread that started the server.
    """
    guard = ["setpriv", "--pdeathsig", "TERM"] if shutil.which("setpriv") else []
    with open(log, "ab") as sink:
        return subprocess.Popen([*guard, *command], stdin=subprocess.DEVNULL, stdout=sink, stderr=sink, env=env,
                                start_new_session=True)


def end_server(server, patience=5.0):
    """Ends a server of ours: politely, then for sure."""
    if server is None or server.poll() is not None:
        return
    server.terminate()
    try:
        server.wait(patience)
    except subprocess.TimeoutExpired:
        server.kill()
        server.wait()


def run_to_end(command, meanwhile=None, **settings):
    """Runs a program without input and returns its status; it ends with us. meanwhile is called repeatedly while it
    runs."""
    child = subprocess.Popen(command, stdin=subprocess.DEVNULL, **settings)
    try:
        while meanwhile and child.poll() is None:
            meanwhile()
            time.sleep(0.005)
        return child.wait()
    finally:
        if child.poll() is None:
            child.terminate()
            child.wait()


def limited(seconds, command):
    """The command under a time limit: exit status 124, or 137 when it had to be killed."""
    return ["timeout", "-k", "5", str(seconds), *map(str, command)]


def wait_until(condition, seconds, pause=0.005):
    """Polls the condition; whether it came true in time."""
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(pause)
    return True


def say(text):
    """One short line of progress."""
    print(text, file=sys.stderr, flush=True)
