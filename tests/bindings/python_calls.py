"""Makes every worked call of tests/cases through the Python package, and compares.

    python_calls.py numpy|plain preset|none

With numpy arrays are passed and come back; without, the calls are made as the manual shows them,
with lists. What outputs hold before is given for all that may be kept, or for none.
"""

import contextlib
import io
import math
import pathlib
import struct
import sys

sys.path.append(str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
import interface  # noqa: E402
from interface import arithmetic, conditions, rows, shapes  # noqa: E402
from interface.writers import python  # noqa: E402

WITH_NUMPY, PRESET = sys.argv[1] == "numpy", sys.argv[2] == "preset"
if not WITH_NUMPY:
    sys.modules["numpy"] = None  # importing it fails
import kezlib  # noqa: E402

# What the package presets, and what is given here instead: its text, and its bits.
OWN = {"real": 0x7FE5A5A5, "integer": 0x80000000}
GIVEN = {"real": "-12345.5", "integer": "-98765"}


def bits_of(value, kind):
    if kind == "integer":
        return int(value) & 0xFFFFFFFF
    return struct.unpack("=I", struct.pack("=f", value))[0]


def quieted(bits, kind):
    """A float of Python cannot hold a signalling not-a-number."""
    is_signalling = kind == "real" and bits & 0x7FFFFFFF > 0x7F800000
    return bits | 0x400000 if is_signalling else bits


def extent(argument, integers):
    return max(arithmetic.evaluate(argument.extent, integers), 0)


def integers_of(row, before=False):
    """The integers of a call by name: before it, or else what comes out over what goes in, and 0
    where nothing does."""
    found = {}
    for literals in (row.given,) if before else (row.given, row.wanted):
        for argument in row.routine.arguments:
            texts = literals.get(argument.name)
            if argument.kind == "integer" and texts is not None:
                numbers = [0 if text == "." else arithmetic.signed(rows.word(text, "integer"))
                           for text in texts]
                found[argument.name] = numbers if argument.extent else numbers[0]
    return found


def presets(row):
    """Literals of what is given for outputs; one entry more than an array must have."""
    if not PRESET:
        return {}
    integers = integers_of(row, before=True)
    return {a.name: [GIVEN[row.kinds[a.name]]] * (extent(a, integers) + 1 if a.extent else 1)
            for a in row.routine.kept_outputs()}


def passed(argument, literals, kind):
    """An argument as numpy has it."""
    import numpy
    bits = [rows.word(literal, kind) for literal in literals]
    entries = numpy.array(bits, numpy.uint32).view(
        numpy.float32 if kind == "real" else numpy.int32)
    if argument.callback:
        return lambda i: entries[i - 1]
    return entries if argument.extent else entries[0]


def call_with_numpy(row, literals):
    values = {a.name: passed(a, literals[a.name], row.kinds[a.name])
              for a in row.routine.arguments if a.name in literals}
    inputs = [values[a.name] for a in row.routine.inputs()]
    kept = {python.LANGUAGE.name(a.name): values[a.name] for a in row.routine.kept_outputs()
            if a.name in values}
    return getattr(kezlib, row.routine.name)(*inputs, **kept)


def call_as_shown(row, literals):
    write = python.LANGUAGE.literals
    texts = {name: write.joint.join(write.of(literal, row.kinds[name]) for literal in found)
             for name, found in literals.items()}
    sizes = {name: str(len(found)) for name, found in literals.items()}
    names = {}
    with contextlib.redirect_stdout(io.StringIO()) as printed:
        exec(python.call(row.routine, texts, sizes), names)
    assert printed.getvalue() == f"{names['result']}\n"
    return names["result"]


def has_type(value, argument, kind):
    if argument.extent and WITH_NUMPY:
        return value.dtype == {"real": "float32", "integer": "int32"}[kind]
    wanted = {"real": float, "integer": int}[kind]
    return all(type(entry) is wanted for entry in (value if argument.extent else [value]))


def length_wanted(argument, row, literals):
    """Of an array that is returned."""
    if argument.name in literals:
        return len(literals[argument.name])
    size = extent(argument, integers_of(row, before=True))
    if expression := conditions.beyond(argument.kept_when):
        return min(size, max(arithmetic.evaluate(expression, integers_of(row)), 0))
    return size


def before(argument, i, row, literals):
    """Bits of what the i-th entry held."""
    kind = row.kinds[argument.name]
    if argument.name not in literals:
        return OWN[kind]
    bits = rows.word(literals[argument.name][i], kind)
    is_shown = kind == "real" and not WITH_NUMPY  # where all not-a-numbers are written alike
    return rows.word("nan", kind) if is_shown and math.isnan(rows.single(bits)) else bits


def fault(argument, value, row, literals):
    """What is wrong with a result, if anything."""
    kind, wanted = row.kinds[argument.name], row.wanted[argument.name]
    if not argument.extent and wanted == ["."] and argument.name not in literals:
        return "" if value is None else "is not None"
    if not has_type(value, argument, kind):
        return "has another type"
    if argument.extent and len(value) != length_wanted(argument, row, literals):
        return f"has not {length_wanted(argument, row, literals)} entries"
    values = list(value) if argument.extent else [value]
    exact = WITH_NUMPY and argument.extent
    for i, entry in enumerate(values):
        bits, old = bits_of(entry, kind), before(argument, i, row, literals)
        if exact:
            bits = int(value.view("uint32")[i])
        elif kind == "real":
            old = quieted(old, kind)
        literal = wanted[i] if i < len(wanted) else "."
        if not exact and literal.startswith("0x"):
            literal = hex(quieted(int(literal, 16), kind))
        if not rows.meets(bits, old, literal, kind):
            return f"is not {literal} at {i + 1}"
    if set(wanted[len(values):]) - {"."}:
        return "has too few entries"
    return ""


def least_entries(argument, row):
    """The last one may be missing where it is only written; of pairs as many are wanted as there
    are."""
    integers = integers_of(row, before=True)
    size = extent(argument, integers)
    if shapes.pairs(argument, row.routine):
        expression = conditions.beyond(argument.kept_when)
        return min(size, max(arithmetic.evaluate(expression, integers_of(row)), 0))
    read = shapes.read_entries(argument)
    return min(size, max(arithmetic.evaluate(read, integers), 1)) if read else size


def calls_with_too_few_entries(row, literals):
    """The literals with one entry too few in an array, by the array."""
    for argument in row.routine.arguments:
        if argument.extent and not argument.callback and argument.name in literals:
            size = least_entries(argument, row)
            if size > 0:
                yield argument, literals | {argument.name: literals[argument.name][:size - 1]}


def without_what_is_only_written(row, literals):
    return literals | {a.name: literals[a.name][:least_entries(a, row)]
                       for a in row.routine.arguments if shapes.read_entries(a)}


def is_another(argument, value, short, row):
    """Whether a call without an entry that is only written gives another result."""
    if not argument.extent:
        return repr(value) != repr(short)
    size = extent(argument, integers_of(row, before=True))
    is_cut = set(row.wanted[argument.name][len(short):size]) - {"."}
    return is_cut or repr(list(value)[:len(short)]) != repr(list(short))


def faults(row):
    literals = row.given | presets(row)
    call = call_with_numpy if WITH_NUMPY else call_as_shown
    result = call(row, literals)
    names = [python.LANGUAGE.name(a.name) for a in row.routine.outputs()]
    if list(result._fields) != names or len(result) != len(names):
        yield f"{result._fields} = {tuple(result)}"
    for argument, value in zip(row.routine.outputs(), result):
        if text := fault(argument, value, row, literals):
            yield f"{argument.name} = {value} {text}"
    shorter = without_what_is_only_written(row, literals)
    if shorter != literals:
        for argument, value, short in zip(row.routine.outputs(), result, call(row, shorter)):
            if is_another(argument, value, short, row):
                yield f"{argument.name} = {short} without what is only written"
    for argument, too_few in calls_with_too_few_entries(row, literals):
        try:
            call(row, too_few)
            yield f"{argument.name} may have too few entries"
        except ValueError as error:
            if f"{row.routine.name}: {argument.name} has" not in str(error):
                yield f"{argument.name} with too few entries: {error}"


def main():
    passed_rows = failed = 0
    for row in rows.read_rows(interface.read()):
        try:
            found = list(faults(row))
        except Exception as error:
            found = [f"{type(error).__name__}: {error}"]
        for text in found:
            print(f"{row.place}: {row.routine.name}: {text}")
        passed_rows += not found
        failed += bool(found)
    print(f"{' '.join(sys.argv[1:])}: {passed_rows} calls passed, {failed} failed")
    sys.exit(failed > 0 or passed_rows == 0)


if __name__ == "__main__":
    main()
