"""The matrix of lost print servers covers every step, and its judge is not easily content."""

import pytest

import lab.faults as faults
from lab.faults import BUILT_IN, NOT_OPENED, PARTIAL, UNDISTURBED, Outcome, Step
from lab.faults.__main__ import judge, table

UNCERTAIN = (UNDISTURBED, BUILT_IN, PARTIAL, NOT_OPENED)
ASK, WAIT, LATER, LAST = Step("ask", asks=True), Step("wait", waits=True), Step("later"), Step("last")
STEPS = [ASK, WAIT, LATER, LAST]
GONE, BACK = "kill for good", "kill, and start before the next step"
FROZEN, THAWED = "freeze for good", "freeze, and go on before the next step"


def cells(fault, steps=STEPS):
    return [cell for cell in faults.cells(steps) if cell.fault == fault]


@pytest.mark.parametrize("fault, steps, where", [
    *((fault, STEPS, [0, 1, 2, 3]) for fault in (GONE, "stop for good", "remove the queue", BACK)),
    # Nothing waits for a driver that waits for a frozen server.
    (THAWED, STEPS, [0, 2, 3]), (FROZEN, STEPS, [2, 3]), (FROZEN, [Step("first"), *STEPS], [3, 4])])
def test_fault_comes_before_each_step(fault, steps, where):
    assert [cell.step for cell in cells(fault, steps)] == where


@pytest.mark.parametrize("fault, steps, expected", [
    (GONE, STEPS, [(BUILT_IN,), UNCERTAIN, (UNDISTURBED,), (UNDISTURBED,)]),
    (GONE, [Step("first"), *STEPS], [(BUILT_IN,), (BUILT_IN,), UNCERTAIN, (UNDISTURBED,), (UNDISTURBED,)]),
    (BACK, [Step("first"), *STEPS], [(UNDISTURBED,), UNCERTAIN, UNCERTAIN, (UNDISTURBED,), (UNDISTURBED,)])])
def test_outcome_depends_on_what_the_driver_asked(fault, steps, expected):
    assert [cell.expected for cell in cells(fault, steps)] == expected


def test_server_comes_back_before_the_next_step():
    assert [cell.actions for cell in cells("stop, and start before the next step")] == [
        {i: "stop", i + 1: "start"} for i in range(4)]
    assert faults.at_every_step(STEPS, "kill", "start") == {2: ("start", "kill"), 3: ("start", "kill"), 4: "start"}


def test_deletions_cover_all_places_but_one():
    places = list(faults.deletions())
    opened = faults.TWIN_SESSION.index("dialog")
    assert [index for index, _ in places] == [i for i in range(1, faults.TWIN_SESSION.index("get-devmode x.pc3") + 1)
                                              if i != opened]
    kinds = [kind for _, kind in places]
    assert kinds == sorted(kinds, key=[faults.REBOUND, faults.NO_DRIVER, faults.SETTINGS_TAKEN, faults.RESET].index)
    assert len(set(kinds)) == 4
    for index, _ in places:
        lines = [step.line for step in faults.with_deletion(index)]
        assert (lines.count(faults.DELETE), lines.index(faults.DELETE)) == (1, index)


def test_deleted_printer_has_no_dialog():
    pressed = faults.TWIN_SESSION.index(faults.DRIVER_DIALOG[0])
    for at, there in ((pressed, False), (pressed + 1, True)):
        assert (faults.DRIVER_DIALOG[2] in [step.line for step in faults.with_deletion(at)]) == there


def test_table_adds_up():
    plays = [("first", "kill", UNDISTURBED, ""), ("second", "kill", UNDISTURBED, ""), ("second", "kill", BUILT_IN, "why"),
             ("first", "stop", UNDISTURBED, "")]
    assert list(table(plays))[1:] == [("kill", 2, UNDISTURBED, 2, 0), ("kill", 2, BUILT_IN, 1, 1),
                                      ("stop", 1, UNDISTURBED, 1, 0)]


NEW, OLD = {"x.pc3": b"new"}, {"x.pc3": b"old"}
REFERENCES = {UNDISTURBED: Outcome("said", NEW), BUILT_IN: Outcome("other", {"x.pc3": b"A4"})}


@pytest.mark.parametrize("said, files, expected, name, right", [
    ("said", NEW, (UNDISTURBED,), UNDISTURBED, True),
    ("said", {"x.pc3": b"ne"}, UNCERTAIN, "something else", False),
    ("sai", NEW, UNCERTAIN, "something else", False),
    ("said", {**NEW, "left.tmp": b""}, UNCERTAIN, "something else", False),
    ("said", {}, UNCERTAIN, "something else", False),
    ("other", {"x.pc3": b"A4"}, (UNDISTURBED,), BUILT_IN, False),
    ("outputs: none\nmore", OLD, UNCERTAIN, NOT_OPENED, True),
    ("outputs: none\n", OLD, (UNDISTURBED,), NOT_OPENED, False),
    ("title: x", OLD, UNCERTAIN, "something else", False),
    ("outputs: none\n", {"x.pc3": b"ol"}, UNCERTAIN, "something else", False),
    ("outputs: none\n", {**OLD, "copy.pc3": b""}, UNCERTAIN, "something else", False)])
def test_judge(said, files, expected, name, right):
    assert judge(Outcome(said, files), REFERENCES, expected, b"old") == (name, right)


def test_either_of_two_equal_references_is_right():
    same = dict.fromkeys((UNDISTURBED, BUILT_IN), Outcome("said", {}))
    assert judge(Outcome("said", {}), same, (BUILT_IN,)) == (BUILT_IN, True)
