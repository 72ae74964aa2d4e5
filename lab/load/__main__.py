"""Asks the module the same thing many times in one process, and looks whether it stays flat.

    lab/run load [--calls N] [--checks N] [--openings N]

N calls of PC3GETDEVMODE, N background checks, N openings of the editor with all its pages, on a real print queue, shown
on a private display; the same number of the bare system calls, threads and windows, without the module. Takes about
three minutes.
"""

import argparse
import tempfile
from pathlib import Path

from garmtools import privatecups, processes, wineprefix, xdisplay

from . import load


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    for name, number in (("calls", 10_000), ("checks", 2_000), ("openings", 200)):
        parser.add_argument(f"--{name}", type=int, default=number)
    wanted = vars(parser.parse_args())
    with privatecups.private_cups() as cups, xdisplay.private_display() as display, \
            wineprefix.clone(cups=cups.socket, display=display) as prefix, \
            tempfile.TemporaryDirectory(prefix="garm-load-") as folder:
        rows = list(load(prefix, Path(folder), wanted))
    lines = ["load\trepetitions\tcount\tafter_first_tenth\tgrowth\tdrift\tbare_growth\tbare_drift\tverdict\n"]
    for what, count, ours, bare, verdict in rows:
        lines.append("\t".join(map(str, [what, wanted[what], count, *ours, bare.growth, bare.drift, verdict.text])) + "\n")
    print("".join(lines))
    Path(__file__).with_name("results.tsv").write_text("".join(lines), encoding="utf-8")
    return 0 if all(verdict.held for *_, verdict in rows) else 1


if __name__ == "__main__":
    processes.run_main(main)
