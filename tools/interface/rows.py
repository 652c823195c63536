"""Reads the worked calls of tests/cases, in the form that kezcall documents:

    kezlci  1 0 0  0 0 -1  ->  2  0 1  0 -1  # comment

Only good rows are here: kezcall, which runs them first, says what is wrong with a bad one.
"""

import math
import re
import struct
from dataclasses import dataclass, field

from .reader import ROOT

CASES = ROOT / "tests/cases"
POISON = 0x7FA5A5A5  # what kezcall puts where a row gives no value
TOKEN = re.compile(r"[\[\]]|[^\s\[\]]+")


@dataclass
class Row:
    routine: object
    place: str  # file and line
    comment: str  # a sentence, of its own line or else of the lines above
    given: dict = field(default_factory=dict)  # by input the literals: one of a scalar
    wanted: dict = field(default_factory=dict)  # by output
    kinds: dict = field(default_factory=dict)  # by argument real or integer: words have one too


def operands(arguments, tokens):
    """The literals of each argument, taken off the front of the tokens."""
    found = {}
    for argument in arguments:
        if tokens[0] == "[":
            end = tokens.index("]")
            found[argument.name], tokens[:end + 1] = tokens[1:end], []
        else:
            found[argument.name] = [tokens.pop(0)]
    return found


def looks_real(literal):
    return literal != "." and not literal.startswith("0x") and bool(set(literal) & set(".eEn~"))


def kinds(row):
    literals = [text for found in (row.given, row.wanted) for a in row.routine.words()
                for text in found.get(a.name, [])]
    of_words = "real" if any(map(looks_real, literals)) else "integer"
    return {a.name: {"word": of_words, "callback": "real"}.get(a.kind, a.kind)
            for a in row.routine.arguments}


def parse_row(text, routine, place, comment):
    left, _, right = text.partition("->")
    row = Row(routine, place, comment)
    row.given = operands(routine.inputs(), TOKEN.findall(left)[1:])
    row.wanted = operands(routine.outputs(), TOKEN.findall(right))
    row.kinds = kinds(row)
    return row


def comments_above(lines):
    """For each line the comment that it belongs to, up to a blank line or the next comment."""
    above, open_ = [], False
    for line in lines:
        text, _, comment = line.partition("#")
        comment_alone = bool(comment) and not text.strip()
        if not line.strip() or comment_alone and not open_:
            above = []
        if comment_alone:
            above = [*above, comment.strip()]
        open_ = comment_alone
        yield " ".join(above)


def read_rows(interface):
    """All rows, in the order of the files."""
    routines = {routine.name: routine for routine in interface.routines}
    for path in sorted(CASES.glob("*.txt")):
        lines = path.read_text().splitlines()
        for number, (line, above) in enumerate(zip(lines, comments_above(lines)), 1):
            text, _, comment = line.partition("#")
            if text.strip():
                yield parse_row(text, routines[text.split()[0]], f"{path.name}:{number}",
                                comment.strip() or above)


def worked_calls(interface):
    """By routine the rows with a sentence, an ordinary call first: what a manual shows.

    The others are there for the tests alone, as those on what is kept before any call.
    """
    calls = {routine.name: [] for routine in interface.routines}
    for row in read_rows(interface):
        if row.comment:
            calls[row.routine.name].append(row)
    return calls


def word(literal, kind):
    """The 32 bits of a literal."""
    if literal == ".":
        return POISON
    if literal.startswith("0x"):
        return int(literal, 16)
    if kind == "integer":
        return int(literal) & 0xFFFFFFFF
    return single_bits(float(literal))


def single_bits(value):
    """The nearest single's bits. A literal that is a tie of doubles rounds twice: there is none."""
    try:
        return struct.unpack("<I", struct.pack("<f", value))[0]
    except OverflowError:
        return single_bits(math.copysign(math.inf, value))


def single(bits):
    return struct.unpack("<f", struct.pack("<I", bits))[0]


def meets(bits, before, literal, kind):
    """Whether a result, its bits, is what the row wants; `before` is what was there."""
    if literal == ".":
        return bits == before
    if literal.startswith("0x") or kind == "integer":
        return bits == word(literal, kind)
    got = single(bits)
    if "~" in literal:
        value, _, tolerance = literal.partition("~")
        value, tolerance = (float(value), float(tolerance)) if value else (
            float(tolerance), 1e-6 * abs(float(tolerance)))
        return abs(got - value) <= tolerance
    wanted = single(word(literal, kind))
    if math.isnan(wanted):
        return math.isnan(got)
    same_zero = wanted != 0 or not literal.startswith("-") or bits == 0x80000000
    return got == wanted and same_zero
