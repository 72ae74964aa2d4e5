"""Do the tests notice? Makes small mistakes in the portable code, one at a time, and runs the native tests.

    lab/run mutants [--sample N [--seed S]] [--list] FILE...

Works on a copy in build/mutants. Mutants that nothing notices are shown with their place; equivalent.tsv has those that
change nothing a caller can see, each with its reason. With whole files the counts go into results.tsv.
"""

import argparse
import csv
import os
import random
import subprocess
import sys
from collections import Counter
from pathlib import Path

from garmtools import processes
from garmtools.places import BUILD, ROOT

from . import mutants_of

HERE = Path(__file__).parent
COPY, NATIVE = BUILD / "mutants/source", BUILD / "mutants/native"
FLAGS = [f"-I{ROOT}", f"-I{ROOT / 'platform'}", f"-I{ROOT / 'platform/win32/native'}"]
SECONDS = 600  # for building and testing one; an endless loop is noticed, too


def succeeds(*command):
    return processes.run_to_end(processes.limited(SECONDS, command), cwd=COPY, stdout=subprocess.DEVNULL,
                                stderr=subprocess.DEVNULL) == 0


def build():
    return succeeds("cmake", "--build", NATIVE)


def tests():
    return succeeds("ctest", "--test-dir", NATIVE, "--stop-on-failure", "--timeout", "60", "-j", str(os.cpu_count()))


def prepare():
    COPY.mkdir(parents=True, exist_ok=True)
    names = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, capture_output=True, check=True).stdout
    subprocess.run(["xargs", "-0", "cp", "--update", "--parents", "-t", COPY], cwd=ROOT, input=names, check=True)
    configured = succeeds("cmake", "--preset", "native-debug", "-B", NATIVE, "-DCMAKE_UNITY_BUILD=OFF",
                          "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld")
    if not (configured and build() and tests()):
        sys.exit("the unchanged sources do not build, or fail their tests")


def judged(mutant, source):
    """caught, survived or not compiled."""
    target = COPY / mutant.file
    target.write_bytes(mutant.applied(source))
    try:
        if not build():
            return "not compiled"
        return "survived" if tests() else "caught"
    finally:
        target.write_bytes(source)


def equivalents():
    with open(HERE / "equivalent.tsv", encoding="utf-8", newline="") as rows:
        return {(row["file"], row["code"], row["change"]) for row in csv.DictReader(rows, delimiter="\t")}


def keep(file, counts):
    """Puts a file's counts into results.tsv."""
    path = HERE / "results.tsv"
    head, *rows = path.read_text(encoding="utf-8").splitlines()
    line = "\t".join([file, str(sum(counts.values())), *(str(counts[name]) for name in ("equivalent", "caught", "survived")),
                      "0"])
    rows = sorted([line, *(row for row in rows if row.split("\t")[0] != file)])
    path.write_text("\n".join([head, *rows]) + "\n", encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--sample", type=int, metavar="N", help="of each file")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--list", action="store_true", help="show the mutants, run nothing")
    parser.add_argument("files", nargs="+", metavar="FILE")
    options = parser.parse_args()
    known = equivalents()
    if not options.list:
        prepare()
    for file in options.files:
        source = (ROOT / file).read_bytes()
        mutants = mutants_of(str(ROOT / file), source, FLAGS)
        mutants = [mutant._replace(file=file) for mutant in mutants]
        if options.sample and options.sample < len(mutants):
            mutants = sorted(random.Random(options.seed).sample(mutants, options.sample))
        counts = Counter()
        for mutant in mutants:
            verdict = "listed" if options.list else judged(mutant, source)
            if verdict == "survived" and mutant[0:1] + mutant[2:4] in known:
                verdict = "equivalent"
            counts[verdict] += verdict != "not compiled"
            if verdict in ("survived", "listed"):
                print(f"{verdict}: {file}:{mutant.line}: {mutant.change}\n    {mutant.code}", flush=True)
        print(f"{file}: {dict(counts)}", flush=True)
        if not (options.list or options.sample):
            keep(file, counts)


if __name__ == "__main__":
    processes.run_main(main)
