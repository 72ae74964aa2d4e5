"""PC3GETDEVMODE on real queues: what the host gets for a configuration and for a printer."""

from hostcase import COPIER, OFFICE, QUEUES, SAMPLES, WITH_MARGINS, WITHOUT_MARGINS, HostCase
from pc3file import edit


class ConfigurationTest(HostCase):
    def test_a_sample_gives_its_printer_paper_type_and_model(self):
        for printer, paper in ((WITH_MARGINS, "ANSI D"), (WITHOUT_MARGINS, "ARCH E"), (COPIER, "A0"), (OFFICE, "A4")):
            with self.subTest(printer):
                answer = self.answer("devmode", SAMPLES / f"{printer}.pc3")
                assert answer["result"] is True
                assert answer["printerName"] == printer
                assert answer["paperName"] == paper
                assert answer["driverType"] == 1
                assert answer["canonicalModelName"] == "System"
                fields = self.fields(answer)
                assert fields["dmDeviceName"] == printer
                assert fields["dmFormName"] == paper
                assert answer["devMode"]["size"] == 220
                assert answer["devMode"]["driverExtra"] == 8

    def test_the_bytes_of_out_are_the_block_that_was_printed(self):
        done = self.answer("devmode", SAMPLES / f"{WITH_MARGINS}.pc3", "--out", "block.bin")
        content = (self.folder / "block.bin").read_bytes()
        assert len(content) == 228
        assert content[220:].hex().upper() == done["devMode"]["privateBytes"]["hex"]
        assert content[:64].decode("utf-16le").rstrip("\0") == WITH_MARGINS

    def test_the_driver_accepts_the_bytes_and_keeps_what_they_say(self):
        """Written, read, turned into a DEVMODE and merged by the driver, in a process of its own each."""
        for printer in sorted(QUEUES):
            with self.subTest(printer):
                path = self.create(printer, f"{printer}.pc3")
                edit(path, ("number_of_copies=1\n", "number_of_copies=3\n"), ("dm_orientation=1\n", "dm_orientation=2\n"))
                fields = self.fields(self.answer("devmode", path.name, "--out", "block.bin"))
                merged = self.tool("accept", printer, "block.bin")
                assert merged["answer"] == "1"
                assert merged["size"] == "220"
                assert merged["copies"] == "3"
                assert merged["orientation"] == "2"
                assert merged["paper"] == str(fields["dmPaperSize"])
                assert merged["quality"] == str(fields["dmPrintQuality"])

    def test_each_large_sample_is_accepted_with_its_paper(self):
        for printer in (WITH_MARGINS, WITHOUT_MARGINS, COPIER):
            with self.subTest(printer):
                fields = self.fields(self.answer("devmode", SAMPLES / f"{printer}.pc3", "--out", "block.bin"))
                assert self.tool("accept", printer, "block.bin")["paper"] == str(fields["dmPaperSize"])

    def test_two_questions_give_the_same_bytes(self):
        for name in ("one.bin", "two.bin"):
            self.host("devmode", SAMPLES / f"{OFFICE}.pc3", "--out", name)
        assert (self.folder / "one.bin").read_bytes() == (self.folder / "two.bin").read_bytes()

    def test_a_configuration_without_windows_printer_names_its_model(self):
        answer = self.answer("devmode", SAMPLES / "virtual-pdf.pc3")
        assert answer["result"] is True
        assert answer["printerName"] == "Virtual PDF printer"
        assert (answer["driverType"], answer["canonicalModelName"]) == (3, "pdf")
        assert answer["devMode"] is None

    def test_with_another_driver_type_it_is_no_printer(self):
        path = self.folder / "x.pc3"
        path.write_bytes((SAMPLES / "virtual-pdf.pc3").read_bytes())
        edit(path, ("driver_type=3\n", "driver_type=2\n"))
        answer = self.answer("devmode", "x.pc3", status=1)
        assert answer["result"] is False
        assert (answer["printerName"], answer["driverType"]) == ("", 2)
        assert answer["paperName"] == "ISO A3 (420.00 x 297.00 MM)"

    def test_the_ending_is_compared_without_regard_to_case(self):
        path = self.folder / "UPPER.PC3"
        path.write_bytes((SAMPLES / f"{OFFICE}.pc3").read_bytes())
        assert self.answer("devmode", "UPPER.PC3")["printerName"] == OFFICE


class PrinterTest(HostCase):
    def test_a_printer_gives_its_name_and_nothing_else(self):
        answer = self.answer("devmode", COPIER)
        assert answer["result"] is True
        assert (answer["printerName"], answer["paperName"], answer["canonicalModelName"]) == (COPIER, "", "")
        assert answer["driverType"] == 0
        assert answer["devMode"] is None

    def test_out_writes_no_file_for_a_printer_says_so_and_is_content(self):
        done = self.host("devmode", COPIER, "--out", "block.bin")
        assert "carries no DEVMODE" in done.stderr
        assert not (self.folder / "block.bin").exists()

    def test_an_unknown_printer_is_refused_with_the_reason(self):
        assert "'No such plotter'" in self.why_not("devmode", "No such plotter")

    def test_a_name_with_a_longer_ending_is_a_printer_name(self):
        assert "x.pc3x" in self.why_not("devmode", "x.pc3x")


class BackgroundTest(HostCase):
    def test_the_message_brings_1_for_a_configuration_and_a_printer(self):
        for name in (SAMPLES / f"{WITH_MARGINS}.pc3", COPIER, SAMPLES / "virtual-pdf.pc3"):
            with self.subTest(str(name)):
                assert self.answer("devmode", name, "--background")["flag"] == 1

    def test_the_message_brings_0_and_the_answer_is_no(self):
        (self.folder / "damaged.pc3").write_bytes(b"PIAFILEVERSION_2.0,PC3VER1\r\nmeta{\n")
        for name in ("missing.pc3", "No such plotter", "damaged.pc3"):
            with self.subTest(name):
                assert self.answer("devmode", name, "--background", status=1)["flag"] == 0
