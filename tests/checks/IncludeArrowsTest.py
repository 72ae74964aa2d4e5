"""Includes run one way, between layers and between the rooms of a layer, so that a lower room can be built, tested and
replaced without the upper ones."""

import graphlib
import unittest

from sources import code, text

PLATFORM = ("kernel", "win32")
# The headers of the exported classes: what a host includes.
CLASSES = "GarmPC3Editor/Gm"
BELOW_COMMANDS = (*PLATFORM, "files", "host", "spooler", "pia_tree", "resources", CLASSES, "GarmPC3Editor/Model",
                  "GarmPC3Editor/Printing", "GarmPC3Editor/Decisions")
MODULE = (*BELOW_COMMANDS, "mfc", "GarmPC3Editor", "GarmPC3Editor/Export.h")
REFERENCE_HOST = (*PLATFORM, "files", "host", "spooler", "pia_tree", "resources", CLASSES)

# What each room may include of ours, itself aside. The longest room that a path begins with counts, for what includes
# and for what is included.
ARROWS = {
    "platform/kernel": (),
    "platform/win32": ("kernel",),  # OdChar, the text type of every wide Win32 name
    "platform/mfc": PLATFORM,
    "platform/host": (*PLATFORM, "files"),
    "files": PLATFORM,
    "spooler": PLATFORM,
    "pia_tree": (*PLATFORM, "files"),
    "resources": (),
    CLASSES: (*PLATFORM, "spooler", "GarmPC3Editor/Export.h"),
    "GarmPC3Editor/Export.h": (),
    "GarmPC3Editor/Model": ("kernel", "pia_tree", CLASSES),
    "GarmPC3Editor/Printing": (*PLATFORM, "spooler", "pia_tree", CLASSES, "GarmPC3Editor/Model"),
    "GarmPC3Editor/Decisions": (*PLATFORM, "host", "spooler", "resources", CLASSES, "GarmPC3Editor/Model",
                                "GarmPC3Editor/Printing"),
    "GarmPC3Editor/Commands": (*BELOW_COMMANDS, "GarmPC3Editor"),
    "GarmPC3Editor/Dialogs": (*MODULE, "GarmPC3Editor/Commands"),
    "GarmPC3Editor": (*MODULE, "GarmPC3Editor/Commands"),
    "apps/common": (*REFERENCE_HOST, "GarmPC3Editor/Model", "GarmPC3Editor/Printing"),
    "apps/plothost": (*REFERENCE_HOST, "common"),
    "tests": None,
    "bench": None,
    "fuzz": None,
}
ANYTHING = None


def included(source):
    """The headers that a source names in quotation marks, in their order."""
    lines = (line.replace(" ", "") for line in source.splitlines() if line.lstrip().startswith("#"))
    return [line.split('"')[1] for line in lines if line.startswith('#include"')]


def in_folders(name):
    """An include as a path from the root: platform and apps are include folders themselves."""
    top = name.split("/")[0]
    for parent in ("platform", "apps"):
        if f"{parent}/{top}" in ARROWS:
            return f"{parent}/{name}"
    return name


def room_of(path):
    matching = [room for room in ARROWS if path.startswith(room)]
    return max(matching, key=len, default=None)


def violations(path, source):
    """The includes of a file that run against the arrows."""
    own = room_of(path)
    if own is None:
        return [f"{path}: is in no room with known arrows"]
    if ARROWS[own] is ANYTHING:
        return []
    allowed = {in_folders(room) for room in ARROWS[own]}
    found = []
    for name in included(source):
        room = room_of(in_folders(name))
        if "/" not in name:
            if path.endswith(".h") and own != "resources":
                found.append(f'{path}: includes "{name}" without its folder')
        elif room != own and room not in allowed:
            found.append(f'{path}: includes "{name}", which {own} may not')
    return found


def cycle_in(room, sources):
    """A list of files of a room that include each other in a circle, or None. A header and its source are one file."""
    graph = {}
    for path, source in sources.items():
        if path.startswith(room + "/"):
            needed = {name.rsplit(".", 1)[0] for name in map(in_folders, included(source)) if name.startswith(room + "/")}
            graph.setdefault(path.rsplit(".", 1)[0], set()).update(needed)
    for file, needed in graph.items():
        needed.discard(file)
    try:
        graphlib.TopologicalSorter(graph).prepare()
    except graphlib.CycleError as error:
        return error.args[1]
    return None


class IncludeArrowsTest(unittest.TestCase):
    def test_every_include_runs_along_the_arrows(self):
        found = [line for path in code() for line in violations(path.as_posix(), text(path))]
        assert found == [], "\n" + "\n".join(found)

    def test_an_include_against_the_arrows_is_found(self):
        for path, name in (("platform/kernel/X.h", "host/FilePath.h"),
                           ("pia_tree/X.h", "GarmPC3Editor/GmMetaNode.h"),
                           ("platform/mfc/X.h", "pia_tree/CPBlock.h"),
                           ("platform/host/X.h", "mfc/AfxDll.h"),
                           ("files/X.cpp", "host/CGarmPath.h"),
                           ("GarmPC3Editor/Model/GmMetaNode.cpp", "GarmPC3Editor/Dialogs/DevicePages.h"),
                           ("GarmPC3Editor/Model/GmMetaNode.cpp", "spooler/Handles.h"),
                           ("GarmPC3Editor/Printing/ToDevMode.cpp", "GarmPC3Editor/Decisions/PageValues.h"),
                           ("GarmPC3Editor/Decisions/PageValues.cpp", "mfc/Mfc.h"),
                           ("GarmPC3Editor/Commands/EditedConfiguration.cpp", "GarmPC3Editor/Dialogs/GmPCfgDlg.h"),
                           ("GarmPC3Editor/GmMetaNode.h", "GarmPC3Editor/Model/Fields.h"),
                           ("apps/plothost/ShowReport.cpp", "GarmPC3Editor/Model/Fields.h"),
                           ("apps/plothost/ShowReport.cpp", "tests/support/Blocks.h")):
            assert len(violations(path, f'#include "{name}"\n')) == 1, (path, name)

    def test_a_header_names_the_folder_of_what_it_includes(self):
        assert violations("GarmPC3Editor/Model/X.h", '#include "Fields.h"\n') == [
            'GarmPC3Editor/Model/X.h: includes "Fields.h" without its folder']

    def test_an_include_along_the_arrows_passes(self):
        for path, name in (("GarmPC3Editor/Dialogs/X.h", "mfc/AfxDll.h"),
                           ("GarmPC3Editor/Dialogs/X.cpp", "GarmPC3Editor/Decisions/PageValues.h"),
                           ("GarmPC3Editor/Printing/X.cpp", "GarmPC3Editor/Model/Numbers.h"),
                           ("apps/plothost/ShowReport.cpp", "GarmPC3Editor/GmPlotCfg3.h")):
            assert violations(path, f'#include "{name}"\n#include <vector>\n') == [], (path, name)

    def test_no_file_of_a_portable_room_includes_itself_in_a_circle(self):
        sources = {path.as_posix(): text(path) for path in code()}
        for room in ("Model", "Printing", "Decisions"):
            assert cycle_in(f"GarmPC3Editor/{room}", sources) is None

    def test_a_circle_is_found(self):
        room = "GarmPC3Editor/Model"
        circle = {f"{room}/A.cpp": f'#include "{room}/A.h"\n#include "{room}/B.h"\n', f"{room}/A.h": "",
                  f"{room}/B.h": f'#include "{room}/A.h"\n'}
        assert set(cycle_in(room, circle)) == {f"{room}/A", f"{room}/B"}
