"""Whole sessions with the editor: what is changed, shown, saved, and read again."""

from editorcase import EditorCase, Script, ed
from hostcase import WITH_MARGINS
from pc3file import edit

from garmtools.places import windows_path as windows


class EditingTest(EditorCase):
    def test_a_session_from_beginning_to_end(self):
        self.create(WITH_MARGINS)
        script = self.opened().add("title", f"text {ed.FILE_NAME}", f"type {ed.DESCRIPTION} Second floor")
        script.device_tab().add("tree")
        script.entry("collating").add(f"choose {ed.COLLATING} 1")
        script.entry("raster").add(f"slide {ed.RASTER_IMAGES} 5", f"slide {ed.OLE_OBJECTS} 4", f"slide {ed.PREFERENCE} 20")
        script.entry("truetype").add(f"click {ed.AS_GRAPHICS}")
        script.entry("merge").add(f"click {ed.MERGE}", "tree")
        script.add(f"click {ed.OK}", "dialog", f"text {ed.NAME}", f"present {ed.EXTENSION_NOTE}", f"click {ed.OK}", "end")
        answers = self.session(script)

        assert answers.one("title") == "x.pc3 - Plotter configuration"
        assert answers.one(f"text {ed.FILE_NAME}") == "x.pc3"
        assert not any(marked for _, marked, _ in answers.tree(0).values())
        assert {name for name, (_, marked, _) in answers.tree(1).items() if marked} == {
            "collating", "raster", "truetype", "merge"}
        assert answers.tree(1)["raster"][2] == "Raster graphics <Preference: 20> <Raster images: 5> <OLE objects: 4>"
        assert answers.one(f"text {ed.NAME}") == "x"
        self.assertEqual(answers.outputs(), {"fileName": "x.pc3", "paperName": "US Letter", "result": "1",
                                             "canonicalModelName": "System"})

        blocks = self.configuration("x.pc3")
        assert blocks["meta"]["config_description"] == "Second floor"
        assert not blocks["meta"]["truetype_as_text"]
        assert blocks["media"]["destination"]["collating_type"] == 1
        assert blocks["media"]["destination"]["collating_name"] == "Regular"
        color = blocks["res_color_mem"]
        assert (color["ism_max"], color["ole_max"], color["preference"], color["lines_overwrite"]) == (5, 4, 20, False)

        again = self.opened().add(f"text {ed.DESCRIPTION}").device_tab()
        again.entry("collating").add(f"value {ed.COLLATING}").entry("raster").add(f"value {ed.PREFERENCE}")
        again.entry("truetype").add(f"value {ed.AS_GRAPHICS}").entry("merge").add(f"value {ed.MERGE}")
        seen = self.session(again.add(f"click {ed.CANCEL}", "end"))
        self.assertEqual([seen.one(f"text {ed.DESCRIPTION}"), seen.one(f"value {ed.COLLATING}"),
                          seen.one(f"value {ed.PREFERENCE}"), seen.one(f"value {ed.AS_GRAPHICS}"),
                          seen.one(f"value {ed.MERGE}")], ["Second floor", "1", "20", "1", "1"])

    def test_cancel_leaves_the_file_and_answers_all_the_same(self):
        path, before = self.created()
        script = self.opened().device_tab().entry("truetype").add(f"click {ed.AS_GRAPHICS}", f"click {ed.CANCEL}", "end")
        outputs = self.session(script).outputs()
        assert path.read_bytes() == before
        assert (outputs["fileName"], outputs["result"]) == ("x.pc3", "1")

    def test_ok_without_a_change_asks_for_no_name(self):
        path, before = self.created()
        script = self.opened().device_tab()
        for name in ed.ENTRIES:
            script.entry(name)
        outputs = self.session(script.add(f"click {ed.OK}", "end")).outputs()
        assert path.read_bytes() == before
        assert outputs["fileName"] == "x.pc3"

    def test_a_change_taken_back_keeps_its_mark(self):
        self.create(WITH_MARGINS)
        script = self.opened().device_tab().entry("truetype")
        script.add(f"click {ed.AS_GRAPHICS}", f"click {ed.AS_TEXT}", "tree", f"click {ed.CANCEL}", "end")
        depth, marked, label = self.session(script).tree()["truetype"]
        assert (depth, marked, label) == (2, True, "TrueType text <As text>")

    def test_only_entries_with_settings_have_a_page(self):
        self.create(WITH_MARGINS)
        script = self.opened().device_tab()
        for name in ("root", "media", "source", "destination", "graphics"):
            script.entry(name)
            for control in (ed.DRIVER_SETTINGS, ed.COLLATING, ed.PREFERENCE, ed.AS_TEXT, ed.OVERWRITE):
                script.add(f"present {control}")
        answers = self.session(script.add(f"click {ed.CANCEL}", "end"))
        for control in (ed.DRIVER_SETTINGS, ed.COLLATING, ed.PREFERENCE, ed.AS_TEXT, ed.OVERWRITE):
            assert answers.all(f"present {control}") == ["no"] * 5

    def test_escape_on_the_general_tab_is_cancel(self):
        path, before = self.created()
        script = self.opened().add(f"type {ed.DESCRIPTION} never kept", "escape", "end")
        assert self.session(script).outputs()["fileName"] == "x.pc3"
        assert path.read_bytes() == before

    def test_a_cancel_that_is_sent_ends_it_too(self):
        self.create(WITH_MARGINS)
        assert self.session(self.opened().add(f"send {ed.CANCEL}", "end")).outputs()["fileName"] == "x.pc3"

    def test_the_owner_rests_while_the_editor_is_open(self):
        self.create(WITH_MARGINS)
        script = Script("owner-enabled", *self.opened().lines, "owner-enabled", f"click {ed.CANCEL}", "end",
                        "owner-enabled")
        assert self.session(script).all("owner-enabled") == ["yes", "no", "yes"]

    def test_the_paper_asked_for_is_selected_in_a_file(self):
        self.create(WITH_MARGINS)
        script = Script("edit-paper ANSI D|x.pc3", "dialog").device_tab().add("tree", f"click {ed.CANCEL}", "end")
        answers = self.session(script)
        assert answers.tree()["source"][2] == "Source and size <Size: ANSI D>"
        assert answers.outputs()["paperName"] == "ANSI D"

    def test_what_cannot_be_opened_leaves_nothing(self):
        (self.folder / "broken.pc3").write_bytes(b"PIAFILEVERSION_2.0,PC3VER1\r\nmeta{")
        for line in ("edit nobody.pc3", "edit broken.pc3", "edit-printer Nobody"):
            with self.subTest(line):
                assert self.session(Script(line, "end")).one("outputs") == "none"

    def test_the_windows_speak_the_hosts_language(self):
        self.create(WITH_MARGINS)
        for language, title in (("de", "x.pc3 - Plotterkonfiguration"), ("ja", "x.pc3 - プロッター構成")):
            with self.subTest(language):
                script = self.opened().add("title", f"click {ed.CANCEL}", "end")
                assert self.session(script, language=language).one("title") == title


class ResetTest(EditorCase):
    """The Defaults button."""

    def collated(self):
        """A file that differs from the driver's defaults in one value that the tree shows."""
        path, _ = self.created()
        edit(path, ("collating_type=0", "collating_type=1"), ('collating_name="None', 'collating_name="Regular'))
        return path, path.read_bytes()

    def test_reset_and_ok_alone_save_nothing(self):
        path, before = self.collated()
        script = self.opened().device_tab().add(f"click {ed.DEFAULTS}", "dialog", "title", "box", f"click {ed.YES}",
                                                "closed", "tree", f"click {ed.OK}", "end")
        answers = self.session(script)
        assert answers.one("title") == "x.pc3 - Plotter configuration"
        assert answers.one("box") == "Reset the device and document settings to the driver's defaults?"
        assert answers.tree()["collating"] == (3, True, "Collating <Not collated>")
        assert path.read_bytes() == before

    def test_no_changes_nothing(self):
        self.collated()
        script = self.opened().device_tab().add(f"click {ed.DEFAULTS}", "dialog", f"click {ed.NO}", "closed", "tree",
                                                f"click {ed.CANCEL}", "end")
        assert self.session(script).tree()["collating"] == (3, False, "Collating <Collated>")

    def test_a_page_seen_before_puts_its_old_choice_back_when_it_is_left(self):
        path, _ = self.collated()
        script = self.opened().device_tab().entry("collating")
        script.add(f"click {ed.DEFAULTS}", "dialog", f"click {ed.YES}", "closed", "tree", f"value {ed.COLLATING}")
        script.entry("root").add("tree", f"click {ed.OK}", "dialog", f"click {ed.OK}", "end")
        answers = self.session(script)
        assert answers.tree(0)["collating"] == (3, True, "Collating <Not collated>")
        assert answers.one(f"value {ed.COLLATING}") == "1"
        assert answers.tree(1)["collating"] == (3, True, "Collating <Collated>")
        assert self.configuration(path.name)["media"]["destination"]["collating_type"] == 1


class NameTest(EditorCase):
    """The dialog that asks for the name of a changed configuration."""

    def changed(self, start=None):
        return (start or self.opened()).add(f"type {ed.DESCRIPTION} changed", f"click {ed.OK}", "dialog")

    def test_the_typed_name_is_trimmed_and_always_gets_the_extension(self):
        self.create(WITH_MARGINS)
        for typed, written in (("  other  ", "other.pc3"), ("y.pc3", "y.pc3.pc3"), ("plan.v2", "plan.v2.pc3")):
            with self.subTest(typed):
                script = self.changed().add(f"type {ed.NAME} {typed}", f"click {ed.OK}", "end")
                assert self.session(script).outputs()["fileName"] == written
                assert self.configuration(written)["meta"]["config_description"] == "changed"
        assert self.configuration("x.pc3")["meta"]["config_description"] == ""

    def test_blanks_keep_it_open_without_a_word(self):
        path, before = self.created()
        script = self.changed().add(f"type {ed.NAME}    ", f"click {ed.OK}", f"text {ed.NAME}", f"click {ed.CANCEL}", "end")
        answers = self.session(script)
        assert answers.one(f"text {ed.NAME}").strip() == ""
        assert answers.outputs()["fileName"] == windows(path)
        assert path.read_bytes() == before

    def test_a_new_configuration_is_proposed_under_its_printers_name(self):
        script = self.changed(Script(f"edit-printer {WITH_MARGINS}", "dialog", "title"))
        script.add(f"text {ed.NAME}", f"text {ed.EXTENSION_NOTE}", f"click {ed.OK}", "end")
        answers = self.session(script)
        assert answers.one("title") == f"{WITH_MARGINS} - Plotter configuration"
        assert answers.one(f"text {ed.NAME}") == WITH_MARGINS
        assert answers.one(f"text {ed.EXTENSION_NOTE}") == ".pc3 will be added to the name."
        assert answers.outputs()["fileName"] == f"{WITH_MARGINS}.pc3"
        assert self.answer("devmode", f"{WITH_MARGINS}.pc3")["printerName"] == WITH_MARGINS

    def test_a_new_configuration_that_is_not_changed_makes_no_file(self):
        script = Script(f"edit-printer {WITH_MARGINS}", "dialog", f"click {ed.OK}", "end")
        assert self.session(script).outputs()["fileName"] == WITH_MARGINS
        assert list(self.folder.glob("*.pc3")) == []

    def test_a_file_that_cannot_be_written_is_told_in_a_box_without_caption(self):
        path, before = self.created()
        (self.folder / "taken.pc3").mkdir()
        script = self.changed().add(f"type {ed.NAME} taken", f"click {ed.OK}", "dialog", "title", "box",
                                    f"click {ed.OK}", "end")
        answers = self.session(script)
        assert answers.one("title") == ""
        assert "could not be saved" in answers.one("box")
        assert answers.outputs()["fileName"] == windows(path)
        assert path.read_bytes() == before
        assert list((self.folder / "taken.pc3").iterdir()) == []


class SaveAsTest(EditorCase):
    """The Save As button of the device tab."""

    def changed(self):
        return self.opened().device_tab().entry("truetype").add(f"click {ed.AS_GRAPHICS}", f"click {ed.SAVE_AS}", "dialog")

    def test_save_as_writes_at_once_and_the_sheet_goes_on_with_the_new_file(self):
        path, before = self.created()
        script = self.changed().add(f"file-name {windows(self.folder / 'second')}", f"send {ed.OK}", "closed", "title",
                                    "tree", "tab 0", f"text {ed.FILE_NAME}", f"click {ed.CANCEL}", "end")
        answers = self.session(script)
        assert answers.one("title") == "second.pc3 - Plotter configuration"
        assert answers.one(f"text {ed.FILE_NAME}") == "second.pc3"
        assert answers.tree()["root"][2] == "x.pc3"
        assert answers.outputs()["fileName"] == "second.pc3"
        assert path.read_bytes() == before
        assert not self.configuration("second.pc3")["meta"]["truetype_as_text"]

    def test_ok_after_it_asks_for_the_name_all_the_same(self):
        self.create(WITH_MARGINS)
        script = self.changed().add(f"file-name {windows(self.folder / 'second')}", f"send {ed.OK}", "closed",
                                    f"click {ed.OK}", "dialog", f"text {ed.NAME}", f"click {ed.CANCEL}", "end")
        assert self.session(script).one(f"text {ed.NAME}") == "second"

    def test_cancelled_it_changes_nothing(self):
        self.create(WITH_MARGINS)
        script = self.changed().add(f"click {ed.CANCEL}", "closed", "title", f"click {ed.CANCEL}", "end")
        answers = self.session(script)
        assert answers.one("title") == "x.pc3 - Plotter configuration"
        assert [path.name for path in self.folder.iterdir()] == ["x.pc3"]

    def test_a_write_protected_file_is_told_and_everything_stays(self):
        self.create(WITH_MARGINS)
        kept, before = self.created("kept.pc3")
        kept.chmod(0o444)
        script = self.changed().add(f"file-name {windows(kept)}", f"post {ed.OK}", "dialog")
        # The dialog asks before it replaces a file; the writing that follows is refused.
        script.add(f"click {ed.YES}", "dialog", "title", "box", f"click {ed.OK}", "closed", "title", f"click {ed.CANCEL}",
                   "end")
        answers = self.session(script)
        assert answers.all("title") == ["x.pc3 - Plotter configuration"] * 2
        assert "could not be saved" in answers.one("box")
        assert answers.outputs()["fileName"] == "x.pc3"
        assert kept.read_bytes() == before
