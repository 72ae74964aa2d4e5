"""Libraries that somebody put into the folders of drawings: they are never loaded."""

import shutil

from editorcase import EditorCase, Script
from hostcase import OFFICE, WINDOWS_BIN, windows_path

FIXTURES = WINDOWS_BIN / "host_fixtures"
LIBRARY = FIXTURES / "hidden/libhost_missing_library.dll"  # leaves a file "trace" in the current folder


class PlantedLibraryTest(EditorCase):
    def setUp(self):
        super().setUp()
        self.create(OFFICE)
        self.drawings = self.folder / "drawings"
        self.drawings.mkdir()
        shutil.copy(self.folder / "x.pc3", self.drawings)
        for folder in (self.folder, self.drawings):
            shutil.copy(LIBRARY, folder)

    def tearDown(self):
        assert not (self.folder / "trace").exists(), "the planted library was run"

    def test_a_module_that_lacks_a_library_does_not_get_it_from_there(self):
        done = self.host("devmode", "drawings/x.pc3", "--search-path", "drawings", "--module",
                         windows_path(FIXTURES / "Dependent.grx"), status=3)
        assert "a library that it needs is missing" in done.stderr

    def test_a_module_on_a_share_does_not_get_it_from_there_either(self):
        shared = self.folder / "shared"
        shutil.copytree(FIXTURES / "en", shared / "en")
        shutil.copy(FIXTURES / "Dependent.grx", shared)
        done = self.host("list", "--module", f"{self.share(shared)}\\Dependent.grx", status=3)
        assert "a library that it needs is missing" in done.stderr

    def test_what_is_loaded_by_name_is_not_found_there(self):
        self.host("list", "--search-path", "drawings", "--module", windows_path(FIXTURES / "LoadsByName.grx"))

    def test_the_hosts_own_work_loads_none(self):
        for library in ("version.dll", "uxtheme.dll", "GarmHost.dll", "GarmPC3EditorRes.dll", "winspool.drv", "cups.dll"):
            for folder in (self.folder, self.drawings):
                shutil.copy(LIBRARY, folder / library)
        self.answer("devmode", "drawings/x.pc3", "--search-path", "drawings")
        self.session(Script("edit drawings/x.pc3", "dialog", "click 2", "end"))
