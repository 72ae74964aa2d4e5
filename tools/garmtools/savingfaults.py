"""Saves files onto a disk that is full or read-only: an answer that says so, the old file whole, nothing left behind.

    python3 -m garmtools.savingfaults native|windows    (with PYTHONPATH=tools)

Runs itself once more with mounts of its own, which needs no right: as a normal user in a user namespace. Where no file
system can be mounted, as in some containers, files are limited in size instead, and that is told. Prints what is wrong,
one line each, and "tried N saves, N refused".
"""

import contextlib
import os
import resource
import subprocess
import sys
import tempfile
from pathlib import Path

from . import wineprefix
from .killcampaign import WINDOWS_WRITER, NativeWriter, WineWriter, read_check
from .processes import limited, run_main

PAGE = 4096
NO_ROOM = "there is not enough room on the disk"
PROTECTED = ("the file is read-only", "the file or its folder is protected")
SAVED = "saved"

# A file of nine pages that is written as it is, and a configuration of one.
LARGE, SMALL = 36, 5


class Disk:
    """A small file system of our own."""

    def __init__(self, options):
        self._options = options
        self.folder = Path(tempfile.mkdtemp(prefix="garm-disk-"))

    def __enter__(self):
        subprocess.run(["mount", "-t", "tmpfs", "-o", self._options, "garm", self.folder], check=True)
        return self

    def __exit__(self, *_):
        # Wine's server closes a folder a little later than the program that had it.
        subprocess.run(["umount", "--lazy", self.folder], check=True)
        self.folder.rmdir()

    def set_free_pages(self, pages):
        """Fills the disk up to that."""
        ballast = self.folder / "ballast"
        ballast.unlink(missing_ok=True)
        status = os.statvfs(self.folder)
        with open(ballast, "wb") as file:
            size = (status.f_bavail - pages) * status.f_frsize
            if size:
                os.posix_fallocate(file.fileno(), 0, size)

    def make_read_only(self, yes):
        subprocess.run(["mount", "-o", f"remount,{'ro' if yes else 'rw'}", self.folder], check=True)


class Trial:
    """Saves and looks."""

    def __init__(self, writer):
        self._writer = writer
        self.problems = []
        self.saves = 0
        self.refused = 0

    def _run(self, *arguments, limit=None):
        """What the writer tells. limit: no file may become larger."""
        def prepare():
            resource.setrlimit(resource.RLIMIT_FSIZE, (limit, resource.RLIM_INFINITY))

        # Without restoring signals: the one that the limit sends stays ignored, as Python does itself.
        done = subprocess.run(limited(60, self._writer.command(*arguments)), env=self._writer.env, check=False,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              restore_signals=False, preexec_fn=prepare if limit is not None else None)
        return done.stdout.decode(errors="replace").replace("\r\n", "\n").strip()

    def save(self, number, path, limit=None):
        answer = self._run("save", number, self._writer.path(path), limit=limit)
        self.saves += 1
        self.refused += answer != SAVED
        return answer

    def expect(self, what, is_so, wanted):
        """wanted: what it must be, or a tuple of what it may be."""
        if is_so not in (wanted if isinstance(wanted, tuple) else (wanted,)):
            self.problems.append(f"{what}: {is_so!r} instead of {wanted!r}")

    def expect_files(self, what, folder, wanted):
        """Exactly these configurations, whole, and nothing else but ballast."""
        found = read_check(self._run("check", self._writer.path(folder)))
        self.expect(f"files {what}", found, wanted)
        names = {path.name for path in folder.iterdir()} - {"ballast"}
        self.expect(f"names {what}", names, set(wanted))

    def full_disk(self, number):
        """Every amount of free space from none to enough."""
        old, path = number + 42, "A4.pc3"
        with Disk("size=256k,mode=0755") as disk:
            self.expect("first save", self.save(old, disk.folder / path), SAVED)
            pages, answer = 0, ""
            while answer != SAVED and pages <= 20:
                disk.set_free_pages(pages)
                what = f"of {number} with {pages} free pages"
                answer = self.save(number, disk.folder / path)
                # The configuration's own answer knows no reason.
                self.expect(f"save {what}", answer, (NO_ROOM, SAVED) if number % 2 == 0 else ("not saved", SAVED))
                self.expect_files(what, disk.folder, {path: number if answer == SAVED else old})
                pages += 1
            self.expect(f"last save of {number}", answer, SAVED)
            self.expect(f"pages that {number} takes", pages - 1 >= (9 if number == LARGE else 1), True)

    def disk_without_place_for_names(self):
        # The folder itself and one file.
        with Disk("size=256k,nr_inodes=2") as disk:
            self.expect("first save", self.save(LARGE, disk.folder / "A4.pc3"), SAVED)
            self.expect("save without a place", self.save(LARGE + 42, disk.folder / "A4.pc3"), NO_ROOM)
            self.expect("new file without a place", self.save(LARGE, disk.folder / "A3.pc3"), NO_ROOM)
            self.expect_files("without a place", disk.folder, {"A4.pc3": LARGE})

    def read_only_disk(self):
        with Disk("size=256k") as disk:
            self.expect("first save", self.save(LARGE, disk.folder / "A4.pc3"), SAVED)
            disk.make_read_only(True)
            self.expect("read-only save", self.save(LARGE + 42, disk.folder / "A4.pc3"), PROTECTED)
            self.expect("read-only new file", self.save(LARGE, disk.folder / "A3.pc3"), PROTECTED)
            self.expect_files("read-only", disk.folder, {"A4.pc3": LARGE})
            disk.make_read_only(False)
            self.expect("save again", self.save(LARGE + 42, disk.folder / "A4.pc3"), SAVED)
            self.expect_files("again", disk.folder, {"A4.pc3": LARGE + 42})

    def limited_size(self):
        """A write that stops in the middle on any file system, also where nothing can be mounted."""
        with tempfile.TemporaryDirectory(prefix="garm-limit-") as place:
            folder = Path(place)
            self.expect("first save", self.save(LARGE, folder / "A4.pc3"), SAVED)
            for pages in (0, 1, 4, 8):
                answer = self.save(LARGE + 42, folder / "A4.pc3", limit=pages * PAGE)
                # Wine has no word for this error.
                self.expect(f"save with {pages} pages allowed", answer, (NO_ROOM, "the file cannot be written"))
                self.expect_files(f"with {pages} pages allowed", folder, {"A4.pc3": LARGE})
            self.expect("save with room", self.save(LARGE + 42, folder / "A4.pc3", limit=16 * PAGE), SAVED)

    def everything(self, can_mount):
        self.limited_size()
        if not can_mount:
            return
        for number in (LARGE, SMALL):
            self.full_disk(number)
        self.disk_without_place_for_names()
        self.read_only_disk()


def with_own_mounts():
    """The words before a command whose mounts nobody else sees, and which are gone at its end; none where no file system
    can be mounted. Root in a container may need a user namespace as well as anybody."""
    for words in (["unshare", "--mount"], ["unshare", "--map-root-user", "--mount"]):
        probe = subprocess.run([*words, "mount", "-t", "tmpfs", "garm", "/mnt"], capture_output=True, check=False)
        if probe.returncode == 0:
            return words
    return []


def main(kind):
    mounts = os.environ.get("GARM_OWN_MOUNTS")
    if mounts is None:
        words = with_own_mounts()
        command = [*words, sys.executable, "-m", "garmtools.savingfaults", kind]
        return subprocess.run(command, env={**os.environ, "GARM_OWN_MOUNTS": "yes" if words else "no"},
                              check=False).returncode
    with contextlib.ExitStack() as stack:
        writer = NativeWriter()
        if kind == "windows":
            prefix = stack.enter_context(wineprefix.clone())
            prefix.run([WINDOWS_WRITER, "check", "."])
            writer = WineWriter(prefix)
        trial = Trial(writer)
        trial.everything(can_mount=mounts == "yes")
    for problem in trial.problems:
        print(problem)
    if mounts != "yes":
        print("no file system can be mounted here: files were limited in size instead")
    print(f"tried {trial.saves} saves, {trial.refused} refused")
    return 1 if trial.problems else 0


if __name__ == "__main__":
    run_main(main, sys.argv[1])
