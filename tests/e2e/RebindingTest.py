"""A configuration whose printer is gone takes another one with the same driver."""

from hostcase import COPIER, OFFICE, SAMPLES, WITH_MARGINS, HostCase
from pc3file import edit, read_text, write_plain


class TwinPrinterTest(HostCase):
    """Two printers on one driver: the queue itself, and one that was added by hand."""

    def setUp(self):
        super().setUp()
        self.tool("add", "Second plotter", WITH_MARGINS)
        self.present = True
        self.addCleanup(self.remove)

    def remove(self):
        if self.present:
            self.tool("delete", "Second plotter")
            self.present = False

    def test_while_its_printer_is_there_the_configuration_keeps_it(self):
        self.create("Second plotter")
        shown = self.answer("show", "x.pc3")
        assert (shown["binding"], shown["printer"]) == ("same", "Second plotter")

    def test_after_its_printer_was_deleted_it_takes_the_other_one(self):
        path = self.create("Second plotter")
        before = path.read_bytes()
        self.remove()
        shown = self.answer("show", "x.pc3")
        assert (shown["binding"], shown["storedPrinter"], shown["printer"]) == (
            "rebound", "Second plotter", WITH_MARGINS)
        assert path.read_bytes() == before, "reading changed the file"
        answer = self.answer("devmode", "x.pc3", "--out", "block.bin")
        assert answer["printerName"] == WITH_MARGINS
        assert self.tool("accept", WITH_MARGINS, "block.bin")["answer"] == "1"

    def test_of_two_with_the_driver_the_first_in_order_wins(self):
        path = self.create("Second plotter")
        edit(path, ('win_device_name="Second plotter\n', 'win_device_name="Third plotter\n'))
        # Listed in alphabetical order: the queue comes before its twin.
        assert self.answer("show", "x.pc3")["printer"] == WITH_MARGINS


class GonePrinterTest(HostCase):
    def stored(self, device, driver):
        path = self.folder / "x.pc3"
        write_plain(path, read_text(SAMPLES / f"{OFFICE}.pc3"))
        edit(path, (f'win_device_name="{OFFICE}\n', f'win_device_name="{device}\n'),
             (f'win_driver_name="{OFFICE}\n', f'win_driver_name="{driver}\n'))
        return self.answer("show", "x.pc3")

    def test_the_driver_decides_when_the_name_is_unknown(self):
        shown = self.stored("Gone", OFFICE)
        assert (shown["binding"], shown["printer"]) == ("rebound", OFFICE)

    def test_the_driver_decides_when_the_printer_has_another_one_now(self):
        shown = self.stored(COPIER, OFFICE)
        assert (shown["binding"], shown["storedPrinter"], shown["printer"]) == ("rebound", COPIER, OFFICE)

    def test_the_drivers_name_is_compared_without_regard_to_case(self):
        shown = self.stored(OFFICE, OFFICE.upper())
        assert (shown["binding"], shown["printer"]) == ("same", OFFICE)


class RemovedQueueTest(HostCase):
    """The queue itself goes, not only a second printer on its driver."""

    def test_without_any_printer_of_its_driver_the_configuration_cannot_be_used(self):
        self.create(COPIER)
        self.cups.remove(COPIER)
        assert f"no printer with driver '{COPIER}'" in self.why_not("show", "x.pc3")
        answer = self.answer("devmode", "x.pc3", status=1)
        assert (answer["result"], answer["printerName"], answer["paperName"]) == (False, "", "")


class NoPrintServerTest(HostCase):
    def test_without_a_print_server_there_are_no_printers_and_no_crash(self):
        self.cups.stop()
        self.addCleanup(self.cups.start)
        assert self.answer("list")["printers"] == []
        assert "no printer with driver" in self.why_not("show", SAMPLES / f"{OFFICE}.pc3")
        # What needs no printer still works.
        assert self.answer("show", SAMPLES / "virtual-pdf.pc3")["binding"] == "none"
