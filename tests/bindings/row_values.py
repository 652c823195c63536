"""What the arguments of a row hold before its call, for hosts in other languages."""

import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent.parent / "tools"))
from interface import arithmetic, conditions, rows, shapes  # noqa: E402

# Where a row says nothing. A quiet not-a-number: languages that pass values make one of any other.
POISON = 0x7FE5A5A5


def word(text, kind):
    """The 32 bits of a literal."""
    return POISON if text == "." else rows.word(text, kind)


def integers(row):
    """The integers that go in, by name: those of an array in a list."""
    values = {a.name: [arithmetic.signed(word(text, "integer")) for text in row.given[a.name]]
              for a in row.routine.inputs() if a.kind == "integer"}
    return {a.name: values[a.name] if a.extent else values[a.name][0]
            for a in row.routine.inputs() if a.name in values}


def extent(argument, row):
    """The entries of an array, and 1 of a scalar."""
    if not argument.extent:
        return 1
    return max(arithmetic.evaluate(argument.extent, integers(row)), 0)


def least_extent(argument, row):
    """Of an output that holds pairs, whose extent is what they could be, how many there are."""
    if not shapes.pairs(argument, row.routine):
        return extent(argument, row)
    counts = {a.name: arithmetic.signed(word(row.wanted[a.name][0], "integer"))
              for a in row.routine.outputs() if a.kind == "integer" and not a.extent}
    behind = conditions.beyond(argument.kept_when)
    return max(arithmetic.evaluate(behind, integers(row) | counts), 0)


def held(row):
    """The literals of each argument: "." where the row says nothing."""
    found = {}
    for a in row.routine.arguments:
        given = row.given.get(a.name, [])
        size = max(len(given), len(row.wanted.get(a.name, [])), extent(a, row))
        found[a.name] = given + ["."] * (size - len(given))
    return found


def texts(row, literal, joint):
    """The literals and the sizes that a writer's call() takes, by literal(text, kind)."""
    values = held(row)
    return ({name: joint.join(literal(text, row.kinds[name]) for text in entries)
             for name, entries in values.items()},
            {name: str(len(entries)) for name, entries in values.items()})


def form(row):
    """What lists of either kind are, real or integer."""
    words = row.routine.words()
    return row.kinds[words[0].name] if words else "real"
