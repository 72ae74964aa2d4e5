"""The module is unloaded while its checks run or its windows are open, the language changes and the host quits while they
are, and the editor is opened from within itself."""

import re
import shutil
import tempfile
import unittest
from pathlib import Path

import pytest
from garmtools import editorscript as ed
import lab.faults as faults
from garmtools.editorscript import Answers, Script
from garmtools.places import ROOT
from lab.faults import SESSIONS

LANGUAGES = ("de", "ja", "en")


class ModuleCase(unittest.TestCase):
    bench = None  # one for all: each play leaves it as it was

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="garm-e2e-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.addCleanup(self.bench.mend)
        (self.folder / "x.pc3").write_bytes(self.bench.original)
        shutil.copy(ROOT / "samples" / "virtual-pdf.pc3", self.folder / "file.pc3")

    def session(self, *lines):
        done = ed.run(self.bench.prefix, Script(*lines), [self.folder], cwd=self.folder, outside=self.bench.act)
        assert done.returncode == 0, f"{done.stdout}\n{done.stderr}"
        assert done.stderr == ""
        return Answers(done.stdout)

    def assert_flat(self, answers, rounds=1):
        """Nothing was more at the last question for the counts than at the one before, that many rounds earlier."""
        for what in ("handles", "windows"):
            before, after = map(int, answers.all(what)[-2:])
            assert after == before, what
        # The system makes some objects when a state is first painted, which a busy machine may do late: once for good,
        # where a leak is one in each round.
        before, after = map(int, answers.all("gdi")[-2:])
        assert after - before < rounds, "gdi"


@pytest.fixture(scope="module", autouse=True)
def bench():
    with faults.bench() as made:
        ModuleCase.bench = made
        yield


class UnloadingTest(ModuleCase):
    def test_a_check_that_hangs_in_the_driver_outlives_the_module(self):
        answers = self.session("outside freeze", "start-check x.pc3", "unload", "in-process", "outside thaw", "checked",
                               "gone", "load", "get-devmode x.pc3", "end")
        assert answers.one("in-process") == "yes"
        assert answers.one("checked") == "found"
        assert answers.one("output result") == "true"

    def test_the_host_may_load_it_again_meanwhile(self):
        answers = self.session("outside freeze", "start-check x.pc3", "unload", "load", "language de",
                               "edit file.pc3", "dialog", "title", "tab 1",
                               "tree", f"click {ed.CANCEL}", "end", "outside thaw", "checked", "unload", "gone")
        assert answers.one("title") == "file.pc3 - Plotterkonfiguration"
        assert answers.one("output fileName") == "file.pc3"
        assert answers.one("checked") == "found"

    def test_fifty_rounds_with_a_check_under_way_leave_nothing_behind(self):
        # However far the check has come when the module is unloaded.
        one = ("start-check x.pc3", "get-devmode x.pc3", "end", "start-check nobody.pc3", "unload", "checked", "checked",
               "gone", "load")
        answers = self.session(*one * 10, "counts", *one * 50, "counts")
        assert sorted(answers.all("checked")) == ["found"] * 60 + ["not found"] * 60
        assert answers.all("output result") == ["true"] * 60
        self.assert_flat(answers)


class OpenEditorTest(ModuleCase):
    """What the host does while the editor is open."""

    def test_the_module_is_in_use_until_the_editor_ends(self):
        answers = self.session("edit x.pc3", "dialog", "unload", "title", "tab 1", "tree", f"click {ed.CANCEL}", "end",
                               "unload", "gone", "load", "edit x.pc3", "dialog", "title", f"click {ed.CANCEL}", "end")
        refused, done = answers.all("unload")
        assert re.search(r"^The module .*GarmPC3Editor\.grx cannot be unloaded: it is in use\.$", refused)
        assert done == "done"
        assert answers.all("title") == ["x.pc3 - Plotter configuration"] * 2
        assert answers.all("output fileName") == ["x.pc3"] * 2

    def test_the_module_is_in_use_while_the_name_is_asked_for(self):
        answers = self.session("edit x.pc3", "dialog", f"type {ed.DESCRIPTION} other", f"click {ed.OK}", "dialog", "unload",
                               f"click {ed.OK}", "end", "unload", "gone")
        refused, done = answers.all("unload")
        assert "it is in use" in refused
        assert done == "done"
        assert answers.one("output fileName") == "x.pc3"

    def test_a_second_editor_has_a_configuration_of_its_own(self):
        before = (self.folder / "x.pc3").read_bytes()
        answers = self.session(
            "edit x.pc3", "dialog", "title", f"type {ed.DESCRIPTION} outer", "edit file.pc3", "dialog", "title",
            f"text {ed.DESCRIPTION}", "unload", f"click {ed.CANCEL}", "end", "closed", "title", f"text {ed.DESCRIPTION}",
            "unload", f"click {ed.CANCEL}", "end", "unload", "gone")
        self.assertEqual(answers.all("title"), ["x.pc3 - Plotter configuration", "file.pc3 - Plotter configuration",
                                                "x.pc3 - Plotter configuration"])
        inner, outer = answers.all(f"text {ed.DESCRIPTION}")
        assert inner != "outer"
        assert outer == "outer"
        assert answers.all("output fileName") == ["file.pc3", "x.pc3"]
        *refused, done = answers.all("unload")
        assert [text.endswith("it is in use.") for text in refused] == [True, True]
        assert done == "done"
        assert (self.folder / "x.pc3").read_bytes() == before

    def test_a_switch_of_the_language_with_two_editors_open_frees_nothing_that_is_used(self):
        answers = self.session(
            "edit x.pc3", "dialog", "edit file.pc3", "dialog", "language de", "tab 1", "tree", f"click {ed.CANCEL}", "end",
            "closed", "language ja", "tab 1", "tree", f"click {ed.CANCEL}", "end", "edit x.pc3", "dialog", "title",
            f"click {ed.CANCEL}", "end")
        assert answers.one("language de") == "switched"
        assert answers.one("language ja") == "switched"
        assert answers.one("title") == "x.pc3 - プロッター構成"
        assert answers.all("output fileName") == ["file.pc3", "x.pc3", "x.pc3"]

    def test_a_host_that_quits_ends_the_editor_like_its_cancel(self):
        before = (self.folder / "x.pc3").read_bytes()
        answers = self.session("edit x.pc3", "dialog", f"type {ed.DESCRIPTION} never kept", "quit", "end")
        assert answers.one("output fileName") == "x.pc3"
        assert (self.folder / "x.pc3").read_bytes() == before

    def test_a_host_that_quits_ends_two_editors_and_the_name_dialog(self):
        before = (self.folder / "x.pc3").read_bytes()
        answers = self.session("edit file.pc3", "dialog", "edit x.pc3", "dialog", f"type {ed.DESCRIPTION} never kept",
                               f"click {ed.OK}", "dialog", "quit", "end", "end")
        assert len(answers.all("output fileName")) == 2
        assert (self.folder / "x.pc3").read_bytes() == before


class LanguageSwitchTest(ModuleCase):
    def test_a_switch_before_every_step_changes_words_only(self):
        steps = SESSIONS["a file is edited"]
        undisturbed = self.bench.play(steps)
        switches = {i: f"language {LANGUAGES[i % 3]}" for i in range(len(steps))}
        outcome = self.bench.play(steps, switches)
        assert outcome.files == undisturbed.files
        assert Answers(outcome.said).outputs() == Answers(undisturbed.said).outputs()
        assert "refused" not in outcome.said

    def test_what_is_open_keeps_its_words_and_what_opens_has_the_new_ones(self):
        open_and_look = ["edit x.pc3", "dialog", "title", f"text {ed.DRIVER_LINE}"]
        answers = self.session(
            *open_and_look, "language de", "title", f"text {ed.DRIVER_LINE}", f"type {ed.DESCRIPTION} anders", "tab 1",
            f"entry {ed.ENTRIES['collating']}", f"choices {ed.COLLATING}", f"click {ed.DEFAULTS}", "dialog", "box",
            f"click {ed.NO}", "closed", f"click {ed.OK}", "dialog", "title",
            f"click {ed.OK}", "end", *open_and_look, f"click {ed.CANCEL}", "end")
        english, german = "x.pc3 - Plotter configuration", "x.pc3 - Plotterkonfiguration"
        before, after, name_dialog, next_opening = answers.all("title")
        assert [before, after, next_opening] == [english, english, german]
        assert name_dialog == "Plotterkonfiguration speichern"
        first, same, other = answers.all(f"text {ed.DRIVER_LINE}")
        assert first == same
        assert other != first
        assert answers.all(f"choices {ed.COLLATING}") == ["Unsortiert", "Sortiert"]
        assert answers.one("box").startswith("Die Geräte"), answers.one("box")

    def test_the_virtual_printers_dialog_outlives_a_switch(self):
        printer = "Tarnwick PDF Printer 2018"
        answers = self.session(
            f"add-printer {printer}|{faults.QUEUE.name}", f"edit-printer {printer}", "dialog", "tab 1",
            f"click {ed.DRIVER_SETTINGS}", "dialog", "language de", f"choices {ed.QUALITY}", f"choose {ed.QUALITY} 2",
            f"click {ed.LANDSCAPE}", f"click {ed.OK}", "closed", "title", f"click {ed.DRIVER_SETTINGS}", "dialog",
            f"choices {ed.QUALITY}", f"click {ed.CANCEL}", "closed", f"click {ed.CANCEL}", "end",
            f"delete-printer {printer}")
        assert answers.one("title") == f"{printer} - Plotter configuration"
        assert len(answers.all(f"choices {ed.QUALITY}")) == 10
        assert answers.one("output fileName") == printer

    def test_a_switch_to_a_language_that_is_not_there_changes_nothing(self):
        answers = self.session("edit x.pc3", "dialog", "language fr", "tab 1", f"click {ed.DEFAULTS}", "dialog", "box",
                               f"click {ed.NO}", "closed", f"click {ed.CANCEL}", "end", "edit x.pc3", "dialog", "title",
                               f"click {ed.CANCEL}", "end")
        assert answers.one("language fr") == "refused"
        assert answers.one("box") == "Reset the device and document settings to the driver's defaults?"
        assert answers.one("title") == "x.pc3 - Plotter configuration"

    def test_switching_while_a_sheet_is_open_leaves_nothing_behind(self):
        switches = [f"language {tag}" for tag in LANGUAGES]
        one = ["edit x.pc3", "dialog", "tab 1", *switches, *(f"entry {number}" for number in ed.ENTRIES.values()),
               *switches, f"click {ed.CANCEL}", "end"]
        answers = self.session(*one * 5, "counts", *one * 10, "counts")
        assert len(answers.all("output fileName")) == 15
        self.assert_flat(answers, rounds=10)
