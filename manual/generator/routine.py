"""What a routine's page says."""

import itertools
import re
from dataclasses import dataclass

from interface.languages import shape

DIRECTIONS = {"in": "in", "out": "out", "in,out": "in and out"}
UNIT = re.compile(r" \((lengths?(?:\^\d)?|rad|stress)\)")
NAME = re.compile(r"\bkez\w+\b")
CLAUSE = r"(?:table )?\d[\d.]*\d(?: \([^)]*\))?"
SOURCE = re.compile(rf"EN 199\d-\d-\d(?:, {CLAUSE}(?: and {CLAUSE})*)?")
FIRST = re.compile(r"(?:[^\n]|\n(?!\n))+?(?<! )(?<!\.\.)\.(?=\s|$)")  # the first sentence
TIME = re.compile(r"(?m)^Time: ((?:.|\n(?!\n))+)\.$")


@dataclass
class ArgumentRow:
    names: list
    direction: str
    shape: str
    meaning: str
    unit: str
    kept: str  # the cases in which it is not written


def argument_row(group, names):
    unit = UNIT.search(group.text)
    return ArgumentRow(names, DIRECTIONS[group.direction], shape(group),
                       UNIT.sub("", group.text) if unit else group.text, unit[1] if unit else "",
                       group.kept_when)


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
    return "\n\n".join([routine.summary, routine.details, routine.kept,
                        *(a.whole_text() for a in routine.arguments)])


def time(routine):
    found = TIME.search(routine.details)
    return " ".join(found[1].split()) if found else ""


def sources(routine):
    text = " ".join(whole_text(routine).split())
    found = list(dict.fromkeys(SOURCE.findall(text)))
    return [s for s in found if not any(other != s and other.startswith(s) for other in found)]


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
    """The summary. One that ends in a colon leads up to what is said behind it."""
    return routine.summary.rstrip(":.") + "."


def lead_and_description(routine):
    """The first sentence, and what stands below it but for the time."""
    details = TIME.sub("", routine.details)
    found = FIRST.match(details) if routine.summary.endswith(":") else None
    if not found:
        return sentence(routine), details.rstrip()
    return f"{routine.summary} {found[0]}", details[found.end():].strip()
