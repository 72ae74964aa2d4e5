"""Is a file whole whenever the writer dies? Kills a program while it saves, natively under the sanitizers and under Wine.

    lab/run kills [--kills N] [--seed N]
"""

import argparse
import contextlib
from pathlib import Path

from garmtools import processes, wineprefix

from . import MOMENTS, NativeWriter, WineWriter, campaign


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--kills", type=int, default=1000)
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    with contextlib.ExitStack() as stack:
        writers = NativeWriter(), WineWriter(stack.enter_context(wineprefix.clone()))
        outcomes = [campaign(writer, options.kills, options.seed) for writer in writers]
    rows = [("what", "native", "windows"),
            *((moment, *(outcome.moments[moment] for outcome in outcomes)) for moment in MOMENTS),
            ("in all", *(outcome.moments.total() for outcome in outcomes)),
            ("saves finished before the kills", *(outcome.saves for outcome in outcomes)),
            ("temporary files left, and removed by the next save", *(outcome.leftovers for outcome in outcomes)),
            ("files that were not whole, or left behind", *(len(outcome.problems) for outcome in outcomes))]
    table = "".join("\t".join(map(str, row)) + "\n" for row in rows)
    Path(__file__).with_name("results.tsv").write_text(table, encoding="utf-8")
    problems = [problem for outcome in outcomes for problem in outcome.problems]
    print(table, *problems, sep="\n")
    return 1 if problems else 0


if __name__ == "__main__":
    processes.run_main(main)
