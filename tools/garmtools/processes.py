"""Processes that never outlive us and never make us wait for a person."""

import functools
import os
import shutil
import signal
import subprocess
import sys
import threading
import time

TIMED_OUT = 124

_running = set()  # what a signal ends
_stopped_by = None  # the signal that asked us to stop
_starting = False  # the main thread is between starting a process and knowing it


class Interrupted(KeyboardInterrupt):
    """A signal asked us to stop; unwinding ends what we started. unittest lets this kind pass."""


def run_main(main, *arguments):
    """Runs a program's main function and exits with its result. SIGINT, SIGTERM and SIGHUP become an exception, so that
    every finally clause runs once."""

    def stop(number, _frame):
        global _stopped_by
        # Not SIG_IGN, which a program that is just being started would inherit and then could not be ended.
        for later in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            signal.signal(later, lambda *_: None)
        _stopped_by = number
        for child in list(_running):
            child.terminate()
        if not _starting:
            raise Interrupted(128 + number)

    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, stop)
    try:
        sys.exit(main(*arguments))
    except Interrupted as interrupted:
        sys.exit(interrupted.args[0])


def allowed_cpus():
    """The CPUs this process may run on, in order."""
    return sorted(os.sched_getaffinity(0))


@functools.lru_cache(maxsize=None)
def steady_addresses():
    """The words that switch off address randomisation, or none where that is refused (some containers do).

    With it one Wine start in a few thousand dies at once, and so do programs under the sanitizers.
    """
    words = ("setarch", "-R")
    if shutil.which("setarch") is None:
        return ()
    probe = subprocess.run([*words, "true"], stdin=subprocess.DEVNULL, capture_output=True, check=False)
    return words if probe.returncode == 0 else ()


def as_user(user):
    """The words before a command that is to run as the user of that number; only root may choose another one."""
    return ["setpriv", f"--reuid={user}", f"--regid={user}", "--clear-groups"] if user != os.geteuid() else []


def start_server(command, log, env=None):
    """Starts a foreground server in a session of its own, so that Ctrl-C reaches only us and we end it in order.

    setpriv makes the kernel end it as well should we be killed outright. Call it from the main thread: that signal
    follows the thread that started the server.
    """
    guard = ["setpriv", "--pdeathsig", "TERM"] if shutil.which("setpriv") else []
    with open(log, "ab") as sink:
        server = _start([*guard, *command], stdout=sink, stderr=sink, env=env, start_new_session=True)
    _running.discard(server)  # it is ended in order, after its clients
    return server


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
    """Like subprocess.call without input, but the program ends with us when a signal stops us. meanwhile is called
    again and again as long as the program runs; when it throws, the program is ended first."""
    child = _start(command, **settings)
    try:
        if meanwhile:
            _attend(child, meanwhile)
        return child.wait()
    finally:
        _running.discard(child)


def _attend(child, meanwhile, pause=0.005):
    try:
        while child.poll() is None:
            meanwhile()
            time.sleep(pause)
    except BaseException:
        child.terminate()
        child.wait()
        raise


def _start(command, **settings):
    """Starts a process and takes it into _running. A signal in between waits until it is there, and then ends it:
    otherwise nobody would know the process."""
    global _starting
    main = threading.current_thread() is threading.main_thread()
    if main:
        _starting = True
    try:
        child = subprocess.Popen(command, stdin=subprocess.DEVNULL, **settings)
        _running.add(child)
    finally:
        if main:
            _starting = False
    if _stopped_by is not None:
        child.terminate()
        if main:
            child.wait()
            raise Interrupted(128 + _stopped_by)
    return child


def limited(seconds, command):
    """The command under a time limit: exit status 124, or 137 when it had to be killed."""
    return ["timeout", "-k", "5", str(seconds), *command]


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
