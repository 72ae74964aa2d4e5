"""The reference host as a program: answers, exit status, where it looks for files."""

import re
from hostcase import OFFICE, QUEUES, ROOT, SAMPLES, WITH_MARGINS, HostCase, windows_path


class CommandLineTest(HostCase):
    def test_list_names_every_queue_its_driver_and_the_default(self):
        printers = self.answer("list")["printers"]
        assert {printer["name"] for printer in printers} == QUEUES
        assert [printer["name"] for printer in printers if printer["default"]] == [WITH_MARGINS]
        for printer in printers:
            assert printer["driver"] == printer["name"]
            assert printer["port"]

    def test_list_names_the_configurations_on_the_search_path(self):
        answer = self.answer("list", "--search-path", windows_path(SAMPLES))
        assert [found["name"] for found in answer["configurations"]] == sorted((path.name for path in SAMPLES.glob(
            "*.pc3")), key=str.lower)

    def test_list_for_people(self):
        text = self.host("list").stdout
        for name in QUEUES:
            assert name in text

    def test_a_queue_added_since_is_seen_by_the_next_call(self):
        self.cups.add("Added-later", ROOT / "build/cups/ppd" / f"{OFFICE}.ppd")
        self.addCleanup(self.cups.remove, "Added-later")
        assert "Added-later" in [printer["name"] for printer in self.answer("list")["printers"]]

    def test_commands_names_both(self):
        text = self.host("commands").stdout
        for name in ("_PC3EDIT", "_PC3GETDEVMODE", "HIDDEN_GARM_COMMAND_PC3EDITOR"):
            assert name in text

    def test_files_are_relative_to_the_callers_folder(self):
        self.create(OFFICE)
        assert self.answer("devmode", "x.pc3")["printerName"] == OFFICE
        (self.folder / "below").mkdir()
        (self.folder / "x.pc3").rename(self.folder / "below/y.pc3")
        assert self.answer("devmode", "below/y.pc3")["printerName"] == OFFICE

    def test_files_are_found_on_the_search_path_in_its_order(self):
        for name, printer in (("first", OFFICE), ("second", WITH_MARGINS)):
            (self.folder / name).mkdir()
            self.create(printer, f"{name}/x.pc3")
        path = ("--search-path", "first;second")
        assert self.answer("devmode", "x.pc3", *path)["printerName"] == OFFICE
        (self.folder / "first/x.pc3").unlink()
        assert self.answer("devmode", "x.pc3", *path)["printerName"] == WITH_MARGINS

    def test_a_file_that_is_nowhere_is_said_with_the_folders(self):
        (self.folder / "empty").mkdir()
        line = self.why_not("devmode", "x.pc3", "--search-path", "empty")
        assert "not found in" in line
        assert "empty" in line

    def test_names_beyond_ascii_work(self):
        name = "Größe 日本.pc3"
        self.create(OFFICE, name)
        assert (self.folder / name).is_file()
        assert self.answer("devmode", name)["printerName"] == OFFICE

    def test_show_prints_the_configuration_for_people(self):
        text = self.host("show", SAMPLES / f"{OFFICE}.pc3").stdout
        for word in ("win_device_name", OFFICE, "collating_name", "dmDriverExtra"):
            assert word in text

    def test_devmode_for_people_decodes_the_block(self):
        text = self.host("devmode", SAMPLES / f"{WITH_MARGINS}.pc3").stdout
        for word in (WITH_MARGINS, "ANSI D", "dmPaperSize", "dmFormName", "flagged"):
            assert word in text

    def test_wrong_usage_is_status_2(self):
        for arguments in (("nonsense",), ("devmode",), ("create", OFFICE), ("create", OFFICE, "x.txt"),
                          ("list", "--nonsense"), ("devmode", "a", "--out")):
            with self.subTest(arguments):
                assert self.host(*arguments, status=2).stderr

    def test_help_and_version_succeed(self):
        assert "devmode" in self.host("--help").stdout
        assert re.search(r"^plothost \d+\.\d+\.\d+$", self.host("--version").stdout)

    def test_an_unwritable_output_file_is_said(self):
        self.why_not_after_answer("devmode", SAMPLES / f"{OFFICE}.pc3", "--out", "nowhere/block.bin")

    def why_not_after_answer(self, *arguments):
        done = self.host(*arguments, status=1)
        assert len(done.stderr.splitlines()) == 1, done.stderr
        assert "cannot be written" in done.stderr
