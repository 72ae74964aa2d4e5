"""Saves files onto a disk that is full or read-only: an answer that says so, the old file whole, nothing left behind.

    disks.py native|windows    (with PYTHONPATH=.:tools)

Runs itself once more with mounts of its own, which needs no right: as a normal user in a user namespace. Where no file
system can be mounted, as in some containers, files are limited in size instead, and that is printed. Prints what is
wrong, one line each, and "tried N saves, N refused".
"""

import contextlib
import os
import resource
import subprocess
import sys
import tempfile
from pathlib import Path

from garmtools import wineprefix
from garmtools.processes import run_main

from lab.kills import NativeWriter, WineWriter, output, read_check

PAGE = 4096
SAVED, NO_ROOM = "saved", "there is not enough room on the disk"
PROTECTED = ("the file is read-only", "the file or its folder is protected")
LIMITED = (NO_ROOM, "the file cannot be written")  # Wine has no word for this error

# A file of nine pages that is written as it is, and a configuration of one.
LARGE, SMALL = 36, 5


@contextlib.contextmanager
def disk(options):
    """The folder of a small file system of our own."""
    folder = Path(tempfile.mkdtemp(prefix="garm-disk-"))
    subprocess.run(["mount", "-t", "tmpfs", "-o", options, "garm", folder], check=True)
    try:
        yield folder
    finally:
        # Wine's server closes a folder a little later than the program that had it.
        subprocess.run(["umount", "--lazy", folder], check=True)
        folder.rmdir()


def leave_free_pages(folder, pages):
    ballast = folder / "ballast"
    ballast.unlink(missing_ok=True)
    status = os.statvfs(folder)
    with open(ballast, "wb") as file:
        if size := (status.f_bavail - pages) * status.f_frsize:
            os.posix_fallocate(file.fileno(), 0, size)


class Trial:
    """Saves and looks."""

    def __init__(self, writer):
        self._writer = writer
        self.problems = []
        self.saves = self.refused = 0

    def save(self, what, number, path, wanted, limit=None):
        """Saves a file, which must be answered with what is wanted, or one of it. limit: no file may become larger."""
        def prepare():
            resource.setrlimit(resource.RLIMIT_FSIZE, (limit, resource.RLIM_INFINITY))

        # Without restoring signals: the one that the limit sends stays ignored, as Python does itself.
        settings = {"restore_signals": False, "preexec_fn": prepare} if limit is not None else {}
        answer = "\n".join(output(self._writer, "save", number, self._writer.path(path), **settings))
        self.saves += 1
        self.refused += answer != SAVED
        self.expect(what, answer in (wanted if isinstance(wanted, tuple) else (wanted,)), answer)
        return answer

    def expect(self, what, is_so, found):
        if not is_so:
            self.problems.append(f"{what}: {found!r}")

    def expect_files(self, what, folder, wanted):
        """Exactly these configurations, whole, and nothing else but ballast."""
        found = read_check(output(self._writer, "check", self._writer.path(folder)))
        names = {path.name for path in folder.iterdir()} - {"ballast"}
        self.expect(f"files {what}", (found, names) == (wanted, set(wanted)), (found, names))

    def full_disk(self, number):
        """Every amount of free space from none to enough."""
        with disk("size=256k,mode=0755") as folder:
            path, old, pages, answer = folder / "A4.pc3", number + 42, 0, ""
            self.save("first save", old, path, SAVED)
            while answer != SAVED and pages <= 20:
                leave_free_pages(folder, pages)
                # The configuration's own answer knows no reason.
                answer = self.save(f"save of {number} with {pages} free pages", number, path,
                                   (NO_ROOM if number % 2 == 0 else "not saved", SAVED))
                self.expect_files(f"of {number} with {pages} free pages", folder,
                                  {path.name: number if answer == SAVED else old})
                pages += 1
            self.expect(f"last save of {number}", answer == SAVED, answer)
            self.expect(f"pages that {number} takes", pages - 1 >= (9 if number == LARGE else 1), pages - 1)

    def disk_without_room_for_names(self):
        with disk("size=256k,nr_inodes=2") as folder:  # the folder itself and one file
            self.save("first save", LARGE, folder / "A4.pc3", SAVED)
            self.save("save without room for a name", LARGE + 42, folder / "A4.pc3", NO_ROOM)
            self.save("new file without room for a name", LARGE, folder / "A3.pc3", NO_ROOM)
            self.expect_files("without room for names", folder, {"A4.pc3": LARGE})

    def read_only_disk(self):
        with disk("size=256k") as folder:
            self.save("first save", LARGE, folder / "A4.pc3", SAVED)
            subprocess.run(["mount", "-o", "remount,ro", folder], check=True)
            self.save("read-only save", LARGE + 42, folder / "A4.pc3", PROTECTED)
            self.save("read-only new file", LARGE, folder / "A3.pc3", PROTECTED)
            self.expect_files("read-only", folder, {"A4.pc3": LARGE})
            subprocess.run(["mount", "-o", "remount,rw", folder], check=True)
            self.save("save again", LARGE + 42, folder / "A4.pc3", SAVED)
            self.expect_files("again", folder, {"A4.pc3": LARGE + 42})

    def limited_size(self):
        """A write that stops in the middle on any file system, also where nothing can be mounted."""
        with tempfile.TemporaryDirectory(prefix="garm-limit-") as place:
            path = Path(place, "A4.pc3")
            self.save("first save", LARGE, path, SAVED)
            for pages in (0, 1, 4, 8):
                self.save(f"save with {pages} pages allowed", LARGE + 42, path, LIMITED, limit=pages * PAGE)
                self.expect_files(f"with {pages} pages allowed", path.parent, {"A4.pc3": LARGE})
            self.save("save with room", LARGE + 42, path, SAVED, limit=16 * PAGE)


def with_own_mounts():
    """The words before a command whose mounts nobody else sees, and which are gone at its end; none where no file system
    can be mounted. Root in a container may need a user namespace as well."""
    for words in (["unshare", "--mount"], ["unshare", "--map-root-user", "--mount"]):
        probe = subprocess.run([*words, "mount", "-t", "tmpfs", "garm", "/mnt"], capture_output=True, check=False)
        if probe.returncode == 0:
            return words
    return []


def main(kind, mounts=None):
    if mounts is None:
        words = with_own_mounts()
        return subprocess.run([*words, sys.executable, __file__, kind, "yes" if words else "no"], check=False).returncode
    with contextlib.ExitStack() as stack:
        trial = Trial(NativeWriter() if kind == "native" else WineWriter(stack.enter_context(wineprefix.clone())))
        trial.limited_size()
        if mounts == "yes":
            for number in (LARGE, SMALL):
                trial.full_disk(number)
            trial.disk_without_room_for_names()
            trial.read_only_disk()
        else:
            print("no file system can be mounted here: files were limited in size instead")
    print(*trial.problems, f"tried {trial.saves} saves, {trial.refused} refused", sep="\n")
    return 1 if trial.problems else 0


if __name__ == "__main__":
    run_main(main, *sys.argv[1:])
