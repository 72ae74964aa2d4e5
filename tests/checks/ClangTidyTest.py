"""clang-tidy over what is shipped: every portable source as the native build compiles it, and the rest as the Windows
build does. Test programs are left to compilers and sanitizers: their macros hide more than the checks could find.

A file that was found clean is not looked at again until it, a header or the settings change.
"""

import hashlib
import json
import subprocess
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from garmtools.places import BUILD, WINDOWS_PRESET
from garmtools.processes import allowed_cpus, limited
from sources import ROOT, code

NATIVE_PRESET = "native-asan"
SHIPPED = ("GarmPC3Editor", "pia_tree", "platform", "apps")
CROSS_COMPILER = "x86_64-w64-mingw32-g++-posix"


def sources(preset):
    """The shipped sources in a preset's compile commands."""
    commands = json.loads((BUILD / preset / "compile_commands.json").read_text())
    paths = {Path(command["file"]) for command in commands}
    return {path.relative_to(ROOT) for path in paths
            if path.is_relative_to(ROOT) and path.relative_to(ROOT).parts[0] in SHIPPED}


def windows_arguments():
    """clang takes the target from us and the C++ library from the compiler that builds with it."""
    folder = subprocess.run([CROSS_COMPILER, "-print-file-name=include/c++"], capture_output=True, text=True,
                            check=True).stdout.strip()
    return ["--extra-arg-before=--target=x86_64-w64-mingw32", f"--extra-arg=-isystem{folder}",
            f"--extra-arg=-isystem{folder}/x86_64-w64-mingw32"]


class ClangTidyTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        """What every file depends on: all headers, the settings, the tool."""
        version = subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True).stdout
        state = hashlib.sha256(version + (ROOT / ".clang-tidy").read_bytes())
        for path in code():
            if path.suffix == ".h" and path.parts[0] in SHIPPED:
                state.update(str(path).encode() + b"\0" + (ROOT / path).read_bytes())
        cls.state = state.digest()
        cls.clean = BUILD / "clang-tidy"
        cls.clean.mkdir(parents=True, exist_ok=True)

    def complaints(self, preset, path, arguments):
        """What clang-tidy has to say about one file; empty when it is clean."""
        content = (ROOT / path).read_bytes()
        key = hashlib.sha256(self.state + f"{preset} {path} {arguments}\0".encode() + content).hexdigest()
        mark = self.clean / key
        if mark.exists():
            return ""
        # GCC has warnings that clang does not know by name, and its -Wconversion leaves out changes of sign.
        done = subprocess.run(limited(300, ["clang-tidy", "--quiet", "-p", str(BUILD / preset),
                                            "--extra-arg=-Wno-unknown-warning-option",
                                            "--extra-arg=-Wno-sign-conversion", *arguments, str(ROOT / path)]),
                              cwd=ROOT, stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
        if done.returncode == 0:
            mark.touch()
            return ""
        return f"{path}: status {done.returncode}\n{done.stdout}{done.stderr if not done.stdout else ''}"

    def check_all(self, preset, paths, arguments=()):
        self.assertTrue(paths, f"{preset} compiles nothing")
        with ThreadPoolExecutor(len(allowed_cpus())) as pool:
            texts = list(pool.map(lambda path: self.complaints(preset, path, arguments), sorted(paths)))
        found = [text for text in texts if text]
        self.assertEqual(len(found), 0, "\n" + "\n".join(found))

    def test_portable_sources(self):
        self.check_all(NATIVE_PRESET, sources(NATIVE_PRESET))

    def test_windows_sources(self):
        self.check_all(WINDOWS_PRESET, sources(WINDOWS_PRESET) - sources(NATIVE_PRESET), windows_arguments())


if __name__ == "__main__":
    unittest.main()
