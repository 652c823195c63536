"""What the header says of routines that measure through others agrees with the source.

The source is read as text: a function is known by its name alone, whatever its arguments are.
"""

import functools
import pathlib
import re
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tools"))
import interface  # noqa: E402

ROUTINES = {routine.name: routine for routine in interface.read().routines}
SOURCES = [path for path in sorted((interface.ROOT / "src").rglob("*.*"))
           if path.suffix in (".h", ".cpp")]

# Arithmetic that decides nothing, moves and sorts: no routine is said to measure through it.
PLAIN = set("""code_of cross determinant distance dot from_code is_exactly_zero is_null midpoint
    point_along points_used rotate_about rotate_each rotation_by size_with_place sort_ascending
    translate write""".split())

FUNCTION = re.compile(r"(?m)^(?:  )?[a-zA-Z\[][^\n;{}()=]*?\b(\w+)\([^;{}]*?\)[^;{}()]*"
                      r"(?: : [^;{]*)?\{")
CALL = re.compile(r"(?<![.>:\w])([a-z]\w*)(?:<\w+>)?\(")


def body(text, begin):
    """What stands between the brace there and the one that closes it."""
    depth = 0
    for brace in re.finditer(r"[{}]", text[begin:]):
        depth += 1 if brace[0] == "{" else -1
        if depth == 0:
            return text[begin:begin + brace.start()]
    raise ValueError("a brace is not closed")


def definitions(path):
    """Names of functions and the text between their braces."""
    text = re.sub(r'//.*|"[^"\n]*"', "", path.read_text())
    for match in FUNCTION.finditer(text):
        yield match[1], body(text, match.end() - 1)


@functools.cache
def calls():
    """What functions of the geometry and shells of routines call."""
    found = {}
    for path in SOURCES:
        for name, inside in definitions(path):
            if path.name not in ("arguments.h", "exports.cpp") or name in ROUTINES:
                found.setdefault(name, set()).update(CALL.findall(inside))
    return {name: called & set(found) for name, called in found.items()}


def computation(name):
    """The geometry that a routine's shell calls."""
    return calls()[name] - PLAIN


def reached(functions):
    found, left = set(), list(functions)
    while left:
        new = calls()[left.pop()] - found
        found |= new
        left += new
    return found


def through(name):
    """The routines that it measures through, and those that these measure through."""
    inner = ROUTINES[name].measures_through
    return set(inner).union(*map(through, inner))


def names_in(text):
    return set(re.findall(r"`(kez\w+)`", text))


def marked():
    """The routines whose oddities the source marks."""
    for source in SOURCES:
        comments = re.sub(r"\n *// *", " ", source.read_text())
        for text in re.findall(r"Deliberate: .*", comments):
            yield re.search(r"\((kez\w+)\)", text)[1] if "(kez" in text else text


class Measures(unittest.TestCase):
    def test_the_header_names_what_the_source_calls(self):
        self.assertEqual(set(ROUTINES) - set(calls()), set(), "shells that were not found")
        measuring = set().union(*map(computation, ROUTINES))
        for name in ROUTINES:
            named = set().union(*map(computation, through(name)))
            called = reached(computation(name)) & measuring
            with self.subTest(name):
                self.assertEqual(called - named, set(), "add to @par Measures through")
                self.assertEqual(named - called - computation(name), set(),
                                 "is not measured through")

    def test_an_oddity_is_told_where_it_is_measured_through(self):
        odd = {name for name, r in ROUTINES.items() if r.deliberate
               and (name in set(marked()) or not names_in(r.deliberate) & through(name))}
        for name, routine in ROUTINES.items():
            with self.subTest(name):
                self.assertEqual((through(name) & odd) - names_in(routine.deliberate), set(),
                                 "name them in @par Deliberate")

    def test_an_oddity_of_the_source_is_told_in_the_header(self):
        self.assertGreater(len(list(marked())), 10)
        telling = {name for name, routine in ROUTINES.items() if routine.deliberate}
        self.assertEqual(set(marked()) - telling, set())


if __name__ == "__main__":
    unittest.main()
