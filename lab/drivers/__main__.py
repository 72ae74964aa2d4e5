"""Checks the module with a print queue for each PostScript PPD of the package openprinting-ppds.

    lab/run drivers [--jobs N] [--only TEXT]...

An interrupted campaign continues where it stopped (build/drivers.jsonl), unless the module or the checks have changed.
With --only, for PPDs with the text in their path or name, nothing is kept and failures are printed.
"""

import argparse
import csv
import hashlib
import json
import multiprocessing
from collections import Counter, defaultdict
from pathlib import Path

from garmtools import processes, queues, wineprefix
from garmtools.places import BUILD, WINDOWS_BIN

from . import CHECKER, MODULE, Batch, Model, catalogue, is_postscript, largest_paper

HERE = Path(__file__).parent
KEPT = BUILD / "drivers.jsonl"
BATCH, SECONDS = 48, 60  # queues at once; for each of them
# What drivers do that hosts build on, and what the results call it; see docs/compatibility.md.
RULES = {"no margins": "no_margins", "one margin": "one_margin", "name longer than a form name": "name_too_long"}


def fingerprint():
    """What the results are of: they are found out again when the module or the checks change."""
    files = (MODULE, WINDOWS_BIN / "GarmHost.dll", CHECKER)
    return hashlib.sha256(b"".join(path.read_bytes() for path in files)).hexdigest()[:16]


def check_batch(models):
    """[(model, largest paper, result)] of those with a PostScript printer, the others without a result."""
    ppds = {model: queues.unpacked(model.path) for model in models}
    wanted = {model: ppd for model, ppd in ppds.items() if is_postscript(ppd)}
    cpus = processes.allowed_cpus()
    worker = (multiprocessing.current_process()._identity or (0,))[0]
    with Batch(wanted, cpus[worker % len(cpus)]) as batch:
        return [(model, largest_paper(ppd), batch.check(model, SECONDS) if model in wanted else None)
                for model, ppd in ppds.items()]


def kept(build):
    if not KEPT.exists():
        return []
    lines = [json.loads(line) for line in KEPT.read_text(encoding="utf-8").splitlines()]
    return [(Model(*model), largest, result) for its_build, model, largest, result in lines if its_build == build]


def run(models, jobs, keep):
    build = fingerprint()
    done = kept(build) if keep else []
    known = {model for model, *_ in done}
    left = [model for model in models if model not in known]
    wineprefix.make_template()  # once, not by each of the workers
    with multiprocessing.Pool(jobs) as pool, open(KEPT if keep else "/dev/null", "a", encoding="utf-8") as sink:
        for found in pool.imap_unordered(check_batch, [left[at:at + BATCH] for at in range(0, len(left), BATCH)]):
            done += found
            sink.writelines(json.dumps([build, *entry]) + "\n" for entry in found)
            sink.flush()
            processes.say(f"{len(done)} of {len(models)}")
    return [entry for entry in done if entry[2] is not None]


def model_rows(entries):
    """A row for each model; PPDs of one model, its languages, are one."""
    models = defaultdict(list)
    for model, largest, result in entries:
        models[model.maker, model.name].append((largest, result))
    for (maker, name), cases in sorted(models.items(), key=lambda item: (item[0][0].lower(), item[0][1].lower())):
        papers = [papers for _, result in cases for papers in result["facts"].get("papers", [0])]
        width, length = max((largest for largest, _ in cases), key=lambda size: size[0] * size[1])
        rules = Counter()
        for _, result in cases:
            for check in result["checks"].values():
                rules.update(check["rules"])
        yield (maker, name, len(cases), min(papers), max(papers), width, length,
               sum(result["failed"] for _, result in cases), *(rules[rule] for rule in RULES))


def check_rows(entries, questions):
    """A row for each check, in the order of the questions."""
    for check, question in questions.items():
        held = [result["checks"].get(check, {"held": 0, "failed": 0, "rules": {}}) for *_, result in entries]
        explained = sum(sum(one["rules"].values()) for one in held)
        yield (check, question, sum(one["held"] for one in held) - explained, explained, sum(one["failed"] for one in held))


def rule_rows(entries):
    for rule in RULES:
        models = [model for model, _, result in entries if any(rule in check["rules"] for check in result["checks"].values())]
        yield rule, len({(model.maker, model.name) for model in models}), len(models)


def write(name, head, rows):
    with open(HERE / name, "w", encoding="utf-8", newline="") as sink:
        csv.writer(sink, delimiter="\t", lineterminator="\n").writerows([head, *rows])


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--jobs", type=int, default=len(processes.allowed_cpus()))
    parser.add_argument("--only", action="append", metavar="TEXT")
    options = parser.parse_args()
    models = [model for model in catalogue() if not options.only or any(
        text.lower() in f"{model.path} {model.name}".lower() for text in options.only)]
    entries = run(models, options.jobs, keep=not options.only)
    for model, _, result in entries:
        for failure in result["failures"]:
            print(f"{model.path}: {failure['check']}: {failure['why']}\n{json.dumps(failure['calls'], indent=1)}")
    if not options.only:
        with open(HERE / "checks.tsv", encoding="utf-8", newline="") as rows:
            questions = {row["check"]: row["question"] for row in csv.DictReader(rows, delimiter="\t")}
        write("results.tsv", ("maker", "model", "ppds", "fewest_papers", "most_papers", "largest_paper_width_mm",
                              "largest_paper_length_mm", "failed", *RULES.values()), model_rows(entries))
        write("checks.tsv", ("check", "question", "held", "explained", "failed"), check_rows(entries, questions))
        write("rules.tsv", ("rule", "models", "ppds"), rule_rows(entries))
    failed = sum(1 for *_, result in entries if result["failed"])
    print(f"{len(entries)} PPDs checked, something failed with {failed}")
    return 1 if failed else 0


if __name__ == "__main__":
    processes.run_main(main)
