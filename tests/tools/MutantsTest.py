"""Mutants change what they say they change, and nothing is counted as caught that was not."""

import contextlib
import io
import shutil
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
from garmtools import mutantbuild, mutantreport, mutantrun, mutants  # noqa: E402
from garmtools.mutantreport import ListError  # noqa: E402
from garmtools.mutantrun import CAUGHT, NOT_COMPILED, SAME_CODE, SURVIVED  # noqa: E402


def made_of(source):
    """The mutated sources."""
    return [mutant.apply(source) for mutant in mutants.mutants_of("a.cpp", source)]


def changes_of(source):
    """What they are said to be."""
    return [mutant.change for mutant in mutants.mutants_of("a.cpp", source)]


class MakingTest(unittest.TestCase):
    def expect(self, source, *changed):
        """Exactly these are made of the source, in any order."""
        self.assertEqual(sorted(made_of(source)), sorted(changed))

    def test_a_number_is_one_more_and_one_less(self):
        self.expect("int n = 7;", "int n = (7 + 1);", "int n = (7 - 1);")

    def test_zero_is_one_more(self):
        self.expect("int n = 0;", "int n = (0 + 1);")

    def test_a_negative_number_loses_its_sign(self):
        self.assertIn("int n = 4;", made_of("int n = -4;"))

    def test_a_character_is_the_next_and_the_one_before(self):
        self.expect("char c = 'a';", "char c = ('a' + 1);", "char c = ('a' - 1);")

    def test_a_comparison_is_moved_by_one_and_reversed(self):
        self.expect("bool b = m < n;", "bool b = m <= n;", "bool b = m > n;")
        self.expect("bool b = m == n;", "bool b = m != n;")

    def test_brackets_of_templates_are_no_comparisons(self):
        self.expect("std::vector<int> v;")
        self.expect("template <class T> T f(T&& t);")

    def test_logic_is_exchanged_and_negation_dropped(self):
        self.expect("bool b = m && n;", "bool b = m || n;")
        self.expect("bool b = !m;", "bool b = m;")

    def test_booleans_are_inverted(self):
        self.expect("bool b = true;", "bool b = false;")

    def test_flags_become_others_of_their_kind(self):
        self.assertEqual(set(made_of("f = DM_COPIES | DM_SCALE;")),
                         {"f = DM_SCALE | DM_SCALE;", "f = DM_COPIES | DM_COPIES;", "f = DM_COPIES & DM_SCALE;"})

    def test_bits_are_set_or_cleared_the_wrong_way(self):
        self.expect("int f() {\n    flags |= m;\n}", "int f() {\n    flags &= m;\n}", "int f() {\n    flags = m;\n}",
                    "int f() {\n    ;\n}")

    def test_axes_are_exchanged_where_the_other_one_is_known(self):
        self.expect("double d = m_urx * m_ury;", "double d = m_ury * m_ury;", "double d = m_urx * m_urx;",
                    "double d = m_urx / m_ury;")
        self.expect("double d = m_index;")

    def test_a_text_is_another_and_exchanged_with_its_neighbour(self):
        self.assertEqual(set(made_of('f(OD_T("type"), OD_T("name"));')),
                         {'f(OD_T("type~"), OD_T("name"));', 'f(OD_T("type"), OD_T("name~"));',
                          'f(OD_T("name"), OD_T("type"));'})

    def test_texts_of_assertions_and_whole_static_assertions_are_left(self):
        self.expect('x = OD_VERIFY(p, "where");')
        self.expect("static_assert(sizeof(int) == 4);")

    def test_comments_and_preprocessor_lines_are_left(self):
        self.expect('// if (a < 1)\n/* true */\n#include "a.h"\n#define ONE \\\n    1\nint n;')

    def test_conditions_are_forced(self):
        made = made_of("void f() {\n    if (p)\n        g();\n}")
        self.assertIn("void f() {\n    if (true)\n        g();\n}", made)
        self.assertIn("void f() {\n    if (false)\n        g();\n}", made)

    def test_of_a_condition_with_a_declaration_only_the_test_is_forced(self):
        made = made_of("void f() {\n    if (int i = g(); i > n)\n        h(i);\n}")
        self.assertIn("void f() {\n    if (int i = g(); false)\n        h(i);\n}", made)
        forced = [change for change in changes_of("void f() {\n    if (auto p = g())\n        h(p);\n}")
                  if "condition" in change]
        self.assertEqual(forced, [])

    def test_choices_are_forced(self):
        made = made_of("x = a ? b : c;")
        self.assertEqual(set(made), {"x = a && false ? b : c;", "x = a || true ? b : c;"})

    def test_statements_are_dropped(self):
        source = "void f()\n{\n    g();\n    if (p)\n        h();\n    for (int i : v)\n        k(i);\n}"
        made = made_of(source)
        for call in ("g();", "h();", "k(i);"):
            self.assertIn(source.replace(call, ";"), made)

    def test_a_declaration_that_is_used_is_not_dropped_but_a_guard_is(self):
        self.assertNotIn("the statement is dropped", changes_of("void f() {\n    int x = g();\n    return x;\n}"))
        self.assertIn("the statement is dropped", changes_of("void f() {\n    Guard guard;\n    return;\n}"))

    def test_members_of_a_class_are_no_statements(self):
        self.expect("class A\n{\n    void f();\n    int m_n;\n};")

    def test_statements_of_a_lambda_are_dropped(self):
        source = "void f()\n{\n    run([&]\n        {\n            g();\n        });\n}"
        self.assertIn(source.replace("g();", ";"), made_of(source))

    def test_a_result_becomes_nothing(self):
        self.expect("T f()\n{\n    return g(x);\n}", "T f()\n{\n    return {};\n}")

    def test_rows_are_dropped_and_exchanged(self):
        rows = set(made_of("auto t = table<N>(row(a), row(b));"))
        self.assertEqual(rows, {"auto t = table<N>(row(b));", "auto t = table<N>(row(a));",
                                "auto t = table<N>(row(b), row(a));"})
        rows = set(made_of("R t[] = {\n    {a, b},\n    {c, d},\n};"))
        self.assertEqual(rows, {"R t[] = {\n    {c, d},\n};", "R t[] = {\n    {a, b},\n};",
                                "R t[] = {\n    {c, d},\n    {a, b},\n};"})

    def test_every_mutant_has_a_name_of_its_own_and_its_line(self):
        source = "void f()\n{\n    x = 2 + 2;\n    x = 2 + 2;\n}"
        made = mutants.mutants_of("a.cpp", source)
        self.assertEqual(len({mutant.name for mutant in made}), len(made))
        for mutant in made:
            self.assertTrue(mutant.code.endswith(source.splitlines()[mutant.line - 1].strip()), mutant)
            self.assertNotEqual(mutant.apply(source), source)

    def test_lines_that_read_the_same_are_told_apart_by_the_one_before(self):
        made = mutants.mutants_of("a.cpp", "if (p)\n    x = true;\n\nif (q)\n    x = true;\n")
        self.assertEqual([mutant.code for mutant in made if "true" in mutant.change and "condition" not in mutant.change],
                         ["if (p) | x = true;", "if (q) | x = true;"])

    def test_all_sources_of_the_module_can_be_read(self):
        for path in (ROOT / "GarmPC3Editor").rglob("*.cpp"):
            source = path.read_text()
            joined = "".join(token.text for token in mutants.tokens_of(source))
            self.assertEqual(joined.count("{"), joined.count("}"), path)
            mutants.mutants_of(path.name, source)


def verdicts_of(*pairs):
    return {mutant.name: {"result": result, "by": "some_test"} for mutant, result in pairs}


class ReportTest(unittest.TestCase):
    def setUp(self):
        self.mutants = mutants.mutants_of("a.cpp", "int n = 7;\nbool b = true;")

    def test_equivalent_ones_are_not_counted_against_the_tests(self):
        one, two, three = self.mutants
        verdicts = verdicts_of((one, CAUGHT), (two, SURVIVED), (three, SURVIVED))
        count = mutantreport.counts_of(self.mutants, verdicts, {two.name: "why"})["a.cpp"]
        self.assertEqual((count.made, count.equivalent, count.caught, count.survived, count.share), (3, 1, 1, 1, 50))
        self.assertEqual(mutantreport.survivors(self.mutants, verdicts, {two.name: "why"}), [three])

    def test_same_code_is_equivalent_and_what_does_not_compile_is_no_mutant(self):
        one, two, three = self.mutants
        verdicts = verdicts_of((one, SAME_CODE), (two, NOT_COMPILED), (three, CAUGHT))
        count = mutantreport.counts_of(self.mutants, verdicts, {})["a.cpp"]
        self.assertEqual((count.made, count.equivalent, count.share), (2, 1, 100))

    def test_what_was_not_tried_is_counted_apart(self):
        one, two, _ = self.mutants
        count = mutantreport.counts_of(self.mutants, verdicts_of((one, SURVIVED), (two, NOT_COMPILED)), {})["a.cpp"]
        self.assertEqual((count.made, count.untried, count.share), (1, 1, 0))
        self.assertIsNone(mutantreport.counts_of(self.mutants, {}, {})["a.cpp"].share)

    def test_shares_are_cut_off(self):
        counts = {"a.cpp": mutantreport.Count(made=2000, caught=1999, survived=1)}
        self.assertIn("99.9 %", mutantreport.table(counts))
        self.assertNotIn("100", mutantreport.table(counts))

    def test_the_list_is_read(self):
        text = "# why\n\nfile: a.cpp\ncode: int n = 7;\nchange: `7` becomes `(7 + 1)`\nreason: because: so\n"
        self.assertEqual(mutantreport.read_equivalents(text), {self.mutants[0].name: "because: so"})

    def test_an_entry_without_a_reason_or_twice_is_refused(self):
        entry = "file: a.cpp\ncode: int n;\nchange: x\n"
        for text in (entry, entry + "reason: \n", entry + "reason: r\n\n" + entry + "reason: r\n"):
            with self.subTest(text), self.assertRaises(ListError):
                mutantreport.read_equivalents(text)

    def test_an_entry_for_code_that_has_gone_is_an_error(self):
        gone = {("a.cpp", "int m = 7;", "`7` becomes `(7 + 1)`"): "why"}
        self.assertEqual(len(mutantreport.check_equivalents(gone, self.mutants)), 1)
        self.assertEqual(mutantreport.check_equivalents({self.mutants[0].name: "why"}, self.mutants), [])

    def test_an_entry_for_a_mutant_that_is_caught_is_an_error(self):
        one, two, _ = self.mutants
        equivalents = {one.name: "why", two.name: "why"}
        verdicts = verdicts_of((one, CAUGHT), (two, SURVIVED))
        self.assertEqual(len(mutantreport.falsely_equivalent(equivalents, verdicts)), 1)

    def test_a_sample_is_of_each_file_and_the_same_for_the_same_seed(self):
        other = mutants.mutants_of("b.cpp", "int n = 7;")
        chosen = mutantreport.sample(self.mutants + other, 2, 5)
        self.assertEqual([mutant.file for mutant in chosen], ["a.cpp", "a.cpp", "b.cpp", "b.cpp"])
        self.assertEqual(chosen, mutantreport.sample(self.mutants + other, 2, 5))

    def test_verdicts_are_kept_and_the_last_one_holds(self):
        with tempfile.TemporaryDirectory() as folder:
            store = mutantreport.Verdicts(Path(folder) / "verdicts")
            self.assertEqual(store.read(), {})
            one, two, _ = self.mutants
            for verdict in ((one, SURVIVED), (two, CAUGHT), (one, CAUGHT)):
                store.add(mutantrun.Verdict(*verdict, by="p"))
            self.assertEqual([record["result"] for record in store.read().values()], [CAUGHT, CAUGHT])
            store.forget(["a.cpp"])
            self.assertEqual(store.read(), {})

    def test_the_table_replaces_the_one_between_the_marks(self):
        page = f"before\n{mutantreport.BEGIN}\nold\n{mutantreport.END}\nafter\n"
        self.assertEqual(mutantreport.put_into(page, "new"), page.replace("old", "new"))
        with self.assertRaises(ListError):
            mutantreport.put_into("no marks", "new")

    def test_the_list_of_the_project_matches_the_sources(self):
        equivalents = mutantreport.read_equivalents((ROOT / "tools/mutants-equivalent.txt").read_text())
        every = [mutant for file in {name[0] for name in equivalents}
                 for mutant in mutants.mutants_of(file, (ROOT / file).read_text())]
        self.assertEqual(mutantreport.check_equivalents(equivalents, every), [])


class FakeBuild:
    """Objects without a compiler: what compiles and which programs pass is said beforehand."""

    def __init__(self, folder, compiles=True, failing=(), optimised=None):
        self.folder = folder
        self.dependents = {"a.cpp": ["a.o"]}
        self.library_objects = ["a.o"]
        self.seconds = {"slow": 2, "fast": 1}
        self.ran = []
        self._compiles, self._failing, self._optimised = compiles, failing, optimised

    @staticmethod
    def programs_for(_file):
        return ["slow", "fast"]

    @staticmethod
    def objects_of(_name):
        return []

    @staticmethod
    def mentions(_name, _file):
        return 0

    @staticmethod
    def link_library(*_):
        return True

    @staticmethod
    def program(name):
        return Path(name)

    def compile(self, *_):
        return self._compiles

    def optimised(self, _objects, overlay=None, _job=None):
        return self._optimised or overlay

    def run(self, name, _program, _job, cases):
        self.ran.append((name, *cases))
        return "Suite.case" if name in self._failing else None


class ExaminerTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        self.source = "int n = 7;"
        self.mutant = mutants.mutants_of("a.cpp", self.source)[0]

    def examine(self, *builds):
        return mutantrun.Examiner(*builds).examine(self.mutant, self.source, self.folder / "job")

    def test_the_first_failing_program_ends_it_and_quick_ones_come_first(self):
        build = FakeBuild(self.folder / "q", failing=["fast"])
        self.assertEqual(self.examine(build, None), mutantrun.Verdict(self.mutant, CAUGHT, "fast"))
        self.assertEqual(build.ran, [("fast",)])

    def test_a_test_that_caught_before_goes_first_the_next_time(self):
        build = FakeBuild(self.folder / "q", failing=["slow"])
        examiner = mutantrun.Examiner(build, None)
        for _ in range(2):
            examiner.examine(self.mutant, self.source, self.folder / "job")
        self.assertEqual(build.ran, [("fast",), ("slow",), ("slow", "Suite.case")])

    def test_what_no_program_notices_survives(self):
        self.assertEqual(self.examine(FakeBuild(self.folder / "q"), None).result, SURVIVED)

    def test_a_survivor_is_tried_again_under_the_sanitizers(self):
        thorough = FakeBuild(self.folder / "s", failing=["slow"])
        self.assertEqual(self.examine(FakeBuild(self.folder / "q"), thorough).result, CAUGHT)

    def test_what_does_not_compile_is_not_run(self):
        build = FakeBuild(self.folder / "q", compiles=False)
        self.assertEqual(self.examine(build, None).result, NOT_COMPILED)
        self.assertEqual(build.ran, [])

    def test_equal_objects_are_the_same_code(self):
        self.assertEqual(self.examine(FakeBuild(self.folder / "q", optimised="x"), None).result, SAME_CODE)

    def test_each_mutant_gets_a_verdict(self):
        told = []
        made = mutants.mutants_of("a.cpp", "int a = 1, b = 2, c = 3;")
        mutantrun.examine_all(mutantrun.Examiner(FakeBuild(self.folder / "q"), None), made,
                              {"a.cpp": "int a = 1, b = 2, c = 3;"}, 2, self.folder, told.append)
        self.assertEqual({verdict.mutant for verdict in told}, set(made))

    def test_a_broken_run_stops_the_others(self):
        def broken(_verdict):
            raise RuntimeError("full disk")

        with self.assertRaises(RuntimeError), contextlib.redirect_stderr(io.StringIO()):
            mutantrun.examine_all(mutantrun.Examiner(FakeBuild(self.folder / "q"), None), [self.mutant] * 3,
                                  {"a.cpp": self.source}, 1, self.folder, broken)


class RunTest(unittest.TestCase):
    """With real processes, in place of test programs."""

    def setUp(self):
        self.job = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.job)
        self.build = mutantbuild.Build(self.job / "quick", "-O0")

    def failing(self, body, cases=()):
        program = self.job / "program"
        program.write_text(f"#!/bin/sh\n{body}\n")
        program.chmod(0o755)
        return self.build.run("program", program, self.job, cases, seconds=1)

    def passes(self, body):
        return self.failing(body) is None

    def test_only_a_good_end_passes(self):
        self.assertTrue(self.passes("exit 0"))
        self.assertFalse(self.passes("exit 1"))
        self.assertFalse(self.passes("kill -SEGV $$"))

    def test_an_endless_loop_is_caught(self):
        self.assertFalse(self.passes("while :; do :; done"))

    def test_the_case_that_failed_or_did_not_end_is_told(self):
        ran = "echo '[ RUN      ] A.a'; echo '[       OK ] A.a (0 ms)'; echo '[ RUN      ] B/0.b'; "
        self.assertEqual(self.failing(ran + "echo '[  FAILED  ] B/0.b (1 ms)'; exit 1"), "B/0.b")
        self.assertEqual(self.failing(ran + "kill -SEGV $$"), "B/0.b")
        self.assertEqual(self.failing("exit 1"), "")

    def test_only_the_named_cases_are_run(self):
        self.assertTrue(self.passes('[ "$GTEST_FILTER" = "*" ]'))
        self.assertIsNone(self.failing('[ "$GTEST_FILTER" = A.a:B.b ]', ["A.a", "B.b"]))

    def test_it_finds_the_library_of_its_job_and_leaves_its_files_there(self):
        self.assertTrue(self.passes(f'[ "$LD_LIBRARY_PATH" = {self.job} ] && [ "$TMPDIR" = {self.job}/tmp ]'))
        self.assertTrue(self.passes(f'[ "$(pwd)" = {self.job}/tmp ]'))


if __name__ == "__main__":
    unittest.main()
