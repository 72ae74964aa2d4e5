"""What the kill campaign makes of what it finds."""

import pytest

from lab.kills import AFTER, BEFORE, BETWEEN, EMPTY, PARTLY, Progress, judge, read_check, read_progress

SAVING = Progress(finished={"b.pc3": 6}, started=("a.pc3", 7))


@pytest.mark.parametrize("text, finished, started, done, complaint", [
    ("start 1 a.pc3\ndone 1\nstart 2 b.pc3\ndone 2\nstart 3 a.pc3\n", {"a.pc3": 1, "b.pc3": 2}, ("a.pc3", 3), 2, ""),
    ("start 12 a.pc3\ndone 1", {}, ("a.pc3", 12), 0, ""),  # a line without its end does not count
    ("start 1 a.pc3\nfailed 1 no room\n", {}, ("a.pc3", 1), 0, "failed 1 no room")])
def test_progress(text, finished, started, done, complaint):
    assert read_progress(text) == Progress(finished, started, done, complaint)


def test_damaged_file_has_no_number():
    assert read_check(["a.pc3 5", "b.pc3 damaged", "ended with status 3"])["b.pc3"] is None


@pytest.mark.parametrize("progress, before, found, problems", [
    (SAVING, {"a.pc3": 3}, {"a.pc3": 3, "b.pc3": 6}, 0),
    (SAVING, {"a.pc3": 3}, {"a.pc3": 7, "b.pc3": 6}, 0),
    (SAVING, {}, {"b.pc3": 6}, 0),
    (SAVING, {"a.pc3": 3}, {"a.pc3": None, "b.pc3": 6}, 1),  # damaged
    (SAVING, {"a.pc3": 3}, {"b.pc3": 6}, 1),  # missing
    (SAVING, {"a.pc3": 3}, {"a.pc3": 2, "b.pc3": 6}, 1),  # older than old
    (SAVING, {"a.pc3": 3}, {"a.pc3": 3}, 1),  # a finished one is missing
    (SAVING, {"a.pc3": 3}, {"a.pc3": 3, "b.pc3": 5}, 1),  # a finished one is old again
    (SAVING, {"a.pc3": 3}, {"a.pc3": 3, "b.pc3": 6, "c.pc3": 1}, 1),  # never written
    (Progress(), {"c.pc3": 1}, {"c.pc3": 1}, 0),
    (Progress(), {"c.pc3": 1}, {}, 1),
    (Progress(complaint="failed"), {}, {}, 1)])
def test_files_that_are_right(progress, before, found, problems):
    assert len(judge(progress, before, found, {})[1]) == problems


@pytest.mark.parametrize("progress, number, temporary, moment", [
    (Progress(), 3, {}, BETWEEN), (SAVING, 3, {}, BEFORE), (SAVING, 3, {"t": 0}, EMPTY), (SAVING, 3, {"t": 1}, PARTLY),
    (SAVING, 7, {}, AFTER)])
def test_moment(progress, number, temporary, moment):
    assert judge(progress, {}, {"a.pc3": number, "b.pc3": 6}, temporary)[0] == moment
