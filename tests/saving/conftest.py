"""Saving is tried with two programs, a native one under the sanitizers and a Windows one under Wine."""

import contextlib
import functools
import os
import shutil
import tempfile
from pathlib import Path

import pytest
from garmtools import wineprefix

from lab.kills import NATIVE_WRITER, WINDOWS_WRITER, NativeWriter, WineWriter


@pytest.fixture(scope="session", params=["native", "windows"])
def kind(request):
    return request.param


@pytest.fixture(scope="session")
def writer_of(kind):
    """writer_of(user): the writer, run as the user of that number, from a folder that everyone may look into."""
    with contextlib.ExitStack() as stack:
        @functools.cache
        def made(user):
            place = Path(stack.enter_context(tempfile.TemporaryDirectory(prefix="garm-user-")))
            place.chmod(0o755)
            source = NATIVE_WRITER if kind == "native" else WINDOWS_WRITER
            for path in (source, *source.parent.glob("*.dll")):
                shutil.copy(path, place)
            if kind == "native":
                return NativeWriter(place / source.name, user)
            return WineWriter(stack.enter_context(wineprefix.clone(folder=place, user=user)), place / source.name)

        yield made


@pytest.fixture
def writer(writer_of):
    return writer_of(os.geteuid())
