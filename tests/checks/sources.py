"""The files of the project, as the checks see them."""

import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

CODE = (".cpp", ".h", ".c")
SHIPPED = ("GarmPC3Editor", "spooler", "files", "pia_tree", "platform", "apps")


def tracked():
    """Every file of the project that exists, relative to the root: what git knows and what it would take in."""
    done = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=ROOT,
                          stdout=subprocess.PIPE, check=True)
    names = done.stdout.decode().split("\0")
    return sorted(Path(name) for name in set(names) if name and (ROOT / name).is_file())


def code():
    return [path for path in tracked() if path.suffix in CODE]


def text(path):
    return (ROOT / path).read_text(encoding="utf-8")
