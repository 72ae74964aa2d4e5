"""Tells of each mutant whether the tests notice it."""

import concurrent.futures
import shutil
import threading
import time
from collections import Counter
from dataclasses import dataclass

from .mutantbuild import LIBRARY
from .processes import say

CAUGHT = "caught"
SURVIVED = "survived"
NOT_COMPILED = "not compiled"
# The optimising compiler makes the same object of it, so no test can tell.
SAME_CODE = "same code"


@dataclass(frozen=True)
class Verdict:
    mutant: object
    result: str
    by: str = ""  # the program that noticed


class Examiner:
    """Builds one mutant and runs the tests that could notice it, the most promising first.

    quick is a Build without sanitizers; thorough one with them, as the tests are run otherwise, or None. Only what
    passes the first is tried with the second.
    """

    def __init__(self, quick, thorough):
        self._builds = [build for build in (quick, thorough) if build]
        self._catches = {}  # (file, program) -> test case -> mutants caught
        self._lock = threading.Lock()

    def examine(self, mutant, source, job):
        shutil.rmtree(job, ignore_errors=True)
        overlay = job / "overlay"
        changed = overlay / mutant.file
        changed.parent.mkdir(parents=True)
        changed.write_text(mutant.apply(source))
        for build in self._builds:
            attempt = Attempt(build, mutant.file, overlay, job / build.folder.name)
            if not attempt.make_library():
                return Verdict(mutant, NOT_COMPILED)
            for name, cases in self._promising(build, mutant.file):
                failed = attempt.failing(name, cases)
                if failed is not None:
                    with self._lock:
                        key = (mutant.file, name)
                        self._catches.setdefault(key, Counter())[failed] += 1
                    return Verdict(mutant, CAUGHT, name)
        return Verdict(mutant, SAME_CODE if attempt.same_code() else SURVIVED)

    def _promising(self, build, file):
        """(program, cases) in the order in which they are worth trying: what caught mutants of this file before, then
        everything, those programs first that caught most, those that are about the file, and short ones."""
        with self._lock:
            catches = {name: self._catches.get((file, name), Counter()) for name in build.programs_for(file)}
            programs = sorted(catches, key=lambda name: (-catches[name].total(), -build.mentions(name, file),
                                                     build.seconds[name]))
            known = {name: [case for case, _ in catches[name].most_common(12) if case] for name in programs}
        return [(name, known[name]) for name in programs if known[name]] + [(name, []) for name in programs]


class Attempt:
    """One mutant in one build."""

    def __init__(self, build, file, overlay, job):
        self._build = build
        self._overlay = overlay
        self._job = job
        job.mkdir()
        self._log = job / "build.log"
        self._touched = set(build.dependents[file])
        self._ours = [made for made in build.library_objects if made in self._touched]
        self._changed = {}  # object -> the mutant's, None when it is in another one

    def make_library(self):
        return self._compile(self._ours) and self._build.link_library(self._job, self._changed, self._log)

    def failing(self, name, cases):
        """The program's test that fails, "" when none tells, None when all pass. Tests that include a mutant header
        are compiled with it; one that does not compile any more has noticed."""
        program = self._build.program(name)
        theirs = [made for made in self._build.objects_of(name) if made in self._touched]
        if theirs:
            program = self._job / name
            if not program.exists():
                # The printer room is in several programs, and compiled for the first of them.
                missing = [made for made in theirs if made not in self._changed]
                if not (self._compile(missing)
                        and self._build.link_program(name, program, self._changed, self._log)):
                    return ""
        return self._build.run(name, program, self._job, cases)

    def _compile(self, objects):
        for group in self._groups(objects):
            target = self._job / f"{len(self._changed)}.o"
            if not self._build.compile(group, target, self._overlay, self._log):
                return False
            self._changed.update({**dict.fromkeys(group), group[0]: target})
        return True

    def _groups(self, objects):
        """What is compiled together: of each folder as many as can be."""
        folders = {}
        for made in objects:
            folders.setdefault(made.split(".dir/")[0], []).append(made)
        waiting = list(folders.values())
        while waiting:
            group = waiting.pop()
            if len(group) == 1 or self._build.can_be_one(group):
                yield group
            else:
                waiting += [group[:len(group) // 2], group[len(group) // 2:]]

    def same_code(self):
        """Whether optimising makes the objects of the library equal to those of the unchanged sources."""
        return all(self._build.optimised(group, self._overlay, self._job) == self._build.optimised(group)
                   for group in self._groups(self._ours))


def check_unchanged(build, programs):
    """Runs the tests on the unchanged sources, to know that they pass and how long they take."""
    job = build.folder / "unchanged"
    shutil.rmtree(job, ignore_errors=True)
    job.mkdir()
    shutil.copy(build.folder / LIBRARY, job)
    for name in programs:
        began = time.monotonic()
        if build.run(name, build.program(name), job, seconds=600) is not None:
            return f"{name} fails on the unchanged sources, see {job / 'run.log'}"
        build.seconds[name] = time.monotonic() - began
    return None


def examine_all(examiner, mutants, sources, jobs, folder, tell):
    """Examines the mutants, several at a time. tell gets each verdict as it comes."""
    stop = threading.Event()
    free = [folder / f"job{number}" for number in range(jobs)]

    def work(mutant):
        if stop.is_set():
            return
        job = free.pop()
        try:
            verdict = examiner.examine(mutant, sources[mutant.file], job)
        finally:
            free.append(job)
        if not stop.is_set():  # a test that was ended by us has noticed nothing
            tell(verdict)

    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        try:
            for done in concurrent.futures.as_completed([pool.submit(work, mutant) for mutant in mutants]):
                done.result()
        except BaseException:
            stop.set()
            say("stopping")
            raise
