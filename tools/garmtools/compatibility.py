"""docs/compatibility.md: what held with which printer driver, out of a campaign's results (drivercampaign.py).

The page depends on the results alone: no date, no time, one order.
"""

import re
from collections import Counter, defaultdict

# Check: what was asked. In the page's order.
CHECKS = {
    "queue": "CUPS makes a queue of the PPD",
    "process": "the process with the module and the driver ends as it should, the module unloaded",
    "create": "`GmPlotCfg3::create` makes a configuration",
    "write": "it is written",
    "read": "it is read, bound to the same printer, and written again byte for byte",
    "toDevMode": "`toDevMode` gives a block of the driver's sizes",
    "driver": "`DocumentPropertiesW` takes that block, in and out, and answers what it was told",
    "take back": "`updateFromDevMode` takes the answer over, and again",
    "again": "the second time nothing changes (after every takeover: the first, each paper's, each orientation's)",
    "papers": "the driver lists papers",
    "paper in a file": "a listed paper, chosen by name in a configuration as it is read, is answered with its code",
    "paper": "one chosen by name after a takeover is answered with its code, taken back, and still answered so",
    "paper name": "the configuration then has the paper's name",
    "paper size": "and the size and margins of its device context, which are those of the driver's list",
    "orientation": "landscape and then portrait are answered, taken back, and turn width and length",
    "custom": "the driver's private bytes are kept byte for byte: written, read, in the block, and from the answer",
}

# Results that would be wrong without a rule that hosts build on. Rule: why.
RULES = {
    "no margins": "The device has no margin on the left or at the bottom of the paper. Bounds with a margin of 0 count as "
                  "unknown, so every takeover computes them again and reports a change. Mostly it is some papers only.",
    "one margin": "In one orientation a margin is 0, in the other none. Unknown bounds are computed for the new orientation "
                  "and then turned with it, so width and length stand exchanged until the next paper is taken over.",
    "name listed twice": "The driver lists two papers of this name; only the first can be chosen by name.",
    "code listed twice": "The driver lists two papers of this code; the code means the first of them.",
    "name longer than a form name": "The paper has a code of the driver's own (256 and more) and a name that a DEVMODE "
                                    "cannot hold, so it comes back as `User` and its code.",
    "driver lists another size": "The driver's list gives another size than its device context; the configuration has "
                                 "the device context's.",
}

LARGE_FORMAT = 594  # A1

INTRODUCTION = """# Compatibility

What held with which printer driver. Each model is a print queue made of its PPD, with the PostScript driver that Wine
makes of it, and is checked by a program that uses the module's exported classes like a host. What must hold is computed
from the driver's own lists and answers; what a rule explains must happen exactly where the rule says so. The page is
written by

    tools/driver-campaign

on {packages}, from all PostScript PPDs of that package:
{ppds} PPDs of {models} models, with {papers} papers. {wide} of the models are large-format plotters, which have a paper
that is at least {wide_from} mm wide.
"""


def totals(entries):
    """{check: Counter of "held", "rule", "failed"} over all results."""
    counts = {name: Counter() for name in CHECKS}
    for _, result in entries:
        for name, check in result["checks"].items():
            by_rule = sum(check["rules"].values())
            counts.setdefault(name, Counter()).update(held=check["held"] - by_rule, rule=by_rule, failed=check["failed"])
    return counts


def rules_of(result):
    return sorted({rule for check in result["checks"].values() for rule in check["rules"]})


def causes_of(result):
    """What failed: (check, why) without what differs from paper to paper."""
    return sorted({(failure["check"], cause_of(failure)) for failure in result["failures"]})


def cause_of(failure):
    """A failure's reason without the papers and numbers in it, so that the same reason of two queues is one."""
    if failure["check"] == "process":
        return failure["why"]
    return re.sub(r"\d+(\.\d+)?", "N", re.sub(r"'.*?'( \(\d+\))?", "...", failure["why"]))


def rows(entries):
    """{maker: [(model, number of PPDs, papers, largest paper, result)]}, sorted. PPDs of one model (its languages) are
    one row."""
    grouped = defaultdict(list)
    for model, result in entries:
        grouped[(model.maker, model.name)].append((model, result))
    makers = defaultdict(list)
    for (maker, name), cases in grouped.items():
        results = [result for _, result in cases]
        papers = sorted({count for result in results for count in result["facts"].get("papers", [0])} or {0})
        width, length = max((model.largest for model, _ in cases), key=lambda size: size[0] * size[1])
        makers[maker].append((name, len(results), _range(papers), f"{width} x {length}", _verdict(results)))
    return {maker: sorted(makers[maker], key=lambda row: (row[0].lower(), row)) for maker in sorted(makers, key=str.lower)}


def page(entries, packages):
    """The whole page, of [(Model, result)]."""
    entries = sorted(entries, key=lambda entry: entry[0])
    models = len({(model.maker, model.name) for model, _ in entries})
    papers = sum(sum(result["facts"].get("papers", [0])) for _, result in entries)
    wide = len({(model.maker, model.name) for model, _ in entries if min(model.largest) >= LARGE_FORMAT})
    parts = [INTRODUCTION.format(packages=packages, ppds=len(entries), models=models, papers=papers, wide=wide,
                                 wide_from=LARGE_FORMAT),
             *_summary(entries), *_failures(entries), *_rules(entries), *_models(entries)]
    return "\n".join(parts)


def _count(number, what):
    return f"{number} {what}" if number == 1 else f"{number} {what}s"


def _range(numbers):
    return str(numbers[0]) if numbers[0] == numbers[-1] else f"{numbers[0]} to {numbers[-1]}"


def _verdict(results):
    failed = sorted({check for result in results for check, count in result["checks"].items() if count["failed"]})
    rules = Counter()
    for result in results:
        for check in result["checks"].values():
            rules.update(check["rules"])
    words = [f"**{check} failed**" for check in failed] + [f"{rule} ({rules[rule]})" for rule in sorted(rules)]
    return ", ".join(words) or "held"


def _cell(text):
    return str(text).replace("\\", "\\\\").replace("|", "\\|").replace("<", "\\<")


def _table(heads, lines):
    return ["| " + " | ".join(heads) + " |", "|" + "---|" * len(heads),
            *("| " + " | ".join(map(_cell, line)) + " |" for line in lines), ""]


def _summary(entries):
    untouched = sum(1 for _, result in entries if not result["failed"] and not rules_of(result))
    by_rule = sum(1 for _, result in entries if not result["failed"] and rules_of(result))
    failed = sum(1 for _, result in entries if result["failed"])
    yield "## Summary\n"
    yield (f"Everything held with {untouched} PPDs; with {by_rule} more everything held with what a rule explains; with "
           f"{failed} something did not hold.\n")
    lines = [(check, CHECKS.get(check, ""), count["held"], count["rule"], count["failed"])
             for check, count in totals(entries).items()]
    yield from _table(("Check", "What was asked", "Held", "By a rule", "Failed"), lines)


def _failures(entries):
    found = defaultdict(list)
    for model, result in entries:
        for failure in result["failures"]:
            found[(failure["check"], cause_of(failure))].append((model, failure))
    yield "## What did not hold\n"
    if not found:
        yield "Nothing.\n"
    for (check, cause), cases in sorted(found.items()):
        names = sorted({model.name for model, _ in cases})
        model, failure = cases[0]
        yield f"### {check}: {cause}\n"
        yield f"{_count(len(names), 'model')}: {', '.join(map(_cell, names[:10]))}{' and others' if len(names) > 10 else ''}.\n"
        yield f"With {_cell(model.name)}: {_cell(failure['why'])}. The calls, the last of them decided:\n"
        yield "```"
        for call in failure["calls"]:
            yield f"{call['call']}({_flat(call['given'])}) -> {_flat(call['answered'])}"
        yield from failure.get("errors", [])
        yield "```\n"


def _flat(value):
    if isinstance(value, dict):
        return ", ".join(f"{name} {_flat(item)}" for name, item in value.items())
    return "" if value is None else str(value)


def _rules(entries):
    yield "## What rules explain\n"
    lines = []
    for rule, why in RULES.items():
        having = [(model, result) for model, result in entries if rule in rules_of(result)]
        if having:
            facts = next((result["facts"][rule][0] for _, result in having if result["facts"].get(rule)), "")
            models = len({(model.maker, model.name) for model, _ in having})
            lines.append((rule, why + (f" For example {facts}." if facts else ""), models, len(having)))
    yield from _table(("Rule", "Why", "Models", "PPDs"), lines)


def _models(entries):
    yield "## Models\n"
    yield ("*held*: every check held. A rule named instead: held as well, with what that rule explains, and in brackets "
           "how often. The largest paper is what the PPD names, in millimetres.\n")
    for maker, lines in rows(entries).items():
        yield f"### {maker}\n"
        yield from _table(("Model", "PPDs", "Papers", "Largest", "Result"), lines)
