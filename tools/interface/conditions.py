"""The clauses of what is kept, as far as the integers of a call tell when they hold:

    kept beyond E                  of an array: the first E entries are written, further ones kept
    kept when n is 0, 1 or 2       kept when n is not 0        kept when n is below 1

Any other wording is for readers only.
"""

import re
from dataclasses import dataclass

from . import arithmetic
from .model import FormError

BEYOND = re.compile(r"beyond (.+)")
COMPARISON = re.compile(r"(\w+) is (?:(not )?(-?\d+(?:(?:, | or )-?\d+)*)|below (-?\d+))")


@dataclass
class Comparison:
    name: str
    relation: str  # is, not or below
    values: list


def beyond(condition):
    """How many first entries are written, an expression; none when the condition is another."""
    match = BEYOND.fullmatch(condition)
    return match[1] if match else None


def comparison(condition):
    match = COMPARISON.fullmatch(condition)
    if not match:
        return None
    name, negation, values, limit = match.groups()
    relation = "below" if limit else "not" if negation else "is"
    return Comparison(name, relation, [int(v) for v in re.findall(r"-?\d+", limit or values)])


def check(argument, arguments):
    """What has one of the forms must be about integers that have one value in a call."""
    integers = [a for a in arguments if a.kind == "integer" and a.direction != "in,out"]
    place = f"{argument.name}: '{argument.kept_clause()}'"
    if expression := beyond(argument.kept_when):
        if not argument.extent:
            raise FormError(f"{place}, but it is no array")
        arithmetic.check(expression, integers, place, "an integer that is in or out")
    elif found := comparison(argument.kept_when):
        if found.name not in {a.name for a in integers if not a.extent}:
            raise FormError(f"{place}: {found.name} is not an integer scalar that is in or out")
