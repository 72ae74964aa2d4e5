"""Includes run one way, so that a lower layer can be built, tested and replaced without the upper ones."""

import re
import unittest

from sources import code, text

INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]', re.MULTILINE)

# What each folder may include of ours, itself aside. The longest matching prefix of a path counts.
MODULE = ("GarmPC3Editor", "pia_tree", "kernel", "win32", "mfc", "host", "resources")
ARROWS = {
    "platform/kernel": (),
    "platform/win32": ("kernel",),  # OdChar, the text type of every wide Win32 name
    "platform/mfc": ("kernel", "win32"),
    "platform/host": ("kernel", "win32"),
    "pia_tree": ("kernel", "win32"),
    "GarmPC3Editor": MODULE,
    "resources": (),
    "apps": (*MODULE, "plothost"),
    "tests": (*MODULE, "plothost", "tests", "support"),
    "bench": (*MODULE, "bench", "tests"),
    "fuzz": (*MODULE, "fuzz", "tests"),
}
OURS = {"GarmPC3Editor", "pia_tree", "kernel", "win32", "mfc", "host", "resources", "plothost", "apps", "tests",
        "bench", "fuzz"}


def folder_of(path):
    """The entry of ARROWS that the file falls under."""
    matching = [folder for folder in ARROWS if path.as_posix().startswith(folder + "/")]
    return max(matching, key=len, default=None)


def violations(path, source):
    """The includes of a file that run against the arrows."""
    folder = folder_of(path)
    if folder is None:
        return [f"{path}: is in no folder with known arrows"]
    own = folder.rsplit("/", 1)[-1]
    found = []
    for quote, name in INCLUDE.findall(source):
        top = name.split("/")[0] if "/" in name else None
        if top in OURS and top != own and top not in ARROWS[folder]:
            found.append(f'{path}: includes "{name}", which {folder} may not')
        elif quote == '"' and "/" not in name and path.suffix == ".h" and (folder == "GarmPC3Editor" or own in OURS) \
                and not folder.startswith(("tests", "resources")):
            found.append(f'{path}: includes "{name}" without its folder')
    return found


class IncludeArrowsTest(unittest.TestCase):
    def test_every_include_runs_along_the_arrows(self):
        found = [line for path in code() for line in violations(path, text(path))]
        self.assertEqual(found, [], "\n" + "\n".join(found))

    def test_an_include_against_the_arrows_is_found(self):
        from pathlib import Path
        for folder, name in (("platform/kernel", "host/FilePath.h"), ("pia_tree", "GarmPC3Editor/GmMetaNode.h"),
                             ("platform/mfc", "pia_tree/CPBlock.h"), ("platform/host", "mfc/AfxDll.h")):
            self.assertEqual(len(violations(Path(folder, "X.h"), f'#include "{name}"\n')), 1, (folder, name))

    def test_an_include_along_the_arrows_passes(self):
        from pathlib import Path
        self.assertEqual(violations(Path("GarmPC3Editor/X.h"), '#include "mfc/AfxDll.h"\n#include <vector>\n'), [])


if __name__ == "__main__":
    unittest.main()
