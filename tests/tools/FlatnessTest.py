"""The rule by which a process counts as flat under load."""

import pytest

from lab.load import ALLOWED, Course, course, judge

FLAT = Course(100, 0, 0)
GROWTH, DRIFT = ALLOWED["heap"]


@pytest.mark.parametrize("samples, repetitions, found", [
    ([0, 50, 90] + [90] * 18, 1000, (90, 0, 0)),  # what happens in the first tenth does not count
    ([0, 50, 90] + [90] * 10 + [97] + [90] * 7, 1000, (90, 7, 0)),  # the largest later sample
    (list(range(21)), 1000, (2, 18, 12)),  # a slow leak drifts
    ([0, 0, 0] + [5, 0, 0] * 6, 1000, (0, 5, 0)),  # what is given back does not
    (list(range(21, 0, -1)), 1000, (19, -1, -12)),  # a falling count
    (list(range(10)) + [10] * 11, 20, (10, 0, 0)),  # of few repetitions the first ten do not count
    (list(range(10)) + [10] * 10 + [11], 20, (10, 1, 0))])
def test_course(samples, repetitions, found):
    assert course(samples, repetitions) == found


def test_too_few_repetitions_are_refused():
    with pytest.raises(ValueError):
        course(list(range(12)), 11)


@pytest.mark.parametrize("count", ALLOWED)
def test_more_than_allowed_is_found(count):
    growth, drift = ALLOWED[count]
    assert (growth, drift) == (0, 0) or count in ("heap", "private", "working-set")
    assert judge(count, Course(0, growth, drift), FLAT).held
    assert not judge(count, Course(0, growth + 1, 0), FLAT).held
    assert not judge(count, Course(0, 0, drift + 1), FLAT).held


@pytest.mark.parametrize("count, ours, bare, held", [
    ("handles", (18, 12), (18, 12), True), ("handles", (19, 12), (18, 12), False), ("handles", (18, 13), (18, 12), False),
    ("heap", (GROWTH + 1, 0), (1, 0), True),
    ("heap", (GROWTH + 1, 0), (-10, 0), False)])  # what bare calls give back excuses nothing
def test_bare_calls_excuse_what_they_lose_too(count, ours, bare, held):
    assert judge(count, Course(0, *ours), Course(0, *bare)).held == held
    assert not held or judge(count, Course(0, *ours), Course(0, *bare)).text == "grows as the bare calls do"
