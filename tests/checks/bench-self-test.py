"""Checks how scripts/bench judges: what the guard refuses, when a goal is met, and how a profile is read.

    bench-self-test.py ROOT
"""
import pathlib
import sys
import tempfile
import unittest

ROOT = pathlib.Path(sys.argv.pop(1))
sys.path.insert(0, str(ROOT / "scripts" / "lib"))
from bench import count, figures, flame, gaps, guard, jobs  # noqa: E402
from bench.profile import Profile  # noqa: E402


def judged(kept, now, name="parse/detail"):
    """What the guard says of one job, by instructions and allocations: whether it fails, and its text."""
    verdicts = guard.compare({name: count.Count(*kept)}, {name: count.Count(*now)}, {})
    return (verdicts[0].fails, verdicts[0].text) if verdicts else (False, "")


class Gaps(unittest.TestCase):
    def test_every_reason_is_one_of_a_job(self):
        asked = {(row.job, row.measure) for row in jobs.read()}
        self.assertEqual([key for key in gaps.read_reasons() if key not in asked], [])

    def test_a_goal_that_is_not_met_is_shown_with_its_reason_and_where_it_spends_more(self):
        row = next(row for row in jobs.read() if (row.job, row.measure) == ("parse/detail", "instructions"))
        results = {"counts": {"parse/detail": {"instructions": 150, "allocations": 1},
                              "floor/parse/detail": {"instructions": 100, "allocations": 1}},
                   "times": {}, "once": {},
                   "gaps": {"parse/detail": {"layers": {"ours": 45, "allocator": 5}, "functions": [["Read", 40]]}}}
        text = gaps.section(results, [row])
        self.assertIn("The library copies the body once", text)
        self.assertIn("| `parse/detail` | 5 | 45 | 0 | 0 | 0 | 0 |", text)
        self.assertIn("`Read` 40", text)

    def test_nothing_is_shown_when_all_goals_are_met(self):
        row = next(row for row in jobs.read() if (row.job, row.measure) == ("parse/detail", "instructions"))
        results = {"counts": {"parse/detail": {"instructions": 101, "allocations": 1},
                              "floor/parse/detail": {"instructions": 100, "allocations": 1}}, "times": {}, "once": {}}
        self.assertEqual(gaps.section(results, [row]), "")


class Distance(unittest.TestCase):
    def test_a_goal_that_is_farther_off_counts_more(self):
        rows = [("<=1.10", 220, 100, 2.0), (">=1.7", 85, 100, 2.0), ("<=+12", 124, 100, 2.0), ("<=1ms", 0.002, None, 2.0)]
        for text, value, floor, expected in rows:
            self.assertAlmostEqual(jobs.Goal(text).distance(value, floor), expected, msg=text)


class Guard(unittest.TestCase):
    def test_the_same_is_fine(self):
        self.assertEqual(judged((10000, 5), (10000, 5)), (False, ""))

    def test_two_percent_more_are_fine(self):
        self.assertEqual(judged((10000, 5), (10200, 5)), (False, ""))

    def test_a_little_more_than_two_percent_fails_and_says_by_how_much(self):
        self.assertEqual(judged((10000, 5), (10201, 5)),
                         (True, "parse/detail: 10,000 -> 10,201 instructions (+2.0 %)"))

    def test_a_job_of_few_instructions_may_shift_by_some(self):
        self.assertEqual(judged((6, 0), (30, 0)), (False, ""))
        self.assertEqual(judged((6, 0), (31, 0)), (True, "parse/detail: 6 -> 31 instructions (+416.7 %)"))

    def test_one_more_allocation_fails_even_when_instructions_do_not(self):
        self.assertEqual(judged((10000, 5), (10000, 6)),
                         (True, "parse/detail: 5.0 -> 6.0 allocations, 10,000 -> 10,000 instructions (+0.0 %)"))

    def test_fewer_allocations_are_fine(self):
        self.assertEqual(judged((10000, 5), (10000, 4)), (False, ""))

    def test_what_became_cheaper_is_told_and_does_not_fail(self):
        self.assertEqual(judged((10000, 5), (9799, 5)),
                         (False, "parse/detail: cheaper, 10,000 -> 9,799 instructions (-2.0 %)"))

    def test_a_floor_that_moved_is_told_and_does_not_fail(self):
        self.assertEqual(judged((10000, 5), (11000, 5), "floor/parse/detail"),
                         (False, "floor/parse/detail: 10,000 -> 11,000 instructions (+10.0 %)"))

    def test_what_its_floor_became_dearer_by_is_not_counted_against_a_job(self):
        kept = {"parse/detail": count.Count(10000, 5), "floor/parse/detail": count.Count(9000, 5)}
        floors = {"parse/detail": "floor/parse/detail"}
        for job, floor, fails in [((11000, 6), (10000, 6), False), ((11201, 6), (10000, 6), True),
                                  ((11000, 7), (10000, 6), True), ((10201, 5), (8000, 5), True)]:
            now = {"parse/detail": count.Count(*job), "floor/parse/detail": count.Count(*floor)}
            self.assertEqual(any(verdict.fails for verdict in guard.compare(kept, now, floors)), fails, (job, floor))

    def test_a_job_that_is_not_in_the_file_fails(self):
        verdicts = guard.compare({}, {"parse/new": count.Count(1, 1)}, {})
        self.assertEqual([(verdict.fails, verdict.text) for verdict in verdicts],
                         [(True, "parse/new: is not in the file")])

    def test_a_job_that_was_not_counted_fails(self):
        verdicts = guard.compare({"parse/old": count.Count(1, 1)}, {}, {})
        self.assertEqual([(verdict.fails, verdict.text) for verdict in verdicts],
                         [(True, "parse/old: is in the file and was not counted")])

    def test_the_file_is_read_as_it_was_written(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "guard.tsv"
            guard.write({"parse/detail": count.Count(12345.6, 7.25)}, path)
            self.assertEqual(guard.read(path), {"parse/detail": count.Count(12345.6, 7.25)})


class Goals(unittest.TestCase):
    ROWS = [  # goal, value, floor, whether it is met
        ("<=1.03", 103.0, 100.0, True),
        ("<=1.03", 103.1, 100.0, False),
        (">=1.7", 170.0, 100.0, True),
        (">=1.7", 169.9, 100.0, False),
        ("<=+12", 87.0, 75.0, True),
        ("<=+12", 88.0, 75.0, False),
        ("<=1ns", 1e-9, None, True),
        ("<=1ms", 1.1e-3, 1.0, False),
        ("<=1.03", None, 100.0, None),
        ("<=1.03", 103.0, None, None),
        ("told", 103.0, 100.0, None),
    ]

    def test_rows(self):
        for text, value, floor, expected in self.ROWS:
            with self.subTest(goal=text, value=value):
                self.assertIs(jobs.Goal(text).is_met(value, floor), expected)

    def test_they_are_shown_as_people_write_them(self):
        shown = [jobs.Goal(text).shown() for text in ("<=1.03", ">=1.7", "<=+12", "<=+0", "<=1ns", "told")]
        self.assertEqual(shown, ["≤ 1.03", "≥ 1.7", "≤ floor + 12", "≤ floor", "≤ 1 ns", ""])

    def test_every_row_of_the_table_is_complete(self):
        rows = jobs.read()
        self.assertGreater(len(rows), 50)
        for row in rows:
            with self.subTest(job=row.job, measure=row.measure):
                self.assertIn(row.measure, figures.WORDS)
                self.assertTrue(row.title)
                self.assertTrue(row.goal.text == "told" or row.goal.shown())


PROFILE = """# callgrind format
positions: line
events: Ir
ob=(1) /build/vantix_bench
fl=(1) A.cpp
fn=(1) vantix::Outer(int)'main
10 5
cob=(2) /lib/libc.so.6
cfn=(2) malloc'vantix::Outer(int)'main
calls=3 0
10 60
ob=(2)
fn=(2)
0 50
cfn=(3) _int_malloc'malloc'vantix::Outer(int)'main
calls=3 0
0 10
fn=(3)
+2 10
fn=(1)
* 7
"""


class Profiles(unittest.TestCase):
    def test_own_cost_by_stack_without_that_of_callees(self):
        self.assertEqual(Profile(PROFILE).costs, {
            ("vantix::Outer(int)", "main"): 12,
            ("malloc", "vantix::Outer(int)", "main"): 50,
            ("_int_malloc", "malloc", "vantix::Outer(int)", "main"): 10,
        })

    def test_calls_of_the_allocator(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "profile"
            path.write_text(PROFILE)
            self.assertEqual(count.allocations_in(path), 3)

    def test_stacks_begin_behind_the_harness(self):
        stack = ("malloc", "vantix::Outer(int)", "vantix::bench::Body()", "main")
        self.assertEqual(flame.frames_of(stack, {"malloc": "libc.so.6", "vantix::Outer(int)": "vantix_bench"}),
                         [("Outer", "ours"), ("malloc", "allocator")])

    def test_what_hardly_counts_is_added_to_its_caller(self):
        costs = {(("A", "ours"),): 500, (("A", "ours"), ("B", "ours")): 499, (("A", "ours"), ("C", "ours")): 1}
        self.assertEqual(flame.pruned(costs), {(("A", "ours"),): 501, (("A", "ours"), ("B", "ours")): 499})

    def test_names_are_short(self):
        names = [
            ("vantix::(anonymous namespace)::Serve(vantix::DevDetailInfo const&, int) [clone .isra.0]", "Serve"),
            ("std::__cxx11::basic_string<char, std::allocator<char> >::push_back(char)",
             "std::basic_string::push_back"),
            ("int vantix::Read<vantix::json::View>(vantix::CallSite const&)", "Read"),
            ("operator new(unsigned long)", "operator new"),
            ("pthread_mutex_lock@@GLIBC_2.2.5", "pthread_mutex_lock"),
            ("0x0000000000047d60", "(inside libcurl)"),
        ]
        for name, expected in names:
            with self.subTest(name=name):
                self.assertEqual(flame.shortened(name, "/usr/lib/libcurl.so.4.8.0"), expected)

    def test_layers(self):
        rows = [("malloc", "libc.so.6", "allocator"), ("operator new(unsigned long)", "libstdc++.so.6", "allocator"),
                ("json11::Json::parse(int)", "vantix_bench", "JSON library"),
                ("curl_easy_perform", "libcurl.so.4.8.0", "libcurl"), ("EVP_Digest", "libcrypto.so.3", "TLS library"),
                ("strlen", "libc.so.6", "C and C++ libraries")]
        for name, obj, expected in rows:
            with self.subTest(name=name):
                self.assertEqual(flame.layer_of(name, obj), expected)


class Figures(unittest.TestCase):
    def test_times_are_shown_in_their_unit(self):
        self.assertEqual([figures.seconds(value) for value in (3.1e-10, 1.5e-6, 0.0123, 2.0, 1234e-6)],
                         ["0.31 ns", "1.5 µs", "12.3 ms", "2 s", "1.23 ms"])

    def test_a_goal_for_a_difference_is_compared_by_one(self):
        row = jobs.Row("request", "a", "b", "allocations", jobs.Goal("<=+12"), True, "A")
        self.assertEqual(figures.Outcome(row, 108.0, 77.0).compared(), "+31")

    def test_ratios_near_one_have_more_digits(self):
        row = jobs.Row("request", "a", "b", "instructions", jobs.Goal("<=1.001"), True, "A")
        self.assertEqual(figures.Outcome(row, 100.26, 100.0).compared(), "1.0026")
        self.assertEqual(figures.Outcome(row, 126.0, 100.0).compared(), "1.26")


if __name__ == "__main__":
    unittest.main()
