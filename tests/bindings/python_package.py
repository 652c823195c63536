"""What the Python package takes, refuses and returns, beside the worked calls.

    python_package.py numpy|plain      plain: as where numpy is not installed
"""

import ctypes
import ctypes.util
import inspect
import pathlib
import resource
import struct
import subprocess
import sys
import threading
import unittest
from array import array
from decimal import Decimal

PLAIN = sys.argv.pop(1) == "plain"
if PLAIN:
    sys.modules["numpy"] = None
else:
    import numpy
sys.path.append(str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
import interface  # noqa: E402
import kezlib  # noqa: E402
from interface.writers import python  # noqa: E402
from kezlib import _arrays  # noqa: E402

PACKAGE = pathlib.Path(kezlib.__file__).parent
SQUARE = [0, 2, 2, 0, 9], [0, 0, 2, 2, 9]  # the last entries make room for the first point again
KEPT_REAL, KEPT_INTEGER = struct.pack("=I", 0x7FE5A5A5), -2**31


def area(X, Y, n=4):
    return kezlib.kezapl(X, Y, n).area


class Scalars(unittest.TestCase):
    def test_singles_come_back(self):
        self.assertEqual(kezlib.kezcnt(0, 0, 0, 0.1, 1e39, True).dx,
                         struct.unpack("f", struct.pack("f", 0.1))[0])
        self.assertEqual(kezlib.kezcnt(0, 0, 0, 0.1, 1e39, True)[1:3], (float("inf"), 1.0))

    def test_results_have_names_and_types(self):
        result = kezlib.kezlci(0, 1, -0.5, D=0, E=0, F=-1)
        self.assertEqual((type(result), result._fields), (kezlib.routines.Kezlci,
                                                          ("n", "x1", "y1", "x2", "y2")))
        self.assertEqual([type(value) for value in result], [int, float, float, float, float])

    def test_what_is_refused(self):
        for call, error, words in (
                (lambda: kezlib.kezpds(0, 0, 0, 1, "2", 3), TypeError, "kezpds: y2 is '2', not"),
                (lambda: kezlib.kezpds(0, 0, 0, 1, 2, None), TypeError, "kezpds: z2 is None, not"),
                (lambda: kezlib.kezpds(0, 0, 0, 1, 2, 1j), TypeError, "z2 is 1j, not a real"),
                (lambda: kezlib.kezpds(0, 0, 0, 1, 2, 10**400), OverflowError, "32-bit real"),
                (lambda: kezlib.kezpds(0, 0, 0, 1, 2, 10**5000), OverflowError,
                 "z2 is .{,50}, which"),
                (lambda: kezlib.kezpds(0, 0, 0, 1, 2, Decimal("sNaN")), TypeError, "sNaN.., not"),
                (lambda: kezlib.kezpds(0, 0, 0, 1, 2, [7] * 10**6), TypeError, "7, ...], not a r"),
                (lambda: kezlib.kezpds(0, 0, 0, 1, 2), TypeError, "z2"),
                (lambda: kezlib.kezapl(*SQUARE, 4.0), TypeError, "kezapl: n is 4.0, not an"),
                (lambda: kezlib.kezapl(*SQUARE, 2**31), OverflowError, "n is 2147483648, which"),
                (lambda: kezlib.kezphip(1, 0, 0, 0, 0, 0, fail=0.5), TypeError,
                 "kezphip: fail is 0.5, not an integer"),
                *self.of_numpy()):
            with self.subTest(words), self.assertRaisesRegex(error, words):
                call()

    def of_numpy(self):
        """Scalars that are refused by themselves."""
        return [] if PLAIN else [
            (lambda: kezlib.kezpds(0, 0, 0, 1, 2, numpy.ones(2)), TypeError, "kezpds: z2 is array"),
            (lambda: kezlib.kezpds(0, 0, 0, 1, 2, numpy.complex64(3)), TypeError,
             r"z2 is \(3\+0j\), not a real"),
            (lambda: kezlib.kezapl(*SQUARE, numpy.array(4.0)), TypeError, "kezapl: n is array.4")]

    def test_kept_outputs(self):
        self.assertEqual(kezlib.kezphip(1, 0, 0, 0, 0, 0), (None, -1))
        self.assertIsNone(kezlib.kezphip(1, 0, 0, 0, 1, 0).fail)
        self.assertEqual(kezlib.kezphip(1, 0, 0, 0, 1, 0, fail=0).fail, 0)
        self.assertEqual(kezlib.kezlci(0, 1, -1, 0, 0, -1, x2=7)[3:], (7.0, None))
        own = struct.unpack("=f", KEPT_REAL)[0]
        self.assertIsNotNone(kezlib.kezlci(0, 1, -1, 0, 0, -1, x2=own).x2)  # since it was given
        self.assertEqual(kezlib.kezphip(1, 0, 0, 0, 1, 0, fail=KEPT_INTEGER).fail, KEPT_INTEGER)


class Lists(unittest.TestCase):
    def test_what_is_taken(self):
        given = [0, 2, 2, 0, 9]
        forms = [given, tuple(given), range(5), array("f", given), array("d", given),
                 array("i", given), memoryview(array("f", given)), memoryview(array("d", given)),
                 (ctypes.c_float * 5)(*given), (ctypes.c_double * 5)(*given), [*given, 7]]
        if not PLAIN:
            forms += [numpy.array(given, kind) for kind in ("f", "d", "e", "i", "q", ">f4", ">i2")]
            twice = numpy.repeat(numpy.array(given, "f"), 2)
            forms += [twice[::2], numpy.array(given, "f")[::-1][::-1], numpy.array(given, object)]
        for form in forms:
            with self.subTest(repr(form)):
                entries = [float(entry) for entry in form]
                expected = area(entries, SQUARE[1])
                self.assertEqual(area(form, SQUARE[1]), expected)
                self.assertEqual(expected, 0.0 if isinstance(form, range) else 4.0)

    def test_the_callers_are_copied(self):
        X, Y = array("f", SQUARE[0]), array("f", SQUARE[1])
        result = kezlib.kezapl(X, Y, 4)
        self.assertEqual((X[4], list(result.X)), (9, [0, 2, 2, 0, 0]))
        again = kezlib.kezapl(result.X, result.Y, 4)
        result.X[0] = 5
        self.assertEqual(again.X[0], 0)

    def test_what_is_returned(self):
        result = kezlib.kezmer4(3, [1, 2, 3], 2, [3, 4])
        self.assertEqual([list(result.com), list(result.dif)], [[3], [1, 2, 4]])
        empty = kezlib.kezmer4(0, [], 0, [])
        if PLAIN:
            self.assertEqual((result.com, empty.com), ([3], []))
        else:
            self.assertEqual((result.com.dtype, empty.com.dtype), ("int32", "int32"))
            self.assertEqual(empty.com.shape, (0,))
            self.assertEqual(kezlib.kezapl(*SQUARE, 4).X.dtype, "float32")

    def test_no_entries_have_an_address(self):
        self.assertTrue(_arrays.address(array("f")).value)

    def test_kept_entries(self):
        few = kezlib.kezsel1(4, [7, 8, 7, 7], 7)
        self.assertEqual(list(few.idx), [1, 3, 4])
        whole = kezlib.kezsel1(4, [7, 8, 7, 7], 7, idx=[-1] * 5)
        self.assertEqual(list(whole.idx), [1, 3, 4, -1, -1])
        nan = float("nan")
        self.assertEqual(list(kezlib.kezordi([nan, nan], 2).iord), [KEPT_INTEGER] * 2)

    def test_more_than_there_is_memory_for(self):
        limits = resource.getrlimit(resource.RLIMIT_AS)
        resource.setrlimit(resource.RLIMIT_AS, (2**32, limits[1]))
        try:
            with self.assertRaisesRegex(MemoryError, "keznst: xs has 2147483647 entries, for"):
                kezlib.keznst(0, 0, 0, 9, 0, 0, 1, 2**31 - 1)
            with self.assertRaisesRegex(MemoryError, "kezpar: list1 has 1073741824 entries"):
                kezlib.kezpar(1, 9, 2**31 - 1)
        finally:
            resource.setrlimit(resource.RLIMIT_AS, limits)

    def test_what_is_refused(self):
        cases = [
            (lambda: area([0, 2, 2], SQUARE[1]), ValueError,
             r"kezapl: X has 3 entries, \[n \+ 1\] asks for 5"),
            (lambda: kezlib.kezapl([], [0], 0), ValueError, "kezapl: X has 0 entries"),
            (lambda: area(SQUARE[0], [0, 0, 2, "2", 0]), TypeError, r"kezapl: Y\[3\] is '2', not"),
            (lambda: area([*SQUARE[0][:4], 10**400], SQUARE[1]), OverflowError, r"X\[4\] is 1000"),
            (lambda: area(5, SQUARE[1]), TypeError, "kezapl: X is 5, not a list"),
            (lambda: area("01234", SQUARE[1]), TypeError, "kezapl: X is '01234', not a list"),
            (lambda: area(b"01234", SQUARE[1]), TypeError, "kezapl: X is b'01234', not a list"),
            (lambda: area(bytearray(5), SQUARE[1]), TypeError, "X is bytearray.*not a list"),
            (lambda: area(iter(SQUARE[0]), SQUARE[1]), TypeError, "not a list"),
            (lambda: area({0, 1, 2, 3, 4}, SQUARE[1]), TypeError, "not a list"),
            (lambda: area(memoryview(bytes(24)).cast("f", (2, 3)), SQUARE[1]), ValueError,
             "X has 2 dimensions, not 1"),
            (lambda: kezlib.kezord1([1, 2.0], 2), TypeError, r"\[1\] is 2.0, not an integer"),
            (lambda: kezlib.kezord1(array("f", [1, 2]), 2), TypeError, r"\[0\] is 1.0, not an i"),
            (lambda: kezlib.kezord1([1, 2**31], 2), OverflowError, r"\[1\] is 2147483648, which"),
            (lambda: kezlib.kezord1(array("I", [1, 2**31]), 2), OverflowError, r"\[1\] is 2147483"),
            (lambda: kezlib.kezsel1(4, [7, 8, 7, 7], 7, idx=[-1] * 3), ValueError,
             r"kezsel1: idx has 3 entries, \[n\] asks for 4")]
        if not PLAIN:
            cases += [
                (lambda: area(numpy.ones(5, "F"), SQUARE[1]), TypeError, "X holds complex numbers"),
                (lambda: area([0, 2, 2, numpy.complex64(1j), 0], SQUARE[1]), TypeError,
                 r"X\[3\] is 1j, not a real"),
                (lambda: kezlib.kezord1(numpy.array([1.0, 2.0]), 2), TypeError,
                 r"\[0\] is 1.0, not an integer"),
                (lambda: kezlib.kezord1(numpy.zeros(2, "M8[s]"), 2), TypeError, "ia is array"),
                (lambda: kezlib.kezord1(numpy.array(1), 1), ValueError, "has 0 dimensions, not 1")]
        for call, error, words in cases:
            with self.subTest(words), self.assertRaisesRegex(error, words):
                call()

    def test_lists_of_either_kind(self):
        signalling = array("f", struct.pack("=2I", 0x7FA00001, 0xFFA00002))
        cases = [([1, -2], int), ([1, -2.0], float), (array("f", [1, -2]), float),
                 (array("d", [1, -2]), float), (array("q", [1, -2]), int), ([], int)]
        if not PLAIN:
            cases += [(numpy.array([1, -2], kind), float) for kind in "efd"]
            cases += [(numpy.array([1, -2], kind), int) for kind in "bhiqO"]
            cases.append((numpy.array([1, -2.5], object), float))
            kept = kezlib.kezmer17(2, signalling).a.tobytes()
            self.assertEqual(kept, signalling[::-1].tobytes())
        for given, kind in cases:
            with self.subTest(repr(given)):
                result = kezlib.kezmer1(len(given), given, 1, [7])
                entries = [entry if PLAIN else entry.item() for entry in result.out]
                self.assertEqual(entries, [*given, 7])
                self.assertEqual({type(entry) for entry in entries}, {kind})
        self.assertEqual(list(kezlib.kezmer17(2, array("I", [5, 2**32 - 1])).a), [-1, 5])
        self.assertEqual(list(kezlib.kezmer16(1, array("i", [1, 0]), 1, [2.5]).a), [2.5, 1.0])
        for wrong, error in ([1, None], TypeError), ([1, 2**31], OverflowError), (7, TypeError):
            with self.subTest(wrong), self.assertRaisesRegex(error, "kezmer17: a"):
                kezlib.kezmer17(2, wrong)


class Callbacks(unittest.TestCase):
    def near(self, zof, n=3):
        return kezlib.kezpnl(0, 0, 0, 1, 0, 0, [0, 1, 2], [0, 0, 0], zof, n, 2)

    def test_positions(self):
        asked = []
        found = self.near(lambda i: asked.append(i) or (3 if i == 2 else 0))
        self.assertEqual((asked, found.count, list(found.idx)), ([1, 2, 3], 2, [1, 3]))

    def test_calls_within(self):
        z = self.near(lambda i: self.near(lambda j: 3 * (j > 1)).count + kezlib.kezpds(
            0, 0, 0, 0, i, 0).d)
        self.assertEqual(list(z.idx), [1])

    def test_what_it_raises_is_raised(self):
        asked = []

        def stops(i):
            asked.append(i)
            if i == 2:
                raise KeyboardInterrupt("enough")
            return 0

        with self.assertRaisesRegex(KeyboardInterrupt, "enough"):
            self.near(stops)
        self.assertEqual(asked, [1, 2])

    def test_what_is_refused(self):
        for wrong, words in ((lambda i: "1", "kezpnl: zof's result is '1', not a real"),
                             (lambda i: None, "zof's result is None"), (lambda: 0, "positional"),
                             (7, "kezpnl: zof is 7, which cannot be called")):
            with self.subTest(words), self.assertRaisesRegex(TypeError, words):
                self.near(wrong)
        self.assertIsNone(self.near(7 .__add__, 0).status)


class Threads(unittest.TestCase):
    def test_calls_do_not_mix(self):
        wrong = []

        def calls(number):
            X = [0, number, number, 0, 0]
            for _ in range(3000):
                distance = kezlib.kezpds(0, 0, 0, number, 0, 0).d
                if (distance, area(X, SQUARE[1])) != (number, 2 * number):
                    wrong.append(number)

        interval = sys.getswitchinterval()
        sys.setswitchinterval(1e-6)
        threads = [threading.Thread(target=calls, args=[i]) for i in range(1, 5)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        sys.setswitchinterval(interval)
        self.assertEqual(wrong, [])


class Names(unittest.TestCase):
    def test_reserved_ones(self):
        header = interface.read()
        routine = next(r for r in header.routines if r.name == "kezlci")
        routine.arguments[0].name, routine.arguments[-1].name = "lambda", "is"
        compile(python.write(header), "routines.py", "exec")
        self.assertRegex(python.signature(routine), r"lambda_: float,[^)]* is_: Optional")
        shown = python.call(routine, {a.name: "1" for a in routine.arguments}, {})
        compile(shown, "call.py", "exec")
        self.assertIn("is_=is_)", shown)


class Package(unittest.TestCase):
    def python(self, text, **environment):
        return subprocess.run([sys.executable, "-B", "-c", text], text=True, capture_output=True,
                              env={"PYTHONPATH": str(PACKAGE.parent), **environment})

    def test_numpy_is_not_waited_for(self):
        done = self.python("import sys, kezlib; kezlib.kezpds(0, 0, 0, 1, 2, 3); "
                           "sys.exit('numpy' in sys.modules)")
        self.assertEqual((done.returncode, done.stderr), (0, ""))

    def test_library_that_is_named(self):
        named = self.python("import kezlib; print(kezlib.library_path())",
                            KEZLIB_LIBRARY=kezlib.library_path())
        self.assertEqual(named.stdout.strip(), kezlib.library_path(), named.stderr)
        missing = self.python("import kezlib", KEZLIB_LIBRARY="/missing/library")
        self.assertRegex(missing.stderr, "ImportError: .*KEZLIB_LIBRARY.*/missing/library: ")
        other = self.python("import kezlib", KEZLIB_LIBRARY=ctypes.util.find_library("m"))
        self.assertRegex(other.stderr, "ImportError: .*does not say which version of KezLib it is")

    def test_library_is_found_beside_the_package(self):
        prefix = PACKAGE.parents[4]
        self.assertIn(prefix, pathlib.Path(kezlib.library_path()).parents)

    def test_documentation_names_all_arguments(self):
        for name in kezlib.routines.__all__:
            function = getattr(kezlib, name)
            text = inspect.getdoc(function)
            _, _, rest = text.partition("\nParameters\n----------\n")
            given, _, returned = rest.partition("\nReturns\n-------\n")
            with self.subTest(name):
                self.assertEqual(self.names(given), list(inspect.signature(function).parameters))
                self.assertEqual(self.names(returned.partition("\nNotes\n-----\n")[0]),
                                 list(function.__annotations__["return"]._fields))
                self.assertLessEqual(max(map(len, text.splitlines())), 96)
                self.assertIn("help(kezlib.routines)", " ".join(text.split()))
        self.assertNotIn("overrun", inspect.getdoc(kezlib.routines))  # what is short is refused

    def names(self, text):
        items = [line.partition(" : ")[0] for line in text.splitlines() if line[:1].strip()]
        return ", ".join(items).split(", ")


if __name__ == "__main__":
    unittest.main()
