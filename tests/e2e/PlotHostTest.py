"""The reference host around the editor: what keeps it from opening, the host's settings, and the drivers' defaults
between two runs. The editing itself is tried by the scenarios of the editor."""

from hostcase import HOST, OFFICE, WITHOUT_MARGINS, HostCase, wineprefix

PORTRAIT, LANDSCAPE = "1", "2"


class EditTest(HostCase):
    def test_a_file_that_is_nowhere_is_said(self):
        assert "'gone.pc3' is not found in" in self.why_not("edit", "gone.pc3")
        assert "'gone' is not found in" in self.why_not("edit", "gone", "--json")

    def test_a_printer_that_is_not_there_is_said_with_the_nearest_name(self):
        line = self.why_not("edit", "--printer", "DesignJet-800")
        assert "error 1801" in line
        assert WITHOUT_MARGINS in line

    def test_a_file_that_cannot_be_read_is_said_with_the_reason(self):
        (self.folder / "bad.pc3").write_bytes(b"no configuration")
        line = self.why_not("edit", "bad.pc3")
        assert "bad.pc3" in line
        assert "left no values" not in line

    def test_a_paper_for_a_printer_is_said_to_have_no_influence(self):
        lines = self.host("edit", "--printer", "gone", "--paper", "A4", status=1).stderr.splitlines()
        assert len(lines) == 2, lines
        assert "--paper changes nothing" in lines[0]


class NoDisplayTest(HostCase):
    """A prefix that would show windows on a display that is not there."""

    def test_dialog_and_editor_are_refused_with_one_line(self):
        self.create(OFFICE)
        with wineprefix.clone(cups=self.cups.socket, display=":4711") as prefix:
            for arguments in ((), ("plot",), ("edit", "x.pc3")):
                with self.subTest(arguments):
                    done = prefix.run([HOST, *arguments], seconds=60, cwd=self.folder)
                    assert done.returncode == 1, done.stderr
                    assert "plothost: there is no display to show a window on\n" in done.stderr
            done = prefix.run([HOST, "devmode", "x.pc3"], seconds=60, cwd=self.folder)
            assert done.returncode == 0, "what needs no window works all the same"


class SettingsTest(HostCase):
    def test_a_settings_file_and_arguments_are_taken_together(self):
        (self.folder / "host.ini").write_text("# names\nPDFPRINTERNAME=Acme PDF\n", encoding="utf-8")
        self.host("list", "--settings", "host.ini", "--reseller", "JPGPRINTERNAME=Acme JPG")

    def test_a_settings_file_that_is_not_there_is_said(self):
        line = self.why_not("list", "--settings", "gone.ini")
        assert "gone.ini" in line
        assert "cannot be used" in line

    def test_a_line_that_is_no_setting_is_named(self):
        (self.folder / "host.ini").write_text("a=b\nPDFPRINTERNAME\n", encoding="utf-8")
        assert "line 2 is not KEY=VALUE" in self.why_not("list", "--settings", "host.ini")

    def test_an_argument_that_is_no_setting_is_wrong_usage(self):
        assert "KEY=VALUE" in self.host("list", "--reseller", "PDFPRINTERNAME", status=2).stderr


class DriverDefaultsTest(HostCase):
    def test_after_a_reset_the_drivers_own_default_holds_again(self):
        # What a driver was given stays its default for the rest of a process: that is what makes the reset necessary.
        found = self.tool("reset", WITHOUT_MARGINS)
        assert found["answer"] == "1"
        assert (found["before"], found["merged"], found["reset"]) == (PORTRAIT, LANDSCAPE, PORTRAIT)
