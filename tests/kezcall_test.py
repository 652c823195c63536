"""kezcall finds what is wrong with a row, with a result and with a routine.

    kezcall_test.py KEZCALL LIBRARY

The C compiler for a library that misbehaves is taken from the environment's CC.
"""

import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile
import unittest

KEZCALL, LIBRARY = sys.argv[1:3]
TESTS = pathlib.Path(__file__).resolve().parent

PASSING = """
kezpds 0 0 0  3 4 0  -> 5               # a comment
kezpds 0 0 0  3 4 0  -> ~5.000004
kezpds 0 0 0  3 4 0  -> 5.25~0.25
kezpds 0 0 0  3 4 0  -> 0x40a00000
kezpds 0x0 0 0  0x40400000 4 0
kezpds nan 0 0  0 0 0  -> nan
kezpds 0 0 0  -inf 0 0  -> inf
kezcnt 0 0 0  -0 0 0  -> -0 0 0  1
kezcnt 0 0 0  -0 0 0  -> 0 0 0  1
kezlci 0 1 -1  0 0 -1  -> 1  0 1  . .
kezsel1 5 [1 2 1 3 1] 1  -> 3 [1 3 5 . .]
kezsel1 3 [1 2 1 1 1] 1  -> 2 [1 3]     # more entries than the count are no harm
kezsel1 -2 [] 1  -> 0 []
kezord [2 1 7] 2  -> [1 2 .]
kezinv 3 [1 2 3.5]  -> [3.5 2 0x3f800000]
kezinv 3 [1 2 0x3f800000]  -> [1065353216 2 1]
kezinv 2 [1 .]  -> [0x7fa5a5a5 1]
"""

FAILING = [
    ("kezpds 0 0 0  3 4 0  -> 5.5", "d = 5, wanted 5.5"),
    ("kezpds 0 0 0  3 4 0  -> ~5.00001", "d = 5, wanted ~5.00001"),
    ("kezpds 0 0 0  3 4 0  -> 5.25~0.2", "d = 5, wanted 5.25~0.2"),
    ("kezpds 0 0 0  3 4 0  -> 0x40a00001", "d = 0x40a00000, wanted 0x40a00001"),
    ("kezpds 0 0 0  3 4 0  -> nan", "d = 5, wanted nan"),
    ("kezpds 0 0 0  3 4 0  -> .", "d = 5, wanted untouched"),
    ("kezpds nan 0 0  3 4 0  -> ~5", "d = nan, wanted ~5"),
    ("kezcnt 0 0 0  0 0 0  -> -0 0 0  1", "dx = 0, wanted -0"),
    ("kezcnt 0 0 0  0 0 0  -> 0 0 0  0", "same = 1, wanted 0"),
    ("kezlci 0 1 -1  0 0 -1  -> 1  0 1  nan .", "x2 not written, wanted nan"),
    ("kezsel1 3 [1 2 1] 1  -> 2 [1]", "idx[2] = 3, wanted untouched"),
    ("kezsel1 3 [1 2 1] 1  -> 2 [1 3 5]", "idx[3] not written, wanted 5"),
    ("kezord [2 1] 2  -> [1 .]", "x[2] = 2, wanted 1 as before"),
    ("kezord [2 1] 2  -> [1]", "x[2] = 2, wanted 1 as before"),
]

BAD = [
    ("kezfoo 1", 1, "unknown routine 'kezfoo'"),
    ("kezpds 1 2 3 4 5", 17, "the value of z2 is missing"),
    ("kezpds 1 2 3 4 5 6 7", 20, "has no more inputs for '7'"),
    ("kezpds 1 2 3 4 5 6 ->", 22, "the value of d is missing"),
    ("kezpds 1 2 3 4 5 6 -> 1 2", 25, "has no more outputs for '2'"),
    ("kezpds 1 2 3 4 5 6 -> 1 -> 1", 25, "unexpected '->'"),
    ("kezpds 1 2 3 4 5 6x", 18, "malformed number '6x'"),
    ("kezpds 1 2 3 4 5 1e39", 18, "out of range"),
    ("kezpds 1 2 3 4 5 0x123456789", 18, "'0x123456789' is out of range"),
    ("kezpds 1 2 3 4 5 .", 18, "only read"),
    ("kezpds 1 2 3 4 5 [6]", 18, "unexpected '['"),
    ("kezpds 1 2 3 4 5 6 -> 1~-1", 23, "negative tolerance"),
    ("kezpos 2.5 [1 2] 1", 8, "malformed integer '2.5'"),
    ("kezpos 2147483648 [1 2] 1", 8, "out of range"),
    ("kezpos 1 [1] 1 -> ~1", 19, "compared exactly"),
    ("kezpos 2 1 2 1", 10, "'[' expected"),
    ("kezpos 2 [1 2 1", 16, "the ']' of x is missing"),
    ("kezpos 3 [1 2] 1", 10, "array shorter than its count asks for"),
    ("kezord [1 2] 3", 8, "array shorter than its count asks for"),
    ("kezord [1 2] 2 -> [1 2 3]", 19, "array longer than its count says"),
    ("kezsel1 2147483647 [1] 1", 1, "more than the 67108864"),
]


def kezcall(*arguments, library=LIBRARY):
    return subprocess.run([KEZCALL, "--library", library, *arguments], capture_output=True,
                          text=True)


class Kezcall(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def file(self, text, name="rows.txt"):
        path = pathlib.Path(self.folder.name) / name
        path.write_text(text)
        return str(path)

    def assert_run(self, run, status, closing):
        self.assertEqual(run.returncode, status, run.stdout + run.stderr)
        self.assertEqual(run.stdout.splitlines()[-1], closing)

    def test_passing_rows(self):
        count = len(PASSING.strip().splitlines())
        self.assert_run(kezcall(self.file(PASSING)), 0, f"{count} passed, 0 failed")

    def test_failing_rows(self):
        for row, trouble in FAILING:
            with self.subTest(row):
                path = self.file("\n" + row + "\n")
                run = kezcall(path)
                self.assert_run(run, 1, "0 passed, 1 failed")
                self.assertEqual(run.stdout.splitlines()[:-1], [f"{path}:2: {row}",
                                                                f"    {trouble}"])
                self.assertEqual(kezcall(row).returncode, 1)

    def test_bad_rows(self):
        for row, column, message in BAD:
            with self.subTest(row):
                run = kezcall(row)
                self.assertEqual(run.returncode, 2)
                self.assertTrue(run.stderr.startswith(f"argument row:{column}: "), run.stderr)
                self.assertIn(message, run.stderr)

    def test_bad_rows_do_not_stop_a_file(self):
        path = self.file("kezcer 0 0 1\n  kezfoo 1\nkezpds 0 0 0 3 4 0 -> 4\n")
        run = kezcall(path)
        self.assert_run(run, 2, "1 passed, 1 failed")
        self.assertEqual(run.stderr, f"{path}:2:3: unknown routine 'kezfoo'\n")

    def test_kept_values_last_for_one_file(self):
        at_rest = "keznst 9 9 9  9 9 9  1 3  -> [9 {0} 9] [9 {0} 9] [9 {0} 9]\n"
        moved = "keznst 0 0 0  2 2 2  0 3  -> [0 0 2] [0 0 2] [0 0 2]\n"
        first = self.file("keznst 5 5 5  6 6 6  0 3\n" + at_rest.format(5), "first.txt")
        second = self.file(at_rest.format(0) + moved, "second.txt")
        self.assert_run(kezcall(first, second), 0, "4 passed, 0 failed")

    def test_outputs_by_name(self):
        for row, printed in [
                ("kezlci 0 1 -1 -2 0 0",
                 "n  = 1\nx1 = 1\ny1 = 1\nx2   not written\ny2   not written\n"),
                ("kezsel1 3 [1 2 1] 1", "count = 2\nidx   = [1 3 .]\n"),
                ("kezinv 2 [1 0.1]", "x = [0.1 1]\n"),
                ("kezord [1 2] 2", "x = [1 2]   unchanged\n")]:
            with self.subTest(row):
                run = kezcall(*row.split())
                self.assertEqual((run.returncode, run.stdout), (0, printed))

    def test_the_interface(self):
        def shown(*options):
            run = subprocess.run([KEZCALL, *options], capture_output=True, text=True)
            self.assertEqual(run.stderr, "")
            return run.stdout

        self.assertRegex(shown("--list"), r"(?m)^\* keznst  +sample_segment  .*\n  kezinr ")
        self.assertIn("kezsel1  n [ia] v  ->  count [idx]\n", shown("--help", "kezsel1"))
        self.assertRegex(shown("--help", "kezsel1"),
                         r"(?m)^  idx +out +integer \[n\] +the positions;")
        self.assertRegex(shown("--help", "kezpds"), "^kezpds, distance: ")
        self.assertEqual(shown("--help", "distance"), shown("--help", "kezpds"))
        self.assertRegex(shown("--help", "kezcer6"), r"(?m)^Kept value: ")

    def test_a_long_line_takes_time_in_proportion(self):
        count = 600000
        path = self.file(f"kezinv {count} [{'1.5 ' * count}]\n")
        self.assert_run(subprocess.run([KEZCALL, "--library", LIBRARY, path], timeout=30,
                                       capture_output=True, text=True), 0, "1 passed, 0 failed")

    def test_messages_do_not_reach_the_terminal_s_controls(self):
        run = kezcall("kez\x1b\u009b" + "long" * 1000)
        self.assertEqual(run.returncode, 2)
        self.assertIn("unknown routine 'kez\\x1b\\xc2\\x9blong", run.stderr)
        self.assertLess(len(run.stderr), 500)

    @unittest.skipUnless(os.path.exists("/dev/full"), "only Linux has a device that is always full")
    def test_output_that_is_lost(self):
        for call in (["--list"], ["--library", LIBRARY, "kezcer", "0", "0", "1"]):
            with open("/dev/full", "w") as full:
                run = subprocess.run([KEZCALL, *call], stdout=full, stderr=subprocess.PIPE,
                                     text=True)
            self.assertEqual(run.returncode, 2)
            self.assertIn("could not be written", run.stderr)

    @unittest.skipUnless(sys.platform == "linux", "about programs for Linux")
    def test_the_program_is_hardened(self):
        run = subprocess.run(["readelf", "-d", KEZCALL], capture_output=True, text=True, check=True)
        self.assertIn("NOW", run.stdout)
        path = re.search(r"runpath: \[(.*)\]", run.stdout)[1]
        self.assertNotIn("", path.split(":"))

    def test_no_such_library(self):
        run = kezcall("kezcer 0 0 1", library=self.folder.name + "/none")
        self.assertEqual(run.returncode, 2)
        self.assertIn("cannot load", run.stderr)

    def misbehaving_library(self):
        library = self.folder.name + "/libmisbehaving.so"
        compiler = shlex.split(os.environ.get("CC", "cc"))
        subprocess.run([*compiler, "-shared", "-fPIC", f"-I{TESTS.parent}/include", "-o", library,
                        str(TESTS / "misbehaving.c")], check=True)
        return library

    def test_memory_that_kills(self):
        library = self.misbehaving_library()
        behind, read_only = "kezpos 2 [1 2] 1", "kezcnt1 1 2 3"
        for memory, row, status in (("ordinary", behind + " -> 0", 0), ("page-end", behind, None),
                                    ("unaligned", behind + " -> 1", 0),
                                    ("ordinary", read_only, 1), ("page-end", read_only, None)):
            with self.subTest(memory=memory, row=row):
                run = kezcall("--memory", memory, self.file(row), library=library)
                # Killed by a signal, or by a sanitizer's handler of it.
                self.assertTrue(run.returncode == status
                                or status is None and run.returncode not in (0, 1, 2)
                                or status is None and "SEGV" in run.stderr, run)
        run = kezcall("--memory", "far", self.file(behind), library=library)
        self.assertEqual(run.returncode, 2)
        self.assertIn("--memory wants", run.stderr)

    def test_routines_that_misbehave(self):
        library = self.misbehaving_library()
        for row, trouble in [("kezpds 0 0 0 3 4 0 -> 5", "memory behind d written"),
                             ("kezmed 0 0 0 1 1 1", "memory in front of ym written"),
                             ("kezcnt1 1 2 3 -> 0", "b changed, although it is only read"),
                             ("kezord [1 2 3] 3", "memory behind x written")]:
            with self.subTest(row):
                run = kezcall(self.file(row), library=library)
                self.assert_run(run, 1, "0 passed, 1 failed")
                self.assertEqual(run.stdout.splitlines()[1:-1], [f"    {trouble}"])
        run = kezcall("kezcer 0 0 1", library=library)
        self.assertEqual(run.returncode, 2)
        self.assertIn("argument row:1: the library has no routine 'kezcer'", run.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
