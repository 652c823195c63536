"""Holds a module of declarations against the header and the rows.

    vba_calls.py text BAS                   as the editor and the compiler would read it
    vba_calls.py header BAS                 the declarations against the header
    vba_calls.py rows BAS LIBRARY           every row, called as it is declared
    vba_calls.py run BAS LIBRARY FILE NAME  a procedure of a host; what it prints
"""

import ctypes
import itertools
import pathlib
import sys

from row_values import texts  # it says where to find the next
from worked_calls import INTERFACE, ROWS, faults, literal
from interface.writers import vba
from vba_module import External, read_module
from vba_run import Run
from vba_text import Refused, compiled_lines, logical_lines, physical_lines
from vba_values import bits

FORMS = {"integer": "Long", "real": "Single"}
LITERAL = literal(vba, lambda bits: f"SingleFromBits(&H{bits:X})")


def module(path, vba7=True):
    data = pathlib.Path(path).read_bytes()
    lines = logical_lines(physical_lines(data))
    return read_module(compiled_lines(lines, {"VBA7": vba7}), vba7)


def check_text(path):
    old, new = module(path, False), module(path, True)
    for found in old, new:
        if (found.name, found.explicit) != (pathlib.Path(path).stem, True):
            raise Refused("the module has another name, or is not explicit")
    return f"{len(old.of(External))} and {len(new.of(External))} declarations are legal"


def wanted_parameters(routine, form, vba7):
    for a in routine.arguments:
        if a.callback:
            yield a.name, "LongPtr" if vba7 else "Long", False
        else:
            yield a.name, FORMS[a.kind_in(form)], True


def wanted_declarations(vba7):
    for routine in INTERFACE.routines:
        if routine.words():
            for form, name in FORMS.items():
                yield routine.name + name, routine.name, list(
                    wanted_parameters(routine, form, vba7))
        else:
            yield routine.name, routine.name, list(wanted_parameters(routine, "", vba7))


def check_header(path):
    for vba7 in False, True:
        found = [(e.name, e.entry, [(p.name.rstrip("_"), p.type, p.by_reference)
                                    for p in e.parameters])
                 for e in module(path, vba7).of(External)]
        for got, wanted in itertools.zip_longest(found, wanted_declarations(vba7)):
            if got != wanted:
                raise Refused(f"{got}\nis declared for\n{wanted}")
        if any(e.library != "KezLib.dll" for e in module(path, vba7).of(External)):
            raise Refused("another library")
    return "the declarations are the header's"


def results(row, frame, sizes):
    """The bits of every output; an array of VBA has an entry more."""
    for a in row.routine.outputs():
        variable = frame[vba.name(a).lower()]
        entries = map(variable.entry, range(1, int(sizes[a.name]) + 1)) if a.extent else [variable]
        yield from map(bits, entries)


def check_row(row, declarations, library):
    literals, sizes = texts(row, LITERAL, vba.LANGUAGE.literals.joint)
    text = vba.call(row.routine, literals, sizes).replace("\n", "\r\n") + "\r\n"
    host = read_module(logical_lines(physical_lines(text.encode())))
    frame = Run([declarations, host], library).call(f"Worked_{row.routine.name}")
    for fault in faults(row, results(row, frame, sizes)):
        raise Refused(fault)


def check_rows(path, library):
    declarations, library = module(path), ctypes.CDLL(library)
    for row in ROWS:
        check_row(row, declarations, library)
    return f"{len(ROWS)} calls of {len(INTERFACE.routines)} routines passed"


def run(path, library, file, name):
    host = Run([module(path), module(file)], ctypes.CDLL(library))
    host.call(name)
    return "\n".join(host.printed)


def main():
    what, *arguments = sys.argv[1:]
    try:
        print({"text": check_text, "header": check_header, "rows": check_rows,
               "run": run}[what](*arguments))
    except Refused as refusal:
        sys.exit(str(refusal))


if __name__ == "__main__":
    main()
