"""A file that is being saved is whole at any time, and whoever cannot save is told so and leaves nothing behind."""

import contextlib
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

import pytest
from garmtools import wineprefix
from garmtools.places import ROOT
from garmtools.processes import allowed_cpus, limited

from lab import kills
from lab.kills import NativeWriter, WineWriter, output, read_check

KILLS = 40  # the short form of lab/run kills
NOBODY = 65534  # a user who owns nothing

# Writers, and readers, in each of two worlds that know nothing of each other's processes.
EACH = 2
SAVES = int(os.environ.get("GARM_SAVES", "15"))  # the long form: GARM_SAVES=250 makes it 1,000 saves


def test_killed_writer_leaves_every_file_whole(writer):
    outcome = kills.campaign(writer, KILLS, seed=1)
    assert outcome.problems == []
    assert outcome.moments.total() == KILLS
    assert outcome.saves > 0
    # With half of the kills waiting for a temporary file they cannot all miss it.
    assert outcome.leftovers > 0, outcome.moments
    assert KILLS - outcome.moments[kills.BETWEEN] > KILLS // 2, outcome.moments


def test_full_or_read_only_disk_costs_nothing(kind):
    done = subprocess.run([sys.executable, Path(__file__).with_name("disks.py"), kind], text=True, check=False,
                          capture_output=True, timeout=300, env={**os.environ, "PYTHONPATH": f"{ROOT}:{ROOT / 'tools'}"})
    *told, last = done.stdout.splitlines() or [""]
    assert done.returncode == 0, done.stdout + done.stderr
    assert set(told) <= {"no file system can be mounted here: files were limited in size instead"}
    assert re.fullmatch("tried [0-9]+ saves, [1-9][0-9]* refused", last), done.stdout


@pytest.fixture
def worlds(kind):
    if kind == "native":
        words = ["unshare", "--map-root-user", "--pid", "--fork"]
        if subprocess.run([*words, "true"], capture_output=True, check=False).returncode != 0:
            words = []  # no namespaces here
        yield NativeWriter(), NativeWriter(words=words)
        return
    cpus = allowed_cpus()
    with wineprefix.clone(cpu=cpus[0]) as one, wineprefix.clone(cpu=cpus[-1]) as other:
        yield WineWriter(one), WineWriter(other)


def test_many_writers_and_readers_of_one_file(worlds):
    with tempfile.TemporaryDirectory(prefix="garm-crowd-") as place, contextlib.ExitStack() as stack:
        folder, stop = Path(place, "files"), Path(place, "stop")
        folder.mkdir()
        file = folder / "A4.pc3"
        assert output(worlds[0], "write", worlds[0].path(file), 2, 1) == ["1, 0 refused"]

        def start(writer, *arguments):
            printed = stack.enter_context(tempfile.TemporaryFile())
            return subprocess.Popen(limited(300, writer.command(*arguments)), env=writer.env, stdin=subprocess.DEVNULL,
                                    stdout=printed, stderr=subprocess.STDOUT), printed

        def ended(child, printed):
            child.wait()
            printed.seek(0)
            return printed.read().decode(errors="replace").strip()

        readers = [start(writer, "read", writer.path(file), writer.path(stop)) for writer in worlds for _ in range(EACH)]
        writers = [start(writer, "write", writer.path(file), 2 + 1000 * number, SAVES)
                   for writer in worlds for number in range(EACH)]
        assert [ended(*child) for child in writers] == [f"{SAVES}, 0 refused"] * len(writers)
        stop.touch()
        for child in readers:
            reads, rest = ended(*child).split(", ")
            assert int(reads) > 0 and rest == "0 refused"
        assert os.listdir(folder) == ["A4.pc3"]


@pytest.mark.parametrize("kind", ["native"], indirect=True)
def test_protected_folder_stays_as_it_is(writer_of):
    owner = writer_of(os.geteuid())
    # For root no folder is closed.
    anyone = writer_of(NOBODY) if os.geteuid() == 0 else owner
    folder = Path(tempfile.mkdtemp(dir=owner.folder))
    assert output(owner, "save", 36, folder / "A4.pc3") == ["saved"]
    (folder / "A4.pc3").chmod(0o666)
    folder.chmod(0o555)
    try:
        for name in ("A4.pc3", "A3.pc3"):
            assert output(anyone, "save", 78, folder / name) == ["the file or its folder is protected"]
        assert read_check(output(owner, "check", folder)) == {"A4.pc3": 36}
        assert os.listdir(folder) == ["A4.pc3"]
    finally:
        folder.chmod(0o755)
