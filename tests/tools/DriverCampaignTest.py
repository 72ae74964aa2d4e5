"""The driver campaign picks PostScript PPDs, keeps what it found out, and tells it the same way each time."""

import base64
import json
import lzma
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
from garmtools import compatibility, drivercampaign, manyqueues, ppds
from garmtools.ppds import Model

HELD = {"held": 1, "failed": 0, "rules": {}}


def result(failures=(), rules=(), papers=5):
    again = {"held": 3, "failed": 0, "rules": {rule: 1 for rule in rules}}
    checks = {"create": dict(HELD), "again": again}
    for check, why in failures:
        checks.setdefault(check, {"held": 0, "failed": 0, "rules": {}})["failed"] += 1
    return {"checks": checks, "facts": {"papers": [papers]}, "failed": len(failures),
            "failures": [{"check": check, "why": why, "calls": [{"call": "OpenPrinterW", "given": "x",
                                                                 "answered": {"error": 5}}]} for check, why in failures]}


class PostScriptTest(unittest.TestCase):
    def test_a_ppd_without_filters_is_postscript(self):
        self.assertTrue(ppds.is_postscript(b'*PPD-Adobe: "4.3"\n*LanguageLevel: "3"\n'))

    def test_a_header_before_the_job_leaves_it_postscript(self):
        self.assertTrue(ppds.is_postscript(b'*cupsFilter: "application/vnd.cups-postscript 100 foomatic-rip"\n'
                                           b'*FoomaticRIPCommandLine: "printf \'%%!PS\'; cat;"\n'))

    def test_what_ghostscript_translates_is_not(self):
        self.assertFalse(ppds.is_postscript(b'*cupsFilter: "application/vnd.cups-postscript 100 foomatic-rip"\n'
                                            b'*FoomaticRIPCommandLine: "(printf x);\n(gs -q -sDEVICE=pxlmono)"\n'))

    def test_printers_of_pdf_and_of_pictures_are_not(self):
        self.assertFalse(ppds.is_postscript(b'*cupsFilter: "application/vnd.cups-pdf 0 -"\n'))
        self.assertFalse(ppds.is_postscript(b'*cupsFilter: "application/vnd.cups-raster 0 rastertohp"\n'))

    def test_a_model_is_called_by_its_maker_and_name(self):
        lines = ['"0/ppd/openprinting/Utax/EU/TA2506ci.ppd" en "UTAX/TA" "2506ci  (KPDL)" "MFG:x;"', '"other" en "A" "B" ""']
        self.assertEqual(ppds.described(lines), Model("Utax/EU/TA2506ci.ppd", "UTAX/TA", "UTAX/TA 2506ci (KPDL)", "en"))
        lines = ['"0/ppd/openprinting/HP/x.ppd" en "HP" "hp Plotter PS3 (recommended" ""']
        self.assertEqual(ppds.described(lines).name, "hp Plotter PS3")

    def test_the_largest_paper_is_told_in_millimetres(self):
        ppd = b'*PaperDimension A4/A4: "595 842"\n*PaperDimension A0.Any/A0: "2384 3370"\n*PaperDimension B/B: "72 7200"\n'
        self.assertEqual(ppds.largest_paper(ppd), (841, 1189))
        self.assertEqual(ppds.largest_paper(b""), (0, 0))

    def test_the_archive_is_read_in_one_pass(self):
        content = bytes(range(256)) * 10_000  # more than one chunk
        spans = [(0, 5), (100, 0), (100, 300), (ppds.CHUNK - 10, 40), (len(content) - 7, 7)]
        stream = ppds._Unpacked(lzma.compress(content))
        for start, length in spans:
            self.assertEqual(stream.read(start, length), content[start:start + length])

    def test_an_archive_that_is_too_short_is_told(self):
        with self.assertRaises(RuntimeError):
            ppds._Unpacked(lzma.compress(b"abc")).read(1, 3)


class QueueNamesTest(unittest.TestCase):
    def test_names_are_allowed_and_differ_without_regard_to_case(self):
        models = [Model(path, "", "", "") for path in ("A/One two.ppd", "B/one Two.ppd", "C/ONE#TWO.ppd", "D/x.y.ppd")]
        self.assertEqual(drivercampaign.queue_names(models), ["One_two", "one_Two-2", "ONE_TWO-3", "x.y"])


class SummaryTest(unittest.TestCase):
    def summary(self, *lines, status=0, errors=""):
        return drivercampaign.summarize("\n".join(map(json.dumps, lines)), status, errors, 60)

    def test_checks_are_counted_and_failures_keep_their_calls(self):
        calls = [{"call": "OpenPrinterW", "given": "x", "answered": {"error": 1801}}]
        found = self.summary({"step": "papers"}, {"fact": "papers", "value": 2}, {"check": "paper", "held": True},
                             {"check": "paper", "held": True, "rule": "r"},
                             {"check": "paper", "held": False, "why": "w", "calls": calls}, {"step": "end"})
        self.assertEqual(found["checks"]["paper"], {"held": 2, "failed": 1, "rules": {"r": 1}})
        self.assertEqual(found["checks"]["process"]["held"], 1)
        self.assertEqual(found["facts"], {"papers": [2]})
        self.assertEqual((found["failed"], found["failures"]), (1, [{"check": "paper", "why": "w", "calls": calls}]))

    def test_a_crash_names_the_step_it_happened_in(self):
        found = self.summary({"step": "create"}, {"step": "papers"}, status=5, errors="one\nfault in driver\n")
        self.assertEqual(found["checks"]["process"]["failed"], 1)
        self.assertEqual(found["failures"][0]["why"], "ended with status 5 in step papers")
        self.assertEqual(found["failures"][0]["errors"], ["one", "fault in driver"])

    def test_an_end_too_early_is_a_failure_with_status_0_too(self):
        self.assertEqual(self.summary({"step": "create"})["failed"], 1)

    def test_a_hang_says_how_long_it_was_waited_for(self):
        found = self.summary({"step": "orientations"}, status=124)
        self.assertEqual(found["failures"][0]["why"], "no end within 60 s in step orientations")

    def test_what_is_no_answer_is_a_failure(self):
        found = drivercampaign.summarize('garbage\n{"step": "end"}\n', 0, "", 60)
        self.assertEqual(found["failed"], 1)

    def test_only_the_first_failures_are_kept_but_all_counted(self):
        line = {"check": "paper", "held": False, "why": "w", "calls": []}
        found = self.summary(*[line] * 50, {"step": "end"})
        self.assertEqual((len(found["failures"]), found["failed"]), (drivercampaign.KEPT_FAILURES, 50))


class CatalogueTest(unittest.TestCase):
    def test_what_is_kept_is_the_same_again_and_can_be_looked_up(self):
        with tempfile.TemporaryDirectory() as folder:
            file = Path(folder, "new", "models.json")
            models = [Model("A/x.ppd", "A", "A x", "en", (210, 297))]
            drivercampaign.keep_models(models, file)
            self.assertEqual(drivercampaign.models_in(file), models)
            self.assertIn(drivercampaign.models_in(file)[0], {models[0]: "found"})

    def test_another_package_has_another_catalogue(self):
        with tempfile.TemporaryDirectory() as folder:
            found = []
            for number, ppd in enumerate((b'*LanguageLevel: "3"\n', b'*PaperDimension A/A: "720 72"\n')):
                lines = [f'"0/ppd/openprinting/A/{number}.ppd" en "A" "x {number}" ""']
                archive = base64.b64encode(lzma.compress(ppd)).decode()
                program = Path(folder, str(number))
                program.write_text(f"def load(): return {{'ARCHIVE': {archive!r}, 'x': [0, {len(ppd)}, {lines!r}]}}\n")
                found.append(drivercampaign.catalogue(folder, str(program)))
            self.assertEqual(found, [[Model("A/0.ppd", "A", "A x 0", "en", (0, 0))],
                                     [Model("A/1.ppd", "A", "A x 1", "en", (254, 25))]])


class ResultsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.model = Model("A/x y.ppd", "A", "A x", "en")

    def test_what_was_put_is_there_for_the_same_build_only(self):
        drivercampaign.Results(self.folder, "one").put(self.model, {"failed": 0})
        self.assertEqual(drivercampaign.Results(self.folder, "one").get(self.model), {"failed": 0})
        self.assertIsNone(drivercampaign.Results(self.folder, "two").get(self.model))

    def test_a_damaged_file_counts_as_none(self):
        results = drivercampaign.Results(self.folder, "one")
        results.put(self.model, {"failed": 0})
        (file,) = (self.folder / "results").iterdir()
        file.write_text(file.read_text()[:20])
        self.assertIsNone(results.get(self.model))


class WorkTest(unittest.TestCase):
    """Batches without queues: what is checked, by whom, and what is left after an end in the middle."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.models = [Model(f"A/{number}.ppd", "A", f"A {number}", "en") for number in range(10)]
        self.checked = []
        self.ends_at = None
        test = self

        class Batch:
            def __init__(self, models, _cpu):
                self.models = models

            def __enter__(self):
                return self

            def __exit__(self, *_):
                return False

            def check(self, model, _seconds):
                if model == test.ends_at:
                    raise KeyboardInterrupt
                test.checked.append(model)
                return {"failed": 0}

        for name, value in (("Batch", Batch), ("BATCH", 3), ("fingerprint", lambda: "build"), ("say", lambda _: None)):
            patch = mock.patch.object(drivercampaign, name, value)
            patch.start()
            self.addCleanup(patch.stop)

    def test_shares_check_everything_once(self):
        for share in range(3):
            drivercampaign.work(self.models, self.folder, share, 3, 60)
        self.assertEqual(sorted(self.checked), self.models)

    def test_after_an_end_it_goes_on_where_it_stopped(self):
        self.ends_at = self.models[4]
        with self.assertRaises(KeyboardInterrupt):
            drivercampaign.work(self.models, self.folder, 0, 1, 60)
        self.assertEqual(self.checked, self.models[:4])
        self.ends_at = None
        drivercampaign.work(self.models, self.folder, 0, 1, 60)
        self.assertEqual(self.checked, self.models)

    def test_what_is_there_makes_no_queues(self):
        drivercampaign.work(self.models, self.folder, 0, 1, 60)
        with mock.patch.object(drivercampaign, "Batch", None):
            drivercampaign.work(self.models, self.folder, 0, 1, 60)


class PageTest(unittest.TestCase):
    def page(self, *entries):
        return compatibility.page(list(entries), "wine 1 with ppds 2")

    def test_languages_of_a_model_are_one_row(self):
        made = self.page((Model("a", "M", "M one", "en"), result(papers=5)), (Model("b", "M", "M one", "de"), result(papers=7)))
        self.assertIn("| M one | 2 | 5 to 7 | 0 x 0 | held |", made)

    def test_the_order_of_the_results_does_not_matter(self):
        entries = [(Model(f"{name}.ppd", "M", f"M {name}", "en"), result()) for name in "bca"]
        self.assertEqual(self.page(*entries), self.page(*reversed(entries)))

    def test_a_failure_is_told_by_cause_with_its_calls(self):
        failure = [("paper", "'A4' (9) is refused")]
        made = self.page((Model("a", "M", "M one", "en"), result(failure)), (Model("b", "M", "M two", "en"), result(failure)))
        self.assertIn("### paper: ... is refused", made)
        self.assertIn("2 models: M one, M two.", made)
        self.assertIn("OpenPrinterW(x) -> error 5", made)
        self.assertIn("| M one | 1 | 5 | 0 x 0 | **paper failed** |", made)

    def test_a_rule_is_named_with_its_model_and_explained(self):
        made = self.page((Model("a", "M", "M one", "en"), result(rules=["no margins"])))
        self.assertIn("| M one | 1 | 5 | 0 x 0 | no margins (1) |", made)
        self.assertIn("| no margins | " + compatibility.RULES["no margins"], made)
        self.assertIn("| again |", made)
        self.assertIn("| 2 | 1 | 0 |", made)

    def test_every_rule_of_the_checks_is_explained(self):
        source = "".join(path.read_text() for path in (ROOT / "tests" / "campaign").glob("*.cpp"))
        for rule in compatibility.RULES:
            self.assertIn(f'"{rule}"', source)

    def test_names_cannot_break_the_table(self):
        made = self.page((Model("a", "M", "M a|b", "en"), result()))
        self.assertIn("| M a\\|b | 1 |", made)


class ManyQueuesTest(unittest.TestCase):
    def test_the_queues_are_taken_from_the_whole_list_each_once(self):
        self.assertEqual(manyqueues.spread(list("abcdefghij"), 4), ["a", "c", "f", "h"])
        self.assertEqual(manyqueues.spread(list("abc"), 3), ["a", "b", "c"])

    def test_the_table_has_every_time_of_both(self):
        keys = [*manyqueues.INSIDE, *manyqueues.PROGRAMS]
        few, many = ({**{key: at + offset for at, key in enumerate(keys)}, "first": 2.0} for offset in (0.5, 100))
        lines = manyqueues.table(few, many, 500)
        self.assertEqual(lines[0], "| Milliseconds | 4 queues | 500 queues |")
        self.assertEqual(len(lines), 2 + len(keys) + 1)
        self.assertTrue(lines[2].endswith("| 0.50 | 100 |"))
        self.assertTrue(lines[-1].endswith("| 2000 | 2000 |"))

    def test_every_time_inside_is_one_that_the_checker_tells(self):
        source = (ROOT / "tests" / "campaign" / "Times.cpp").read_text()
        for fact in manyqueues.INSIDE:
            self.assertIn(f'tell("{fact}"', source)


if __name__ == "__main__":
    unittest.main()
