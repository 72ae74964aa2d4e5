"""Configurations that the reference host makes are saved like the editor's: whole or not at all."""

import os
import random
import signal
import subprocess
import time

from hostcase import HOST, WITH_MARGINS, WITHOUT_MARGINS, HostCase

from lab.kills import OLD

KILLS = 8
SEED = 1


class SavingTest(HostCase):
    def create_and_kill(self, seconds):
        """Kills a run of the host after that time, if it is still there; whether it was."""
        with open(self.folder.parent / f"{self.folder.name}.log", "wb") as log:
            self.addCleanup((self.folder.parent / f"{self.folder.name}.log").unlink, missing_ok=True)
            child = subprocess.Popen(self.prefix.command([HOST, "create", WITH_MARGINS, "x.pc3"]), cwd=self.folder,
                                     env=self.prefix.env, stdin=subprocess.DEVNULL, stdout=log, stderr=log)
            try:
                child.wait(seconds)
            except subprocess.TimeoutExpired:
                child.send_signal(signal.SIGKILL)
            return child.wait() == -signal.SIGKILL

    def test_a_create_that_is_killed_leaves_the_old_file_or_the_new_one(self):
        new = self.create(WITH_MARGINS).read_bytes()
        # The first run of a prefix takes longer.
        began = time.monotonic()
        old = self.create(WITHOUT_MARGINS).read_bytes()
        seconds = time.monotonic() - began
        assert old != new
        moments = random.Random(SEED)
        killed = 0
        for _ in range(KILLS):
            (self.folder / "x.pc3").write_bytes(old)
            # The file is written near the end of a run.
            killed += self.create_and_kill(seconds * moments.uniform(0.2, 1.0))
            assert (self.folder / "x.pc3").read_bytes() in (old, new)
        assert killed > 0
        # What was left behind goes with a later save, when nobody can be writing it any more.
        for path in self.folder.glob("~gm*.tmp"):
            os.utime(path, (OLD, OLD))
        self.create(WITH_MARGINS)
        assert [path.name for path in self.folder.iterdir()] == ["x.pc3"]
        assert (self.folder / "x.pc3").read_bytes() == new

    def test_a_file_that_may_not_be_written_is_told_and_stays(self):
        path = self.create(WITHOUT_MARGINS)
        before = path.read_bytes()
        path.chmod(0o444)
        assert "read-only" in self.why_not("create", WITH_MARGINS, "x.pc3")
        assert path.read_bytes() == before
        assert [path.name for path in self.folder.iterdir()] == ["x.pc3"]
