"""What every scenario stands on: private queues, a fresh Wine prefix, the reference host, files of its own."""

import contextlib
import json
import shutil
import tempfile
import unittest
from pathlib import Path

from garmtools import privatecups, wineprefix
from garmtools.places import ROOT, WINDOWS_BIN, windows_path

HOST = WINDOWS_BIN / "plothost.exe"
TOOL = WINDOWS_BIN / "e2e_tool.exe"
MODULE = WINDOWS_BIN / "GarmPC3Editor.grx"
SAMPLES = ROOT / "samples"

WITH_MARGINS = "DesignJet-3500CP"
WITHOUT_MARGINS = "DesignJet-800PS"
COPIER = "Lanier-MP-W7100"
OFFICE = "Brother-HL-5370DW"
QUEUES = {WITH_MARGINS, WITHOUT_MARGINS, COPIER, OFFICE}


class HostCase(unittest.TestCase):
    """One scenario class: its own server, its own clone of the prefix. Every call of the host is a process of its own,
    because what a driver is given becomes its default for the rest of a process."""

    @classmethod
    def setUpClass(cls):
        with contextlib.ExitStack() as stack:
            cls.cups = stack.enter_context(privatecups.private_cups())
            cls.prefix = stack.enter_context(wineprefix.clone(cups=cls.cups.socket))
            cls.addClassCleanup(stack.pop_all().close)

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="garm-e2e-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def host(self, *arguments, status=0, env=None, program=HOST):
        """Runs the host in the test's folder and demands the exit status."""
        done = self.prefix.run([program, *arguments], seconds=120, cwd=self.folder, env=env)
        assert done.returncode == status, f"plothost {arguments}\n{done.stdout}\n{done.stderr}"
        return done

    def answer(self, *arguments, status=0):
        """The host's JSON answer."""
        return json.loads(self.host(*arguments, "--json", status=status).stdout)

    def why_not(self, *arguments, status=1):
        """The one line on standard error with which the host says no."""
        lines = self.host(*arguments, status=status).stderr.splitlines()
        assert len(lines) == 1, lines
        return lines[0]

    def tool(self, *arguments, status=0):
        """Runs e2e_tool and answers its "name: value" lines."""
        done = self.prefix.run([TOOL, *arguments], seconds=120, cwd=self.folder)
        assert done.returncode == status, f"e2e_tool {arguments}\n{done.stdout}\n{done.stderr}"
        return dict(line.split(": ", 1) for line in done.stdout.splitlines())

    def create(self, printer, name="x.pc3"):
        """A new configuration in the test's folder; its path."""
        self.host("create", printer, name)
        return self.folder / name

    def share(self, folder):
        """Gives a folder to the prefix as a share; its network path."""
        shares = self.prefix.folder / "dosdevices/unc/srv"
        shares.mkdir(parents=True, exist_ok=True)
        (shares / "share").symlink_to(folder)
        self.addCleanup((shares / "share").unlink)
        return "\\\\srv\\share"

    def fields(self, answer):
        """The DEVMODE's fields of a JSON answer, by name."""
        return {field["name"]: field["value"] for field in answer["devMode"]["fields"]}
