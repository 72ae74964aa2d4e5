"""Scripts for editordriver, which operates the editor's windows like a user (editordriver.exe --help lists the
verbs), and its answers.

    script = Script().add("edit plan.pc3", "dialog", "title")
    answers = run(prefix, script, search=[folder])
    answers.one("title")
"""

import re
import tempfile
from collections import defaultdict
from pathlib import Path

from .places import ROOT, WINDOWS_BIN, windows_path

DRIVER = WINDOWS_BIN / "editordriver.exe"

HEADERS = "".join((ROOT / "resources" / name).read_text(encoding="utf-8") for name in ("Resource.h", "HostControls.h"))
RESOURCES = dict(re.findall(r"#define (ID\w+) (\d+)\b", HEADERS))


def controls(*names):
    """The numbers of controls by their names in these headers."""
    return [int(RESOURCES[f"IDC_{name}"]) for name in names]


OK, CANCEL, YES, NO = 1, 2, 6, 7  # the system's own
DESCRIPTION, FILE_NAME, DRIVER_LINE, PORT, PRINTERS = controls("DESCRIPTION", "FILE_NAME", "DRIVER", "PORT", "PRINTERS")
SAVE_AS, DEFAULTS, COLLATING, DRIVER_SETTINGS = controls("SAVE_AS", "DEFAULTS", "COLLATING", "DRIVER_SETTINGS")
RASTER_IMAGES, OLE_OBJECTS, PREFERENCE = controls("ISM_MAX", "OLE_MAX", "PREFERENCE")
AS_TEXT, AS_GRAPHICS, OVERWRITE, MERGE = controls("TRUETYPE_AS_TEXT", "TRUETYPE_AS_GRAPHICS", "LINES_OVERWRITE", "LINES_MERGE")
NAME, EXTENSION_NOTE = controls("CFG_NAME", "EXTENSION_NOTE")
PAPER, QUALITY, WIDTH, LENGTH = controls("PAPER", "QUALITY", "PAPER_WIDTH", "PAPER_LENGTH")
LANDSCAPE, MILLIMETRES, INCHES = controls("LANDSCAPE", "MILLIMETRES", "INCHES")
HOST_PAPERS, HOST_PORTRAIT, HOST_LANDSCAPE = controls("HOST_PAPER", "HOST_PORTRAIT", "HOST_LANDSCAPE")
DRIVER_LANDSCAPE = 102  # of the dialog of Wine's drivers

# Entries of the device tree by their type.
ENTRIES = {"root": 1, "media": 2, "destination": 3, "source": 4, "collating": 5, "graphics": 6, "vector": 7,
           "raster": 8, "truetype": 9, "merge": 10, "custom": 11}


class Script:
    """Lines for editordriver."""

    def __init__(self, *lines):
        self.lines = list(lines)

    def add(self, *lines):
        self.lines += lines
        return self

    def entry(self, name):
        return self.add(f"entry {ENTRIES[name]}")

    def device_tab(self):
        return self.add("tab 1")


class Answers:
    """What a script's questions were answered with, in their order."""

    def __init__(self, text):
        self._values = defaultdict(list)
        for line in text.splitlines():
            name, _, value = line.partition(": ")
            self._values[name].append(value)

    def all(self, name):
        return self._values.get(name, [])

    def one(self, name):
        (value,) = self._values[name]
        return value

    def outputs(self):
        """The values that the last session left; empty when it left none."""
        return {name.split(" ", 1)[1]: values[-1] for name, values in self._values.items() if name.startswith("output ")}

    def tree(self, which=-1):
        """{entry: (depth, marked, label)} of one of the questions for the tree, the last by default."""
        result = {}
        for name, number in ENTRIES.items():
            values = self._values.get(f"entry {number}")
            if values:
                depth, mark, label = values[which].split(" ", 2)
                result[name] = (int(depth), mark == "marked", label)
        return result


def run(prefix, script, search=(), language="en", pictures=None, host_window=True, seconds=120, cwd=None, outside=None,
        driver=DRIVER):
    """Runs the script to its end; the finished process. outside is called with the text of each "outside" line, while
    the script waits."""
    with tempfile.TemporaryDirectory(prefix="garm-script-") as folder:
        file = Path(folder, "script")
        file.write_text("\n".join(script.lines) + "\n", encoding="utf-8")
        arguments = ["--language", language, "--search", ";".join(windows_path(folder) for folder in search),
                     *(["--pictures", windows_path(pictures)] if pictures else []),
                     *(["--requests", windows_path(folder)] if outside else []),
                     *([] if host_window else ["--no-host-window"]), windows_path(file)]
        return prefix.run([driver, *arguments], seconds=seconds, cwd=cwd,
                          meanwhile=outside and (lambda: _attend(Path(folder, "request"), outside)))


def _attend(request, outside):
    """Does what the script requests, if anything; the script continues when its request is deleted."""
    if request.exists():
        outside(request.read_text(encoding="utf-8"))
        request.unlink()
