"""The worked calls for JavaScript, and whether their results are what the rows want.

    javascript_calls.py write FOLDER   FOLDER/calls.json, and FOLDER/uses.mts for its declarations
    javascript_calls.py check FOLDER   the results in FOLDER/results.json, which
                                       javascript_rows.mjs has written

Each row is called in three ways: "typed", with typed arrays, whose bits are moved; "plain", with
plain ones, and with values for the outputs that may be kept; "text", as a user would copy it.
"""

import json
import math
import pathlib
import sys

from row_values import extent, integers, word  # finds the next ones
import interface
from interface import arithmetic, conditions, rows
from interface.writers import javascript, typescript

UNWRITTEN = {"real": 0x7FE5A5A5, "integer": 0x80000000}
GIVEN_TO_KEEP = {"real": rows.single_bits(-77.25), "integer": -77 & 0xFFFFFFFF}


def words(row, name):
    return [word(literal, row.kinds[name]) for literal in row.given[name]]


def kept(row):
    """What the outputs that may be kept hold, where the host says so."""
    return {a.name: [GIVEN_TO_KEEP[row.kinds[a.name]]] * extent(a, row)
            for a in row.routine.kept_outputs()}


def texts(row, language):
    literals = {a.name: language.joint.join(language.of(f"0x{bits:08x}", row.kinds[a.name])
                                            for bits in words(row, a.name))
                for a in row.routine.inputs()}
    return literals, {name: str(len(given)) for name, given in row.given.items()}


def described(row):
    form = {a.name: {"kind": row.kinds[a.name], "array": bool(a.extent)}
            for a in row.routine.arguments}
    for argument in row.routine.arguments:
        if argument.kind == "callback":
            form[argument.name]["kind"] = "callback"
    return {"file": row.place.split(":")[0], "routine": row.routine.name, "form": form,
            "given": {a.name: words(row, a.name) for a in row.routine.inputs()}, "kept": kept(row),
            "text": javascript.call(row.routine, *texts(row, javascript.LANGUAGE.literals))}


def uses(all_rows):
    """One call a routine, in which every array has an entry to tell its type from."""
    chosen = {}
    for row in all_rows:
        if all(row.given.values()):
            chosen.setdefault(row.routine.name, row)
    out = []
    for row in chosen.values():
        literals, sizes = texts(row, typescript.LANGUAGE.literals)
        load, *statements = typescript.call(row.routine, literals, sizes).splitlines()
        out += ["{", *statements, "}"]
    return "\n".join([load, *out, ""]), len(chosen)


def comparable(found, kind):
    """The words of a result in the row's kind: plain whole numbers come back as integers."""
    if found["kind"] == kind:
        return found["words"]
    return [bits if bits is None else rows.single_bits(float(arithmetic.signed(bits)))
            for bits in found["words"]]


def wanted_length(row, argument, results, way):
    """The entries of an output: as many as were given, or are written."""
    if argument.direction == "in,out":
        return len(row.given[argument.name])
    expression = conditions.beyond(argument.kept_when)
    if not expression or way == "plain":
        return extent(argument, row)
    after = integers(row)
    for output in row.routine.outputs():
        if output.kind == "integer":
            values = [arithmetic.signed(bits or 0) for bits in results[output.name]["words"]]
            after[output.name] = values if output.extent else values[0]
    return min(max(arithmetic.evaluate(expression, after), 0), extent(argument, row))


def before(row, argument, way):
    """What an output held before the call."""
    kind = row.kinds[argument.name]
    if argument.direction == "in,out":
        return words(row, argument.name)
    if way == "plain" and argument.is_kept():
        return [GIVEN_TO_KEEP[kind]] * extent(argument, row)
    return [UNWRITTEN[kind] if argument.extent else None] * extent(argument, row)


def is_nan(bits, kind):
    """Whose bits numbers of JavaScript need not carry."""
    return kind == "real" and bits is not None and math.isnan(rows.single(bits))


def meets(bits, held, literal, kind, by_bits):
    if literal == ".":
        return bits == held or (not by_bits and is_nan(bits, kind) and is_nan(held, kind))
    return bits is not None and rows.meets(bits, held, literal, kind)


def faults(row, results, way):
    for argument in row.routine.outputs():
        kind = row.kinds[argument.name]
        got = comparable(results[argument.name], kind)
        length = wanted_length(row, argument, results, way)
        if len(got) != length:
            yield f"{argument.name} has {len(got)} entries, wanted {length}"
            continue
        wanted = row.wanted[argument.name] + ["."] * (length - len(row.wanted[argument.name]))
        if any(literal != "." for literal in wanted[length:]):
            yield f"{argument.name} ends before what is wanted"
        by_bits = way == "typed" and argument.extent
        entries = zip(got, before(row, argument, way), wanted)
        for position, (bits, held, literal) in enumerate(entries, 1):
            if not meets(bits, held, literal, kind, by_bits):
                yield f"{argument.name}({position}) is {bits}, wanted {literal}"


def check(all_rows, results):
    failed = False
    for way, of_rows in results.items():
        for row, found in zip(all_rows, of_rows, strict=True):
            for fault in faults(row, found, way):
                failed = True
                print(f"{row.place}, {way}: {row.routine.name}: {fault}")
    return not failed


def main():
    command, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    declared = interface.read()
    all_rows = list(rows.read_rows(declared))
    if command == "write":
        (folder / "calls.json").write_text(json.dumps([described(row) for row in all_rows]))
        text, count = uses(all_rows)
        if count < len(declared.routines):
            sys.exit(f"only {count} routines have a row whose arrays all have entries")
        (folder / "uses.mts").write_text(text)
    elif not check(all_rows, json.loads((folder / "results.json").read_text())):
        sys.exit(1)
    else:
        print(f"{len(all_rows)} rows")


if __name__ == "__main__":
    main()
