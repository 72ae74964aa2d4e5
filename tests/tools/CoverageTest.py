"""The figures of tools/coverage, from exports in the form that llvm-cov writes."""

import tempfile
import unittest
from collections import defaultdict
from pathlib import Path

from garmtools import coverage, coveragereport
from garmtools.coverage import File, Share

ROOT = Path("/source")


class CoverageTest(unittest.TestCase):
    def test_a_line_counts_once_however_many_programs_contain_it(self):
        files = defaultdict(File)
        lcov = "SF:/source/pia_tree/A.cpp\nDA:3,0\nDA:4,0\nend_of_record\nSF:/source/pia_tree/A.cpp\nDA:3,2\nDA:4,0\n"
        coverage.read_lines(lcov, files, ROOT)
        self.assertEqual(files["pia_tree/A.cpp"].lines, {3: 2, 4: 0})
        self.assertEqual(coverage.lines_of(files["pia_tree/A.cpp"]), Share(1, 2))

    def test_only_shipped_portable_files_count(self):
        files = defaultdict(File)
        names = ("/usr/include/c++/12/vector", "/source/tests/unit/pia/ATest.cpp",
                 "/source/platform/win32/room/PrinterRoom.cpp", "/source/platform/win32/Handles.h")
        coverage.read_lines("".join(f"SF:{name}\nDA:1,1\nend_of_record\n" for name in names), files, ROOT)
        coverage.read_branches({"data": [{"files": [{"filename": name, "branches": []} for name in names]}]}, files, ROOT)
        self.assertEqual(list(files), ["platform/win32/Handles.h"])

    def test_each_way_of_a_decision_counts_and_instances_add_up(self):
        files = defaultdict(File)
        first, second = [7, 9, 7, 15, 5, 0, 0, 0, 4], [7, 9, 7, 15, 0, 2, 0, 0, 4]
        other = [8, 3, 8, 9, 1, 0, 0, 0, 4]
        export = {"data": [{"files": [{"filename": "/source/apps/plothost/A.h", "branches": [first, second, other]}]}]}
        coverage.read_branches(export, files, ROOT)
        file = files["apps/plothost/A.h"]
        self.assertEqual(file.branches, {(7, 9, True): 5, (7, 9, False): 2, (8, 3, True): 1, (8, 3, False): 0})
        self.assertEqual(file.missed_branches(), [(8, 3, False)])
        self.assertEqual(coverage.branches_of(file), Share(3, 4))

    def test_what_the_compiler_runs_or_writes_is_left_out(self):
        source = ["consteval int twice(int x)", "{", "  if (x) { return 0; }", "  return 2 * x;", "}",
                  "bool operator==(A, A) = default;", "int g() { return f() ? 1 : 2; }"]
        file = File({line: 0 for line in range(1, 8)}, {(3, 7, True): 0, (6, 1, False): 0, (7, 18, False): 0})
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "A.h").write_text("\n".join(source), encoding="utf-8")
            coverage.leave_out_compiled({"A.h": file}, Path(folder))
        self.assertEqual(sorted(file.lines), [6, 7])
        self.assertEqual(list(file.branches), [(7, 18, False)])

    def test_shares_are_cut_so_that_100_means_all(self):
        self.assertEqual(Share(99999, 100000).percent(), 99.9)
        self.assertEqual(Share(3, 3).percent(), 100.0)
        self.assertEqual(Share().percent(), 100.0)
        self.assertEqual(str(Share()), "none")
        self.assertEqual(str(Share(2, 3)), "2/3 = 66.6 %")

    def test_areas_are_summed(self):
        files = {"GarmPC3Editor/A.cpp": File({1: 1}), "GarmPC3Editor/Commands/native/B.cpp": File({1: 0, 2: 1}),
                 "platform/win32/C.h": File({1: 1}, {(1, 1, True): 0}), "pia_tree/native/D.cpp": File()}
        rows = coverage.summary(files)
        self.assertEqual([row[0] for row in rows],
                         ["GarmPC3Editor", "GarmPC3Editor/Commands", "pia_tree", "platform/win32", "total"])
        self.assertEqual(rows[-1], ("total", 4, Share(3, 4), Share(0, 1)))

    def test_the_document_names_what_is_not_covered_whole(self):
        files = {"pia_tree/A.cpp": File({1: 1}, {(1, 1, True): 1}), "pia_tree/B.cpp": File({1: 1}, {(1, 1, True): 0})}
        text = coverage.document(files)
        self.assertIn("| pia_tree | 2 | 2/2 = 100.0 % | 1/2 = 50.0 % |", text)
        self.assertIn("| pia_tree/B.cpp | 1/1 = 100.0 % | 0/1 = 0.0 % |", text)
        self.assertNotIn("A.cpp", text)

    def test_what_is_missed_is_shown_with_its_source(self):
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "A.cpp").write_text("void f()\n  if (x)\n", encoding="utf-8")
            text = coverage.missed({"A.cpp": File({1: 1, 2: 0, 3: 0, 5: 0}, {(2, 7, True): 0})}, Path(folder))
        self.assertEqual(text, "A.cpp: lines 2-3, 5\nA.cpp:2:7: never true: if (x)")

    def test_only_the_marked_place_of_the_document_changes(self):
        before = f"a\n{coverage.BEGIN}\nold\n{coverage.END}\nb\n"
        self.assertEqual(coverage.replace_between(before, r"new \1"),
                         f"a\n{coverage.BEGIN}\n\nnew \\1\n\n{coverage.END}\nb\n")
        self.assertRaises(ValueError, coverage.replace_between, "no place", "new")

    def test_a_single_file_below_the_least_share_is_reported(self):
        many = File({line: 1 for line in range(1000)})
        low = File({line: int(line < 89) for line in range(100)})
        self.assertEqual(coveragereport.too_low({"a": many}), [])
        self.assertEqual(coveragereport.too_low({"a": many, "b": low}), ["b: only 89/100 = 89.0 % of the lines ran"])
        self.assertEqual(len(coveragereport.too_low({"b": low})), 2)


if __name__ == "__main__":
    unittest.main()
