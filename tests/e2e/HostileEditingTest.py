"""Configurations that nobody would write by hand."""

from editorcase import EditorCase, ed
from hostcase import WITH_MARGINS
from pc3file import edit, read_text, write_compressed, write_plain

EVERY_PAGE = tuple(ed.ENTRIES)


class HostileConfigurationTest(EditorCase):
    def replaced(self, **values):
        """A new file in which some keys (each there once) have other values."""
        path, _ = self.created()
        lines = read_text(path).split("\n")
        for key, value in values.items():
            (index,) = [i for i, line in enumerate(lines) if line.strip().startswith(key + "=")]
            lines[index] = lines[index].split("=")[0] + "=" + value
        write_plain(path, "\n".join(lines))
        return path

    def all_pages(self, end=ed.CANCEL):
        script = self.opened().add("title").device_tab()
        for name in EVERY_PAGE:
            script.entry(name)
        return script.add("tree", "tab 0", "tab 1", f"click {end}")

    def test_values_outside_a_sliders_range_are_cut_to_it_when_the_page_is_left(self):
        self.replaced(ism_max="99", ole_max="-5", preference="1000")
        script = self.opened().device_tab().entry("raster").add(f"value {ed.RASTER_IMAGES}", f"value {ed.OLE_OBJECTS}",
                                                                f"value {ed.PREFERENCE}", "tree")
        script.entry("root").add("tree", f"click {ed.OK}", "dialog", f"click {ed.OK}", "end")
        answers = self.session(script)
        assert [answers.one(f"value {control}") for control in (ed.RASTER_IMAGES, ed.OLE_OBJECTS, ed.PREFERENCE)] == [
            "6", "0", "100"]
        self.assertEqual(answers.tree(0)["raster"],
                         (2, False, "Raster graphics <Preference: 1000> <Raster images: 99> <OLE objects: -5>"))
        self.assertEqual(answers.tree(1)["raster"],
                         (2, True, "Raster graphics <Preference: 100> <Raster images: 6> <OLE objects: 0>"))
        color = self.configuration("x.pc3")["res_color_mem"]
        # A file does not hold 0 of these; without a value the OLE objects are 6.
        assert (color["ism_max"], color["ole_max"], color["preference"]) == (6, 6, 100)

    def test_numbers_of_no_meaning_do_no_harm(self):
        self.replaced(collating_type="77", num_colors="-1", color_depth="2147483647", dm_color="-32768",
                      number_of_copies="0")
        tree = self.session(self.all_pages().add("end")).tree()
        assert tree["vector"][2].split("> <")[0] == "Vector graphics <Colors: -1, depth 2147483647"
        assert "collating" in tree

    def test_very_long_texts(self):
        long = "W" * 20_000
        self.replaced(config_description='"' + long, win_device_name='"' + WITH_MARGINS, collating_name='"' + long,
                      canonical_model_name='"' + long)
        path = self.folder / "x.pc3"
        edit(path, ('destination{\n  name="Default', f'destination{{\n  name="{long}'))
        answers = self.session(self.all_pages(ed.OK).add("end"))
        assert answers.one("title") == "x.pc3 - Plotter configuration"
        assert answers.tree()["destination"][2].startswith("Media destination <WWW")

    def kept(self, description):
        """Whether a file that is changed elsewhere and saved keeps its description."""
        script = self.opened().add("title").device_tab().entry("truetype").add(f"click {ed.AS_GRAPHICS}", "tab 0", "tab 1")
        answers = self.session(script.add(f"click {ed.OK}", "dialog", f"click {ed.OK}", "end"))
        assert answers.one("title") == "x.pc3 - Plotter configuration"
        text = read_text(self.folder / "x.pc3")
        assert "truetype_as_text=FALSE" in text
        return f'config_description="{description}\n' in text.replace("\r", "")

    def test_a_description_with_a_nul_is_kept(self):
        self.replaced(config_description=r'"before\U+0000after')
        assert self.kept(r"before\U+0000after")

    def test_a_description_of_thirty_million_characters_is_kept(self):
        long = "W" * 30_000_000
        path = self.replaced(config_description='"' + long)
        write_compressed(path, read_text(path))
        assert path.stat().st_size < 40_000
        assert self.kept(long)

    def test_texts_that_look_like_formats_and_access_keys(self):
        self.replaced(config_description='"%s%n%d R&D "quoted" <b>')
        path = self.folder / "x.pc3"
        path.rename(self.folder / "R&D %s %d.pc3")
        script = self.opened("R&D %s %d.pc3").add("title", f"text {ed.FILE_NAME}", f"text {ed.DESCRIPTION}")
        answers = self.session(script.add(f"click {ed.OK}", "end"))
        assert answers.one("title") == "R&D %s %d.pc3 - Plotter configuration"
        assert answers.one(f"text {ed.FILE_NAME}") == "R&D %s %d.pc3"
        assert answers.one(f"text {ed.DESCRIPTION}") == '%s%n%d R&D "quoted" <b>'

    def test_control_characters(self):
        self.replaced(config_description='"a\x01\x07\x1bz\ttab')
        script = self.opened().add(f"text {ed.DESCRIPTION}", f"click {ed.OK}", "end")
        answers = self.session(script)
        assert answers.outputs()["fileName"] == "x.pc3"
