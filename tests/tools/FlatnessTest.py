"""The rule by which a process counts as flat under load."""

import unittest

from garmtools.flatness import ALLOWED, Course, course, judge

FLAT = Course(100, 0, 0)


class CourseTest(unittest.TestCase):
    def test_what_happens_in_the_first_tenth_does_not_count(self):
        self.assertEqual(course([0, 50, 90] + [90] * 18, 1000), Course(90, 0, 0))

    def test_growth_is_the_largest_later_sample(self):
        self.assertEqual(course([0, 50, 90] + [90] * 10 + [97] + [90] * 7, 1000).growth, 7)

    def test_a_slow_leak_drifts(self):
        self.assertEqual(course(list(range(21)), 1000), Course(2, 18, 12))

    def test_what_is_given_back_grows_but_does_not_drift(self):
        self.assertEqual(course([0, 0, 0] + [5, 0, 0] * 6, 1000), Course(0, 5, 0))

    def test_a_falling_count_does_not_grow(self):
        found = course(list(range(21, 0, -1)), 1000)
        self.assertLess(found.growth, 0)
        self.assertLess(found.drift, 0)

    def test_of_few_repetitions_the_first_ten_do_not_count(self):
        self.assertEqual(course(list(range(10)) + [10] * 11, 20), Course(10, 0, 0))
        self.assertEqual(course(list(range(10)) + [10] * 10 + [11], 20).growth, 1)

    def test_too_few_repetitions_are_refused(self):
        with self.assertRaises(ValueError):
            course(list(range(12)), 11)


class JudgeTest(unittest.TestCase):
    def test_the_slightest_leak_of_a_handle_or_object_is_found(self):
        for count in ("handles", "views", "gdi", "user", "threads"):
            with self.subTest(count):
                self.assertTrue(judge(count, FLAT, FLAT).held)
                self.assertFalse(judge(count, Course(100, 1, 0), FLAT).held)
                self.assertFalse(judge(count, Course(100, 0, 1), FLAT).held)

    def test_memory_may_grow_by_what_is_allowed_and_no_more(self):
        for count in ("heap", "private", "working-set"):
            with self.subTest(count):
                growth, drift = ALLOWED[count]
                self.assertTrue(judge(count, Course(0, growth, drift), FLAT).held)
                self.assertFalse(judge(count, Course(0, growth + 1, 0), FLAT).held)
                self.assertFalse(judge(count, Course(0, 0, drift + 1), FLAT).held)

    def test_what_the_bare_calls_lose_too_is_not_the_modules(self):
        held = judge("handles", Course(0, 18, 12), Course(0, 18, 12))
        self.assertEqual((held.held, held.text), (True, "grows as the bare calls do"))
        self.assertFalse(judge("handles", Course(0, 19, 12), Course(0, 18, 12)).held)
        self.assertFalse(judge("handles", Course(0, 18, 13), Course(0, 18, 12)).held)

    def test_bare_calls_that_give_something_back_excuse_nothing(self):
        more = ALLOWED["heap"].growth + 1
        self.assertTrue(judge("heap", Course(0, more, 0), Course(0, 1, 0)).held)
        self.assertFalse(judge("heap", Course(0, more, 0), Course(0, -10, 0)).held)


if __name__ == "__main__":
    unittest.main()
