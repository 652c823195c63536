"""The worked calls of the rows, as what a page shows and what node is asked to call."""

from collections import defaultdict
from dataclasses import dataclass, field

from interface.rows import read_rows, single, word

SHOWN = 8


@dataclass
class Worked:
    row: object
    place: int  # in the order of the rows
    inputs: dict = field(default_factory=dict)  # texts, for the page's address and fields
    results: dict = field(default_factory=dict)  # texts, None where nothing was written

    @property
    def sentence(self):
        return self.row.comment


def literal_text(literal, kind):
    """As it is typed: bits that a row gives as a hexadecimal word are its value."""
    if not literal.startswith("0x"):
        return literal
    bits = word(literal, kind)
    return str(bits - (bits >> 31 << 32)) if kind == "integer" else f"{single(bits):.9g}"


def typed(literals, kind):
    return " ".join(literal_text(literal, kind) for literal in literals)


def inputs(row):
    return {a.name: typed(row.given[a.name], row.kinds[a.name]) for a in row.routine.inputs()}


def worked_calls(interface):
    """By routine; a first row that says something comes first, then the others that do."""
    found = defaultdict(list)
    for row in read_rows(interface):
        calls = found[row.routine.name]
        calls.append(Worked(row, len(calls), inputs(row)))
    return found


def in_order_of_interest(calls):
    return sorted(calls, key=lambda call: (not call.sentence, call.place))


def shown_and_folded(calls):
    ordered = in_order_of_interest(calls)
    return ordered[:SHOWN], ordered[SHOWN:]
