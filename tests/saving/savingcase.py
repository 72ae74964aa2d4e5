"""What the tests of both kinds of program have in common."""

import os
import subprocess
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
from garmtools import killcampaign
from garmtools.places import ROOT

# The short form of tools/kill-campaign.
KILLS = 40
SEED = 1

# A user who owns nothing.
NOBODY = 65534


class SavingCase(unittest.TestCase):
    def check_kills(self, outcome):
        self.assertEqual(outcome.problems, [])
        self.assertEqual(outcome.kills, KILLS)
        self.assertGreater(outcome.saves, 0)
        # With half of the kills waiting for a temporary file they cannot all miss it.
        self.assertGreater(outcome.leftovers, 0, outcome.moments)
        in_a_save = outcome.kills - outcome.moments[killcampaign.BETWEEN]
        self.assertGreater(in_a_save, KILLS // 2, outcome.moments)

    def check_faults(self, kind):
        done = subprocess.run([sys.executable, "-m", "garmtools.savingfaults", kind], text=True, check=False,
                              stdout=subprocess.PIPE, timeout=300,
                              env={**os.environ, "PYTHONPATH": str(ROOT / "tools")})
        self.assertEqual(done.returncode, 0, done.stdout)
        *_, tried = done.stdout.splitlines()
        self.assertRegex(tried, "^tried [0-9]+ saves, [1-9][0-9]* refused$")
