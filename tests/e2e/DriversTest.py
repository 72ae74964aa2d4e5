"""The short form of tools/driver-campaign: a few drivers, chosen for their differences."""

import unittest

import hostcase  # noqa: F401  (finds garmtools)
from garmtools import compatibility, drivercampaign, wineprefix
from garmtools.places import windows_path
from garmtools.ppds import Model

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


class DriversTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.models = [Model(path, "", "", "") for path, _ in DRIVERS.values()]
        cls.queues = cls.enterClassContext(drivercampaign.Batch(cls.models, wineprefix.allowed_cpus()[-1]))

    def test_everything_holds_but_for_what_rules_explain(self):
        for model, (what, (_, rules)) in zip(self.models, DRIVERS.items()):
            with self.subTest(what):
                result = self.queues.check(model, 60)
                self.assertEqual(result["failures"], [])
                self.assertEqual(compatibility.rules_of(result), rules)
                (papers,) = result["facts"]["papers"]
                self.assertGreater(papers, 0)
                # One answer per paper and orientation: nothing was left out.
                counts = {check: count["held"] for check, count in result["checks"].items()}
                self.assertEqual(counts, {
                    **dict.fromkeys(compatibility.CHECKS, 1), **dict.fromkeys(("paper in a file", "paper"), papers),
                    **dict.fromkeys(("paper name", "paper size"), papers), "orientation": 2, "custom": 2,
                    "again": 1 + papers + 2})

    def test_a_printer_that_is_gone_is_told_with_the_call_that_refused(self):
        done = self.queues.prefix.run([drivercampaign.CHECKER, "check", windows_path(drivercampaign.MODULE),
                                       windows_path(self.queues.folder), "gone"], seconds=60)
        result = drivercampaign.summarize(done.stdout, done.returncode, done.stderr, 60)
        (failure,) = result["failures"]
        self.assertEqual(failure["check"], "create")
        self.assertEqual(failure["calls"], [{"call": "OpenPrinterW", "given": "gone", "answered": {"error": 1801}}])

    def test_one_that_does_not_end_costs_only_itself(self):
        """No Windows program ends within a millisecond of its start."""
        result = self.queues.check(self.models[0], 0.001)
        self.assertEqual([failure["check"] for failure in result["failures"]], ["process"])
        self.assertEqual(result["failures"][0]["why"], "no end within 0.001 s in step start")
        self.assertEqual(self.queues.check(self.models[1], 60)["failures"], [])


if __name__ == "__main__":
    unittest.main()
