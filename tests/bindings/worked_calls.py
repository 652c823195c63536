"""What the proofs of compiled bindings share: a program in the language makes every worked call of
tests/cases through the binding and prints the bits of its results; they are compared here.

Of a call it prints one line: its number, then the bits of every output, 8 hexadecimal digits each.
"""

import dataclasses
import pathlib
import re
import sys

from row_values import POISON, form, held, texts, word  # it says where to find the next
import interface
from interface import rows

INTERFACE = interface.read()


def has_signalling(literals):
    """Whether one is the bits of a not-a-number that changes on its way
    through the x87."""
    bits = [int(text, 16) for text in literals if text[:2] == "0x"]
    return any(one & 0x7FC00000 == 0x7F800000 and one & 0x3FFFFF for one in bits)


def in_other_kind(row):
    """A row about raw words with the same bits as reals instead of integers, or the reverse."""
    words = {a.name for a in row.routine.words()}

    def bits(found):
        return {name: [text if text == "." else f"0x{rows.word(text, row.kinds[name]):08x}"
                       for text in texts] if name in words else texts
                for name, texts in found.items()}

    kinds = {name: {"real": "integer", "integer": "real"}[kind] if name in words else kind
             for name, kind in row.kinds.items()}
    return dataclasses.replace(row, given=bits(row.given), wanted=bits(row.wanted), kinds=kinds)


def all_rows():
    for row in rows.read_rows(INTERFACE):
        yield row
        words = row.routine.words()
        texts = [text for a in words for text in row.given.get(a.name, [])]
        if words and not has_signalling(texts):
            yield in_other_kind(row)


ROWS = list(all_rows())


def wanted(row):
    """The literals of each output: an entry that a row leaves out is to be untouched."""
    entries = held(row)
    return {name: literals + ["."] * (len(entries[name]) - len(literals))
            for name, literals in row.wanted.items()}


def literal(writer, of_bits):
    """What writes a row's literals in the writer's language: of_bits, a real that is its bits. Not
    every compiler keeps the sign of a written -0."""
    def written(text, kind):
        bits = word(text, kind)
        is_bits = kind == "real" and (text[:2] == "0x" or bits in (POISON, 1 << 31))
        return of_bits(bits) if is_bits else writer.LANGUAGE.literals.of(
            f"0x{bits:08x}" if text == "." else text, kind)
    return written


def families():
    """The rows of each routine, or of each kind of words of one, by the declaration's name."""
    found = {}
    for row in ROWS:
        name = row.routine.name + (f"_{form(row)}" if row.routine.words() else "")
        found.setdefault(name, []).append(row)
    return found


def use(name, family):
    """How rows use an argument, whatever its declaration says: a result that one of them finds
    untouched goes in too."""
    if all(name not in row.wanted for row in family):
        return "in"
    untouched = any("." in wanted(row)[name] for row in family)
    return "in,out" if untouched or any(name in row.given for row in family) else "out"


def faults(row, results):
    """What a row's results are and should not be."""
    before, results = held(row), iter(results)
    for name, literals in wanted(row).items():
        for given, literal in zip(before[name], literals):
            bits, kind = next(results, None), row.kinds[name]
            if bits is None or not rows.meets(bits, word(given, kind), literal, kind):
                got = "nothing" if bits is None else f"{bits:08x}"
                yield f"{row.place}: {row.routine.name} {name}: {got} instead of {literal}"
    if next(results, None) is not None:
        yield f"{row.place}: {row.routine.name}: more results than wanted"


def check(lines):
    """Ends the program with what is wrong, or says how many calls passed."""
    results = {int(number): [int(word, 16) for word in words]
               for number, *words in map(str.split, lines)}
    found = [fault for number, row in enumerate(ROWS)
             for fault in faults(row, results.get(number, []))]
    routines = {row.routine.name for row in ROWS} ^ {r.name for r in INTERFACE.routines}
    found += [f"{name} has no row" for name in routines]
    if found:
        sys.exit("\n".join(found[:20] + [f"{len(found)} wrong"]))
    print(f"{len(ROWS)} calls of {len(INTERFACE.routines)} routines passed")


def copies():
    """Rows that a manual could show: a callback, words, a list of either kind, ordinary ones, and
    one with the least integer."""
    for name in ("kezlci", "kezpre", "kezpnl", "kezmer1", "kezmer16", "kezpos1", "kezphip"):
        yield next(row for row in ROWS if row.routine.name == name)
    yield next(row for row in ROWS if "-2147483648" in row.given.get("a", []))


def copied(row, writer):
    """The worked call as a manual shows it."""
    literals, sizes = texts(row, writer.LANGUAGE.literals.of, writer.LANGUAGE.literals.joint)
    return writer.call(row.routine, {name: literals[name] for name in row.given}, sizes)


def printed_faults(row, text):
    """What is wrong with the results as text, NAME = VALUE ...; a kept one prints anything."""
    shown = dict(re.findall(r"(\w+) =((?:\s+[-+.\w]+)*?)(?=\s+\w+ =|\s*$)", text))
    for name, literals in wanted(row).items():
        values = shown[name].split()
        if len(values) != len(literals):
            yield f"{row.place}: {name}: {values}"
        for value, literal in zip(values, literals):
            bits = rows.word(value, row.kinds[name])
            if literal != "." and not rows.meets(bits, None, literal, row.kinds[name]):
                yield f"{row.place}: {name}: {value} instead of {literal}"


def check_copied(source, printed):
    (row,) = (row for row in copies() if row.routine.name == pathlib.Path(source).stem)
    if found := list(printed_faults(row, pathlib.Path(printed).read_text())):
        sys.exit("\n".join(found))


def main(writer, write):
    """PROGRAM: writes the source of the proof. --check OUTPUT: compares what it printed.
    --copy FOLDER SUFFIX: writes calls as a manual shows them. --check-copied SOURCE OUTPUT."""
    command, *operands = sys.argv[1:]
    if command == "--check":
        check(pathlib.Path(operands[0]).read_text().splitlines())
    elif command == "--copy":
        for row in copies():
            path = pathlib.Path(operands[0]) / f"{row.routine.name}.{operands[1]}"
            path.write_text(copied(row, writer))
    elif command == "--check-copied":
        check_copied(*operands)
    else:
        pathlib.Path(command).write_text(write())
