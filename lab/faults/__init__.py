"""Sessions in which the print server or a printer disappears at each step: for the campaign and the end-to-end tests.

A Windows program on this system asks the print server for little: the list of queues when the process loads the
spooler's library, and a queue's driver data when the process first uses its driver. Everything after that comes from
what it was told then. So there are few kinds of outcome: as if nothing had happened; with the driver's built-in
defaults, when its data could not be had, or with a part of it; no editor, when the driver does not work; and without
any printer.
"""

import contextlib
import json
import tempfile
from pathlib import Path
from typing import NamedTuple

from garmtools import editorscript as ed
from garmtools import privatecups, wineprefix
from garmtools.editorscript import Script
from garmtools.places import WINDOWS_BIN
from garmtools.queues import QUEUES, ppd

QUEUE = QUEUES[0]
TWIN = "Twin"  # a second printer on that queue's driver, which a process can delete and see go
VIRTUAL = "Tarnwick PDF Printer 2018"


class Step(NamedTuple):
    """One line of a session. asks: it makes the driver ask the server, for the first time in the process. waits: for
    what the line before began, so that nobody knows how far the driver has come."""
    line: str
    asks: bool = False
    waits: bool = False


def _steps(*lines):
    return [line if isinstance(line, Step) else Step(line) for line in lines]


def _asking(line, wait):
    return Step(line, asks=True), Step(wait, waits=True)


DRIVER_DIALOG = (f"click {ed.DRIVER_SETTINGS}", "dialog", f"click {ed.DRIVER_LANDSCAPE}", f"click {ed.OK}", "closed")
DEFAULTS = (f"click {ed.DEFAULTS}", "dialog", "box", f"click {ed.YES}", "closed")


def _editing(printer_list=True):
    """From the opened sheet to the saved file: every tab, page and dialog of the editor."""
    return [
        "title", f"text {ed.FILE_NAME}", f"text {ed.DRIVER_LINE}", f"text {ed.PORT}",
        *([f"choices {ed.PRINTERS}"] if printer_list else []), f"type {ed.DESCRIPTION} through all of it",
        "tab 1", *DRIVER_DIALOG,
        f"entry {ed.ENTRIES['collating']}", f"choose {ed.COLLATING} 1", f"entry {ed.ENTRIES['vector']}",
        f"entry {ed.ENTRIES['raster']}", f"slide {ed.PREFERENCE} 20", f"entry {ed.ENTRIES['truetype']}",
        f"click {ed.AS_GRAPHICS}", f"entry {ed.ENTRIES['merge']}", f"click {ed.MERGE}", f"entry {ed.ENTRIES['custom']}",
        "tree", "tab 0", "tab 1",
        f"click {ed.SAVE_AS}", "dialog", "file-name {folder}\\copy.pc3", f"click {ed.OK}", "closed", "title",
        *DEFAULTS, "tree",
        f"click {ed.OK}", "dialog", f"text {ed.NAME}", f"type {ed.NAME} x", f"click {ed.OK}", "end"]


def _virtual():
    """A printer of the product family's own, whose dialog works on the host's."""
    return _steps(
        f"add-printer {VIRTUAL}|{QUEUE.name}", *_asking(f"edit-printer {VIRTUAL}", "opened"), "tab 1",
        f"click {ed.DRIVER_SETTINGS}", "dialog", "title", f"choices {ed.PAPER}", f"choose {ed.PAPER} 2",
        f"type {ed.WIDTH} 210", f"type {ed.LENGTH} 297", f"click {ed.INCHES}", f"text {ed.WIDTH}",
        f"choose {ed.QUALITY} 3", f"click {ed.LANDSCAPE}", f"click {ed.OK}", "closed", f"host-value {ed.HOST_PAPERS}",
        f"host-value {ed.HOST_LANDSCAPE}", f"click {ed.DRIVER_SETTINGS}", "dialog", f"choose {ed.PAPER} 1",
        f"click {ed.OK}", "closed", "tree", f"click {ed.OK}", "dialog", f"type {ed.NAME} x", f"click {ed.OK}", "end",
        f"delete-printer {VIRTUAL}")


SESSIONS = {
    "a file is edited": _steps(*_asking("edit x.pc3", "opened"), *_editing(), "get-devmode x.pc3", "end"),
    "a printer is edited": _steps(*_asking(f"edit-printer {QUEUE.name}", "opened"), *_editing()),
    "a virtual printer is edited": _virtual(),
    "a device is asked for": _steps(*_asking("get-devmode x.pc3", "end"), f"get-devmode {QUEUE.name}", "end",
                                    "start-check x.pc3", "checked", f"start-check {QUEUE.name}", "checked"),
    "a device is checked": _steps(*_asking("start-check x.pc3", "checked"), "get-devmode x.pc3", "end"),
}

# The same on the second printer, whose configuration has to be made first.
DELETE = f"delete-printer {TWIN}"
TWIN_MADE = _steps(f"add-printer {TWIN}|{QUEUE.name}", f"edit-printer {TWIN}", "dialog",
                   f"type {ed.DESCRIPTION} of the twin", f"click {ed.OK}", "dialog", f"type {ed.NAME} x",
                   f"click {ed.OK}", "end", DELETE)


TWIN_SESSION = [f"add-printer {TWIN}|{QUEUE.name}", "edit x.pc3", "dialog", *_editing(), "get-devmode x.pc3", "end"]

# The outcome depends on how far the session is when its printer is deleted.
REBOUND, NO_DRIVER, SETTINGS_TAKEN, RESET = "bound to the queue", "no driver any more", "settings taken", "reset too"


def deletions():
    """Where in the session the printer can be deleted, up to the query at its end: (index, outcome). Not between "edit"
    and the dialog, where the command's progress is unknown."""
    opened = TWIN_SESSION.index("dialog")
    accepted = TWIN_SESSION.index(DRIVER_DIALOG[-1])
    reset = TWIN_SESSION.index(DEFAULTS[-1], TWIN_SESSION.index(DEFAULTS[0]))
    for index in range(1, TWIN_SESSION.index("get-devmode x.pc3") + 1):
        if index < opened:
            yield index, REBOUND
        elif index > opened:
            yield index, NO_DRIVER if index < accepted else SETTINGS_TAKEN if index < reset else RESET


def with_deletion(at):
    """The session in which the printer is deleted before the step of that index."""
    lines = [*TWIN_SESSION[:at], DELETE, *TWIN_SESSION[at:]]
    pressed = lines.index(DRIVER_DIALOG[0])
    if TWIN_SESSION.index("dialog") < at < pressed:
        # Without the printer its driver shows no dialog.
        del lines[pressed + 1:pressed + len(DRIVER_DIALOG)]
    return _steps(*lines)


# A process that starts without the server has no printers: nothing of this shows a window.
WITHOUT_PRINTERS = _steps("edit x.pc3", "end", f"edit-printer {QUEUE.name}", "end", "get-devmode x.pc3", "end",
                          f"get-devmode {QUEUE.name}", "end", "start-check x.pc3", "checked",
                          f"start-check {QUEUE.name}", "checked")


class Cell(NamedTuple):
    """One play of a session: what is done before which step (by index), and the kinds of outcome that are right."""
    fault: str
    step: int
    actions: dict
    expected: tuple


UNDISTURBED, BUILT_IN, PARTIAL, NOT_OPENED = ("undisturbed", "built-in defaults", "part of the driver's data",
                                              "not opened")


def at_every_step(steps, gone, back):
    """The actions of a session each step of which is done without the server, which is back in between. It is not back
    while a step waits for the driver: that could have its answer before or after."""
    actions = {index: (back, gone) for index in range(asking_step(steps) + 2, len(steps))}
    return {**actions, len(steps): back}


def asking_step(steps):
    """The index of the step that makes the driver ask."""
    return next(index for index, step in enumerate(steps) if step.asks)


def cells(steps):
    """The whole matrix of one session: each way to lose the server, before each step."""
    asking = asking_step(steps)
    # While waiting for the driver, it is unknown how much of the answer it has received. With a partial answer the
    # driver works with that, or fails, and then nothing is opened.
    uncertain = (UNDISTURBED, BUILT_IN, PARTIAL, NOT_OPENED)
    for index, step in enumerate(steps):
        gone = (BUILT_IN,) if index <= asking else uncertain if step.waits else (UNDISTURBED,)
        back = uncertain if step.asks or step.waits else (UNDISTURBED,)
        for fault in ("stop", "kill"):
            yield Cell(f"{fault}, and start before the next step", index, {index: fault, index + 1: "start"}, back)
            yield Cell(f"{fault} for good", index, {index: fault}, gone)
        # A driver waiting for an answer gets it when the server continues; the step that waits for the driver cannot run
        # before that.
        if not step.waits:
            yield Cell("freeze, and go on before the next step", index, {index: "freeze", index + 1: "thaw"},
                       (UNDISTURBED,))
        if index > asking + 1:
            yield Cell("freeze for good", index, {index: "freeze"}, (UNDISTURBED,))
        yield Cell("remove the queue", index, {index: "remove"}, gone)


SERVER_ACTIONS = ("stop", "kill", "start", "freeze", "thaw", "remove")


class Outcome(NamedTuple):
    """What a session said and what it left in its folder: names with their bytes."""
    said: str
    files: dict


class Bench:
    """A print server, a Wine prefix, and a configuration to work on. Made by bench()."""

    def __init__(self, cups, prefix):
        self.cups = cups
        self.prefix = prefix
        self.original = None

    def create(self):
        """The configuration of the sessions."""
        with tempfile.TemporaryDirectory(prefix="garm-faults-") as folder:
            done = self.prefix.run([WINDOWS_BIN / "plothost.exe", "create", QUEUE.name, "x.pc3"], cwd=folder)
            if done.returncode != 0:
                raise RuntimeError(f"no configuration to work on: {done.stderr}")
            self.original = Path(folder, "x.pc3").read_bytes()

    def play(self, steps, actions=None, before=None, content=None, seconds=120):
        """Plays the steps in a folder with the file x.pc3; each action, one of the server's or a line of the script,
        comes before the step of its index, and the one of before even before the process starts. A session that breaks
        off is a RuntimeError. The server and its queues are as before at the end."""
        lines = []
        for index, step in enumerate([*steps, None]):
            for action in _words((actions or {}).get(index)):
                lines.append(f"outside {action}" if action in SERVER_ACTIONS else action)
            if step:
                lines.append(step.line)
        with tempfile.TemporaryDirectory(prefix="garm-faults-") as name:
            folder = Path(name)
            (folder / "x.pc3").write_bytes(content or self.original)
            script = Script(*(line.replace("{folder}", "Z:" + name.replace("/", "\\")) for line in lines))
            try:
                if before:
                    self.act(before)
                done = ed.run(self.prefix, script, [folder], cwd=folder, outside=self.act, seconds=seconds)
            finally:
                self.mend()
            if done.returncode != 0:
                raise RuntimeError(f"status {done.returncode}: {done.stderr.strip()}\n{done.stdout}")
            files = {path.name: path.read_bytes() for path in sorted(folder.iterdir())}
        return Outcome(done.stdout.replace(name.replace("/", "\\"), "FOLDER"), files)

    def can_be_read(self, files):
        """Whether each of the files (names with their bytes) is a whole configuration of the queue."""
        with tempfile.TemporaryDirectory(prefix="garm-faults-") as folder:
            for name, content in files.items():
                Path(folder, name).write_bytes(content)
                done = self.prefix.run([WINDOWS_BIN / "plothost.exe", "show", name, "--json"], cwd=folder)
                if done.returncode != 0 or json.loads(done.stdout)["printer"] != QUEUE.name:
                    return False
        return True

    def act(self, action):
        """Does one thing to the server."""
        if action == "remove":
            self.cups.remove(QUEUE.name)
        elif action != "start" or not self.cups.running():
            getattr(self.cups, action)()

    def mend(self):
        """Whatever was done to the server is undone."""
        self.cups.thaw()
        self.act("start")
        if not self.cups.has(QUEUE.name):
            self.cups.add(QUEUE.name, ppd(QUEUE))
            self.cups.set_default(QUEUE.name)


def _words(action):
    return () if action is None else (action,) if isinstance(action, str) else action


@contextlib.contextmanager
def bench(cpu=None):
    with privatecups.private_cups() as cups, wineprefix.clone(cpu=cpu, cups=cups.socket) as prefix:
        made = Bench(cups, prefix)
        made.create()
        yield made
