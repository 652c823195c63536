"""The worked calls of the rows, as what a page shows and what node is asked to call."""

import itertools
from collections import defaultdict
from dataclasses import dataclass, field

from interface.arithmetic import signed
from interface.rows import read_rows, single, word

SHOWN = 8


@dataclass
class Worked:
    row: object
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
    return str(signed(bits)) if kind == "integer" else f"{single(bits):.9g}"


def typed(literals, kind):
    return " ".join(literal_text(literal, kind) for literal in literals)


def inputs(row):
    return {a.name: typed(row.given[a.name], row.kinds[a.name]) for a in row.routine.inputs()}


def worked_calls(interface):
    """By routine, in the order of the rows, from the first with a sentence on: those before it show
    what is kept from before any call, of which nothing can be drawn."""
    found = defaultdict(list)
    for row in read_rows(interface):
        if row.comment or row.routine.name in found:
            found[row.routine.name].append(Worked(row, inputs(row)))
    return found


def groups(calls):
    """Calls that share a sentence; those without any stand together, last."""
    said = itertools.groupby((call for call in calls if call.sentence), lambda call: call.sentence)
    silent = [call for call in calls if not call.sentence]
    return [list(group) for _, group in said] + ([silent] if silent else [])


def shown_and_folded(together):
    """As many groups as show about so many calls, and the others; what says nothing is shown only
    where there is nothing else."""
    before = itertools.accumulate(map(len, together), initial=0)
    count = sum(already < SHOWN and bool(group[0].sentence)
                for already, group in zip(before, together)) or 1
    return together[:count], together[count:]
