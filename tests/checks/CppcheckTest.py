"""cppcheck over what is shipped: every portable source as the native build compiles it, and the rest for Windows. What it
says wrongly in one place is answered there, with the reason."""

import json
import subprocess
import unittest
from pathlib import Path

from garmtools.places import BUILD, WINDOWS_PRESET
from garmtools.processes import allowed_cpus, limited
from sources import ROOT, SHIPPED

NATIVE_PRESET = "native-asan"
COMMON = ["--enable=warning,performance,portability,style", "--inline-suppr", "--std=c++20", "--language=c++", "--quiet",
          "--error-exitcode=1", "--template={file}:{line}: {id}: {message}", "-I", ".", "-I", "platform", "-I", "apps"]
NATIVE = ["-I", "platform/win32/native"]
WINDOWS = ["-I", "platform/win32/windows", "--platform=win64", "--library=windows", "-D_WIN32", "-D_WIN64", "-DUNICODE"]
# What is not looked for, and why.
OFF = {
    "constParameter": "it does not see what is changed through a pointer, or goes out by reference",
    "constVariable": "the same; moving from a variable is no change to it, either",
    "noExplicitConstructor": "the classes of the host's kits convert as their users expect",
    "shadowFunction": "a result named like the function that gave it is no mistake; -Wshadow knows the shadows that are",
    "unreadVariable": "it means objects that are there for what their destructors do, too",
    "unusedStructMember": "records have the members that the system gives them",
    "useStlAlgorithm": "a short loop often says more",
}


def compiled(preset):
    """The shipped sources in a preset's compile commands, relative to the root."""
    files = {Path(command["file"]) for command in json.loads((BUILD / preset / "compile_commands.json").read_text())}
    return {str(path.relative_to(ROOT)) for path in files
            if path.is_relative_to(ROOT) and path.relative_to(ROOT).parts[0] in SHIPPED}


class CppcheckTest(unittest.TestCase):
    def check_all(self, name, paths, words):
        self.assertTrue(paths, "nothing is compiled")
        # What it found out about a file is kept here until the file or a header of it changes.
        kept = BUILD / "cppcheck" / name
        kept.mkdir(parents=True, exist_ok=True)
        listed = kept / "files.txt"
        listed.write_text("\n".join(sorted(paths)))
        done = subprocess.run(limited(600, ["cppcheck", *COMMON, *words, *(f"--suppress={check}" for check in OFF),
                                            f"-j{len(allowed_cpus())}", f"--cppcheck-build-dir={kept}",
                                            f"--file-list={listed}"]),
                              cwd=ROOT, stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
        self.assertEqual((done.returncode, done.stderr), (0, ""), "\n" + done.stdout + done.stderr)

    def test_portable_sources(self):
        self.check_all("native", compiled(NATIVE_PRESET), NATIVE)

    def test_windows_sources(self):
        self.check_all("windows", compiled(WINDOWS_PRESET) - compiled(NATIVE_PRESET), WINDOWS)


if __name__ == "__main__":
    unittest.main()
