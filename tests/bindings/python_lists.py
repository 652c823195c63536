"""Ctrl-C in a callback, outputs that hold pairs, outlines without the closing entry, and which
library is loaded.

    python_lists.py numpy|plain      plain: as where numpy is not installed
"""

import math
import os
import pathlib
import random
import re
import resource
import signal
import subprocess
import sys
import tempfile
import unittest
from array import array
from unittest import mock

if sys.argv.pop(1) == "plain":
    sys.modules["numpy"] = None
import kezlib  # noqa: E402
from kezlib import _arrays  # noqa: E402

INTERRUPTS = int(os.environ.get("KEZLIB_INTERRUPTS", 300))


class Interrupts(unittest.TestCase):
    def test_each_is_raised_or_the_result_is_right(self):
        def stop(*_):
            raise KeyboardInterrupt

        zeros, raised, near = [0] * 100, 0, 0
        call = (0, 0, 0, 1, 0, 0, zeros, zeros, lambda i: 0.5, len(zeros), 0.25)
        kezlib.kezpnl(*call)  # numpy is imported
        before = signal.signal(signal.SIGALRM, stop)
        while raised < INTERRUPTS and not near:
            try:
                signal.setitimer(signal.ITIMER_REAL, random.uniform(1e-6, 2e-4))
                near = kezlib.kezpnl(*call).count  # a point is near if the answer gets lost
                signal.setitimer(signal.ITIMER_REAL, 0)
            except KeyboardInterrupt:
                raised += 1
        signal.signal(signal.SIGALRM, before)
        self.assertEqual(near, 0)

    def test_within_the_callback(self):
        def answers(i):
            if i == 3:
                signal.raise_signal(signal.SIGINT)
            return 0

        before = signal.signal(signal.SIGINT, signal.default_int_handler)  # a shell's & ignores it
        with self.assertRaises(KeyboardInterrupt):
            kezlib.kezpnl(0, 0, 0, 1, 0, 0, [0] * 5, [0] * 5, answers, 5, 1)
        signal.signal(signal.SIGINT, before)


class Pairs(unittest.TestCase):
    def test_memory_grows_with_what_is_written(self):
        count = 100_000
        before = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
        common = kezlib.kezmer4(count, range(count), count, range(count - 1, 2 * count - 1))
        self.assertEqual((common.ncom, list(common.com)), (1, [count - 1]))
        a = [2.0 * i for i in range(count)]
        near = kezlib.kezmer13(count, a, count, [x + 0.5 for x in a], 0.5)
        self.assertEqual((near.nm, list(near.ib[:3]), near.ib[-1]), (count, [1, 2, 3], 0))
        self.assertLess(resource.getrusage(resource.RUSAGE_SELF).ru_maxrss - before, 100_000)

    def test_own_outputs(self):
        few = kezlib.kezmer4(3, [1, 2, 3], 3, [3, 4, 1], com=[0, 0])
        self.assertEqual(list(few.com), [1, 3])
        with self.assertRaisesRegex(ValueError, r"kezmer4: com has 1 entries, \[max\(n1, 0\) \* "):
            kezlib.kezmer4(3, [1, 2, 3], 3, [3, 4, 1], com=[0])

    def test_results_are_those_of_whole_extents(self):
        values = [0.0, -0.0, 1.0, 1.5, 1.0000001, 3.4e38, -3.4e38, 1e-45, math.inf, -math.inf,
                  math.nan, 16777216.0, -1e-9]
        tolerances = [0.0, 1e-45, 0.5, 1.0, 0.49999997, 1e-7, 3.4e38, math.inf, math.nan, -1.0]
        seeded = random.Random(7)
        for _ in range(2000):
            a, b = (array("f", seeded.choices(values, k=seeded.randrange(12))) for _ in range(2))
            given = len(a) - seeded.randrange(2), a, len(b) - seeded.randrange(2), b
            tolerance = array("f", [seeded.choice(tolerances)])[0]
            whole = kezlib.kezmer13(*given, tolerance)
            whole_of_integers = kezlib.kezmer4(*map(self.as_integers, given))
            with mock.patch.object(_arrays, "MANY", -1):
                counted = kezlib.kezmer13(*given, tolerance)
                counted_integers = kezlib.kezmer4(*map(self.as_integers, given))
            self.assertEqual(repr(whole), repr(counted))
            self.assertEqual(repr(whole_of_integers), repr(counted_integers))
            least = _arrays.pairs(a[:max(given[0], 0)], b[:max(given[2], 0)], tolerance)
            self.assertLessEqual(whole.nm, least)

    def as_integers(self, given):
        if isinstance(given, int):
            return given
        return [int(x) % 7 if math.isfinite(x) else -1 for x in given]


class Outlines(unittest.TestCase):
    def test_the_closing_entry_may_be_missing(self):
        outline = kezlib.kezsec_c(60, 150, 0, 2)  # of which the detail is left out
        closed = kezlib.kezapl(outline.x, outline.y, outline.nv[0])
        self.assertEqual((len(closed.X), closed.X[8], closed.area), (9, closed.X[0], 532))
        whole = kezlib.kezsec_c(60, 150, 0, 2, *[0] * 11)
        self.assertEqual(list(map(list, outline[1:])), list(map(list, whole[1:])))
        circle = kezlib.kezair([0, 1, 9], [0, 0, 9], 3, 3, 0, 1, 0)
        self.assertEqual(len(circle.X), 3)  # as nothing is written behind them


class Library(unittest.TestCase):
    def imported(self, library):
        return subprocess.run([sys.executable, "-c", "import kezlib"], text=True,
                              capture_output=True, env={**os.environ, "KEZLIB_LIBRARY": library})

    def test_version_is_compared(self):
        version = kezlib.__version__.encode()
        library = pathlib.Path(kezlib.library_path()).read_bytes()
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder, "other.so")
            for other, is_taken in ((b"1.9.7", True), (b"2.0.0", False), (b"0.9.0", False)):
                text, count = re.subn(re.escape(version) + rb"\0", other + b"\0", library)
                self.assertEqual(count, 1)
                file.write_bytes(text)
                done = self.imported(str(file))
                self.assertEqual(done.returncode, 0 if is_taken else 1, done.stderr)
                if not is_taken:
                    self.assertIn(f"{file} is KezLib {other.decode()}, and this", done.stderr)

    def test_file_is_absolute(self):
        self.assertTrue(os.path.isabs(kezlib.library_path()))
        relative = subprocess.run(
            [sys.executable, "-c", "import kezlib; print(kezlib.library_path())"], text=True,
            capture_output=True, cwd=os.path.dirname(kezlib.library_path()),
            env={**os.environ, "KEZLIB_LIBRARY": "./" + os.path.basename(kezlib.library_path())})
        self.assertEqual(relative.stdout, kezlib.library_path() + "\n")


if __name__ == "__main__":
    unittest.main()
