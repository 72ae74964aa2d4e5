"""The module in its host: loading, languages, and what is missing."""

import shutil

from hostcase import MODULE, OFFICE, SAMPLES, WINDOWS_BIN, HostCase, windows_path

LIBRARY = "GarmPC3EditorRes.dll"


class LanguageTest(HostCase):
    def test_a_running_host_switches_and_a_failed_switch_keeps_the_texts(self):
        said = self.tool("languages", windows_path(MODULE), "de", "fr", "en", "xx yy")
        english = "The plotter configuration could not be saved."
        german = "Die Plotterkonfiguration konnte nicht gespeichert werden."
        self.assertEqual(said, {"start": f"en, {english}", "de": f"switched, de, {german}",
                                "fr": f"refused, de, {german}", "en": f"switched, en, {english}",
                                "xx yy": f"refused, en, {english}"})

    def test_an_unknown_language_gives_english_and_a_note(self):
        done = self.host("commands", "--language", "fr")
        assert "'fr'" in done.stderr
        assert "English" in done.stderr
        assert "_PC3EDIT" in done.stdout

    def test_a_known_language_gives_no_note(self):
        assert self.host("commands", "--language", "de").stderr == ""


class ModuleCopyTest(HostCase):
    """On copies of what is shipped, with something missing."""

    def setUp(self):
        super().setUp()
        self.bin = self.folder / "bin"
        self.bin.mkdir()
        for name in ("plothost.exe", "GarmPC3Editor.grx", "GarmHost.dll", "libstdc++-6.dll", "libgcc_s_seh-1.dll",
                     "libwinpthread-1.dll"):
            shutil.copy(WINDOWS_BIN / name, self.bin)
        for tag in ("en", "de"):
            shutil.copytree(WINDOWS_BIN / tag, self.bin / tag)

    def copied(self, *arguments, status=0):
        return self.host(*arguments, status=status, program=self.bin / "plothost.exe")

    def test_what_is_shipped_is_complete(self):
        assert OFFICE in self.copied("devmode", SAMPLES / f"{OFFICE}.pc3").stdout

    def test_what_is_shipped_guards_its_stack(self):
        for name in ("plothost.exe", "GarmPC3Editor.grx", "GarmHost.dll"):
            assert b"__stack_chk_fail" in (self.bin / name).read_bytes(), name

    def test_a_missing_module_is_status_3_with_the_reason(self):
        (self.bin / "GarmPC3Editor.grx").unlink()
        done = self.copied("commands", status=3)
        assert "GarmPC3Editor.grx" in done.stderr
        assert len(done.stderr.splitlines()) == 1

    def test_a_module_that_is_none_is_status_3(self):
        (self.bin / "GarmPC3Editor.grx").write_bytes(b"no program")
        assert "GarmPC3Editor.grx" in self.copied("commands", status=3).stderr

    def test_a_library_without_entry_points_is_status_3(self):
        self.copied("--module", "bin/libwinpthread-1.dll", "commands", status=3)

    def test_a_missing_language_library_is_status_3_and_waits_for_nobody(self):
        for tag in ("en", "de"):
            shutil.rmtree(self.bin / tag)
        assert "language library" in self.copied("commands", status=3).stderr

    def test_a_missing_language_falls_back_to_english(self):
        shutil.rmtree(self.bin / "de")
        done = self.copied("--language", "de", "commands")
        assert "'de'" in done.stderr
        assert "_PC3GETDEVMODE" in done.stdout

    def test_another_module_file_is_taken_by_its_path(self):
        other = self.folder / "other"
        other.mkdir()
        shutil.move(self.bin / "GarmPC3Editor.grx", other)
        for tag in ("en", "de"):
            shutil.move(self.bin / tag, other)
        done = self.copied("--module", "other/GarmPC3Editor.grx", "devmode", SAMPLES / f"{OFFICE}.pc3")
        assert OFFICE in done.stdout


class LoadingTest(HostCase):
    def test_ten_rounds_of_load_ask_switch_and_unload_leave_nothing_behind(self):
        said = self.tool("repeat", windows_path(MODULE), windows_path(SAMPLES / f"{OFFICE}.pc3"), "10")
        assert said["rounds"] == "10"
        assert said["commands"] == "0"
        assert int(said["handles"]) <= int(said["handles before"])
        assert int(said["libraries"]) <= int(said["libraries before"])
