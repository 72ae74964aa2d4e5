"""clang-tidy over what is shipped: every portable source as the native build compiles it, and the rest as the Windows
build does. Test programs are left to compilers and sanitizers: their macros hide more than the checks could find.

Sources are checked in groups that compile as one (see together.py), because most of the time goes into the headers of the
standard library and the system. A group that was found clean is not looked at again until a file in it, a header or the
settings change.
"""

import hashlib
import json
import subprocess
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from garmtools.places import BUILD, WINDOWS_PRESET
from garmtools.processes import allowed_cpus, limited
from sources import ROOT, SHIPPED, text, tracked
from together import flags, grouped

NATIVE_PRESET = "native-asan"
CROSS_COMPILER = "x86_64-w64-mingw32-g++-posix"
# GCC has warnings that clang does not know by name, its -Wconversion leaves out changes of sign, and it has looked for
# shadows in every file by itself: here the headers of a neighbour would count, too.
QUIET = ("-Wno-unknown-warning-option", "-Wno-sign-conversion", "-Wno-shadow")


def compiled(preset):
    """The flags of each shipped source in a preset's compile commands, by path relative to the root."""
    commands = json.loads((BUILD / preset / "compile_commands.json").read_text())
    found = {Path(command["file"]): flags(command) for command in commands}
    return {path.relative_to(ROOT): its_flags for path, its_flags in found.items()
            if path.is_relative_to(ROOT) and path.relative_to(ROOT).parts[0] in SHIPPED}


def nearest_settings(path):
    """The folder whose settings hold for a source."""
    return next(folder for folder in path.parents if (ROOT / folder / ".clang-tidy").exists())


def windows_flags():
    """clang takes the target from us and the C++ library from the compiler that builds with it."""
    folder = subprocess.run([CROSS_COMPILER, "-print-file-name=include/c++"], capture_output=True, text=True,
                            check=True).stdout.strip()
    return ("--target=x86_64-w64-mingw32", f"-isystem{folder}", f"-isystem{folder}/x86_64-w64-mingw32")


class ClangTidyTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        """What every file depends on: all headers, the settings, the tool."""
        version = subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True).stdout
        state = hashlib.sha256(version)
        for path in tracked():
            if (path.suffix == ".h" and path.parts[0] in SHIPPED) or path.name == ".clang-tidy":
                state.update(str(path).encode() + b"\0" + (ROOT / path).read_bytes())
        cls.state = state.digest()
        cls.clean = BUILD / "clang-tidy"
        cls.clean.mkdir(parents=True, exist_ok=True)
        # clang-tidy takes the settings from the folder of the file that it is given, and the ones above it.
        for path in tracked():
            if path.name == ".clang-tidy" and path.parts[0] in SHIPPED:
                (cls.clean / path).parent.mkdir(parents=True, exist_ok=True)
                (cls.clean / path).write_bytes((ROOT / path).read_bytes())

    def complaints(self, folder, its_flags, paths):
        """What clang-tidy has to say about files compiled as one; empty when they are clean."""
        key = hashlib.sha256(self.state + repr((folder, its_flags)).encode())
        for path in paths:
            key.update(f"\0{path}\0".encode() + (ROOT / path).read_bytes())
        mark = self.clean / key.hexdigest()
        if mark.exists():
            return ""
        # One's own name: the groups are checked side by side. Sources are not meant to be included, except here.
        unit = self.clean / folder / f"{key.hexdigest()}.cpp"
        unit.write_text("".join(f'#include "{ROOT / path}" // NOLINT\n' for path in paths))
        done = subprocess.run(limited(300, ["clang-tidy", "--quiet", str(unit), "--", *its_flags, *QUIET]),
                              cwd=ROOT, stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
        unit.unlink()
        if done.returncode == 0:
            mark.touch()
            return ""
        if len(paths) > 1 and "clang-diagnostic-error" in done.stdout:
            # They do not go together after all, or one of them does not compile. Each for itself tells.
            return "".join(self.complaints(folder, its_flags, [path]) for path in paths)
        names = ", ".join(map(str, paths))
        return f"{names}: status {done.returncode}\n{done.stdout}{done.stderr if not done.stdout else ''}"

    def check_all(self, sources, more_flags=()):
        self.assertTrue(sources, "nothing is compiled")
        groups = grouped((path, (nearest_settings(path), *its_flags, *more_flags), text(path))
                         for path, its_flags in sources.items())
        # The largest first, so that no processor ends long before the others.
        groups.sort(key=lambda group: len(group.paths), reverse=True)
        with ThreadPoolExecutor(len(allowed_cpus())) as pool:
            texts = list(pool.map(lambda group: self.complaints(group.kind[0], group.kind[1:], group.paths), groups))
        found = [complaint for complaint in texts if complaint]
        self.assertEqual(len(found), 0, "\n" + "\n".join(found))

    def test_portable_sources(self):
        self.check_all(compiled(NATIVE_PRESET))

    def test_windows_sources(self):
        portable = compiled(NATIVE_PRESET)
        windows = {path: its for path, its in compiled(WINDOWS_PRESET).items() if path not in portable}
        self.check_all(windows, windows_flags())


if __name__ == "__main__":
    unittest.main()
