"""House rules that a machine can see."""

import re
import unittest

from sources import SHIPPED, code, text, tracked

LONGEST = 600


def lines_matching(pattern, paths):
    expression = re.compile(pattern)
    return [f"{path}:{number}: {line.strip()}" for path in paths
            for number, line in enumerate(text(path).splitlines(), 1) if expression.search(line)]


class HouseRulesTest(unittest.TestCase):
    def none(self, found):
        assert found == [], "\n" + "\n".join(found)

    def test_no_test_is_switched_off(self):
        self.none(lines_matching(r"\bDISABLED_|\bGTEST_SKIP\b", code()))

    def test_nothing_is_left_for_later(self):
        self.none(lines_matching(r"\b(TODO|FIXME|XXX)\b", code()))

    def test_no_test_waits_for_time(self):
        tests = [path for path in code() if path.parts[0] == "tests"]
        self.none(lines_matching(r"\b(Sleep|sleep|usleep|sleep_for|sleep_until)\s*\(", tests))

    def test_files_stay_small(self):
        self.none([f"{path}: {len(text(path).splitlines())} lines" for path in code()
                   if len(text(path).splitlines()) > LONGEST])

    def test_functions_do_not_choose_the_platform(self):
        """The platform is chosen by which file is linked. Headers that name types and macros once may ask."""
        allowed = ("platform/kernel/OdChar.h", "platform/kernel/OdExport.h", "GarmPC3Editor/Export.h")
        portable = [path for path in code() if path.suffix == ".cpp" and path.as_posix() not in allowed]
        self.none(lines_matching(r"^\s*#\s*(if|ifdef|ifndef|elif)\b.*\b(_WIN32|WIN32|__linux__|_WIN64)\b", portable))

    def test_paths_are_not_the_standard_librarys(self):
        """std::filesystem turns the share of a network path into a folder of the current drive, and the runtime's own
        calls do not know long paths. host/FullPath.h and host/FileChecks.h ask the system."""
        shipped = [path for path in code() if path.parts[0] in SHIPPED]
        self.none(lines_matching(r"std::filesystem|<filesystem>|\b_w(stat|access|fullpath|findfirst|fopen)", shipped))

    def test_namespace_aliases_are_used(self):
        """clang-tidy would see it, but looks for them only in files that it is given one by one."""
        alias = re.compile(r"^namespace (\w+) =", re.MULTILINE)
        self.none([f"{path}: {name}" for path in code() if path.suffix == ".cpp"
                   for name in alias.findall(text(path)) if f"{name}::" not in text(path)])

    def test_headers_are_guarded(self):
        self.none([str(path) for path in code() if path.suffix == ".h" and "#pragma once" not in text(path)])

    def test_every_drawing_has_its_picture(self):
        """What tools/render-pictures makes is kept."""
        for folder, suffix in (("icons", ".ico"), ("bitmaps", ".bmp")):
            drawn = {path.stem for path in tracked() if path.parent.name == folder and path.suffix == ".svg"}
            kept = {path.stem for path in tracked() if path.parent.name == folder and path.suffix == suffix}
            assert drawn
            assert drawn == kept

    def test_scripts_have_no_path_of_one_machine(self):
        scripts = [path for path in tracked() if path.suffix in (".py", ".sh", ".cmake", ".json", ".md", ".txt")
                   or path.name in ("run", "test", "wine-run")]
        self.none(lines_matching(r"/(root|home/[a-z]|work)/", [p for p in scripts if p.parts[:2] != ("tests", "checks")]))
