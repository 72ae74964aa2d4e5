"""Saving as a Windows program: killed at random moments, on full and read-only disks."""

from garmtools import killcampaign
from savingcase import KILLS, SEED, SavingCase


class WindowsSavingTest(SavingCase):
    def test_a_killed_writer_leaves_every_file_whole_and_nothing_behind(self):
        self.check_kills(killcampaign.wine_campaign(KILLS, SEED))

    def test_a_full_or_read_only_disk_costs_nothing(self):
        self.check_faults("windows")
