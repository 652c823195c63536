"""Writes a program that makes the worked calls through the class: see worked_calls.main.

    csharp_calls.py --changed CHANGE FILE    KezLib.cs with a change of kezlci: kind, direction or
                                             count
"""

import pathlib
import sys

import row_values
import worked_calls
from interface.writers import csharp

literal = worked_calls.literal(csharp, lambda bits: f"Host.Single(0x{bits:08x})")


def calling(number, row):
    literals, sizes = row_values.texts(row, literal, csharp.LANGUAGE.literals.joint)
    results = (f"Host.Print({csharp.name(a)});" for a in row.routine.outputs())
    return "\n".join([csharp.call(row.routine, literals, sizes), f"Host.Begin({number});",
                      *results])


def short_calls(row):
    """Calls with one array shorter by one entry than its extent."""
    literals, sizes = row_values.texts(row, literal, csharp.LANGUAGE.literals.joint)
    for a in row.routine.arguments:
        entries = row_values.least_extent(a, row)
        if csharp.is_list(a) and not a.callback and entries:
            others = {name: text for name, text in literals.items() if name != a.name}
            text = csharp.call(row.routine, others, sizes | {a.name: str(entries - 1)})
            yield f'Host.Refused("{row.place}", {entries}, "{a.name}", delegate\n{{\n{text}\n}});'


def program(name, bodies):
    """An array of actions, each with its variables."""
    actions = ",\n".join(f"delegate\n{{\n{body}\n}}" for body in bodies)
    return f"public static readonly Action[] {name} =\n{{\n{actions}\n}};\n"


def write():
    calls = [calling(number, row) for number, row in enumerate(worked_calls.ROWS)]
    first = (next((text for row in family if (text := "\n".join(short_calls(row)))), "")
             for family in worked_calls.families().values())
    return ("using System;\nusing KezLib;\n\nstatic class Rows\n{\n" + program("Calls", calls)
            + program("ShortCalls", filter(None, first)) + "}\n")


def changed(change):
    routine, = (r for r in worked_calls.INTERFACE.routines if r.name == "kezlci")
    count = next(a for a in routine.arguments if a.name == "n")
    if change == "kind":
        count.kind = "real"
    elif change == "direction":
        count.direction = "in"
    elif change == "count":
        routine.arguments.remove(count)
    return csharp.write(worked_calls.INTERFACE)


if __name__ == "__main__":
    if sys.argv[1] == "--changed":
        pathlib.Path(sys.argv[3]).write_text(changed(sys.argv[2]))
    else:
        worked_calls.main(csharp, write)
