"""How long things take with many print queues at once, next to few: the work behind tools/driver-campaign --many.

The fastest of several repetitions is told: other work on the machine makes a time longer, never shorter.
"""

import json
import time

from . import drivercampaign, editorscript
from .places import WINDOWS_BIN, windows_path
from .processes import allowed_cpus, say

HOST = WINDOWS_BIN / "plothost.exe"
FEW = 4
RUNS = 7

# What is told, in its order: fact of driver_check or name of a program below, and the words for it.
INSIDE = {
    "OpenPrinterW": "`OpenPrinterW` and `ClosePrinter`, bare",
    "EnumPrintersW 1": "`EnumPrintersW` level 1, bare",
    "EnumPrintersW 4": "`EnumPrintersW` level 4, bare",
    "EnumPrintersW 5": "`EnumPrintersW` level 5, bare",
    "EnumPrintersW 2": "`EnumPrintersW` level 2, bare",
    "PC3GETDEVMODE file": "PC3GETDEVMODE for a configuration",
    "PC3GETDEVMODE printer": "PC3GETDEVMODE for a printer",
    "PC3GETDEVMODE rebound": "PC3GETDEVMODE for a configuration whose printer is gone",
    "reset drivers": "the Plot dialog resets the drivers after an edit",
}
PROGRAMS = {
    "start": "`plothost commands`: start, load the module, end",
    "list": "`plothost list`",
    "devmode": "`plothost devmode` for a configuration",
    "editor": "the editor is opened on a configuration and cancelled",
}


def spread(models, count):
    """count of the models, from the whole list."""
    return [models[at * len(models) // count] for at in range(count)]


def measure(models):
    """{"first": seconds until the first program has the spooler, fact or program: milliseconds}"""
    say(f"making {len(models)} queues")
    with drivercampaign.Batch(models, allowed_cpus()[-1]) as queues:
        if queues.refused:
            raise RuntimeError(f"CUPS refuses {len(queues.refused)} of the queues")
        name = queues.names[len(models) // 2]
        times = {"first": queues.seconds_to_load}
        say("measuring inside a process")
        done = queues.prefix.run([drivercampaign.CHECKER, "times", windows_path(drivercampaign.MODULE),
                                  windows_path(queues.folder), name], seconds=600)
        result = drivercampaign.summarize(done.stdout, done.returncode, done.stderr, 600)
        if result["failed"]:
            raise RuntimeError(f"driver_check failed: {json.dumps(result['failures'])}")
        times |= {fact: min(values) for fact, (values,) in result["facts"].items()}
        say("measuring programs")
        return times | _programs(queues, name)


def _programs(queues, name):
    _host(queues, "create", name, "x.pc3")
    script = editorscript.Script("edit x.pc3", "dialog", f"click {editorscript.CANCEL}", "end")

    def edit():
        done = editorscript.run(queues.prefix, script, [queues.folder], cwd=queues.folder, seconds=300)
        if done.returncode != 0:
            raise RuntimeError(f"the editor was not opened: {done.stderr}")

    return {"start": _fastest(lambda: _host(queues, "commands")), "list": _fastest(lambda: _host(queues, "list")),
            "devmode": _fastest(lambda: _host(queues, "devmode", "x.pc3")), "editor": _fastest(edit)}


def _host(queues, *arguments):
    done = queues.prefix.run([HOST, *arguments], seconds=300, cwd=queues.folder)
    if done.returncode != 0:
        raise RuntimeError(f"plothost {' '.join(arguments)}: {done.stderr}")


def _fastest(work):
    times = []
    for _ in range(RUNS + 1):
        began = time.monotonic()
        work()
        times.append((time.monotonic() - began) * 1000)
    return min(times[1:])  # the first one fills caches


def table(few, many, count):
    """The lines of the table of two measurements."""
    lines = [f"| Milliseconds | {FEW} queues | {count} queues |", "|---|---|---|"]
    for key, words in {**INSIDE, **PROGRAMS}.items():
        lines.append(f"| {words} | {_shown(few[key])} | {_shown(many[key])} |")
    lines.append(f"| the first program in a fresh prefix, for which Wine takes over the queues | "
                 f"{_shown(few['first'] * 1000)} | {_shown(many['first'] * 1000)} |")
    return lines


def _shown(milliseconds):
    return f"{milliseconds:.2f}" if milliseconds < 10 else f"{milliseconds:.0f}"


def main(models, count):
    chosen = spread(models, count)
    print("\n".join(table(measure(spread(chosen, FEW)), measure(chosen), count)))
