"""The layout of the source is not a matter of taste: .clang-format decides."""

import subprocess
import unittest

from sources import ROOT, code


class FormatTest(unittest.TestCase):
    def test_every_source_is_laid_out_by_clang_format(self):
        done = subprocess.run(["clang-format", "--dry-run", "-Werror", *map(str, code())], cwd=ROOT,
                              capture_output=True, text=True, check=False)
        assert done.returncode == 0, "cured by clang-format -i on the files named here:\n" + done.stderr
