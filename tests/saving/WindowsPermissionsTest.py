"""Who may use a file that a Windows program saves."""

import contextlib
import shutil
import tempfile
import unittest
from pathlib import Path

from garmtools import wineprefix
from garmtools.killcampaign import WINDOWS_WRITER, WineWriter
from permissions import Permissions


class WindowsPermissionsTest(Permissions, unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.stack = contextlib.ExitStack()
        cls.addClassCleanup(cls.stack.close)
        cls.writers = {}

    def writer(self, user):
        if user not in self.writers:
            self.writers[user] = self._new_writer(user)
        return self.writers[user]

    def _new_writer(self, user):
        place = Path(self.stack.enter_context(tempfile.TemporaryDirectory(prefix="garm-user-")))
        # Everybody must get at the program, also who may not look into this checkout.
        place.chmod(0o755)
        for path in (WINDOWS_WRITER, *WINDOWS_WRITER.parent.glob("*.dll")):
            shutil.copy(path, place)
        prefix = self.stack.enter_context(wineprefix.clone(folder=place, user=user))
        return WineWriter(prefix, place / WINDOWS_WRITER.name), place
