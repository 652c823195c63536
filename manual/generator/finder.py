"""What a routine takes and gives, in a few kinds, from the header's groups of arguments."""

import re

from . import routine
from .statuses import NAMES

HAVE = {"points": "points", "segments": "segments", "lines": "lines", "circles": "circles",
        "planes": "planes", "directions": "directions", "outline": "an outline or polygon",
        "list": "a list or table", "length": "a length", "angle": "an angle",
        "number": "other numbers"}
WANT = {"points": "a point", "lines": "a line", "circles": "a circle", "planes": "a plane",
        "directions": "a direction", "length": "a distance or length", "angle": "an angle",
        "relation": "a relation, yes or no", "area": "an area or moment",
        "outline": "an outline or polygon", "list": "a list, an order", "number": "other numbers"}
BUILDER = "kezsec_"
AREAS = ("outlines", "design", "circles")  # groups in which powers of lengths are areas and moments
POINT = re.compile(r"([xyz]|p[xyz]$|c\d?[xyz]$)", re.IGNORECASE)
TOLD = re.compile(r"ignored|number of|^entries of|passed through")
MAKERS = {"lines": "kezln3", "circles": "kezcer", "planes": "kezpl1"}  # of coefficients
LINES_BY_POINTS = re.compile(r"line P1|lines? in space|two lines|of (a|the) lines?|to the lines? P")


def coefficients(row):
    """Of a line, a circle or a plane: what stands for them without a unit."""
    first, count = row.names[0][0], len(row.names)
    if count == 3 and first in "Dd" and "circle" in row.meaning:
        return "circles"
    if count == 4 and first in "Aa":
        return "planes"
    if count == 3 and first == "a" and re.search("line|parallel", row.meaning):
        return "lines"
    return ""


def scalars(row):
    """Of scalars that the header documents together."""
    found = coefficients(row)
    if found:
        return found
    if re.search(r"\bends of the .*segment|^(first|second) end\b", row.meaning):
        return "segments"
    if row.names[0] == "m1" or re.search(r"\b(direction|vector|normal)\b", row.meaning) and \
            len(row.names) > 1:
        return "directions"
    if row.unit == "length" and len(row.names) > 1 and (
            POINT.match(row.names[0]) or "origin" in row.meaning):
        return "points"
    return "points" if row.direction == "out" and row.names[0].startswith("z") else ""


def entries(row):
    """Of an array."""
    if re.search(r"vertices|corners|as the kind needs|part \d", row.meaning):
        return "outline"
    if re.search(r"^the lines", row.meaning):
        return "lines"
    if "[3]" in row.shape and "product" in row.meaning:
        return "directions"
    if row.unit == "length" and re.search(r"point|centre", row.meaning):
        return "points"
    return "list"


def makers(r):
    """The routines that make the coefficients which this one takes, of what users have."""
    rows = [row for row in routine.argument_rows(r) if row.direction == "in"]
    found = dict.fromkeys(MAKERS[kind] for kind in map(coefficients, rows) if kind)
    return [name for name in found if name != r.name]


def kind_of(row):
    if "array" in row.shape:
        return entries(row)
    if "^" in row.unit:
        return "area"
    return scalars(row) or {"length": "length", "rad": "angle"}.get(row.unit, "number")


def also_taken(r, rows):
    """Figures that a routine takes by points: lines by two, circles by their centre."""
    said = " ".join(row.meaning for row in rows)
    if LINES_BY_POINTS.search(routine.sentence(r)):
        yield "lines"
    if "circle" in said or "centre" in said and "radius" in said:
        yield "circles"


def haves(r):
    rows = [row for row in routine.argument_rows(r)
            if row.direction != "out" and not TOLD.search(row.meaning)]
    found = {kind_of(row) for row in rows if row.shape != "integer"} | set(also_taken(r, rows))
    return found & set(HAVE) or {"number"}


def relation(rows):
    """Whether an integer of the results says how things lie, and not only whether all went well."""
    alone = all(row.names[0] in NAMES for row in rows)
    return {"relation" for row in rows if row.names[0] in NAMES and row.shape.startswith("integer")
            and (alone or row.names[0] not in ("status", "fail"))}


def wants(r):
    if r.name.startswith(BUILDER):
        return {"outline"}
    rows = [row for row in routine.argument_rows(r) if row.direction != "in"]
    new = [row for row in rows if row.direction == "out"]
    found = relation(new) | {kind_of(row) for row in new if row.shape != "integer"}
    found = found or {kind_of(row) for row in rows if row.shape != "integer"}
    if "area" in found and r.group_name not in AREAS:
        found = found - {"area"} | {"number"}
    return found & set(WANT) or {"number"}


def offered(choices, kinds, key):
    """Those kinds that some routine has."""
    present = {kind for choice in choices for kind in choice[key].split()}
    return {kind: label for kind, label in kinds.items() if kind in present}


def values(cards):
    """Each routine's card with what it takes and what it gives, and the boxes to tick."""
    choices = [{"card": card, "have": " ".join(sorted(haves(card.routine))),
                "want": " ".join(sorted(wants(card.routine)))} for card in cards]
    return {"choices": choices, "have": offered(choices, HAVE, "have"),
            "want": offered(choices, WANT, "want")}
