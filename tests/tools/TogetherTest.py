"""Which sources clang-tidy may be shown as one."""

import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "checks"))
from together import MOST, flags, grouped, private_names  # noqa: E402


def unnamed(body):
    return f"namespace\n{{\n{body}}} // namespace\n"


class TogetherTest(unittest.TestCase):
    def test_private_names_are_found(self):
        source = unnamed("class Report\n{\n    int inside() { return 1; }\n};\n"
                         "constexpr int most = 3;\nvoid runCheck(void* context) noexcept\n{\n}\n"
                         "std::map<A, B> table{1};\nusing Keys = int;\nenum class Kind\n{\n};\n")
        source += "#define KEY(x) x\nstatic int count = 0;\nint shared() { return 0; }\n"
        self.assertEqual(private_names(source), {"Report", "most", "runCheck", "table", "Keys", "Kind", "KEY", "count"})

    def test_files_with_one_private_name_stay_apart(self):
        files = [("a", ("-g",), unnamed("int twice();\n")), ("b", ("-g",), unnamed("int twice();\n")),
                 ("c", ("-g",), unnamed("int thrice();\n"))]
        self.assertEqual([group.paths for group in grouped(files)], [["a", "c"], ["b"]])

    def test_files_of_different_kinds_stay_apart(self):
        self.assertEqual([group.paths for group in grouped([("a", ("-g",), ""), ("b", (), "")])], [["a"], ["b"]])

    def test_groups_are_limited_and_lose_no_file(self):
        files = [(f"{number:03}", (), "") for number in range(MOST + 3)]
        groups = grouped(files)
        self.assertEqual([len(group.paths) for group in groups], [MOST, 3])
        self.assertEqual(sorted(path for group in groups for path in group.paths), [path for path, _, _ in files])

    def test_flags_are_what_files_share(self):
        command = {"command": "ccache /usr/bin/c++ -DX=\\\"1\\\" -I/a -isystem /b -O2 -MD -MT a.o -MF a.d -o a.o -c /s/a.cpp"}
        self.assertEqual(flags(command), ('-DX="1"', "-I/a", "-isystem", "/b", "-O2"))


if __name__ == "__main__":
    unittest.main()
