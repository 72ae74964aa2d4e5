"""Runs GoogleTest programs, each once, several at a time, and believes only their XML reports.

    python3 -m garmtools.gtestrun [--memcheck] PRESET [NAMES...]    (with PYTHONPATH=tools)

The programs are those of build/PRESET/test-programs.txt, or the named ones of them; --memcheck runs them under valgrind.

A program that crashes, runs out of time, writes no report, has no tests or skips one counts as failed: a test that did
not run proves nothing.
"""

import contextlib
import os
import queue
import subprocess
import sys
import threading
import xml.etree.ElementTree as ElementTree
from pathlib import Path

from . import wineprefix
from .places import BUILD, RESULTS, windows_path
from .processes import TIMED_OUT, allowed_cpus, limited, run_main, run_to_end, steady_addresses
from .results import Result, report

SECONDS = 300  # for one program; the slowest takes a few


class NativeRunner:
    """Runs a program directly, so that a sanitizer's report ends up in its log."""

    def command(self, program, xml):
        return limited(SECONDS, [*steady_addresses(), str(program), f"--gtest_output=xml:{xml}"])

    # What a sanitizer finds ends the program and is told with the calls that led there. Memory of a function that has
    # returned is watched as well.
    env = {**os.environ, "ASAN_OPTIONS": "detect_stack_use_after_return=1",
           "UBSAN_OPTIONS": "print_stacktrace=1:halt_on_error=1", "TSAN_OPTIONS": "halt_on_error=1"}

    @staticmethod
    def try_again(_log):
        return False


class MemcheckRunner(NativeRunner):
    """Runs a program under valgrind, which sees the use of memory that nobody has written and every leak.

    Texts of 64 MiB at the limits of the format would take it hours; the same code reads and writes the small texts of
    the other tests.
    """

    seconds = 3000
    # Programs that make allocations fail keep their own operator new; it takes its memory from malloc, which is watched.
    words = ("valgrind", "--quiet", "--error-exitcode=99", "--leak-check=full",
             "--show-leak-kinds=definite,indirect,possible", "--track-origins=yes", "--num-callers=30",
             "--soname-synonyms=somalloc=nouserintercepts")
    left_out = {"pia_limits_test": "-Limits.items*:Limits.line*:Limits.text*:Limits.file*"}

    def command(self, program, xml):
        chosen = self.left_out.get(program.name)
        return limited(self.seconds, [*steady_addresses(), *self.words, str(program), f"--gtest_output=xml:{xml}",
                                      *([f"--gtest_filter={chosen}"] if chosen else [])])


class WineRunner:
    """Runs a program in one Wine prefix. There is no printer in it, whatever the machine has.

    A program that measures windows finds the scale it is to measure at in GARM_TEST_DPI.
    """

    def __init__(self, prefix, dpi=96):
        self._prefix = prefix
        self.env = {**prefix.env, "GARM_TEST_DPI": str(dpi)}

    def command(self, program, xml):
        return self._prefix.command([program, f"--gtest_output=xml:{windows_path(xml)}"], SECONDS)

    @staticmethod
    def try_again(log):
        return wineprefix.is_hiccup(log)


def read_report(xml):
    """The result in a GoogleTest report."""
    result = Result()
    for suite in ElementTree.parse(xml).getroot():
        for case in suite.iter("testcase"):
            name = f"{case.get('classname')}.{case.get('name')}"
            problems = [problem.text or problem.get("message") or "" for problem in case.iter("failure")]
            if problems:
                result.fail(name, "\n".join(problems))
            elif case.get("status") != "run" or case.get("result") != "completed":
                result.fail(name, "was not run to its end: it is disabled or skipped")
            else:
                result.passed += 1
    return result


def run_program(runner, program, folder):
    """The result of one program; its output goes to folder/NAME.log, its report to folder/NAME.xml."""
    log, xml = folder / f"{program.stem}.log", folder / f"{program.stem}.xml"
    for _ in range(2):
        xml.unlink(missing_ok=True)
        with open(log, "wb") as sink:
            status = run_to_end(runner.command(program, xml), env=runner.env, cwd=folder, stdout=sink,
                                stderr=subprocess.STDOUT)
        output = log.read_text(errors="replace")
        if xml.exists() or not runner.try_again(output):
            break
    return _judge(program, status, xml, output)


def _judge(program, status, xml, output):
    result = Result()
    try:
        result = read_report(xml)
    except (OSError, ElementTree.ParseError):
        ending = "ran out of time" if status in (TIMED_OUT, 137) else f"ended with status {status}"
        result.fail(program.name, f"{ending} and left no report\n{output}")
        return result
    if not result.passed and not result.failures:
        result.fail(program.name, "has no tests")
    elif status != 0 and not result.failures:
        # All tests passed, but the end did not: a leak found at exit, a crash in a destructor.
        result.fail(program.name, f"ended with status {status} after its tests\n{output}")
    return result


def run_all(programs, runners, folder):
    """Shares the programs out among the runners, each with a thread of its own."""
    waiting = queue.Queue()
    for program in programs:
        waiting.put(program)
    total, lock = Result(), threading.Lock()

    def work(runner):
        with contextlib.suppress(queue.Empty):
            while True:
                program = waiting.get_nowait()
                try:
                    result = run_program(runner, program, folder)
                except Exception as error:  # pylint: disable=broad-except
                    result = Result()
                    result.fail(program.name, f"cannot be run: {error}")
                with lock:
                    total.add(result)

    threads = [threading.Thread(target=work, args=(runner,), daemon=True) for runner in runners]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    return total


def programs_by_scale(lines):
    """The programs of a list, in its order, by the scale of the desktop they run at: None, or dots per inch where the
    line ends in a tabulator and a number."""
    found = {None: []}
    for line in filter(None, lines):
        program, _, dpi = line.partition("\t")
        found.setdefault(int(dpi) if dpi else None, []).append(Path(program))
    return found


def chosen(programs, names):
    """Those of the programs that have one of the names, or all without a name. A name that none has is an error."""
    unknown = set(names) - {program.stem for program in programs}
    if unknown:
        raise ValueError(f"there is no test program {', '.join(sorted(unknown))}")
    return [program for program in programs if not names or program.stem in names]


def main(*words):
    memcheck = words[0] == "--memcheck"
    preset, *names = words[1:] if memcheck else words
    programs = programs_by_scale((BUILD / preset / "test-programs.txt").read_text().split("\n"))
    folder = RESULTS / preset
    folder.mkdir(parents=True, exist_ok=True)
    with contextlib.ExitStack() as stack:
        if preset.startswith("windows"):
            runners = [WineRunner(stack.enter_context(wineprefix.clone(cpu=cpu))) for cpu in allowed_cpus()]
        else:
            runners = [MemcheckRunner() if memcheck else NativeRunner() for _ in allowed_cpus()]
        result = run_all(chosen(programs.pop(None), names), runners, folder)
    for dpi, scaled in programs.items() if not names else ():
        with wineprefix.clone(dpi=dpi) as prefix:
            scaled_folder = folder / f"{dpi}dpi"
            scaled_folder.mkdir(exist_ok=True)
            at_scale = run_all(scaled, [WineRunner(prefix, dpi)], scaled_folder)
        at_scale.failures = [(f"{name} at {dpi} dpi", text) for name, text in at_scale.failures]
        result.add(at_scale)
    if not result.passed and not result.failures:
        result.fail(preset, "has no test programs")
    if result.failures:
        print(f"logs are in {folder}", file=sys.stderr)
    return report(preset, result)


if __name__ == "__main__":
    run_main(main, *sys.argv[1:])
