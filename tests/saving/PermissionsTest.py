"""Who may use a file is the same after it was saved, whoever saves it and with which kind of program."""

import errno
import fcntl
import os
import stat
import struct
import tempfile
from contextlib import suppress
from pathlib import Path

import pytest

from lab.kills import OLD, output

NOBODY = 65534  # a user who owns nothing
USERS = (0, NOBODY) if os.geteuid() == 0 else (os.geteuid(),)
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


@pytest.fixture
def folder():
    with tempfile.TemporaryDirectory(prefix="garm-rights-") as place:
        os.chmod(place, 0o755)  # everyone must get into it
        folder = Path(place, "folder")
        folder.mkdir()
        yield folder


def new_file(path, mode=0o600, user=-1, group=-1):
    path.write_bytes(b"PIAFILEVERSION_2.0,PC3VER1\nnumber=2\n")
    os.chown(path, user, group)
    path.chmod(mode)
    return path


def state(path):
    """All that must stay."""
    status = path.stat()
    attributes = {}
    with suppress(OSError):
        attributes = {name: os.getxattr(path, name) for name in os.listxattr(path)}
    return oct(stat.S_IMODE(status.st_mode)), status.st_uid, status.st_gid, attributes


def save(writer, number, *paths):
    return output(writer, "save", number, *map(writer.path, paths))


def check_kept(writer, *paths):
    before = [(state(path), path.read_bytes()) for path in paths]
    assert save(writer, 36, *paths) == [SAVED] * len(paths)
    for path, (its_state, content) in zip(paths, before):
        assert state(path) == its_state, path.name
        assert path.read_bytes() != content, path.name
    assert sorted(os.listdir(paths[0].parent)) == sorted(path.name for path in paths)


def test_every_mode_is_kept(writer_of, folder):
    for user in USERS:
        folder.chmod(0o777)
        owner = (user, user) if user != os.geteuid() else ()
        files = [new_file(folder / f"{mode:o}.pc3", mode, *owner) for mode in MODES]
        check_kept(writer_of(user), *files)
        for path in files:
            path.unlink()


def test_owner_and_group_are_kept(writer, folder):
    if os.geteuid() == 0:  # only root makes files of other users
        check_kept(writer, new_file(folder / "a.pc3", 0o640, 1234, 2345), new_file(folder / "b.pc3", 0o6755, NOBODY, 0))


def test_another_users_file_stays_that_users(writer_of, folder):
    if os.geteuid() == 0:
        folder.chmod(0o777)
        check_kept(writer_of(NOBODY), new_file(folder / "a.pc3", 0o666, 1234, 2345),
                   new_file(folder / "b.pc3", 0o664, 1234, NOBODY))


def test_attributes_and_access_lists_are_kept(writer, folder):
    path = new_file(folder / "A4.pc3")
    try:
        os.setxattr(path, "user.plotter", b"a\0b")
        os.setxattr(path, ACCESS_LIST, LIST)
    except OSError as error:
        assert error.errno == errno.ENOTSUP  # nothing to keep on this file system
        return
    check_kept(writer, path)


def test_another_name_of_the_file_is_kept(writer, folder):
    path = new_file(folder / "A4.pc3")
    os.link(path, folder / "other")
    assert save(writer, 36, path) == [SAVED]
    assert path.samefile(folder / "other")
    assert sorted(os.listdir(folder)) == ["A4.pc3", "other"]


def test_links_are_followed_also_to_a_new_file(writer, folder):
    elsewhere = folder.parent / "elsewhere"
    elsewhere.mkdir()
    first, second, target = folder / "first.pc3", folder / "second.pc3", elsewhere / "target.pc3"
    first.symlink_to("second.pc3")
    second.symlink_to("../elsewhere/target.pc3")
    for number in (36, 78):
        assert save(writer, number, first) == [SAVED]
        assert first.is_symlink() and second.is_symlink() and target.is_file()
        assert f"number={number}\n".encode() in target.read_bytes()
    assert os.listdir(elsewhere) == ["target.pc3"]
    assert sorted(os.listdir(folder)) == ["first.pc3", "second.pc3"]


def test_link_into_a_missing_folder_stays(writer, folder):
    link = folder / "A4.pc3"
    link.symlink_to("missing/A4.pc3")
    assert save(writer, 36, link) != [SAVED]
    assert link.is_symlink()


def test_old_file_locked_by_another_system_stays(writer, folder):
    name = folder / "~gm0123456789abcdef.tmp"
    name.write_bytes(b"being written")
    os.utime(name, (OLD, OLD))
    with open(name, "r+b") as held:
        fcntl.lockf(held, fcntl.LOCK_EX)
        assert save(writer, 36, folder / "A4.pc3") == [SAVED]
        assert name.exists()
    assert save(writer, 36, folder / "A4.pc3") == [SAVED]
    assert os.listdir(folder) == ["A4.pc3"]
