"""A print server that takes connections and never answers."""

import shutil
import socket
import tempfile
import unittest

from garmtools import wineprefix
from garmtools.places import ROOT, WINDOWS_BIN

HOST = WINDOWS_BIN / "plothost.exe"
# Far beyond what the host was told to wait; a run that takes this long hangs.
LONGEST = 60


class SilentServerTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.mkdtemp(prefix="garm-silent-")
        cls.addClassCleanup(shutil.rmtree, folder, ignore_errors=True)
        # A connection is taken as soon as there is room for it in the queue; nobody reads what comes.
        cls.server = socket.socket(socket.AF_UNIX)
        cls.addClassCleanup(cls.server.close)
        cls.server.bind(f"{folder}/socket")
        cls.server.listen(100)
        clone = wineprefix.clone(cups=f"{folder}/socket")
        cls.prefix = clone.__enter__()
        cls.addClassCleanup(clone.__exit__, None, None, None)

    def host(self, *arguments):
        return self.prefix.run([HOST, *arguments], seconds=LONGEST, cwd=ROOT / "samples")

    def test_every_command_says_that_the_server_did_not_answer(self):
        for arguments in (("list",), ("list", "--json"), ("commands",), ("show", "virtual-pdf.pc3"),
                          ("devmode", "virtual-pdf.pc3"), ("create", "P", "x.pc3"), ("edit", "x.pc3"), ("plot",), ()):
            with self.subTest(arguments):
                done = self.host(*arguments, "--wait", "1")
                assert done.returncode == 1, done.stdout
                assert done.stdout == ""
                assert "plothost: the print server did not answer within 1 second\n" in done.stderr

    def test_what_needs_no_printer_does_not_ask(self):
        assert self.host("--version").returncode == 0
        assert self.host("list", "--help").returncode == 0
        assert self.host("list", "--nonsense").returncode == 2
