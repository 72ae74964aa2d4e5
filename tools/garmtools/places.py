"""Where things are in a checkout."""

import os
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILD = ROOT / "build"
RESULTS = BUILD / "test-results"
WINDOWS_PRESET = "windows-release"
WINDOWS_BIN = BUILD / WINDOWS_PRESET / "bin"


def windows_path(path):
    """The path as a Windows program under Wine sees it: drive Z: is the root. A path on a share is one already."""
    if str(path).startswith("\\\\"):
        return str(path)
    return "Z:" + os.path.abspath(path).replace("/", "\\")
