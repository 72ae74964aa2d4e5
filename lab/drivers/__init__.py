"""The module with real printer drivers: a queue for each PostScript PPD of the package openprinting-ppds.

Queues are created in batches, each with its own CUPS and Wine prefix, and each queue is checked in its own process: a
device mode passed to a driver becomes its default for the rest of the process, and a crash affects that queue only.
"""

import contextlib
import json
import re
import shlex
import subprocess
import tempfile
from pathlib import Path
from typing import NamedTuple

from garmtools import privatecups, queues, wineprefix
from garmtools.places import WINDOWS_BIN, windows_path
from garmtools.processes import TIMED_OUT, allowed_cpus, end_server, start_server, wait_until

CHECKER = WINDOWS_BIN / "driver_check.exe"
MODULE = WINDOWS_BIN / "GarmPC3Editor.grx"
KEPT_FAILURES = 4  # with the calls that led there; more failures of one queue are mostly the same


class Model(NamedTuple):
    """One PPD: where it is in the package, and the printer it is for."""

    path: str  # without the package's prefix: "HP/HP_DesignJet_3500CP_PS3.ppd"
    maker: str = ""
    name: str = ""


def described(line):
    """The model in a line of the package's list."""
    uri, _, maker, name = shlex.split(line)[:4]
    # Some names repeat the maker, some leave it out; blanks come doubled; the package's own mark may be cut off.
    name = re.sub(r" \(recommended\)?$", "", " ".join(name.split()))
    if not name.lower().startswith(maker.lower()):
        name = f"{maker} {name}"
    return Model(uri.split("/ppd/openprinting/", 1)[-1], maker, name)


def catalogue():
    """The models of the package, each PPD once."""
    listed = subprocess.run([queues.DRIVERS, "list"], capture_output=True, text=True, check=True).stdout
    return list({model.path: model for model in reversed(list(map(described, listed.splitlines())))}.values())[::-1]


def is_postscript(ppd):
    """Whether the printer itself understands PostScript, according to its PPD (bytes). The system's drivers produce
    PostScript for every PPD, but for a printer with another language a filter would have to translate it."""
    filters = [words.split() for words in re.findall(rb'^\*cupsFilter2?:\s*"([^"]*)"', ppd, re.MULTILINE)]
    formats = {words[0] for words in filters if words}
    if b"application/vnd.cups-raster" in formats:
        return False
    if b"application/vnd.cups-pdf" in formats and b"application/vnd.cups-postscript" not in formats:
        return False
    # Printers of other languages get their jobs from Ghostscript; for a PostScript one the line only adds a header.
    renderer = re.search(rb'^\*FoomaticRIPCommandLine:\s*"([^"]*)"', ppd, re.MULTILINE)
    return not (renderer and re.search(rb"\bgs\b", renderer.group(1)))


def largest_paper(ppd):
    """Width and length in millimetres of the largest paper that a PPD (bytes) names."""
    sizes = re.findall(rb'^\*PaperDimension\s[^"]*"\s*([0-9.]+)\s+([0-9.]+)\s*"', ppd, re.MULTILINE)
    points = max(((float(width), float(length)) for width, length in sizes), key=lambda size: size[0] * size[1],
                 default=(0, 0))
    return tuple(round(length * 25.4 / 72) for length in points)


def queue_names(models):
    """A name for each model's queue: its file's name as far as CUPS allows it; Windows knows no case."""
    names = []
    for model in models:
        plain = re.sub(r"[^A-Za-z0-9_.-]+", "_", Path(model.path).stem)
        same = sum(re.fullmatch(rf"{re.escape(plain)}(-\d+)?", name, re.IGNORECASE) is not None for name in names)
        names.append(f"{plain}-{same + 1}" if same else plain)
    return names


def count(held=0, failed=0):
    return {"held": held, "failed": failed, "rules": {}}


def summarize(output, status, errors, seconds):
    """One queue's result out of what the checker printed: {"checks": {name: {"held", "failed", "rules": {rule: count}}},
    "facts": {name: [values]}, "failures": [the first few, with their calls], "failed": all of them}."""
    checks, facts, failures, step = {}, {}, [], "start"
    for line in output.splitlines():
        try:
            entry = json.loads(line)
        except ValueError:
            failures.append({"check": step, "why": f"printed {line!r}", "calls": []})
            continue
        if "step" in entry:
            step = entry["step"]
        elif "fact" in entry:
            facts.setdefault(entry["fact"], []).append(entry["value"])
        else:
            check = checks.setdefault(entry["check"], count())
            check["held" if entry["held"] else "failed"] += 1
            if "rule" in entry:
                check["rules"][entry["rule"]] = check["rules"].get(entry["rule"], 0) + 1
            if not entry["held"]:
                failures.append({name: entry[name] for name in ("check", "why", "calls")})
    if status == 0 and step == "end":
        checks["process"] = count(held=1)
    else:
        why = f"no end within {seconds} s" if status == TIMED_OUT else f"ended with status {status}"
        checks["process"] = count(failed=1)
        failures.insert(0, {"check": "process", "why": f"{why} in step {step}", "calls": [],
                            "errors": errors.splitlines()[-5:]})
    return {"checks": checks, "facts": facts, "failures": failures[:KEPT_FAILURES], "failed": len(failures)}


def rules_of(result):
    return sorted({rule for check in result["checks"].values() for rule in check["rules"]})


class Batch:
    """Queues for some models, given with their PPDs, on their own CUPS and Wine prefix."""

    def __init__(self, ppds, cpu=None):
        self._ppds = ppds
        self._names = dict(zip(ppds, queue_names(ppds)))
        self._refused = {}  # model: why CUPS does not take its PPD
        self._cpu = cpu

    def __enter__(self):
        with contextlib.ExitStack() as stack:
            self.folder = Path(stack.enter_context(tempfile.TemporaryDirectory(prefix="garm-drivers-")))
            cups = stack.enter_context(privatecups.private_cups(queues=()))
            for model, name in self._names.items():
                (self.folder / "ppd").write_bytes(self._ppds[model])
                try:
                    cups.add(name, self.folder / "ppd")
                except RuntimeError as error:
                    self._refused[model] = str(error)
            self.prefix = stack.enter_context(wineprefix.clone(cpu=self._cpu or allowed_cpus()[-1], cups=cups.socket))
            # If no other program had the spooler loaded, each one would read all queues again.
            log = self.folder / "holder.log"
            holder = start_server(self.prefix.command([CHECKER, "hold"]), log, self.prefix.env)
            stack.callback(end_server, holder)
            if not wait_until(lambda: holder.poll() is not None or "held" in log.read_text(errors="replace"), 300):
                raise RuntimeError("the spooler does not come up in the prefix:\n" + log.read_text(errors="replace"))
            self._stack = stack.pop_all()
        return self

    def __exit__(self, *error):
        return self._stack.__exit__(*error)

    def check(self, model, seconds):
        """The model's result."""
        if model in self._refused:
            failure = {"check": "queue", "why": self._refused[model], "calls": []}
            return {"checks": {"queue": count(failed=1)}, "facts": {}, "failures": [failure], "failed": 1}
        result = self.check_name(self._names[model], seconds)
        result["checks"]["queue"] = count(held=1)
        return result

    def check_name(self, name, seconds):
        done = self.prefix.run([CHECKER, "check", windows_path(MODULE), windows_path(self.folder), name], seconds=seconds)
        return summarize(done.stdout, done.returncode, done.stderr, seconds)
