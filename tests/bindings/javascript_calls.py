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

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent.parent / "tools"))
import interface  # noqa: E402
from interface import arithmetic, conditions, rows  # noqa: E402
from interface.writers import javascript, typescript  # noqa: E402

UNWRITTEN = {"real": 0x7FE5A5A5, "integer": 0x80000000}
GIVEN_TO_KEEP = {"real": rows.single_bits(-77.25), "integer": -77 & 0xFFFFFFFF}


def signed(word):
    return word - (word >> 31 << 32)


def words(row, name):
    return [rows.word(literal, row.kinds[name]) for literal in row.given[name]]


def integers(row):
    """Those that are given, as extents take them."""
    found = {}
    for argument in row.routine.inputs():
        if argument.kind == "integer":
            values = [signed(word) for word in words(row, argument.name)]
            found[argument.name] = values if argument.extent else values[0]
    return found


def extent(row, argument):
    return max(arithmetic.evaluate(argument.extent, integers(row)), 0) if argument.extent else 1


def kept(row):
    """What the outputs that may be kept hold, where the host says so."""
    names = javascript.kept(row.routine)
    return {a.name: [GIVEN_TO_KEEP[row.kinds[a.name]]] * extent(row, a)
            for a in row.routine.outputs() if a.name in names}


def texts(row, language):
    literals = {a.name: language.joint.join(language.of(literal, row.kinds[a.name])
                                            for literal in row.given[a.name])
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
    return [word if word is None else rows.single_bits(float(signed(word)))
            for word in found["words"]]


def wanted_length(row, argument, results, way):
    """The entries of an output: as many as were given, or are written."""
    if argument.direction == "in,out":
        return len(row.given[argument.name])
    expression = conditions.behind(argument.kept_when)
    if not expression or way == "plain":
        return extent(row, argument)
    after = integers(row)
    for output in row.routine.outputs():
        if output.kind == "integer":
            values = [signed(word or 0) for word in results[output.name]["words"]]
            after[output.name] = values if output.extent else values[0]
    return min(max(arithmetic.evaluate(expression, after), 0), extent(row, argument))


def before(row, argument, way):
    """What an output held before the call."""
    kind = row.kinds[argument.name]
    if argument.direction == "in,out":
        return words(row, argument.name)
    if way == "plain" and argument.name in javascript.kept(row.routine):
        return [GIVEN_TO_KEEP[kind]] * extent(row, argument)
    return [UNWRITTEN[kind] if argument.extent else None] * extent(row, argument)


def is_nan(word, kind):
    """Whose bits numbers of JavaScript need not carry."""
    return kind == "real" and word is not None and math.isnan(rows.single(word))


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
        for position, (word, held, literal) in enumerate(zip(got, before(row, argument, way),
                                                             wanted), 1):
            if literal == ".":
                by_bits = way == "typed" and argument.extent
                well = word == held or (not by_bits and is_nan(word, kind) and is_nan(held, kind))
            else:
                well = word is not None and rows.meets(word, held, literal, kind)
            if not well:
                yield f"{argument.name}({position}) is {word}, wanted {literal}"


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
