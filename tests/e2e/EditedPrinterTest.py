"""The editor and printers: the driver's own dialog, the virtual printers' dialog, printers that go away."""

from editorcase import EditorCase, Script, ed
from hostcase import WITH_MARGINS
from pc3file import edit

VIRTUAL = "Tarnwick PDF Printer 2018"


class DriverDialogTest(EditorCase):
    """Wine's drivers answer OK also when their dialog was cancelled: cancelled means that nothing has changed."""

    def settings(self, start, *lines):
        return start.device_tab().add(f"click {ed.DRIVER_SETTINGS}", "dialog", "title", "owner-enabled", *lines, "closed",
                                      "title", "tree")

    def test_cancelled_it_changes_nothing(self):
        script = self.settings(Script(f"edit-printer {WITH_MARGINS}", "dialog"), f"send {ed.CANCEL}")
        answers = self.session(script.add(f"click {ed.OK}", "end"))
        driver, sheet = answers.all("title")
        assert driver != sheet
        assert sheet == f"{WITH_MARGINS} - Plotter configuration"
        assert not any(marked for _, marked, _ in answers.tree().values())
        # No name was asked for.
        assert answers.outputs()["fileName"] == WITH_MARGINS

    def test_what_is_chosen_in_it_is_saved(self):
        self.create(WITH_MARGINS)
        script = self.settings(self.opened(), f"click {ed.DRIVER_LANDSCAPE}", f"click {ed.OK}")
        answers = self.session(script.add(f"click {ed.OK}", "dialog", f"click {ed.OK}", "end"))
        assert answers.outputs()["fileName"] == "x.pc3"
        assert self.configuration("x.pc3")["media"]["dm_orientation"] == 2
        assert self.fields(self.answer("devmode", "x.pc3"))["dmOrientation"] == 2

    def test_a_file_without_a_windows_printer_has_no_settings_of_a_driver(self):
        path, _ = self.created()
        edit(path, ("driver_type=1", "driver_type=3"))
        before = path.read_bytes()
        script = self.opened().device_tab().add(f"click {ed.DRIVER_SETTINGS}", "title", f"click {ed.OK}", "end")
        assert self.session(script).one("title") == "x.pc3 - Plotter configuration"
        assert path.read_bytes() == before


class VirtualPrinterTest(EditorCase):
    def settings(self, *lines, host_window=True):
        script = Script(f"add-printer {VIRTUAL}|{WITH_MARGINS}", f"edit-printer {VIRTUAL}", "dialog").device_tab()
        script.add(f"click {ed.DRIVER_SETTINGS}", "dialog", "title", *lines)
        return self.session(script.add(f"click {ed.CANCEL}", "end", f"delete-printer {VIRTUAL}"), host_window=host_window)

    def test_it_has_the_hosts_papers_and_gives_the_choice_back(self):
        answers = self.settings(f"choices {ed.PAPER}", f"enabled {ed.WIDTH}", f"choose {ed.PAPER} 2",
                                f"enabled {ed.WIDTH}", f"click {ed.LANDSCAPE}", f"click {ed.OK}", "closed",
                                f"host-value {ed.HOST_PAPERS}", f"host-value {ed.HOST_PORTRAIT}",
                                f"host-value {ed.HOST_LANDSCAPE}")
        assert answers.one("title") == f"{VIRTUAL} - Properties"
        assert answers.all(f"choices {ed.PAPER}") == ["ISO A4", "ISO A3", "Custom"]
        assert answers.all(f"enabled {ed.WIDTH}") == ["no", "yes"]
        assert answers.one(f"host-value {ed.HOST_PAPERS}") == "2"
        assert answers.one(f"host-value {ed.HOST_PORTRAIT}") == "0"
        assert answers.one(f"host-value {ed.HOST_LANDSCAPE}") == "1"

    def test_sizes_change_with_the_unit_and_a_second_click_changes_nothing(self):
        answers = self.settings(f"choose {ed.PAPER} 2", f"type {ed.WIDTH} 210", f"type {ed.LENGTH} 297",
                                f"click {ed.INCHES}", f"text {ed.WIDTH}", f"click {ed.INCHES}", f"text {ed.WIDTH}",
                                f"text {ed.LENGTH}", f"click {ed.MILLIMETRES}", f"text {ed.WIDTH}",
                                f"click {ed.CANCEL}", "closed")
        assert answers.all(f"text {ed.WIDTH}") == ["8.27", "8.27", "210.06"]
        assert answers.one(f"text {ed.LENGTH}") == "11.69"

    def test_a_size_that_is_no_number_keeps_it_open(self):
        answers = self.settings(f"choose {ed.PAPER} 2", f"type {ed.WIDTH} wide", f"click {ed.OK}", "dialog",
                                f"click {ed.OK}", "closed", "title", f"click {ed.CANCEL}", "closed")
        assert answers.all("title") == [f"{VIRTUAL} - Properties"] * 2

    def test_without_the_hosts_dialog_there_are_no_papers(self):
        answers = self.settings(f"choices {ed.PAPER}", f"enabled {ed.WIDTH}", f"click {ed.OK}", "closed",
                                host_window=False)
        assert answers.all(f"choices {ed.PAPER}") == []
        assert answers.one(f"enabled {ed.WIDTH}") == "no"


class VanishedPrinterTest(EditorCase):
    TWIN = "Twin"

    def test_the_sheet_outlives_its_printer_and_still_saves(self):
        script = Script(f"add-printer {self.TWIN}|{WITH_MARGINS}", f"edit-printer {self.TWIN}", "dialog")
        script.add(f"delete-printer {self.TWIN}").device_tab()
        script.add(f"click {ed.DRIVER_SETTINGS}", "title", f"click {ed.DEFAULTS}", "dialog", f"click {ed.YES}", "closed")
        script.entry("truetype").add(f"click {ed.AS_GRAPHICS}", "tree", f"click {ed.OK}", "dialog", f"click {ed.OK}", "end")
        answers = self.session(script)
        assert answers.one("title") == f"{self.TWIN} - Plotter configuration"
        assert {name for name, (_, marked, _) in answers.tree().items() if marked} == {"truetype"}
        assert answers.outputs()["fileName"] == f"{self.TWIN}.pc3"
        shown = self.answer("show", f"{self.TWIN}.pc3")
        assert (shown["storedPrinter"], shown["binding"]) == (self.TWIN, "rebound")

    def test_a_printer_gone_before_is_replaced_by_one_on_the_same_driver(self):
        self.session(Script(f"add-printer {self.TWIN}|{WITH_MARGINS}"))
        self.create(self.TWIN)
        self.session(Script(f"delete-printer {self.TWIN}"))
        script = self.opened().add(f"choices {ed.PRINTERS}", f"value {ed.PRINTERS}", f"enabled {ed.PRINTERS}",
                                   f"click {ed.CANCEL}", "end")
        answers = self.session(script)
        chosen = answers.all(f"choices {ed.PRINTERS}")[int(answers.one(f"value {ed.PRINTERS}"))]
        assert chosen == WITH_MARGINS
        assert answers.one(f"enabled {ed.PRINTERS}") == "no"
