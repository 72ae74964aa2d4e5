"""Starts the reference host under Wine for ./run.

    python3 -m garmtools.runhost private|system [ARGUMENTS of plothost]

Without arguments: the Plot dialog where there is a display; elsewhere the tour, and pictures of a scripted editing
session on a display of its own.
"""

import contextlib
import os
import shlex
import sys
import tempfile

from . import privatecups, screenshots, wineprefix, xdisplay
from .places import BUILD, ROOT, WINDOWS_BIN, windows_path
from .processes import TIMED_OUT, run_main, run_to_end, say

HOST = WINDOWS_BIN / "plothost.exe"
# Longer than anything the host waits for; a message box that is not seen must not block a script for ever.
SECONDS = 600
# What shows windows takes as long as the person in front of it.
WINDOWS = ("plot", "edit")
PICTURES = BUILD / "pictures"


def host_environment():
    """The samples are on the search path, unless the caller has one of their own."""
    return {"PLOTHOST_SEARCH_PATH": f".;{windows_path(ROOT / 'samples')}", **os.environ}


def start(prefix, arguments, seconds=SECONDS):
    """Runs the host once; what it prints goes straight to our own output, its errors follow at the end, because they
    decide whether Wine deserves a second try."""
    environment = {**host_environment(), **prefix.env}
    for attempt in (1, 2):
        with tempfile.TemporaryFile() as errors:
            status = run_to_end(prefix.command([HOST, *arguments], seconds), env=environment, stderr=errors)
            errors.seek(0)
            text = errors.read()
        if attempt == 2 or not wineprefix.is_hiccup(text.decode(errors="replace")):
            break
    sys.stderr.buffer.write(text)
    sys.stderr.flush()
    if status == TIMED_OUT:
        say(f"plothost was ended after {seconds} seconds")
    return status


def tour(prefix):
    """Shows what the module does with the samples: each step prints its purpose and then its result."""
    failed = 0

    def step(why, *arguments):
        nonlocal failed
        print(f"\n# {why}\n$ ./run {shlex.join(map(str, arguments))}", flush=True)
        failed += start(prefix, arguments) != 0

    step("Which printers are there, and which configurations?", "list")
    for sample in sorted((ROOT / "samples").glob("*.pc3")):
        step(f"The printer and DEVMODE of {sample.name}", "devmode", sample.name)
    with tempfile.TemporaryDirectory(prefix="garm-tour-") as folder:
        made = os.path.join(folder, "new.pc3")
        step("A new configuration from a printer's own defaults ...", "create", "DesignJet-3500CP", made)
        step("... read again ...", "show", made)
        step("... and turned into a DEVMODE.", "devmode", made)
    step("What has the module registered with the host?", "commands")
    print(f"\n# {'All steps succeeded.' if not failed else f'{failed} steps failed.'}", flush=True)
    return 1 if failed else 0


def pictures(cups):
    """A scripted editing session, with a picture of each step."""
    print(f"\n# An editing session: every step has a picture in {PICTURES}", flush=True)
    with xdisplay.private_display() as display, wineprefix.clone(cups=cups, display=display) as prefix:
        screenshots.take_all(prefix, "en", PICTURES)


def main(printers, arguments):
    display = os.environ.get("DISPLAY")
    with contextlib.ExitStack() as stack:
        if printers == "private":
            cups = stack.enter_context(privatecups.private_cups(keep_output=BUILD / "printed")).socket
        else:
            cups = os.environ.get("CUPS_SERVER", wineprefix.MACHINE)
        if any(word in arguments for word in WINDOWS) or (not arguments and display):
            # Without a display the host reports it itself; windows that cannot be seen would wait for ever.
            prefix = stack.enter_context(wineprefix.clone(cups=cups, display=display or ":0"))
            return start(prefix, arguments, seconds=None)
        with wineprefix.clone(cups=cups) as prefix:
            status = start(prefix, arguments) if arguments else tour(prefix)
        if not arguments and printers == "private":
            pictures(cups)
        return status


if __name__ == "__main__":
    run_main(main, sys.argv[1], sys.argv[2:])
