"""Writes the C# program's calls from the rows, or a binding that differs from the header.

    csharp_calls.py rows FILE        every row as a worked call, with what it must give
    csharp_calls.py CHANGE FILE      KezLib.cs with a change of kezlci: kind, direction or count
"""

import math
import pathlib
import sys

from row_values import POISON, extent, form, held, texts, word  # finds the next ones
import interface
from interface import rows
from interface.writers import csharp

LITERALS = csharp.LANGUAGE.literals
MINUS_ZERO = 0x80000000  # mono's compiler leaves it out of an array's initial entries, as if 0


def literal(text, kind):
    bits = word(text, kind)
    if kind == "real" and bits in (POISON, MINUS_ZERO):
        return f"Expect.Single(0x{bits:08x})"
    return str(POISON) if text == "." else LITERALS.of(text, kind)


def expectation(got, wanted, before, kind):
    """The rule of rows.meets in C#."""
    if wanted == "." or wanted.startswith("0x") or kind == "integer":
        return f"Is({got}, 0x{word(before if wanted == '.' else wanted, kind):08x})"
    if "~" in wanted:
        value, _, tolerance = wanted.partition("~")
        value, tolerance = value or tolerance, tolerance if value else abs(float(tolerance)) * 1e-6
        return f"IsNear({got}, {float(value)!r}, {float(tolerance)!r})"
    bits = rows.word(wanted, kind)
    if math.isnan(rows.single(bits)):
        return f"IsNotANumber({got})"
    return f"IsZero({got})" if bits == 0 else f"Is({got}, 0x{bits:08x})"


def expectations(row):
    for a in row.routine.outputs():
        before, kind = held(row)[a.name], row.kinds[a.name]
        for i, wanted in enumerate(row.wanted[a.name]):
            got = csharp.name(a) + (f"[{i}]" if a.extent else "")
            yield f"Expect.{expectation(got, wanted, before[i], kind)};"


def short_calls(row):
    """Calls with one array shorter by one entry than its extent."""
    literals, sizes = texts(row, literal, LITERALS.joint)
    for a in row.routine.arguments:
        if a.extent and not a.callback and (entries := extent(a, row)):
            others = {name: text for name, text in literals.items() if name != a.name}
            text = csharp.call(row.routine, others, sizes | {a.name: str(entries - 1)}, form(row))
            yield f"Expect.Refused({entries}, \"{a.name}\", delegate\n{{\n{text}\n}});"


def call(row):
    text = csharp.call(row.routine, *texts(row, literal, LITERALS.joint), form(row))
    return "\n".join([text, *expectations(row)])


def program(name, bodies):
    """An array of actions, each with its variables."""
    actions = ",\n".join(f"delegate\n{{\n{body}\n}}" for body in bodies)
    return f"public static readonly Action[] {name} =\n{{\n{actions}\n}};\n"


def write_rows(routines):
    calls, short = [], {}
    for row in rows.read_rows(routines):
        begin = f'Expect.Begin("{row.place} {row.routine.name}");\n'
        calls.append(begin + call(row))
        if row.routine.name not in short:
            if refused := "\n".join(short_calls(row)):
                short[row.routine.name] = begin + refused
    return ("using System;\nusing KezLib;\n\nstatic class Rows\n{\n" + program("Calls", calls)
            + program("ShortCalls", short.values()) + "}\n")


def changed(routines, change):
    routine, = (r for r in routines.routines if r.name == "kezlci")
    count = next(a for a in routine.arguments if a.name == "n")
    if change == "kind":
        count.kind = "real"
    elif change == "direction":
        count.direction = "in"
    elif change == "count":
        routine.arguments.remove(count)
    return csharp.write(routines)


def main():
    what, file = sys.argv[1:]
    routines = interface.read()
    text = write_rows(routines) if what == "rows" else changed(routines, what)
    pathlib.Path(file).write_text(text)


if __name__ == "__main__":
    main()
