"""Saving as a Windows program: killed at random moments, on full and read-only disks."""

from garmtools import killcampaign, wineprefix
from garmtools.killcampaign import WINDOWS_WRITER, WineWriter
from garmtools.processes import allowed_cpus
from crowd import Crowd
from savingcase import KILLS, SEED, SavingCase


class WindowsSavingTest(Crowd, SavingCase):
    def test_a_killed_writer_leaves_every_file_whole_and_nothing_behind(self):
        self.check_kills(killcampaign.wine_campaign(KILLS, SEED))

    def test_a_full_or_read_only_disk_costs_nothing(self):
        self.check_faults("windows")

    def test_many_writers_and_readers_of_one_file_do_not_disturb_each_other(self):
        with wineprefix.clone(cpu=allowed_cpus()[0]) as one, wineprefix.clone(cpu=allowed_cpus()[-1]) as other:
            for prefix in (one, other):
                prefix.run([WINDOWS_WRITER, "check", "."])
            self.check_crowd([([], WineWriter(one)), ([], WineWriter(other))])
