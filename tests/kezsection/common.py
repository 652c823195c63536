"""What the tests of the section sheet share."""

import unittest

from kezsection.model import Options
from kezsection.reading import parse
from kezsection.sheet import Sheet


def sheet(line, **options):
    return Sheet(parse(line), Options(**options))


def used(s, key):
    """The utilisation of a check."""
    return next(c.utilisation for c in s.checks if c.key == key)


def reductions(s, state):
    return {r.plate.name: r for r in s.state(state).reductions}


class Case(unittest.TestCase):
    def near(self, found, wanted, most=1e-4):
        self.assertLessEqual(abs(found - wanted), most * abs(wanted) + 1e-12, (found, wanted))

    def nears(self, most=1e-4, **pairs):
        for name, (found, wanted) in pairs.items():
            with self.subTest(name):
                self.near(found, wanted, most)
