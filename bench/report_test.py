"""The report takes the least times, keeps to its goals, and refuses what it cannot compare."""

import json
import unittest

import report
from rows import GROWTH, ROWS, Growth, Row


def run(name, ns, answer=1.0, kind="iteration"):
    return {"name": name, "run_type": kind, "cpu_time": ns, "answer": answer}


def results(*runs):
    return report.read(json.dumps({"benchmarks": runs}))


def everything():
    return {name: 1.0 for row in ROWS for one in (row.ours, row.peer)
            for name in report.names(one, row.sizes)} | {
            name: 0.0 for row in GROWTH for name in report.names(row.ours, row.sizes)}


class Report(unittest.TestCase):
    def test_least_time(self):
        times, _ = results(run("a", 3), run("a", 2), run("a", 5), run("a", 1, kind="aggregate"))
        self.assertEqual(times, {"a": 2})

    def test_values(self):
        times = {"a": 8.0, "b": 2.0, "a/10": 30.0, "b/10": 60.0, "a/100": 900.0, "b/100": 600.0}
        self.assertEqual(report.measured(Row("", "a", "b"), times), [4])
        self.assertEqual(report.measured(Row("", "a", "b", over=True), times), [6])
        self.assertEqual(report.measured(Row("", "a", "b", sizes=(10, 100)), times), [0.5, 1.5])
        self.assertEqual(report.growth(Growth("", "a", sizes=(10, 100)), times), [3])

    def test_worst_size_decides(self):
        self.assertEqual(report.line("w", (10, 100), [0.5, 1.5], 1.5),
                         "| w | 10, 100 | 0.5, 1.5 | <= 1.5 | yes |\n")
        self.assertTrue(report.line("w", (10, 100), [0.5, 1.501], 1.5).endswith("| no |\n"))
        self.assertTrue(report.line("w", (), [9], None).endswith("|  |  |\n"))

    def test_faults(self):
        answers = everything()
        self.assertEqual(report.check(answers), [])
        self.assertEqual(report.check(answers | {"empty7": 5.0}), [])
        self.assertEqual(report.check(answers | {"other": 1.0}), ["in no row: other"])
        self.assertEqual(report.check(answers | {"kezlni": 1.002}),
                         ["kezlni gives 1.002, cgal_line_line 1.0"])
        self.assertEqual(report.check(answers | {"kezord1/1000": 1.000001}),
                         ["kezord1/1000 gives 1.000001, spreadsort_integers/1000 1.0"])
        del answers["kezord_nan/10000"]
        self.assertEqual(report.check(answers), ["not run: kezord_nan/10000"])

    def test_plot_scale(self):
        times = {}
        for name in everything():
            of, _, n = name.partition("/")
            times[name] = (100.0 if of.startswith("kez") else 1000.0) * int(n or 1)
        picture = report.plot(times)
        rows = sum(len(row.sizes) or 1 for row in ROWS)
        self.assertEqual(picture.count('cx="470.0"'), rows)
        self.assertEqual(picture.count('cx="880.0"'), rows)


if __name__ == "__main__":
    unittest.main()
