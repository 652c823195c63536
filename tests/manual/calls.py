#!/usr/bin/env python3
"""Prints as JSON every routine's arguments and its worked calls, for tests of the pictures."""

import json
import math
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))

from interface import arithmetic, reader, rows  # noqa: E402


def value_of(literal, kind):
    """A number; None where the row says that it is kept, or that anything may be there."""
    if literal == ".":
        return None
    if literal.startswith("0x"):
        bits = int(literal, 16)
        return arithmetic.signed(bits) if kind == "integer" else rows.single(bits)
    if kind == "integer":
        return int(literal)
    value, _, rest = literal.partition("~")
    return rows.single(rows.single_bits(float(value or rest)))


def plain(value):
    """JSON has no name for what is not finite."""
    return value if value is None or math.isfinite(value) else str(value)


def values(row, literals):
    found = {}
    for argument in row.routine.arguments:
        if argument.name in literals:
            numbers = [plain(value_of(text, row.kinds[argument.name]))
                       for text in literals[argument.name]]
            is_list = argument.extent or argument.kind == "callback"
            found[argument.name] = numbers if is_list else numbers[0]
    return found


def call(row):
    return {"inputs": values(row, row.given), "results": values(row, row.wanted)}


def main():
    interface = reader.read()
    worked = rows.worked_calls(interface)
    print(json.dumps({r.name: {"arguments": [a.name for a in r.arguments],
                               "calls": [call(row) for row in worked[r.name]]}
                      for r in interface.routines}))


if __name__ == "__main__":
    main()
