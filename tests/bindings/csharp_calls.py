"""Writes the C# program's calls from the rows, or a binding that differs from the header.

    csharp_calls.py rows FILE        every row as a worked call, with what it must give
    csharp_calls.py CHANGE FILE      KezLib.cs with a change of kezlci: kind, direction or count
"""

import math
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent.parent / "tools"))
import interface  # noqa: E402
from interface import arithmetic, rows  # noqa: E402
from interface.writers import csharp  # noqa: E402

LITERALS = csharp.LANGUAGE.literals
MINUS_ZERO = 0x80000000  # mono's compiler leaves it out of an array's initial entries, as if 0
POISON = {"real": "Expect.Poison", "integer": str(rows.POISON)}


def literal(text, kind):
    if text == ".":
        return POISON[kind]
    bits = rows.word(text, kind)
    if kind == "real" and bits == MINUS_ZERO:
        return f"Expect.Single(0x{bits:08x})"
    return LITERALS.of(text, kind)


def integers(row):
    values = {a.name: [arithmetic.signed(rows.word(text, "integer")) for text in row.given[a.name]]
              for a in row.routine.inputs() if a.kind == "integer"}
    return {a.name: values[a.name] if a.extent else values[a.name][0]
            for a in row.routine.inputs() if a.name in values}


def extent(argument, row):
    return max(arithmetic.evaluate(argument.extent, integers(row)), 0) if argument.extent else 1


def held(row):
    """What each argument holds before the call: poison where the row says nothing."""
    given = {a.name: row.given.get(a.name, []) for a in row.routine.arguments}
    return {a.name: given[a.name] + ["."] * max(
        len(row.wanted.get(a.name, [])) - len(given[a.name]), extent(a, row) - len(given[a.name]))
        for a in row.routine.arguments}


def texts(row):
    """The literals and the sizes that csharp.call takes."""
    return ({name: LITERALS.joint.join(literal(text, row.kinds[name]) for text in entries)
             for name, entries in held(row).items()},
            {name: str(len(entries)) for name, entries in held(row).items()})


def form(row):
    """Of the lists of either kind."""
    words = [a.name for a in row.routine.arguments if a.kind == "word"]
    return row.kinds[words[0]] if words else "real"


def expectation(got, wanted, before, kind):
    """The rule of rows.meets in C#."""
    if wanted == "." or wanted.startswith("0x") or kind == "integer":
        return f"Is({got}, 0x{rows.word(before if wanted == '.' else wanted, kind):08x})"
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
    literals, sizes = texts(row)
    for a in row.routine.arguments:
        if a.extent and not a.callback and (entries := extent(a, row)):
            others = {name: text for name, text in literals.items() if name != a.name}
            text = csharp.call(row.routine, others, sizes | {a.name: str(entries - 1)}, form(row))
            yield f"Expect.Refused({entries}, \"{a.name}\", delegate\n{{\n{text}\n}});"


def call(row):
    return "\n".join([csharp.call(row.routine, *texts(row), form(row)), *expectations(row)])


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
