"""What a routine's page says."""

import itertools
import re
from dataclasses import dataclass

from interface import conditions
from interface.languages import documentation, known_as, shape

DIRECTIONS = {"in": "in", "out": "out", "in,out": "in and out"}
UNIT = re.compile(r" \((lengths?(?:\^\d)?|rad|stress)\)")
NAME = re.compile(r"\bkez\w+\b")
FIRST = re.compile(r"(?:[^\n]|\n(?!\n))+?(?<! )(?<!\.\.)\.(?=\s|$)")  # the first sentence
FACTS = ("Time", "Source", "Kept value")  # remarks that stand below the arguments


@dataclass
class ArgumentRow:
    names: list
    direction: str
    shape: str
    meaning: str
    unit: str
    kept: str  # the header's clause of the cases in which it is not written
    beyond: str  # of an array, how many first entries are written and no others
    values: str = ""  # of one that reports a case, the address of what its values mean


def argument_row(group, names):
    unit = UNIT.search(group.text)
    return ArgumentRow(names, DIRECTIONS[group.direction], shape(group),
                       UNIT.sub("", group.text) if unit else group.text, unit[1] if unit else "",
                       group.kept_clause(), conditions.beyond(group.kept_when) or "")


def is_length(argument):
    unit = UNIT.search(argument.text)
    return bool(unit) and unit[1] == "length"


def argument_rows(routine):
    """Neighbours that the header documents together stand together."""
    def documented(a):
        return a.direction, a.kind, a.extent, a.text, a.kept_when

    for _, members in itertools.groupby(routine.arguments, documented):
        members = list(members)
        yield argument_row(members[0], [a.name for a in members])


def whole_text(routine):
    return "\n\n".join([known_as(routine), documentation(routine),
                        *(a.whole_text() for a in routine.arguments)])


def remarks_above(routine):
    """The titled paragraphs of the text; the others are facts."""
    return {title: text for title, text in routine.remarks().items() if title not in FACTS}


def related(routine, interface):
    """Routines that the text names, those that name it, and neighbours in the family."""
    known = {r.name: r for r in interface.routines}
    named = [n for n in NAME.findall(whole_text(routine)) if n in known]
    naming = [r.name for r in interface.routines
              if routine.name in NAME.findall(whole_text(r))]
    members = [r.name for r in interface.routines if r.group == routine.group]
    here = members.index(routine.name)
    near = sorted(members, key=lambda name: abs(members.index(name) - here))[1:5]
    names = dict.fromkeys([*named, *naming, *sorted(near, key=members.index)])
    return [known[name] for name in names if name != routine.name]


def family(routine, interface):
    return next(g for g in interface.groups if g.title == routine.group)


def sentence(routine):
    """The summary. One that ends in a colon leads up to what is said after it."""
    return routine.summary.rstrip(":.") + "."


def lead_and_description(routine):
    """The first sentence, and what the description says below it."""
    found = FIRST.match(routine.details) if routine.summary.endswith(":") else None
    if not found:
        return sentence(routine), routine.details.rstrip()
    return f"{routine.summary} {found[0]}", routine.details[found.end():].strip()
