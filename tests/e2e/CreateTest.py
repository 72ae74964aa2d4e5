"""A configuration made for an installed printer, written, read and turned into a DEVMODE."""

import re
from hostcase import QUEUES, SAMPLES, WITH_MARGINS, WITHOUT_MARGINS, HostCase
from pc3file import edit, read_text, write_plain


class CreateTest(HostCase):
    def test_every_queue_gives_a_configuration_bound_to_it(self):
        for printer in sorted(QUEUES):
            with self.subTest(printer):
                self.create(printer, f"{printer}.pc3")
                shown = self.answer("show", f"{printer}.pc3")
                assert (shown["binding"], shown["storedPrinter"], shown["printer"]) == ("same", printer, printer)
                meta = shown["configuration"]["meta"]
                for key in ("win_device_name", "win_driver_name", "short_net_name", "friendly_net_name"):
                    assert meta[key] == printer, key
                assert (meta["driver_pathname"], meta["driver_version"], meta["driver_type"]) == (
                    "gdiplot7.hdi", "not specified", 1)
                assert self.answer("devmode", f"{printer}.pc3")["printerName"] == printer

    def test_the_paper_is_the_drivers_default(self):
        self.cups.set_option(WITH_MARGINS, "PageSize=AnsiE")
        self.addCleanup(self.cups.set_option, WITH_MARGINS, "PageSize=Letter")
        self.create(WITH_MARGINS)
        answer = self.answer("devmode", "x.pc3")
        assert answer["paperName"] == "ANSI E"
        assert self.fields(answer)["dmFormName"] == "ANSI E"
        media = self.answer("show", "x.pc3")["configuration"]["media"]
        bounds = media["size"]["media_description"]["media_bounds"]
        self.assertAlmostEqual(bounds["urx"], 34 * 25.4, delta=0.5)
        self.assertAlmostEqual(bounds["ury"], 44 * 25.4, delta=0.5)

    def test_a_plotter_without_margins_has_bounds_from_edge_to_edge(self):
        self.create(WITHOUT_MARGINS)
        media = self.answer("show", "x.pc3")["configuration"]["media"]
        assert (media["actual_printable_bounds_llx"], media["actual_printable_bounds_lly"]) == (0, 0)
        bounds = media["size"]["media_description"]["media_bounds"]
        assert (media["actual_printable_bounds_urx"], media["actual_printable_bounds_ury"]) == (bounds["urx"], bounds[
            "ury"])

    def test_the_file_has_its_blocks_in_order(self):
        text = read_text(self.create(WITH_MARGINS))
        blocks = [line[:-1] for line in text.splitlines() if line.endswith("{") and not line.startswith(" ")]
        assert blocks == ["meta", "media", "io", "res_color_mem", "custom"]

    def test_an_existing_file_is_replaced_whole(self):
        (self.folder / "x.pc3").write_bytes(b"x" * 100_000)
        done = self.host("create", WITH_MARGINS, "x.pc3")
        assert "replaced" in done.stdout
        assert [path.name for path in self.folder.iterdir()] == ["x.pc3"]
        assert self.answer("devmode", "x.pc3")["printerName"] == WITH_MARGINS

    def test_an_unknown_printer_makes_no_file(self):
        assert "'Nobody'" in self.why_not("create", "Nobody", "x.pc3")
        assert list(self.folder.iterdir()) == []

    def test_a_folder_that_is_not_there_is_named(self):
        assert "there is no folder" in self.why_not("create", WITH_MARGINS, "nowhere/x.pc3")

    def test_what_is_read_and_written_again_stays_as_it_is(self):
        """Both forms of a file read the same."""
        path = self.create(WITH_MARGINS)
        compressed = self.answer("show", "x.pc3")["configuration"]
        write_plain(path, read_text(path))
        assert self.answer("show", "x.pc3")["configuration"] == compressed


class DamagedFileTest(HostCase):
    """The host says why a file did not open, as far as it can know."""

    def sample(self, name="x.pc3"):
        path = self.folder / name
        write_plain(path, read_text(SAMPLES / f"{WITH_MARGINS}.pc3"))
        return path

    def both(self, name):
        """What devmode and show say; both are one line and both mean the file."""
        lines = {self.why_not("show", name)}
        done = self.host("devmode", name, status=1)
        lines.add(done.stderr.splitlines()[-1])
        assert len(lines) == 1, lines
        return lines.pop()

    def test_a_line_that_is_none_is_named(self):
        edit(self.sample(), ("toolkit_version=1\n", "toolkit_version 1\n"))
        assert re.search(r"damaged in line \d+", self.both("x.pc3"))

    def test_a_missing_key_is_named(self):
        edit(self.sample(), (" toolkit_version=1\n", ""))
        assert "key 'toolkit_version' is missing in block 'meta'" in self.both("x.pc3")

    def test_a_missing_block_is_named(self):
        edit(self.sample(), ("io{\n", "oi{\n"))
        assert "block 'io' is missing" in self.both("x.pc3")

    def test_a_driver_that_no_printer_has_is_named(self):
        edit(self.sample(), (f'win_driver_name="{WITH_MARGINS}\n', 'win_driver_name="Old Plotter\n'))
        assert "no printer with driver 'Old Plotter'" in self.both("x.pc3")

    def test_a_stream_cut_short_is_refused(self):
        content = (SAMPLES / f"{WITH_MARGINS}.pc3").read_bytes()
        (self.folder / "cut.pc3").write_bytes(content[:-20])
        assert "cut.pc3" in self.both("cut.pc3")

    def test_a_file_of_another_kind_is_refused(self):
        (self.folder / "picture.pc3").write_bytes(b"\x89PNG\r\n\x1a\n" + bytes(100))
        assert "picture.pc3" in self.both("picture.pc3")

    def test_an_empty_file_is_refused(self):
        (self.folder / "empty.pc3").write_bytes(b"")
        assert "empty.pc3" in self.both("empty.pc3")

    def test_a_damaged_custom_block_is_dropped_and_gives_no_devmode(self):
        path = self.sample()
        edit(path, ('name="dmSize\n', 'other="dmSize\n'))
        assert self.answer("show", "x.pc3")["configuration"]["custom"] is None
        answer = self.answer("devmode", "x.pc3", status=1)
        assert answer["devMode"] is None
        assert answer["paperName"] == "ANSI D"
