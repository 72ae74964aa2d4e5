"""Who may use a file that a program of this system saves."""

import shutil
import unittest

from garmtools.killcampaign import NATIVE_WRITER, NativeWriter
from permissions import Permissions


class NativePermissionsTest(Permissions, unittest.TestCase):
    def writer(self, user):
        # Everybody must get at the program, also who may not look into this checkout.
        program = self.place / NATIVE_WRITER.name
        if not program.exists():
            shutil.copy(NATIVE_WRITER, program)
        return NativeWriter(program, user), self.place
