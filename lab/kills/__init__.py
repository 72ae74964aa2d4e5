"""Kills a program at random moments while it saves files, and looks at what is left.

After each kill every file must be whole: with the content of the last finished save, or of the one that the kill
interrupted. Then what it left is made to look old, another program saves a file into the same folder, and nothing of
the killed one may be left there.
"""

import os
import random
import signal
import subprocess
import tempfile
import time
from collections import Counter
from dataclasses import dataclass, field
from pathlib import Path

from garmtools import wineprefix
from garmtools.places import BUILD, WINDOWS_BIN, windows_path
from garmtools.processes import as_user, limited, wait_until

NATIVE_WRITER = BUILD / "native-asan/bin/save_writer"
WINDOWS_WRITER = WINDOWS_BIN / "save_writer.exe"

# Where a kill fell.
MOMENTS = BETWEEN, BEFORE, EMPTY, PARTLY, AFTER = (
    "between two saves", "in a save, before the temporary file", "temporary file still empty",
    "temporary file with a part or all of its bytes", "in a save, the new file in place")

# The longest that a writer lives once it saves; a save takes some milliseconds. Half of the kills wait for a temporary
# file as well, and come at most so much later: between making its content and having it on the disk a save is at its
# most delicate for a short time only.
SECONDS, SECONDS_OF_TEMPORARY = 0.06, 0.003

OLD = 1_000_000_000  # a temporary file of this time is not being written any more


class NativeWriter:
    """The writer as a program of this system, under the sanitizers."""

    env = None
    path = staticmethod(str)

    def __init__(self, program=NATIVE_WRITER, user=None, words=()):
        self.folder = Path(program).parent
        self._words = [*words, *as_user(os.geteuid() if user is None else user), str(program)]

    def command(self, *arguments):
        return [*self._words, *map(str, arguments)]

    def settle(self):
        """Waits for what a killed writer started."""


class WineWriter:
    """The writer as a Windows program in a prefix. What is killed is the process of the program, not Wine's server."""

    path = staticmethod(windows_path)

    def __init__(self, prefix, program=WINDOWS_WRITER):
        self.folder = Path(program).parent
        self._prefix = prefix
        self._program = program
        self.env = prefix.env
        # The first program of a prefix starts Wine's services, which would hold a pipe open for good.
        prefix.run([program, "check", "."], cwd=self.folder)

    def command(self, *arguments):
        return self._prefix.command([self._program, *arguments])

    def settle(self):
        """Waits for what a killed writer started: a tool of this system, for what no Windows call can do."""
        wait_until(lambda: not any(_is_shell(process) for process in wineprefix.programs(self._prefix.folder)), 20)


def _is_shell(process):
    try:
        return Path(f"/proc/{process}/cmdline").read_bytes().startswith(b"/bin/sh\0")
    except OSError:
        return False  # it has ended meanwhile


def output(writer, *arguments, **settings):
    """The lines that the writer prints, run to its end from its own folder."""
    # Through a pipe, which a limit of the size of files does not concern.
    done = subprocess.run(limited(300, writer.command(*arguments)), env=writer.env, cwd=writer.folder,
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False,
                          **settings)
    return done.stdout.decode(errors="replace").replace("\r\n", "\n").splitlines()


@dataclass
class Outcome:
    """What became of a campaign."""

    moments: Counter = field(default_factory=Counter)
    saves: int = 0  # finished before the kills
    leftovers: int = 0  # temporary files that a kill left and the next save removed
    problems: list = field(default_factory=list)


@dataclass
class Progress:
    """What a writer reported: the number of the last finished save of each file, and of the interrupted one."""

    finished: dict = field(default_factory=dict)
    started: tuple = (None, None)  # file, number
    done: int = 0
    complaint: str = ""


def read_progress(text):
    progress = Progress()
    for line in text.splitlines(keepends=True):
        if not line.endswith("\n"):
            break  # killed in the middle of it
        word, *rest = line.split()
        if word == "start":
            progress.started = (rest[1], int(rest[0]))
        elif word == "done":
            file, number = progress.started
            progress.finished[file] = number
            progress.started = (None, None)
            progress.done += 1
        else:
            progress.complaint = line.strip()
    return progress


def read_check(lines):
    """What "save_writer check" reports: a number for each file, None for a damaged one."""
    pairs = [line.split(maxsplit=1) for line in lines]
    return {name: int(number) if number.isdigit() else None for name, number in pairs}


def judge(progress, before, found, temporary):
    """Where the kill fell, and what is wrong with the files. before and found: their numbers before the writer started
    and after the kill; temporary: the size of each temporary file."""
    problems = [progress.complaint] if progress.complaint else []
    started_file, started_number = progress.started
    for name in sorted({*before, *progress.finished, *found} | ({started_file} if started_file else set())):
        wanted = {progress.finished.get(name, before.get(name, "missing"))}
        wanted |= {started_number} if name == started_file else set()
        is_there = found.get(name, "missing")
        if is_there not in wanted:
            problems.append(f"{name} is {'damaged' if is_there is None else is_there}, not one of {wanted}")
    if started_file is None:
        # A line may be printed later than what it reports is done, never earlier.
        return BETWEEN, problems
    if temporary:
        return PARTLY if any(temporary.values()) else EMPTY, problems
    return AFTER if found.get(started_file) == started_number else BEFORE, problems


def temporary_files(folder):
    """The size of everything in a folder that is not a configuration."""
    return {path.name: path.stat().st_size for path in folder.iterdir() if path.suffix != ".pc3"}


def kill_once(writer, folder, first, before, moment, outcome):
    """Lets a writer save files from that number on, kills it at the moment, and adds what was found to the outcome.
    before: the files as they are; returned are the files as they are afterwards."""
    seconds, later = moment
    printed = folder.parent / "printed"
    with open(printed, "wb") as sink:
        child = subprocess.Popen(writer.command("loop", writer.path(folder), first), env=writer.env,
                                 stdin=subprocess.DEVNULL, stdout=sink, stderr=subprocess.DEVNULL)
        try:
            wait_until(lambda: printed.stat().st_size > 0 or child.poll() is not None, 60, pause=0.001)
            time.sleep(seconds)
            if later is not None:
                wait_until(lambda: any(not name.endswith(".pc3") for name in os.listdir(folder))
                           or child.poll() is not None, 5, pause=0.0002)
                time.sleep(later)
        finally:
            child.send_signal(signal.SIGKILL)
            status = child.wait()
            writer.settle()
    progress = read_progress(printed.read_text(errors="replace").replace("\r\n", "\n"))
    problems = [f"the writer ended by itself with status {status}"] if status != -signal.SIGKILL else []
    temporary = temporary_files(folder)
    found = read_check(output(writer, "check", writer.path(folder)))
    place, wrong = judge(progress, before, found, temporary)
    for name in temporary:
        os.utime(folder / name, (OLD, OLD))
    answer = output(writer, "save", "1", writer.path(folder / "next.pc3"))
    if answer != ["saved"]:
        problems.append(f"the next save: {answer}")
    outcome.problems += [*problems, *wrong, *(f"{name} stays behind" for name in sorted(temporary_files(folder)))]
    outcome.moments[place] += 1
    outcome.saves += progress.done
    outcome.leftovers += len(temporary)
    return {**found, "next.pc3": 1}


def campaign(writer, kills, seed):
    """Kills that many writers; the moments follow from the seed, as far as the machine's speed lets them."""
    moments = random.Random(seed)
    outcome = Outcome()
    with tempfile.TemporaryDirectory(prefix="garm-kill-") as place:
        files = Path(place, "files")
        files.mkdir()
        found = {}
        for number in range(kills):
            moment = (moments.uniform(0, SECONDS), moments.uniform(0, SECONDS_OF_TEMPORARY) if number % 2 else None)
            found = kill_once(writer, files, number * 1000 + 1, found, moment, outcome)
    return outcome
