"""The short form of lab/run drivers: a few drivers, chosen for their differences."""

import pytest
from garmtools.queues import unpacked

from lab.drivers import Batch, Model, rules_of

# What is special about the driver: its PPD, and the rules that explain what it does.
DRIVERS = {
    "plotter with margins": ("HP/HP_DesignJet_3500CP_PS3.ppd", []),
    "roll plotter without margins": ("HP/HP_Designjet_5500_PS3.ppd", ["no margins"]),
    "wide format, paper names too long for a form name": (
        "Gestetner/PS/Gestetner-IM_CW2200_PS.ppd", ["name longer than a form name", "no margins"]),
    "colour laser": ("Utax/EU/German/TA2506ci.ppd", []),
    "Japanese": ("Brother/BR5070DN_GPL.ppd", []),
    "few papers, none with margins": ("Oce/Oce-PPC5115PS/1/OP5115_2.ppd", ["no margins"]),
}
ONCE = ("queue", "process", "create", "write", "read", "toDevMode", "driver", "take back", "papers")
MODELS = [Model(path) for path, _ in DRIVERS.values()]


@pytest.fixture(scope="module")
def batch():
    with Batch({model: unpacked(model.path) for model in MODELS}) as made:
        yield made


def test_everything_holds_but_for_what_rules_explain(batch):
    for what, (path, rules) in DRIVERS.items():
        result = batch.check(Model(path), 60)
        assert result["failures"] == [], what
        assert rules_of(result) == rules, what
        (papers,) = result["facts"]["papers"]
        assert papers > 0, what
        # One answer per paper and orientation: nothing was left out.
        assert {check: count["held"] for check, count in result["checks"].items()} == {
            **dict.fromkeys(ONCE, 1), **dict.fromkeys(("paper in a file", "paper", "paper name", "paper size"), papers),
            "orientation": 2, "custom": 2, "again": 1 + papers + 2}, what


def test_missing_printer_is_reported_with_the_call_that_refused(batch):
    (failure,) = batch.check_name("gone", 60)["failures"]
    assert failure["check"] == "create"
    assert failure["calls"] == [{"call": "OpenPrinterW", "given": "gone", "answered": {"error": 1801}}]


def test_process_that_does_not_end_costs_only_itself(batch):
    """No Windows program ends within a millisecond of its start."""
    (failure,) = batch.check(MODELS[0], 0.001)["failures"]
    assert (failure["check"], failure["why"]) == ("process", "no end within 0.001 s in step start")
    assert batch.check(MODELS[1], 60)["failures"] == []
