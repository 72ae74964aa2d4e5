"""Kills a program at random moments while it saves files, and looks at what is left.

After each kill every file must be whole: with the content of the last save that was finished, or with that of the save
the program was killed in. Then what it left is made to look old, another program saves one file into the same folder, and
nothing of the killed one may be left there.
"""

import collections
import os
import random
import signal
import subprocess
import tempfile
import time
from dataclasses import dataclass, field
from pathlib import Path

from . import wineprefix
from .places import BUILD, WINDOWS_BIN, windows_path
from .processes import as_user, limited, run_to_end, steady_addresses, wait_until

NATIVE_WRITER = BUILD / "native-asan/bin/save_writer"
WINDOWS_WRITER = WINDOWS_BIN / "save_writer.exe"

# Where a kill fell.
BETWEEN = "between two saves"
BEFORE = "in a save, before the temporary file"
EMPTY = "temporary file still empty"
PARTLY = "temporary file with a part or all of its bytes"
AFTER = "in a save, the new file in place"

# The longest that a writer lives once it saves; a save takes some milliseconds. Half of the kills wait for a temporary
# file as well, and come at most so much later: between making its content and having it on the disk a save is at its
# most delicate for a short time only.
SECONDS = 0.06
SECONDS_OF_TEMPORARY = 0.003

# A temporary file of this time is none that is being written.
OLD = 1_000_000_000


class NativeWriter:
    """The writer as a program of this system, under the sanitizers."""

    name = "native"
    env = None

    def __init__(self, program=NATIVE_WRITER, user=None):
        self._program = program
        self._user = os.geteuid() if user is None else user

    def command(self, *arguments):
        return [*as_user(self._user), *steady_addresses(), str(self._program), *map(str, arguments)]

    def settle(self):
        """Waits for what a killed writer started."""

    @staticmethod
    def path(path):
        return str(path)


class WineWriter:
    """The writer as a Windows program in a prefix. What is killed is the process of the program, not Wine's server."""

    name = "windows"

    def __init__(self, prefix, program=WINDOWS_WRITER):
        self._prefix = prefix
        self._program = program
        self.env = prefix.env

    def command(self, *arguments):
        return self._prefix.command([self._program, *arguments])

    def settle(self):
        """Waits for what a killed writer started: a tool of this system, for what no Windows call can do."""
        wait_until(lambda: not any(_is_shell(process) for process in wineprefix.programs(self._prefix.folder)), 20)

    @staticmethod
    def path(path):
        return windows_path(path)


def _is_shell(process):
    try:
        return Path(f"/proc/{process}/cmdline").read_bytes().startswith(b"/bin/sh\0")
    except OSError:
        return False  # it has ended meanwhile


@dataclass
class Outcome:
    """What became of a campaign."""

    moments: collections.Counter = field(default_factory=collections.Counter)
    saves: int = 0  # finished before the kills
    leftovers: int = 0  # temporary files that a kill left and the next save removed
    problems: list = field(default_factory=list)

    @property
    def kills(self):
        return sum(self.moments.values())


@dataclass
class Progress:
    """What a writer told: the number of the last finished save of each file, and of the one it was killed in."""

    finished: dict = field(default_factory=dict)
    started: tuple = None  # (file, number)
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
            progress.started = None
            progress.done += 1
        else:
            progress.complaint = line.strip()
    return progress


def read_check(text):
    """What "save_writer check" tells: a number for each file, None for a damaged one."""
    found = {}
    for line in text.splitlines():
        name, number = line.split()
        found[name] = None if number == "damaged" else int(number)
    return found


def judge(progress, before, found, temporary):
    """Where the kill fell, and what is wrong with the files. before and found: their numbers before the writer started
    and after it was killed; temporary: the size of each temporary file."""
    problems = [progress.complaint] if progress.complaint else []
    started_file, started_number = progress.started or (None, None)
    for name in sorted({*before, *progress.finished, *found, *([started_file] if started_file else [])}):
        old = progress.finished.get(name, before.get(name, "missing"))
        wanted = {old} | ({started_number} if name == started_file else set())
        is_there = found.get(name, "missing")
        if is_there not in wanted:
            problems.append(f"{name} is {'damaged' if is_there is None else is_there}, not one of {wanted}")
    if started_file is None:
        # A line may be told later than what it tells of is done, never earlier.
        moment = BETWEEN
    elif temporary:
        moment = PARTLY if any(temporary.values()) else EMPTY
    else:
        moment = AFTER if found.get(started_file) == started_number else BEFORE
    return moment, problems


def temporary_files(folder):
    """The size of everything in a folder that is no configuration."""
    return {path.name: path.stat().st_size for path in folder.iterdir() if path.suffix != ".pc3"}


def _output(writer, folder, *arguments):
    """What a run of the writer to its end tells, and its status."""
    path = folder.parent / "answer"
    with open(path, "wb") as answer, open(folder.parent / "errors", "ab") as errors:
        status = run_to_end(limited(60, writer.command(*arguments)), env=writer.env, stdout=answer, stderr=errors)
    return status, path.read_text(errors="replace").replace("\r\n", "\n")


def _wait_for_temporary(folder, child):
    wait_until(lambda: any(not name.endswith(".pc3") for name in os.listdir(folder)) or child.poll() is not None, 5,
               pause=0.0002)


def kill_once(writer, folder, first, before, moment, outcome):
    """Lets a writer save files from that number on, kills it at the moment, and adds what was found to the outcome.
    before: the files as they are. The files as they are afterwards."""
    seconds, later = moment
    told = folder.parent / "told"
    with open(told, "wb") as output, open(folder.parent / "errors", "ab") as errors:
        child = subprocess.Popen(writer.command("loop", writer.path(folder), first), env=writer.env,
                                 stdin=subprocess.DEVNULL, stdout=output, stderr=errors)
        try:
            wait_until(lambda: told.stat().st_size > 0 or child.poll() is not None, 60, pause=0.001)
            time.sleep(seconds)
            if later is not None:
                _wait_for_temporary(folder, child)
                time.sleep(later)
        finally:
            child.send_signal(signal.SIGKILL)
            status = child.wait()
            writer.settle()
    progress = read_progress(told.read_text(errors="replace").replace("\r\n", "\n"))
    if status != -signal.SIGKILL:
        outcome.problems.append(f"the writer ended by itself with status {status}: {progress.complaint}")
    temporary = temporary_files(folder)
    status, text = _output(writer, folder, "check", writer.path(folder))
    found = read_check(text)
    place, problems = judge(progress, before, found, temporary)
    if status != 0:
        problems.append(f"looking at the files ended with status {status}")

    for name in temporary:
        os.utime(folder / name, (OLD, OLD))
    status, text = _output(writer, folder, "save", "1", writer.path(folder / "next.pc3"))
    if (status, text) != (0, "saved\n"):
        problems.append(f"the next save ended with status {status}: {text}")
    problems += [f"{name} stays behind" for name in sorted(temporary_files(folder))]
    outcome.moments[place] += 1
    outcome.saves += progress.done
    outcome.leftovers += len(temporary)
    outcome.problems += problems
    return {**found, "next.pc3": 1}


def campaign(writer, kills, seed, told=lambda outcome: None, folder=None):
    """Kills that many writers; the moments follow from the seed, as far as the machine's speed lets them."""
    moments = random.Random(seed)
    outcome = Outcome()
    with tempfile.TemporaryDirectory(prefix="garm-kill-", dir=folder) as place:
        files = Path(place) / "files"
        files.mkdir()
        found = {}
        for number in range(kills):
            moment = (moments.uniform(0, SECONDS), moments.uniform(0, SECONDS_OF_TEMPORARY) if number % 2 else None)
            known = len(outcome.problems)
            found = kill_once(writer, files, number * 1000 + 1, found, moment, outcome)
            outcome.problems[known:] = [f"kill {number + 1} of seed {seed}: {problem}"
                                        for problem in outcome.problems[known:]]
            told(outcome)
    return outcome


def table(outcomes):
    """The moments as a Markdown table: a column for each writer."""
    names = list(outcomes)
    lines = [f"| killed | {' | '.join(names)} |", f"|---|{'---|' * len(names)}"]
    for moment in (BETWEEN, BEFORE, EMPTY, PARTLY, AFTER):
        lines.append(f"| {moment} | {' | '.join(str(outcomes[name].moments[moment]) for name in names)} |")
    lines.append(f"| in all | {' | '.join(str(outcomes[name].kills) for name in names)} |")
    return "\n".join(lines)


def wine_campaign(kills, seed, told=lambda outcome: None, folder=None):
    with wineprefix.clone() as prefix:
        # The first program of a prefix starts Wine's services.
        prefix.run([WINDOWS_WRITER, "check", "."])
        return campaign(WineWriter(prefix), kills, seed, told, folder)
