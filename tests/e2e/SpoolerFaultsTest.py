"""The print server and printers go away while the editor is open and while the commands run. The whole matrix, each way
at each step by itself, is lab/run faults."""

import shutil
import tempfile
import unittest
from pathlib import Path

import pytest
from garmtools import editorscript as ed
import lab.faults as faults
from garmtools.editorscript import Answers, Script
from garmtools.places import ROOT
from lab.faults import QUEUE, SESSIONS, WITHOUT_PRINTERS


class FaultCase(unittest.TestCase):
    bench = None  # one for all: each play leaves it as it was


@pytest.fixture(scope="module", autouse=True)
def bench():
    with faults.bench() as made:
        FaultCase.bench = made
        yield


class ServerTest(FaultCase):
    """What a process asks the server for it asks once, so that later nothing changes when the server goes."""

    @classmethod
    def setUpClass(cls):
        cls.undisturbed = {name: cls.bench.play(steps) for name, steps in SESSIONS.items()}

    def played(self, name, actions):
        outcome = self.bench.play(SESSIONS[name], actions)
        assert outcome == self.undisturbed[name]

    def test_a_session_does_all_that_it_should(self):
        outcome = self.undisturbed["a file is edited"]
        answers = Answers(outcome.said)
        assert answers.one("output fileName") == "x.pc3"
        assert answers.all("output paperName") == ["US Letter"] * 2
        assert set(outcome.files) == {"x.pc3", "copy.pc3"}
        assert outcome.files["x.pc3"] != self.bench.original
        assert outcome.files["x.pc3"] != outcome.files["copy.pc3"]

    def test_a_server_that_crashes_at_every_step_changes_nothing(self):
        for name in ("a printer is edited", "a device is asked for", "a device is checked"):
            with self.subTest(name):
                self.played(name, faults.at_every_step(SESSIONS[name], "kill", "start"))

    def test_a_server_that_is_stopped_at_every_step_changes_nothing(self):
        self.played("a file is edited", faults.at_every_step(SESSIONS["a file is edited"], "stop", "start"))

    def test_a_server_that_hangs_at_every_step_changes_nothing(self):
        for name, steps in SESSIONS.items():
            with self.subTest(name):
                # At the first step too: the driver waits for the server, and has its answer when that goes on.
                asking = faults.asking_step(steps)
                actions = faults.at_every_step(steps, "freeze", "thaw")
                self.played(name, {**actions, asking: "freeze", asking + 1: "thaw"})

    def test_a_server_that_is_gone_before_the_driver_asks_leaves_the_drivers_built_in_defaults(self):
        for gone in ("kill", "remove"):
            with self.subTest(gone):
                outcome = self.bench.play(SESSIONS["a file is edited"], {0: gone})
                answers = Answers(outcome.said)
                # The file is read as it is; the paper changes when the driver is asked for its settings.
                assert answers.tree(0)["source"] == (2, True, "Source and size <Size: A4>")
                assert answers.outputs()["fileName"] == "x.pc3"
                assert answers.all("output paperName") == ["A4"] * 2
                assert set(outcome.files) == {"x.pc3", "copy.pc3"}

    def test_a_process_that_starts_without_the_server_has_no_printers(self):
        for gone in ("kill", "stop", "remove"):
            with self.subTest(gone):
                outcome = self.bench.play(WITHOUT_PRINTERS, before=gone)
                answers = Answers(outcome.said)
                # Both edits left nothing, and neither check writes a value.
                assert answers.all("outputs") == ["none"] * 4
                assert answers.all("output result") == ["false"] * 2
                assert answers.all("output printerName") == [""] * 2
                assert answers.all("output devMode") == ["0 bytes"] * 2
                assert answers.all("checked") == ["not found"] * 2
                assert outcome.files == {"x.pc3": self.bench.original}


class HangingCheckTest(FaultCase):
    """A background check whose driver waits for a server that does not answer."""

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="garm-e2e-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.addCleanup(self.bench.mend)
        (self.folder / "x.pc3").write_bytes(self.bench.original)
        shutil.copy(ROOT / "samples" / "virtual-pdf.pc3", self.folder / "file.pc3")

    def session(self, *lines):
        done = ed.run(self.bench.prefix, Script(*lines), [self.folder], cwd=self.folder, outside=self.bench.act)
        assert done.returncode == 0, f"{done.stdout}\n{done.stderr}"
        return Answers(done.stdout)

    def test_the_host_works_on_meanwhile(self):
        answers = self.session(
            "outside freeze", "start-check x.pc3", f"start-check {QUEUE.name}", "checked",
            # A whole session of the editor, on the thread that started the check.
            "edit file.pc3", "dialog", f"type {ed.DESCRIPTION} meanwhile", "tab 1", "tree", f"click {ed.OK}", "dialog",
            f"click {ed.OK}", "end", f"get-devmode {QUEUE.name}", "end", "outside thaw", "checked")
        # The one that needs no driver is the first to report.
        assert answers.all("checked") == ["found"] * 2
        assert answers.one("output fileName") == "file.pc3"
        assert answers.one("output printerName") == QUEUE.name

    def test_each_of_many_checks_reports_once(self):
        answers = self.session("outside freeze", *["start-check x.pc3"] * 20, "outside thaw", *["checked"] * 20,
                               "start-check nobody.pc3", "checked")
        assert answers.all("checked") == ["found"] * 20 + ["not found"]

    def test_a_server_that_dies_while_checks_wait_ends_them(self):
        answers = self.session("outside freeze", *["start-check x.pc3"] * 3, "outside kill", *["checked"] * 3)
        assert answers.all("checked") == ["found"] * 3

    def test_a_process_that_ends_does_not_wait_for_its_checks(self):
        self.session("outside freeze", *["start-check x.pc3"] * 3)


class DeletedPrinterTest(FaultCase):
    """The printer of the open configuration is deleted; another one has the same driver."""

    @classmethod
    def setUpClass(cls):
        cls.twin = cls.bench.play(faults.TWIN_MADE).files["x.pc3"]
        cls.places = list(faults.deletions())
        cls.played = {}

    def deleted(self, kind, which=0):
        """The session in which it is deleted at one of the places of that kind; its answers and outcome."""
        at = [index for index, found in self.places if found == kind][which]
        if at not in self.played:
            self.played[at] = self.bench.play(faults.with_deletion(at), content=self.twin)
        outcome = self.played[at]
        answers = Answers(outcome.said)
        assert answers.one("output fileName") == "x.pc3"
        assert answers.all("output paperName") == ["US Letter"] * 2
        # Asked for afterwards, the saved file is bound to the printer that is left.
        assert answers.one("output printerName") == QUEUE.name
        assert set(outcome.files) == {"x.pc3", "copy.pc3"}
        return answers, outcome

    def test_before_the_file_is_opened(self):
        answers, _ = self.deleted(faults.REBOUND)
        assert answers.one(f"text {ed.PORT}") == f"Port: CUPS:{QUEUE.name}"
        assert faults.TWIN not in answers.all(f"choices {ed.PRINTERS}")
        assert answers.tree()["collating"] == (3, True, "Collating <Not collated>")

    def test_while_the_sheet_shows_it(self):
        first, at_once = self.deleted(faults.NO_DRIVER)
        # The list of printers is the one of the sheet's beginning.
        assert faults.TWIN in first.all(f"choices {ed.PRINTERS}")
        # Its driver is asked for no settings, and there are no defaults to go back to; all that was chosen by hand is
        # saved.
        assert first.tree()["collating"] == (3, True, "Collating <Collated>")
        last, in_the_drivers_dialog = self.deleted(faults.NO_DRIVER, -1)
        assert last.tree() == first.tree()
        assert in_the_drivers_dialog.files == at_once.files

    def test_before_its_defaults_are_asked_for(self):
        answers, outcome = self.deleted(faults.SETTINGS_TAKEN)
        assert answers.tree()["collating"] == (3, True, "Collating <Collated>")
        assert outcome.files != self.deleted(faults.NO_DRIVER)[1].files

    def test_before_ok_and_while_the_name_is_asked_for(self):
        answers, outcome = self.deleted(faults.RESET)
        assert answers.tree()["collating"] == (3, True, "Collating <Not collated>")
        assert self.deleted(faults.RESET, -3)[1].files == outcome.files
