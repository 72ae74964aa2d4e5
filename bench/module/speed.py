"""Times the module under Wine next to the bare system calls that it cannot do without: the command, and opening and
switching the editor, on a private print queue and display. bench/run module runs it.

    speed.py [--rounds N]

Prints rows of bench/results.tsv: quartiles of the times, and of how many times the others' of the same round they are.
"""

import argparse
import statistics
import tempfile
from pathlib import Path

from garmtools import privatecups, processes, wineprefix, xdisplay

from lab.load import run

SECONDS = 1200


def quartile_rows(found, part, case, contenders):
    """The rows of a part, for contenders that are compared with the later ones."""
    suffix = f" {case}" if case else ""
    for i, name in enumerate(contenders):
        times = found[name + suffix]
        compared = [("", [time / 1000 for time in times], "us")]
        for other in contenders[i + 1:]:
            compared.append((other, [ours / theirs for ours, theirs in zip(times, found[other + suffix])], "ratio"))
        for other, values, unit in compared:
            quartiles = statistics.quantiles(values, n=4, method="inclusive")
            for figure, value in zip(("lower quartile", "median", "upper quartile"), quartiles):
                yield part, name, other, case, figure, f"{value:.0f}" if unit == "us" else f"{value:.2f}", unit


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--rounds", type=int, default=300)
    rounds = parser.parse_args().rounds
    with privatecups.private_cups() as cups, xdisplay.private_display() as display, \
            wineprefix.clone(cups=cups.socket, display=display) as prefix, \
            tempfile.TemporaryDirectory(prefix="garm-speed-") as folder:
        command = run(prefix, Path(folder), "command", 10 * rounds, seconds=SECONDS)
        editor = run(prefix, Path(folder), "editor", rounds, seconds=SECONDS)
    rows = [*quartile_rows(command, "command", "", ("command", "bare"))]
    for case in ("opened", "switched"):
        rows += quartile_rows(editor, "editor", case, ("editor", "bare filled", "bare"))
    for row in rows:
        print("\t".join(row))


if __name__ == "__main__":
    processes.run_main(main)
