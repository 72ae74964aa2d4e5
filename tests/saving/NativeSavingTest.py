"""Saving natively: killed at random moments, on full and read-only disks, in folders of others."""

import os
import shutil
import subprocess
import tempfile
from pathlib import Path

from garmtools import killcampaign
from garmtools.killcampaign import NativeWriter, read_check
from crowd import Crowd
from savingcase import KILLS, NOBODY, SEED, SavingCase


class NativeSavingTest(Crowd, SavingCase):
    def test_a_killed_writer_leaves_every_file_whole_and_nothing_behind(self):
        self.check_kills(killcampaign.campaign(NativeWriter(), KILLS, SEED))

    def test_a_full_or_read_only_disk_costs_nothing(self):
        self.check_faults("native")

    def test_a_folder_that_we_may_not_write_into_stays_as_it_is(self):
        place = Path(tempfile.mkdtemp(prefix="garm-folder-"))
        self.addCleanup(shutil.rmtree, place)
        # Everybody must get at the program, also who may not look into this checkout.
        program = shutil.copy(killcampaign.NATIVE_WRITER, place)
        folder = place / "folder"
        folder.mkdir()
        place.chmod(0o755)

        def run(*arguments, anybody=False):
            # For root no folder is closed.
            writer = NativeWriter(program, NOBODY if anybody and os.geteuid() == 0 else None)
            done = subprocess.run(writer.command(*arguments), capture_output=True, text=True, check=True)
            return done.stdout.strip()

        self.assertEqual(run("save", 36, folder / "A4.pc3"), "saved")
        (folder / "A4.pc3").chmod(0o666)
        folder.chmod(0o555)
        self.addCleanup(folder.chmod, 0o755)
        for name in ("A4.pc3", "A3.pc3"):
            self.assertEqual(run("save", 78, folder / name, anybody=True), "the file or its folder is protected")
        self.assertEqual(read_check(run("check", folder)), {"A4.pc3": 36})
        self.assertEqual(os.listdir(folder), ["A4.pc3"])

    def test_many_writers_and_readers_of_one_file_do_not_disturb_each_other(self):
        words = ["unshare", "--map-root-user", "--pid", "--fork"]
        if subprocess.run([*words, "true"], capture_output=True, check=False).returncode != 0:
            words = []  # no namespaces here
        self.check_crowd([([], NativeWriter()), (words, NativeWriter())])
