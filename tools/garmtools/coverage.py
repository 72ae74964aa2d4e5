"""What the native tests run of the portable code: lines, and both ways of every decision.

Clang counts the source's own decisions: each condition of an if, a loop, "&&", "||" and "?:", and each case of a switch,
has one branch for every way it can go. What a compiler adds for exceptions and destructors is not in these numbers, and
neither is what it writes itself (a defaulted comparison) or runs itself (a consteval function).
"""

import json
import os
import re
import shutil
import subprocess
from collections import defaultdict
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass, field
from pathlib import Path

from . import gtestrun
from .places import BUILD, ROOT
from .processes import allowed_cpus

PRESET = "native-coverage"
FOLDER = BUILD / "coverage"
PORTABLE = ("GarmPC3Editor", "pia_tree", "platform", "apps")
NOT_SHIPPED = "platform/win32/room/"  # the scripted printers of the tests
BEGIN, END = "<!-- made by tools/coverage --write -->", "<!-- end of what tools/coverage wrote -->"


@dataclass
class File:
    """Lines by number and branches by place, each with the number of times it ran."""

    lines: dict = field(default_factory=dict)
    branches: dict = field(default_factory=dict)  # (line, column, way): way is True or False

    def missed_lines(self):
        return sorted(line for line, count in self.lines.items() if count == 0)

    def missed_branches(self):
        return sorted(place for place, count in self.branches.items() if count == 0)


@dataclass
class Share:
    covered: int = 0
    total: int = 0

    def __add__(self, other):
        return Share(self.covered + other.covered, self.total + other.total)

    def percent(self):
        """Cut, not rounded: 100 means all of them."""
        tenths = 1000 if self.total == 0 else 1000 * self.covered // self.total
        return tenths / 10

    def __str__(self):
        return f"{self.covered}/{self.total} = {self.percent():.1f} %" if self.total else "none"


def lines_of(file):
    return Share(len(file.lines) - len(file.missed_lines()), len(file.lines))


def branches_of(file):
    return Share(len(file.branches) - len(file.missed_branches()), len(file.branches))


def is_counted(path):
    """Whether the file, relative to the root, is portable code that is shipped."""
    return path.split("/")[0] in PORTABLE and not path.startswith(NOT_SHIPPED)


def read_lines(lcov, files, root=ROOT):
    """Takes the lines out of llvm-cov's lcov export. A line that several programs contain ran when it ran in one."""
    current = None
    for row in lcov.splitlines():
        if row.startswith("SF:"):
            current = _relative(row[3:], root)
        elif row.startswith("DA:") and current is not None:
            line, count = row[3:].split(",")[:2]
            lines = files[current].lines
            lines[int(line)] = lines.get(int(line), 0) + int(count)


def read_branches(export, files, root=ROOT):
    """Takes the branches out of llvm-cov's JSON export. Every instance of a template adds to the same decision."""
    for data in export["data"]:
        for entry in data["files"]:
            path = _relative(entry["filename"], root)
            if path is None:
                continue
            branches = files[path].branches
            for line, column, _, _, taken, not_taken, *_ in entry["branches"]:
                for way, count in ((True, taken), (False, not_taken)):
                    branches[line, column, way] = branches.get((line, column, way), 0) + count


def leave_out_compiled(files, root=ROOT):
    """Leaves out what runs in the compiler, the consteval functions, and the decisions of comparisons it writes."""
    for path, file in files.items():
        source = (root / path).read_text(encoding="utf-8").split("\n")
        inside = consteval_lines(source)
        file.lines = {line: count for line, count in file.lines.items() if line not in inside}
        file.branches = {place: count for place, count in file.branches.items()
                         if place[0] not in inside and not source[place[0] - 1].endswith("= default;")}


def consteval_lines(source):
    """The numbers of the lines of consteval functions, from the word to the brace that ends the body."""
    found, depth, inside = set(), 0, False
    for number, line in enumerate(source, 1):
        if not inside and re.match(r"\s*consteval\b", line):
            inside, depth = True, 0
        if inside:
            found.add(number)
            depth += line.count("{") - line.count("}")
            inside = not ("}" in line and depth == 0)
    return found


def _relative(name, root):
    path = os.path.relpath(name, root)
    return path if is_counted(path) else None


def area(path):
    """The row of the summary that a file belongs to."""
    parts = Path(path).parts
    if parts[0] == "pia_tree":
        return "pia_tree"
    if parts[0] == "GarmPC3Editor":
        return "/".join(parts[:2]) if len(parts) > 2 else "GarmPC3Editor"
    return "/".join(parts[:2])


def _sum(files, share):
    return sum((share(file) for file in files), Share())


def summary(files):
    """One row per area and the total: name, number of files, lines, branches."""
    areas = defaultdict(list)
    for path, file in files.items():
        areas[area(path)].append(file)
    rows = [(name, len(members), _sum(members, lines_of), _sum(members, branches_of))
            for name, members in sorted(areas.items())]
    return [*rows, ("total", len(files), _sum(files.values(), lines_of), _sum(files.values(), branches_of))]


def ranges(numbers):
    """1, 2, 3, 7 as "1-3, 7"."""
    found = []
    for number in numbers:
        if found and number == found[-1][1] + 1:
            found[-1][1] = number
        else:
            found.append([number, number])
    return ", ".join(str(first) if first == last else f"{first}-{last}" for first, last in found)


def table(files):
    """Every file and the total, for the terminal."""
    width = max(len(path) for path in files)
    rows = [f"{path:{width}}  {lines_of(file)!s:>20}  {branches_of(file)!s:>20}" for path, file in sorted(files.items())]
    _, count, lines, branches = summary(files)[-1]
    head = f"{'file':{width}}  {'lines':>20}  {'branches':>20}"
    return "\n".join([head, *rows, f"{f'{count} files':{width}}  {lines!s:>20}  {branches!s:>20}"])


def missed(files, root=ROOT):
    """Every line and way that no test takes, with the source it stands in."""
    rows = []
    for path, file in sorted(files.items()):
        if file.missed_lines():
            rows.append(f"{path}: lines {ranges(file.missed_lines())}")
        if file.missed_branches():
            source = (root / path).read_text(encoding="utf-8").split("\n")
            for line, column, way in file.missed_branches():
                rows.append(f"{path}:{line}:{column}: never {'true' if way else 'false'}: {source[line - 1].strip()}")
    return "\n".join(rows)


def document(files):
    """What goes into the document: the areas, and the files that are not covered whole."""
    rows = ["| Part | Files | Lines | Branches |", "|---|---:|---:|---:|"]
    rows += [f"| {name} | {count} | {lines} | {branches} |" for name, count, lines, branches in summary(files)]
    partly = [(path, file) for path, file in sorted(files.items()) if file.missed_lines() or file.missed_branches()]
    if partly:
        rows += ["", "Not covered whole:", "", "| File | Lines | Branches |", "|---|---:|---:|"]
        rows += [f"| {path} | {lines_of(file)} | {branches_of(file)} |" for path, file in partly]
    return "\n".join(rows)


def replace_between(text, new):
    """The text with what stands between the marks replaced."""
    pattern = re.compile(f"{re.escape(BEGIN)}\n.*?{re.escape(END)}", re.DOTALL)
    if not pattern.search(text):
        raise ValueError(f"there is no place marked {BEGIN}")
    return pattern.sub(lambda _: f"{BEGIN}\n\n{new}\n\n{END}", text)


class _Runner(gtestrun.NativeRunner):
    env = {**os.environ, "LLVM_PROFILE_FILE": str(FOLDER / "raw" / "%p.profraw")}


def run_tests():
    """Runs the test programs of the build once; what failed is in the result."""
    shutil.rmtree(FOLDER, ignore_errors=True)
    (FOLDER / "raw").mkdir(parents=True)
    programs = test_programs()
    return gtestrun.run_all(programs, [_Runner() for _ in allowed_cpus()], FOLDER)


def test_programs():
    return gtestrun.programs_by_scale((BUILD / PRESET / "test-programs.txt").read_text().split("\n"))[None]


def _shipped_objects():
    """The objects of the counted sources: what no test program links counts too, as not run."""
    commands = json.loads((BUILD / PRESET / "compile_commands.json").read_text())
    for command in commands:
        if is_counted(os.path.relpath(command["file"], ROOT)):
            words = command["command"].split()
            yield Path(command["directory"]) / words[words.index("-o") + 1]


def _output(command):
    """What llvm-cov prints. It also warns of inline functions that a program never calls, and that is no matter."""
    done = subprocess.run(command, capture_output=True, check=False)
    if done.returncode != 0:
        raise RuntimeError(f"{command[0]} failed:\n{done.stderr.decode(errors='replace')}")
    return done.stdout


def read_counts():
    """The counted files by name, from what run_tests left."""
    profile = FOLDER / "all.profdata"
    subprocess.run(["llvm-profdata", "merge", "-sparse", "-o", profile, *(FOLDER / "raw").glob("*.profraw")], check=True)
    first, *others = [*test_programs(), *_shipped_objects()]
    command = ["llvm-cov", "export", "-instr-profile", profile, first, *(f"-object={other}" for other in others)]
    with ThreadPoolExecutor(2) as pool:
        wanted = ("-format=lcov", "-format=text")
        lcov, text = pool.map(lambda form: _output([*command, form]), wanted)
    files = defaultdict(File)
    read_lines(lcov.decode(), files)
    read_branches(json.loads(text), files)
    leave_out_compiled(files)
    return dict(files)
