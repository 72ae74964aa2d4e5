"""Who may use a file is the same after it was saved, whoever saves it and with which kind of program."""

import contextlib
import errno
import fcntl
import os
import shutil
import stat
import struct
import subprocess
import tempfile
from pathlib import Path

from garmtools.processes import limited
from savingcase import NOBODY

SAVED = "saved"

# All that let their owner write, and some of them also others run programs, or with a bit of their own.
MODES = (0o600, 0o602, 0o604, 0o606, 0o620, 0o622, 0o640, 0o642, 0o644, 0o646, 0o660, 0o662, 0o664, 0o666, 0o700, 0o711,
         0o744, 0o750, 0o755, 0o770, 0o775, 0o777, 0o1644, 0o2660, 0o2755)

ACCESS_LIST = "system.posix_acl_access"
# Version 2, then kind, rights and number of each entry: owner, user 1234, group, mask, others.
LIST = struct.pack("<I", 2) + b"".join(
    struct.pack("<HHI", kind, rights, number)
    for kind, rights, number in ((1, 6, 0xFFFFFFFF), (2, 6, 1234), (4, 0, 0xFFFFFFFF), (0x10, 6, 0xFFFFFFFF),
                                 (0x20, 0, 0xFFFFFFFF)))


class Permissions:
    """What the tests of both kinds of program check; a case has writer(user) as well: the writer and its folder."""

    def setUp(self):
        self.place = Path(tempfile.mkdtemp(prefix="garm-rights-"))
        self.addCleanup(shutil.rmtree, self.place)
        # Everybody must get into it.
        self.place.chmod(0o755)
        self.folder = self.place / "folder"
        self.folder.mkdir()
        self.users = (0, NOBODY) if os.geteuid() == 0 else (os.geteuid(),)

    def new_file(self, name="A4.pc3", mode=0o600, user=None, group=None):
        path = self.folder / name
        path.unlink(missing_ok=True)
        path.write_bytes(b"PIAFILEVERSION_2.0,PC3VER1\nnumber=2\n")
        if user is not None or group is not None:
            os.chown(path, -1 if user is None else user, -1 if group is None else group)
        path.chmod(mode)
        return path

    def state(self, path):
        """All that must stay."""
        status = path.stat()
        attributes = {}
        with contextlib.suppress(OSError):
            attributes = {name: os.getxattr(path, name) for name in os.listxattr(path)}
        return oct(stat.S_IMODE(status.st_mode)), status.st_uid, status.st_gid, attributes

    def check_kept(self, user, paths):
        before = {path: (self.state(path), path.read_bytes()) for path in paths}
        answers = self.save(user, 36, *paths)
        self.assertEqual(answers, [SAVED] * len(paths))
        for path in paths:
            with self.subTest(path=path.name, user=user):
                self.assertEqual(self.state(path), before[path][0])
                self.assertNotEqual(path.read_bytes(), before[path][1])
        self.assertEqual(sorted(os.listdir(self.folder)), sorted({path.name for path in paths}))

    def save(self, user, number, *paths):
        writer, place = self.writer(user)
        command = writer.command("save", str(number), *[writer.path(path) for path in paths])
        # Into a file, not a pipe: Wine's services, which the first program starts, would hold a pipe open for good.
        with tempfile.TemporaryFile() as told:
            subprocess.run(limited(120, command), env=writer.env, cwd=place,
                           stdin=subprocess.DEVNULL, stdout=told, stderr=subprocess.STDOUT, check=False)
            told.seek(0)
            return told.read().decode(errors="replace").replace("\r\n", "\n").split("\n")[:-1]

    def test_every_mode_is_kept(self):
        for user in self.users:
            self.folder.chmod(0o777)
            self.check_kept(user, [self.new_file(f"{mode:o}.pc3", mode, *(2 * (user,) if user != os.geteuid() else ()))
                                   for mode in MODES])
            for mode in MODES:
                (self.folder / f"{mode:o}.pc3").unlink()

    def test_owner_and_group_are_kept(self):
        if os.geteuid() != 0:
            return  # only root makes files of other users
        self.check_kept(0, [self.new_file("a.pc3", 0o640, 1234, 2345), self.new_file("b.pc3", 0o6755, NOBODY, 0)])

    def test_a_file_of_another_user_stays_that_users(self):
        if os.geteuid() != 0:
            return  # only root makes files of other users
        self.folder.chmod(0o777)
        self.check_kept(NOBODY, [self.new_file("a.pc3", 0o666, 1234, 2345), self.new_file("b.pc3", 0o664, 1234, NOBODY)])

    def test_attributes_and_access_lists_are_kept(self):
        path = self.new_file()
        try:
            os.setxattr(path, "user.plotter", b"a\0b")
            os.setxattr(path, ACCESS_LIST, LIST)
        except OSError as error:
            self.assertEqual(error.errno, errno.ENOTSUP)  # nothing to keep on this file system
            return
        self.check_kept(os.geteuid(), [path])

    def test_another_name_of_the_file_is_kept(self):
        path = self.new_file()
        os.link(path, self.folder / "other")
        self.assertEqual(self.save(os.geteuid(), 36, path), [SAVED])
        self.assertTrue(path.samefile(self.folder / "other"))
        self.assertEqual(sorted(os.listdir(self.folder)), ["A4.pc3", "other"])

    def test_links_are_followed_also_to_a_file_that_is_to_be_made(self):
        (self.place / "elsewhere").mkdir()
        target = self.place / "elsewhere" / "target.pc3"
        first, second = self.folder / "first.pc3", self.folder / "second.pc3"
        first.symlink_to("second.pc3")
        second.symlink_to("../elsewhere/target.pc3")
        for number in (36, 78):
            self.assertEqual(self.save(os.geteuid(), number, first), [SAVED])
            self.assertTrue(first.is_symlink() and second.is_symlink() and target.is_file())
            self.assertIn(f"number={number}\n".encode(), target.read_bytes())
        self.assertEqual(os.listdir(self.place / "elsewhere"), ["target.pc3"])
        self.assertEqual(sorted(os.listdir(self.folder)), ["first.pc3", "second.pc3"])

    def test_a_link_into_a_missing_folder_stays(self):
        link = self.folder / "A4.pc3"
        link.symlink_to("missing/A4.pc3")
        self.assertNotEqual(self.save(os.geteuid(), 36, link), [SAVED])
        self.assertTrue(link.is_symlink())

    def test_an_old_file_that_another_system_has_locked_is_not_removed(self):
        name = self.folder / "~gm0123456789abcdef.tmp"
        name.write_bytes(b"being written")
        os.utime(name, (1_000_000_000, 1_000_000_000))
        with open(name, "r+b") as held:
            fcntl.lockf(held, fcntl.LOCK_EX)
            self.assertEqual(self.save(os.geteuid(), 36, self.folder / "A4.pc3"), [SAVED])
            self.assertTrue(name.exists())
        self.assertEqual(self.save(os.geteuid(), 36, self.folder / "A4.pc3"), [SAVED])
        self.assertEqual(os.listdir(self.folder), ["A4.pc3"])
