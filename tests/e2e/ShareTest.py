r"""Files on a share: every way in which a path reaches the host or the module, in each form that a network path has.
The share is a folder that Wine shows as \\srv\share; what were to land on the current drive instead would be in a
folder "srv" there."""

import shutil
from pathlib import Path

from editorcase import EditorCase, Script, ed
from hostcase import OFFICE, WINDOWS_BIN, WITH_MARGINS, windows_path

from garmtools.editorscript import Answers


class ShareCase(EditorCase):
    def setUp(self):
        super().setUp()
        self.shared = self.folder / "shared"
        self.shared.mkdir()
        self.root = self.share(self.shared)
        # The caller's folder is another one, so nothing is found on the way.
        self.folder /= "caller"
        self.folder.mkdir()

    def forms(self, name):
        """A file of the share, as one may write it."""
        yield f"{self.root}\\{name}"
        yield f"//srv/share/{name}"
        yield f"{self.root}\\.\\below\\..\\{name}"
        yield f"\\\\?\\UNC\\srv\\share\\{name}"
        yield f"\\\\?\\{windows_path(self.shared)}\\{name}"

    def on_share(self, name="x.pc3", printer=OFFICE):
        """A configuration on the share; the folder beside it is for paths that go through it."""
        self.create(printer, name)
        (self.folder / name).rename(self.shared / name)
        (self.shared / "below").mkdir(exist_ok=True)
        return self.shared / name

    def tearDown(self):
        assert list(self.folder.iterdir()) == [], "nothing is written beside the share"
        assert not Path("/srv/share").exists()


class HostTest(ShareCase):
    def test_create_writes_to_the_share(self):
        (self.shared / "below").mkdir()
        for number, path in enumerate(self.forms("new.pc3")):
            with self.subTest(path):
                said = self.host("create", OFFICE, path).stdout
                assert "was created" in said
                assert ("share" if number < 4 else "shared") in said
                assert b"PIAFILEVERSION" in (self.shared / "new.pc3").read_bytes()
                (self.shared / "new.pc3").unlink()

    def test_create_names_a_folder_that_the_share_has_not(self):
        said = self.why_not("create", OFFICE, f"{self.root}\\gone\\new.pc3")
        assert f"there is no folder '{self.root}\\gone'" in said

    def test_show_reads_from_the_share(self):
        self.on_share()
        for path in self.forms("x.pc3"):
            with self.subTest(path):
                shown = self.answer("show", path)
                assert (shown["binding"], shown["printer"]) == ("same", OFFICE)
        assert self.answer("show", f"{self.root}\\x.pc3")["file"] == f"{self.root}\\x.pc3"

    def test_devmode_reads_from_the_share_and_writes_to_it(self):
        self.on_share()
        for path in self.forms("x.pc3"):
            with self.subTest(path):
                assert self.answer("devmode", path)["printerName"] == OFFICE
                assert self.answer("devmode", path, "--background")["flag"]
        for path in self.forms("block.bin"):
            with self.subTest(path):
                self.host("devmode", f"{self.root}\\x.pc3", "--out", path)
                assert len((self.shared / "block.bin").read_bytes()) > 220
                (self.shared / "block.bin").unlink()

    def test_the_search_path_may_lead_to_the_share(self):
        self.on_share()
        for folder in (self.root, f"{self.root}\\", "//srv/share", "\\\\?\\UNC\\srv\\share",
                       f"\\\\?\\{windows_path(self.shared)}"):
            with self.subTest(folder):
                path = ("--search-path", folder)
                assert [found["name"] for found in self.answer("list", *path)["configurations"]] == ["x.pc3"]
                assert self.answer("devmode", "x.pc3", *path)["printerName"] == OFFICE
                assert self.answer("devmode", "X:\\elsewhere\\x.pc3", *path)["printerName"] == OFFICE
                assert self.answer("show", "x", *path)["printer"] == OFFICE

    def test_what_is_not_on_the_share_is_said_with_its_path(self):
        self.on_share("plan.pc3")
        for verb in ("show", "devmode", "edit"):
            said = self.why_not(verb, "plann.pc3", "--search-path", self.root)
            assert f"not found in {self.root}; did you mean 'plan.pc3'?" in said

    def test_settings_may_be_on_the_share(self):
        (self.shared / "host.ini").write_text("PDFPRINTERNAME=Acme PDF\n", encoding="utf-8")
        self.host("commands", "--settings", f"{self.root}\\host.ini")
        assert f"'{self.root}\\gone.ini'" in self.why_not("commands", "--settings", f"{self.root}\\gone.ini")


class ModuleOnShareTest(ShareCase):
    def test_a_module_has_its_languages_beside_it(self):
        shutil.copy(WINDOWS_BIN / "GarmPC3Editor.grx", self.shared)
        for tag in ("en", "de"):
            shutil.copytree(WINDOWS_BIN / tag, self.shared / tag)
        for path in (f"{self.root}\\GarmPC3Editor.grx", "//srv/share/GarmPC3Editor.grx"):
            with self.subTest(path):
                done = self.host("commands", "--module", path, "--language", "de")
                assert done.stderr == "", "no note that the language is missing"
                assert "_PC3EDIT" in done.stdout
        shutil.rmtree(self.shared / "de")
        assert "'de'" in self.host("commands", "--module", path, "--language", "de").stderr

    def test_a_module_that_is_not_there_is_named(self):
        assert f"{self.root}\\gone.grx" in self.host("commands", "--module", f"{self.root}\\gone.grx", status=3).stderr


class EditorTest(ShareCase):
    def edited(self, script, search=()):
        done = ed.run(self.prefix, script, search or [self.root], cwd=self.folder)
        assert done.returncode == 0, f"{done.stdout}\n{done.stderr}"
        return Answers(done.stdout)

    # Save As cannot be tried: Wine's own dialog knows no network path and refuses it ("Path does not exist").
    def changed(self, name):
        script = Script(f"edit {name}", "dialog").device_tab()
        return script.entry("truetype").add(f"click {ed.AS_GRAPHICS}")

    def test_a_configuration_of_the_share_is_saved_there(self):
        for name in ("x.pc3", *self.forms("x.pc3")):
            with self.subTest(name):
                path = self.on_share(printer=WITH_MARGINS)
                before = path.read_bytes()
                script = self.changed(name).add(f"click {ed.OK}", "dialog", f"text {ed.NAME}", f"click {ed.OK}", "end")
                answers = self.edited(script)
                assert answers.one(f"text {ed.NAME}") == "x"
                assert answers.outputs()["fileName"] == "x.pc3"
                assert path.read_bytes() != before

    def test_get_devmode_finds_it_there(self):
        self.on_share()
        for name in ("x.pc3", *self.forms("x.pc3")):
            with self.subTest(name):
                assert self.edited(Script(f"get-devmode {name}", "end")).outputs()["printerName"] == OFFICE
