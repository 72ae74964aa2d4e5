"""Checks the module on one print queue after the other: the work behind tools/driver-campaign.

    python3 -m garmtools.drivercampaign FOLDER SHARE OF SECONDS    (one of several that work side by side)

Queues are made in batches, each on a CUPS and a Wine prefix of its own, and every queue is checked by a process of its
own: what a driver is given becomes its default for the rest of a process, and a crash counts against that queue only.
What came out is kept in the folder, one file per queue, so that a campaign that was ended goes on where it stopped.
"""

import contextlib
import hashlib
import json
import os
import re
import sys
import tempfile
import time
from pathlib import Path

from . import privatecups, wineprefix
from .places import WINDOWS_BIN, windows_path
from .ppds import Archive, Model
from .queues import DRIVERS
from .processes import TIMED_OUT, allowed_cpus, end_server, run_main, say, start_server, wait_until

CHECKER = WINDOWS_BIN / "driver_check.exe"
MODULE = WINDOWS_BIN / "GarmPC3Editor.grx"
BATCH = 48
CHOSEN = "chosen.json"  # the models to be checked, in the folder
# Of the calls behind a failure; the others of one queue mostly tell the same again.
KEPT_FAILURES = 4


def fingerprint():
    """What the results are of: they are found out again when the module or the checks change."""
    digest = hashlib.sha256()
    for path in (MODULE, WINDOWS_BIN / "GarmHost.dll", CHECKER):
        digest.update(path.read_bytes())
    return digest.hexdigest()[:16]


def queue_names(models):
    """A name for each model's queue: its file's name as far as CUPS allows it; Windows knows no case."""
    names = []
    for model in models:
        plain = re.sub(r"[^A-Za-z0-9_.-]+", "_", Path(model.path).stem)
        name, number = plain, 1
        while name.lower() in (other.lower() for other in names):
            number += 1
            name = f"{plain}-{number}"
        names.append(name)
    return names


def summarize(output, status, errors, seconds):
    """One queue's result out of what the checker printed. {"checks": {name: {"held", "failed", "rules": {rule: count}}},
    "facts": {name: [values]}, "failures": [the first few, with their calls], "failed": all of them}"""
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
            check = checks.setdefault(entry["check"], {"held": 0, "failed": 0, "rules": {}})
            check["held" if entry["held"] else "failed"] += 1
            if "rule" in entry:
                check["rules"][entry["rule"]] = check["rules"].get(entry["rule"], 0) + 1
            if not entry["held"]:
                failures.append({name: entry[name] for name in ("check", "why", "calls")})
    process = checks.setdefault("process", {"held": 0, "failed": 0, "rules": {}})
    if status == 0 and step == "end":
        process["held"] += 1
    else:
        why = f"no end within {seconds} s" if status == TIMED_OUT else f"ended with status {status}"
        process["failed"] += 1
        failures.insert(0, {"check": "process", "why": f"{why} in step {step}", "calls": [],
                            "errors": errors.splitlines()[-5:]})
    return {"checks": checks, "facts": facts, "failures": failures[:KEPT_FAILURES], "failed": len(failures)}


def refused(why):
    """The result of a PPD of which CUPS makes no queue."""
    call = {"call": "lpadmin", "given": None, "answered": why}
    return {"checks": {"queue": {"held": 0, "failed": 1, "rules": {}}}, "facts": {}, "failed": 1,
            "failures": [{"check": "queue", "why": "no queue can be made", "calls": [call]}]}


class Results:
    """The results in a folder: one file per PPD."""

    def __init__(self, folder, build):
        self.folder = Path(folder)
        self._build = build

    def get(self, model):
        """The result, or None when there is none of this build."""
        with contextlib.suppress(OSError, ValueError):
            kept = json.loads(self._file(model).read_text(encoding="utf-8"))
            if kept["build"] == self._build:
                return kept["result"]
        return None

    def put(self, model, result):
        target = self._file(model)
        target.parent.mkdir(parents=True, exist_ok=True)
        # Whole or not at all: a campaign may be ended at any moment.
        making = target.with_suffix(f".{os.getpid()}")
        making.write_text(json.dumps({"model": model, "build": self._build, "result": result}, indent=1, sort_keys=True),
                          encoding="utf-8")
        making.rename(target)

    def _file(self, model):
        return self.folder / "results" / f"{re.sub('[^A-Za-z0-9_.-]', '_', model.path)}.json"


def catalogue(folder, program=DRIVERS):
    """The PostScript models, kept in the folder: finding them means reading the package's whole archive."""
    kept = Path(folder) / f"models-{hashlib.sha256(Path(program).read_bytes()).hexdigest()[:12]}.json"
    with contextlib.suppress(OSError, ValueError, TypeError):
        return models_in(kept)
    models = Archive(program).postscript()
    keep_models(models, kept)
    return models


def models_in(file):
    """Models that were kept; their sizes became lists meanwhile."""
    return [Model(*fields, largest=tuple(largest)) for *fields, largest in json.loads(file.read_text(encoding="utf-8"))]


def keep_models(models, file):
    file.parent.mkdir(parents=True, exist_ok=True)
    making = file.with_suffix(f".{os.getpid()}")
    making.write_text(json.dumps(models, indent=0), encoding="utf-8")
    making.rename(file)


class Batch:
    """Queues of some models on a CUPS of their own, seen by a Wine prefix of its own. A context manager."""

    def __init__(self, models, cpu):
        self.models = models
        self.names = queue_names(models)
        self.refused = {}  # model: why CUPS does not take its PPD
        self.seconds_to_load = 0.0  # until the first program knew the queues
        self._cpu = cpu
        self._stack = contextlib.ExitStack()

    def __enter__(self):
        with contextlib.ExitStack() as stack:
            self.folder = Path(stack.enter_context(tempfile.TemporaryDirectory(prefix="garm-campaign-")))
            self.cups = stack.enter_context(privatecups.private_cups(queues=()))
            Archive().extract(self.models, self.folder)
            for at, (model, name) in enumerate(zip(self.models, self.names)):
                try:
                    self.cups.add(name, self.folder / f"{at}.ppd")
                except RuntimeError as error:
                    # The first line has the command, which differs from run to run.
                    told = [line for line in str(error).splitlines()[1:] if line.startswith("lpadmin: ")]
                    self.refused[model] = " ".join(told) or "no reason given"
            self.prefix = stack.enter_context(wineprefix.clone(cpu=self._cpu, cups=self.cups.socket))
            stack.callback(end_server, self._hold_spooler())
            self._stack = stack.pop_all()
        return self

    def __exit__(self, *error):
        return self._stack.__exit__(*error)

    def check(self, model, seconds):
        """The model's result."""
        if model in self.refused:
            return refused(self.refused[model])
        name = self.names[self.models.index(model)]
        done = self.prefix.run([CHECKER, "check", windows_path(MODULE), windows_path(self.folder), name], seconds=seconds)
        result = summarize(done.stdout, done.returncode, done.stderr, seconds)
        result["checks"]["queue"] = {"held": 1, "failed": 0, "rules": {}}
        return result

    def _hold_spooler(self):
        """Every program would read all queues anew if no other one had the spooler loaded."""
        log = self.folder / "holder.log"
        began = time.monotonic()
        holder = start_server(self.prefix.command([CHECKER, "hold"]), log, self.prefix.env)
        if not wait_until(lambda: holder.poll() is not None or "held" in log.read_text(errors="replace"), 300):
            raise RuntimeError("the spooler does not come up in the prefix:\n" + log.read_text(errors="replace"))
        self.seconds_to_load = time.monotonic() - began
        return holder


def work(models, folder, share, of, seconds):
    """Checks every of-th batch of the models, beginning with number share, as far as there are no results yet."""
    results = Results(folder, fingerprint())
    for first in range(BATCH * share, len(models), BATCH * of):
        batch = models[first:first + BATCH]
        left = [model for model in batch if results.get(model) is None]
        if not left:
            continue
        cpus = allowed_cpus()
        with Batch(batch, cpus[share % len(cpus)]) as queues:
            for model in left:
                results.put(model, queues.check(model, seconds))
        say(f"{min(first + BATCH, len(models))} of {len(models)}: up to {batch[-1].name}")


def main(folder, share, of, seconds):
    work(models_in(Path(folder) / CHOSEN), folder, share, of, seconds)
    return 0


if __name__ == "__main__":
    run_main(main, sys.argv[1], int(sys.argv[2]), int(sys.argv[3]), int(sys.argv[4]))
