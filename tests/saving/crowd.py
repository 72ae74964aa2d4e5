"""Many writers and readers of one file."""

import os
import subprocess
import tempfile
from pathlib import Path

from garmtools.processes import limited

# Writers, and readers, in each of two worlds that know nothing of each other's processes.
EACH = 2
# The long form: GARM_SAVES=250 makes it 1,000 saves.
SAVES = int(os.environ.get("GARM_SAVES", "15"))


class Crowd:
    """What the tests of both kinds of program check; worlds are two writers with the words before their commands."""

    def check_crowd(self, worlds):
        with tempfile.TemporaryDirectory(prefix="garm-crowd-") as place:
            folder, stop = Path(place, "files"), Path(place, "stop")
            folder.mkdir()
            file = folder / "A4.pc3"
            told = []

            def start(world, *arguments):
                words, writer = world
                told.append(open(Path(place, f"told{len(told)}"), "w+b"))  # closed in wait()
                return subprocess.Popen(limited(300, [*words, *writer.command(*arguments)]), env=writer.env,
                                        stdin=subprocess.DEVNULL, stdout=told[-1], stderr=subprocess.STDOUT)

            def wait(children, outputs):
                answers = []
                for child, output in zip(children, outputs, strict=True):
                    child.wait()
                    output.seek(0)
                    answers.append(output.read().decode(errors="replace").replace("\r\n", "\n"))
                    output.close()
                return answers

            _, writer = worlds[0]
            first = start(worlds[0], "write", writer.path(file), 2, 1)
            self.assertEqual(wait([first], [told.pop()]), ["1, 0 refused\n"])
            readers = [start(world, "read", world[1].path(file), world[1].path(stop))
                       for world in worlds for _ in range(EACH)]
            writers = [start(world, "write", world[1].path(file), 2 + 1000 * number, SAVES)
                       for world in worlds for number in range(EACH)]
            self.assertEqual(wait(writers, told[len(readers):]), [f"{SAVES}, 0 refused\n"] * len(writers))
            stop.touch()
            for answer in wait(readers, told[:len(readers)]):
                self.assertRegex(answer, "^[1-9][0-9]*, 0 refused\n$")
            self.assertEqual(os.listdir(folder), ["A4.pc3"])
