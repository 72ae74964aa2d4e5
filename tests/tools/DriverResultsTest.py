"""The driver campaign picks PostScript PPDs and adds up what the checker reports."""

import json

import pytest
from garmtools.places import ROOT

from lab import drivers
from lab.drivers import Model
from lab.drivers.__main__ import RULES, check_rows, model_rows, rule_rows


@pytest.mark.parametrize("ppd, wanted", [
    (b'*PPD-Adobe: "4.3"\n*LanguageLevel: "3"\n', True),
    (b'*cupsFilter: "application/vnd.cups-postscript 100 foomatic-rip"\n'
     b'*FoomaticRIPCommandLine: "printf \'%!PS\'; cat;"\n', True),
    (b'*cupsFilter: "application/vnd.cups-postscript 100 foomatic-rip"\n'
     b'*FoomaticRIPCommandLine: "(printf x);\n(gs -q -sDEVICE=pxlmono)"\n', False),
    (b'*cupsFilter: "application/vnd.cups-pdf 0 -"\n', False),
    (b'*cupsFilter: "application/vnd.cups-raster 0 rastertohp"\n', False)])
def test_postscript(ppd, wanted):
    assert drivers.is_postscript(ppd) == wanted


@pytest.mark.parametrize("line, path, name", [
    ('"openprinting-ppds:0/ppd/openprinting/Utax/EU/TA2506ci.ppd" en "UTAX/TA" "2506ci  (KPDL)" "MFG:x;"',
     "Utax/EU/TA2506ci.ppd", "UTAX/TA 2506ci (KPDL)"),
    ('"openprinting-ppds:0/ppd/openprinting/HP/x.ppd" en "HP" "hp Plotter PS3 (recommended" ""', "HP/x.ppd",
     "hp Plotter PS3")])
def test_model_has_maker_and_name(line, path, name):
    assert drivers.described(line)[::2] == (path, name)


def test_largest_paper_is_in_millimetres():
    ppd = b'*PaperDimension A4/A4: "595 842"\n*PaperDimension A0.Any/A0: "2384 3370"\n*PaperDimension B/B: "72 7200"\n'
    assert drivers.largest_paper(ppd) == (841, 1189)
    assert drivers.largest_paper(b"") == (0, 0)


def test_queue_names_differ_without_regard_to_case():
    models = [Model(path) for path in ("A/One two.ppd", "B/one Two.ppd", "C/ONE#TWO.ppd", "D/x.y.ppd")]
    assert drivers.queue_names(models) == ["One_two", "one_Two-2", "ONE_TWO-3", "x.y"]


CALLS = [{"call": "OpenPrinterW", "given": "x", "answered": {"error": 1801}}]
FAILED = {"check": "paper", "held": False, "why": "w", "calls": CALLS}
END = {"step": "end"}


def summary(*lines, status=0, errors=""):
    return drivers.summarize("\n".join(map(json.dumps, lines)), status, errors, 60)


def test_checks_are_counted_and_failures_keep_their_calls():
    found = summary({"step": "papers"}, {"fact": "papers", "value": 2}, {"check": "paper", "held": True},
                    {"check": "paper", "held": True, "rule": "r"}, FAILED, END)
    assert found["checks"]["paper"] == {"held": 2, "failed": 1, "rules": {"r": 1}}
    assert found["checks"]["process"]["held"] == 1
    assert (found["facts"], found["failed"]) == ({"papers": [2]}, 1)
    assert found["failures"] == [{"check": "paper", "why": "w", "calls": CALLS}]


@pytest.mark.parametrize("step, status, why", [
    ("papers", 5, "ended with status 5 in step papers"), ("create", 0, "ended with status 0 in step create"),
    ("orientations", 124, "no end within 60 s in step orientations")])
def test_early_end_names_the_step(step, status, why):
    found = summary({"step": step}, status=status, errors="one\nfault in driver\n")
    assert found["checks"]["process"]["failed"] == 1
    assert (found["failures"][0]["why"], found["failures"][0]["errors"]) == (why, ["one", "fault in driver"])


def test_only_the_first_failures_are_kept_but_all_counted():
    found = summary(*[FAILED] * 50, END)
    assert (len(found["failures"]), found["failed"]) == (drivers.KEPT_FAILURES, 50)
    assert drivers.summarize('garbage\n{"step": "end"}\n', 0, "", 60)["failed"] == 1


def test_languages_of_a_model_are_one_row():
    def result(papers, **rules):
        return {"checks": {"again": {"held": 3, "failed": 0, "rules": rules}}, "facts": {"papers": [papers]}, "failed": 0}

    entries = [(Model("a", "M", "M one"), (210, 297), result(5)),
               (Model("b", "M", "M one"), (297, 420), result(7, **{"no margins": 1}))]
    assert list(model_rows(entries)) == [("M", "M one", 2, 5, 7, 297, 420, 0, 1, 0, 0)]
    assert list(check_rows(entries, {"again": "?"})) == [("again", "?", 5, 1, 0)]
    assert next(rule_rows(entries)) == ("no margins", 1, 1)


def test_rules_are_those_of_the_checks():
    source = "".join(path.read_text() for path in (ROOT / "tests/campaign").glob("*.cpp"))
    assert [rule for rule in RULES if f'"{rule}"' not in source] == []
