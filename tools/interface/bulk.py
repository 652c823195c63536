"""How the arguments of a routine group where a call is made for many: what an array interface takes
and returns in place of single arguments.

Names of one @param line are one operand if they count on: x1,y1,z1 has an axis of 3, two such runs
in a line (x1,y1,z1,x2,y2,z2) have axes of 2 and 3, and nine a matrix. Lists of that kind have their
entries' axis in front: X,Y [n] is one array (..., n, 2). Other names are operands by themselves.
Lines also make one operand if their names count on from one to the next: x,y and z of a point, of
which some are only written.
"""

import math
import re
from dataclasses import dataclass, field

from . import conditions
from .model import FormError

# Names that texts do not give, by how these begin.
NAMES = {
    "the axis system": "axes", "unit vector of the x axis": "axes", "the entries, row by": "matrix",
    "second point minus first": "difference", "the turned point": "turned",
    "centre, and a point": "circle", "two numbers": "e",
    "0.0": "v", "ignored": "points",
}
SHORT = {"point": "p", "vertices": "outline"}  # of what is given
ORDINAL = "first|second|third"


@dataclass
class Operand:
    """Its role is in; in,out; out; work (given and written, but no result unless asked for); count
    or count,out (of entries: found from the arrays); or ignored."""

    arguments: list
    role: str
    inner: tuple = ()  # lengths of the axes of its arguments, behind that of a list
    name: str = ""
    taken: str = ""  # of a list that is given how many entries it needs; the routine's extent may
    # ask for one more, which it writes
    texts: list = field(default_factory=list)

    @property
    def extent(self):
        return "" if self.arguments[0].extent == "1" else self.arguments[0].extent

    @property
    def kind(self):
        return self.arguments[0].kind

    def result_name(self):
        return "count" if self.name == "n" else self.name

    def is_given(self):
        return self.role in ("in", "in,out", "work")

    def is_kept(self):
        """Whether some case leaves a result, or part of it, as it was."""
        return self.role == "out" and any(a.kept_when or a.direction != "out"
                                          for a in self.arguments)

    def written(self):
        """Of a list whose extent is a product of counts how many entries are written."""
        return ("*" in re.sub(r"\b\d+ \* ", "", self.extent)
                and conditions.beyond(self.arguments[0].kept_when)) or ""


def counts_on(first, second):
    """Whether two names differ in one character, which is the next letter or digit."""
    pairs = [(a, b) for a, b in zip(first, second) if a != b]
    return len(first) == len(second) and len(pairs) == 1 and ord(pairs[0][1]) == ord(
        pairs[0][0]) + 1


def runs(names):
    """The names in pieces that count on."""
    pieces = [[names[0]]]
    for before, name in zip(names, names[1:]):
        if counts_on(before, name):
            pieces[-1].append(name)
        else:
            pieces.append([name])
    return pieces


def axes(names, text):
    """Lengths of the axes that names make together; none if they do not."""
    pieces = runs(names)
    lengths = {len(piece) for piece in pieces}
    if len(lengths) > 1 or lengths == {1}:
        return None
    if len(names) == 9 or "row by row" in text:
        return (math.isqrt(len(names)),) * 2
    return (len(names),) if len(pieces) == 1 else (len(pieces), lengths.pop())


def go_on(before, line):
    """Whether a line's names count on from those of the line before: x, y and z, or digits."""
    last, first = before[-1], line[0]
    step = counts_on(last.name, first.name) and (
        first.name[-1].isdigit() or re.match("[yz]", first.name))
    written = last.direction != "in" or first.direction != "in"
    return (step and written and len(before) + len(line) > 2
            and (last.extent, last.kind) == (first.extent, first.kind))


def lines(routine):
    """Arguments by their @param line; lines that go on are one."""
    found = []
    for argument in routine.arguments:
        if found and found[-1][-1].line == argument.line:
            found[-1].append(argument)
        else:
            found.append([argument])
    joined = found[:1]
    for line in found[1:]:
        if go_on(joined[-1], line):
            joined[-1] += line
        else:
            joined.append(line)
    return joined


def is_count(argument, routine):
    """Whether it says how many entries lists have that are given, and nothing else."""
    extents = [a.extent for a in routine.inputs() if a.extent]
    mentions = [e for e in extents if re.search(rf"\b{argument.name}\b", e)]
    return (argument.kind == "integer" and not argument.extent and argument.direction != "out"
            and bool(mentions) and not any("(" in e.replace("max(", "") for e in mentions))


def role(line, routine):
    directions = {a.direction for a in line}
    text, first = line[0].text, line[0]
    if len(line) == 1 and is_count(first, routine):
        return "count" if first.direction == "in" else "count,out"
    if directions == {"in"}:
        return "ignored" if text == "ignored" else "in"
    if "out" in directions or "read only if" in text:
        return "out"
    is_outline = len(line) > 1 and first.extent in ("n + 1", "max(n + 1, 3)")
    return "work" if is_outline else "in,out"


def taken(line, found_role):
    extent = line[0].extent
    if found_role == "out" or extent in ("", "1"):
        return ""
    return (re.sub(r"max\((\w+) \+ 1, 3\)|\b(\w+) \+ 1", r"\1\2", extent)
            if "in,out" in {a.direction for a in line} else extent)


def noun(text, is_given):
    """What a text calls the thing that several arguments are."""
    for beginning, name in NAMES.items():
        if text.startswith(beginning):
            return name
    label = re.match(r"(?:point )?([A-Za-z]\d?)(?=,| \(|$)|part (\d)", text)
    if label:
        return f"part{label[2]}" if label[2] else label[1].lower()
    whole = re.split(r"; | \(", text)[0]
    if of := re.search(rf"(?:(?:of|on) the (?:{ORDINAL})|^[xyz] and [xyz] of the) (\w+)(?=$|,)",
                       whole):
        return of[1]
    end = r",|;| \(| (?:of|on|to|with|at|as|against|about|along|in|minus|times|P0|a x)\b"
    head = re.split(end, re.sub(r"^the |^slab \d, ", "", text))[0]
    *before, last = head.split()
    ordinal = re.match(ORDINAL, before[0]) if before else None
    return SHORT.get(last, last) if is_given else ordinal[0] if ordinal else last


def numbered(names):
    """With those that are there several times numbered; p, q, r are points."""
    found = []
    for i, name in enumerate(names):
        if names.count(name) > 1:
            count = names[:i].count(name)
            name = "pqr"[count] if name == "p" else f"{name}{count + 1}"
        found.append(name)
    return found


def set_names(operands):
    """Together those of what is given, and those of results."""
    for given in True, False:
        members = [o for o in operands if o.inner and o.is_given() == given]
        names = numbered([noun(o.arguments[0].text, given) for o in members])
        for operand, name in zip(members, names):
            operand.name = name
    for operand in operands:
        if not operand.inner:
            operand.name = operand.arguments[0].name
    names = [o.name for o in operands if o.role != "ignored"]
    if len(set(names)) != len(names):
        raise FormError(f"array operands have one name: {', '.join(names)}")


def grouped(line, routine):
    """The operands of a line."""
    inner = axes([a.name for a in line], line[0].text) if len(line) > 1 else ()
    if inner is None:
        return [one for argument in line for one in grouped([argument], routine)]
    found = role(line, routine)
    texts = list(dict.fromkeys(a.whole_text() for a in line))
    return [Operand(line, found, inner, taken=taken(line, found), texts=texts)]


def operands(routine):
    """In the order of the routine's arguments."""
    found = [operand for line in lines(routine) for operand in grouped(line, routine)]
    set_names(found)
    return found
