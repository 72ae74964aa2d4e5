"""Builds mutants and runs the native tests on them, cheaply.

What is tested becomes one shared library, to which the test programs are linked once. A mutant of a source file is one
compiled object and one link of that library; a mutant of a header is whatever includes it. Everything happens in a
copy of the tree, in a folder of its own: the sources are not touched, whenever a run ends.
"""

import re
import shlex
import shutil
import subprocess
import threading
from collections import defaultdict
from pathlib import Path

from .places import ROOT
from .processes import limited, run_to_end, steady_addresses

LIBRARY = "libgarm.so"
SHIPPED = ("GarmPC3Editor", "pia_tree", "platform", "apps")
INCLUDE = re.compile(r"^#include (\S+)", re.MULTILINE)
SYSTEM_INCLUDE = re.compile(r"^#include (<\S+)", re.MULTILINE)
COMPILE_SECONDS = 120
# A mutant may loop, and fill the memory or the disk.
LEAST_SECONDS = 5
LOCKED = 10
FILE_BYTES = 256 << 20
MEMORY_BYTES = 4 << 30


class BuildError(RuntimeError):
    """What has to be good before there are mutants is not."""


class Build:
    """A build of the unchanged sources, made to exchange objects in."""

    def __init__(self, folder, flags, sanitized=False):
        self.folder = folder
        self.source = folder.parent / "source"
        self.sanitized = sanitized
        self._flags = flags
        self._compile = {}  # object -> command
        self.source_of = {}  # object -> source, from the root of the tree
        self.dependents = defaultdict(list)  # file, from the root of the tree -> objects
        self.library_objects = []
        self._archives = {}  # archive of what is shipped -> objects
        self._test_archives = set()
        self._programs = {}  # name -> link command
        self._together = {}  # objects -> whether they can be compiled as one
        self._mentions = {}
        self._optimised = {}  # objects -> what the optimising compiler makes of the unchanged ones
        self._prefixes = {}  # (target, with our headers) -> header
        self._lock = threading.RLock()
        self.seconds = {}  # name -> what it takes on the unchanged sources

    # ---- once

    def make(self, jobs, files):
        """Builds what is needed to test the files."""
        self.folder.mkdir(parents=True, exist_ok=True)
        log = self.folder / "build.log"
        _must(["cmake", "-S", self.source, "-B", self.folder, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
               "-DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON",  # a mutant header must not hide behind one
               f"-DCMAKE_CXX_FLAGS_DEBUG={self._flags} -fPIC -w", f"-DCMAKE_C_FLAGS_DEBUG={self._flags} -fPIC"], log)
        self._read_commands()
        ninja = ["ninja", "-C", self.folder, f"-j{jobs}"]
        _must([*ninja, *self.library_objects], log)
        self._read_dependents()
        programs = sorted({name for file in files for name in self.programs_for(file)})
        needed = {word for name in programs for word in self._programs[name]
                  if word in self._compile or word in self._test_archives}
        _must([*ninja, *sorted(needed)], log)
        self._read_dependents()
        if not self.link_library(self.folder, {}, log):
            raise BuildError(f"the library cannot be linked, see {log}")
        for name in programs:
            if not self.link_program(name, self.program(name), {}, log):
                raise BuildError(f"{name} cannot be linked, see {log}")
        return programs

    def program(self, name):
        """Where the program with the unchanged tests is."""
        return self.folder / "programs" / name

    def _read_commands(self):
        archives = {}
        listed = (self.folder / "test-programs.txt").read_text().split()
        tests = {Path(line).name for line in listed}
        for line in _output(["ninja", "-C", self.folder, "-t", "commands", "all"]).splitlines():
            for part in line.split(" && "):
                words = shlex.split(part)
                made = words[words.index("-o") + 1] if "-o" in words else ""
                if "-c" in words:
                    self._compile[made] = words
                    self.source_of[made] = _from_root(words[words.index("-c") + 1], self.source)
                elif "qc" in words:
                    archives[words[words.index("qc") + 1]] = [word for word in words if word.endswith(".o")]
                elif Path(made).name in tests:
                    self._programs[made[len("bin/"):]] = words
        # GoogleTest and what belongs to tests stays in the programs.
        self._archives = {name: objects for name, objects in archives.items() if name.split("/")[0] in SHIPPED}
        self._test_archives = set(archives).difference(self._archives)
        self.library_objects = sorted({made for objects in self._archives.values() for made in objects})
        room = sorted(made for made in self._compile if "/printer_room.dir/" in made)
        for words in self._programs.values():
            # All of the library is in each program, so each needs what the library asks the system for.
            if not any(word in room for word in words):
                words += room

    def _read_dependents(self):
        self.dependents.clear()
        made = None
        for line in _output(["ninja", "-C", self.folder, "-t", "deps"]).splitlines():
            if line and not line.startswith(" "):
                made = line.split(":", 1)[0]
            elif line.strip():
                self.dependents[_from_root(line.strip(), self.source)].append(made)

    # ---- for each mutant

    def programs_for(self, file):
        """The test programs that hold what is made of the file."""
        touched = set(self.dependents[file])
        return [name for name, words in self._programs.items()
                if any(touched.intersection(self._archives.get(word, ())) for word in words)]

    def mentions(self, name, file):
        """How many of the program's own sources include the file or, for a source file, its header."""
        key = (name, file)
        if key not in self._mentions:
            wanted = f"/{Path(file).stem}.h\""
            sources = [self.source / self.source_of[made] for made in self.objects_of(name)]
            self._mentions[key] = sum(wanted in source.read_text() for source in sources if source.suffix == ".cpp")
        return self._mentions[key]

    def objects_of(self, name):
        """The objects of the program itself."""
        return [word for word in self._programs[name] if word in self._compile]

    def link_library(self, into, changed, log):
        objects = _exchanged(self.library_objects, changed)
        flags = self._flags.split()
        return _run(["c++", *flags, "-shared", "-fuse-ld=lld", "-o", into / LIBRARY, *objects, "-lz"], log, self.folder)

    def link_program(self, name, target, changed, log):
        target.parent.mkdir(parents=True, exist_ok=True)
        words = _exchanged([word for word in self._programs[name] if word not in self._archives], changed)
        words[words.index("-o") + 1] = str(target)
        # Of the program's symbols the library uses the system's calls and the allocation functions.
        words += ["-rdynamic", "-fuse-ld=lld", "-L.", "-lgarm", "-Wl,--allow-shlib-undefined", "-lz"]
        return _run(words, log, self.folder)

    def compile(self, objects, target, overlay, log, extra=()):
        """Compiles objects into one, as always, but with the files below overlay before those of the tree."""
        sources = [overlay / self.source_of[made] for made in objects]
        sources = [source if source.exists() else self.source / self.source_of[made]
                   for made, source in zip(objects, sources)]
        source = sources[0]
        if len(sources) > 1:
            source = target.with_suffix(".cpp")
            source.write_text("".join(f'#include "{one}"\n' for one in sources))
        words = self._without_cache(objects[0])
        words[words.index("-o") + 1] = str(target)
        words[words.index("-c") + 1] = str(source)
        words[1:1] = [f"-I{overlay}", f"-I{overlay / 'platform'}"]
        if not extra and (prefix := self._prefix(objects[0], with_ours=sources[0].is_relative_to(overlay))):
            words += ["-include", str(prefix)]
        return _run([*words, *extra], log, self.folder)

    def optimised(self, objects, overlay=None, job=None):
        """What the optimising compiler makes of them: bytes, or None when it does not compile."""
        key = tuple(objects)
        if overlay is None and key in self._optimised:
            return self._optimised[key]
        # The name of the folder is nowhere in the object, that of the file is.
        folder = (job or self.folder) / f"optimised{threading.get_ident()}"
        folder.mkdir(exist_ok=True)
        target = folder / "optimised.o"
        good = self.compile(key, target, overlay or self.folder / "nothing", folder / "log", ["-O2"])
        made = target.read_bytes() if good else None
        if overlay is None:
            self._optimised[key] = made
        return made

    def can_be_one(self, objects):
        """Whether these can be compiled as one, which takes hardly longer than one of them."""
        key = tuple(objects)
        with self._lock:
            if key not in self._together:
                target = self.folder / f"together{len(self._together)}.o"
                self._together[key] = self.compile(key, target, self.folder / "nothing", self.folder / "build.log")
            return self._together[key]

    def _prefix(self, made, with_ours):
        """A precompiled header with what the sources of the object's target include: most of the time goes there. Our
        own headers are in it only for mutants of source files; None when they do not go together."""
        target = made.split(".dir/")[0]
        key = (target, with_ours)
        with self._lock:
            if key not in self._prefixes:
                header = self.folder / f"prefix{len(self._prefixes)}.h"
                expression = INCLUDE if with_ours else SYSTEM_INCLUDE
                names = {name for other in self._compile if other.startswith(f"{target}.dir/")
                         for name in expression.findall((self.source / self.source_of[other]).read_text())}
                header.write_text("".join(f"#include {name}\n" for name in sorted(names)))
                words = self._without_cache(made)
                words[words.index("-o") + 1] = f"{header}.gch"
                words[words.index("-c") + 1] = str(header)
                words[1:1] = ["-x", "c++-header"]
                good = _run(words, self.folder / "build.log", self.folder)
                self._prefixes[key] = header if good else None
            return self._prefixes[key]

    def _without_cache(self, made):
        """The object's command. Mutants are made once: no cache, and no list of what they include."""
        words = list(self._compile[made])
        if Path(words[0]).name == "ccache":
            del words[0]
        words.remove("-MD")
        for flag in ("-MF", "-MT"):
            at = words.index(flag)
            del words[at:at + 2]
        return words

    def run(self, name, program, job, cases=(), seconds=None):
        """Runs the program, or only those of its cases, with the library in the job's folder. None when all tests
        pass; otherwise the case that failed, "" when the program told none."""
        # A busy machine is no endless loop: what counts is the time on the processor, and only a lock the other one.
        seconds = seconds or max(LEAST_SECONDS, int(5 * self.seconds[name]))
        scratch = job / "tmp"
        shutil.rmtree(scratch, ignore_errors=True)
        scratch.mkdir()
        env = {"PATH": "/usr/bin:/bin", "LD_LIBRARY_PATH": str(job), "TMPDIR": str(scratch),
               "TEST_TMPDIR": f"{scratch}/", "GTEST_FAIL_FAST": "1", "GTEST_FILTER": ":".join(cases) or "*"}
        limits = ["prlimit", "--core=0", f"--cpu={seconds}", f"--fsize={FILE_BYTES}"]
        if self.sanitized:
            env["ASAN_OPTIONS"] = "hard_rss_limit_mb=2048"
        else:
            limits.append(f"--as={MEMORY_BYTES}")
        log = job / "run.log"
        with open(log, "wb") as sink:
            status = run_to_end(limited(LOCKED * seconds, [*steady_addresses(), *limits, str(program)]), env=env,
                                cwd=scratch, stdout=sink, stderr=subprocess.STDOUT)
        return None if status == 0 else _failed_case(log.read_text(errors="replace"))


def _failed_case(output):
    """The case that failed, or was running when the program ended."""
    last = None
    for match in re.finditer(r"^\[ +(RUN|OK|FAILED) +\] ([\w./]+)", output, re.MULTILINE):
        last = match
        if match[1] == "FAILED":
            return match[2]
    return last[2] if last and last[1] == "RUN" else ""


def copy_tree(target):
    """Copies what git knows or would take of this tree; files that are the same are not touched."""
    names = _output(["git", "-C", ROOT, "ls-files", "-z", "--cached", "--others", "--exclude-standard"]).split("\0")
    kept = set()
    for name in filter(None, names):
        source, copy = ROOT / name, target / name
        if not source.is_file():
            continue
        kept.add(copy)
        content = source.read_bytes()
        if not copy.is_file() or copy.read_bytes() != content:
            copy.parent.mkdir(parents=True, exist_ok=True)
            copy.write_bytes(content)
    for old in [path for path in target.rglob("*") if path.is_file() and path not in kept]:
        old.unlink()


def _exchanged(words, changed):
    """The words with the changed objects in place of the others; None stands for one that is in another."""
    words = [changed.get(word, word) for word in words]
    return [str(word) for word in words if word is not None]


def _from_root(path, root):
    try:
        return Path(path).relative_to(root).as_posix()
    except ValueError:
        return path


def _output(command):
    return subprocess.run([str(word) for word in command], check=True, capture_output=True, text=True,
                          stdin=subprocess.DEVNULL).stdout


def _run(command, log, cwd=None):
    with open(log, "ab") as sink:
        return run_to_end(limited(COMPILE_SECONDS, [str(word) for word in command]), cwd=cwd, stdout=sink,
                          stderr=subprocess.STDOUT) == 0


def _must(command, log):
    with open(log, "ab") as sink:
        if run_to_end([str(word) for word in command], stdout=sink, stderr=subprocess.STDOUT) != 0:
            raise BuildError(f"{command[0]} failed, see {log}")
