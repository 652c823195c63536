"""What the integers mean by which routines report a case, read from the header's texts."""

import re
from dataclasses import dataclass, field

from interface import conditions

NAMES = ("status", "rel", "code", "flag", "same", "zero", "spans", "side", "fail", "pos", "k",
         "onLine", "code1")
POINTS = "number of points"
CASE = re.compile(r"(?:^|[,;:] |\bor |\belse )(?:or |else )?(-?\d+)(?=[\s,;]|$)")
ROW = re.compile(r"^\| *(-?\d*) *\|(.*)\|$", re.MULTILINE)
DONE = "The ordinary case."

# Where the header's sentence has another form.
OTHERS = {
    "kezcer10": {0: "The point was found, the input was rejected, or the point is on the guide's "
                    "line away from both P1 and P2.",
                 1: "The lines coincide.", 2: "The lines are parallel."},
    "kezcer1": {0: "No centre, a level chord, or f < 1.0e-5.",
                1: "One centre.", 2: "Two centres."},
    "kezphip": {-1: "A direction is not longer than 1.0e-5."},
    "kezpsp": {0: "The point is in the plane.", -1: "The point is outside the plane."},
}


@dataclass
class Case:
    value: int
    meaning: str
    kept: list = field(default_factory=list)  # outputs that are not written then
    example: object = None  # a worked call


@dataclass
class Report:
    """An integer output that says what happened."""

    routine: object
    argument: object
    cases: list


def polished(text):
    text = " ".join(text.replace("(see below)", "").split()).strip(" ,;:")
    text = re.sub(r",? (or|else|and)$", "", text).removeprefix("when ")
    if text == "not":
        return "In all other cases."
    if text.startswith("or the `"):
        return DONE
    is_name = re.match(r"[a-z] [<>=]", text) or text.startswith("n is")
    return (text if is_name else text[:1].upper() + text[1:]) + "." if text else ""


def table_of(routine, name):
    """Of the header's table whose first column has that name: meaning by value."""
    head = re.search(rf"^\| *{name} *\|.*\n\|[-|]+\|\n((?:\|.*\n?)+)", routine.details,
                     re.MULTILINE)
    found, last = {}, None
    for value, cells in ROW.findall(head[1]) if head else ():
        said = cells.split("|")[-1].strip()
        last = int(value) if value else last
        found[last] = f"{found[last]} {said}" if last in found else said
    return {value: polished(text) for value, text in found.items()}


def sentence_cases(text):
    """"0 one point, 1 the lines coincide" and the like."""
    if text.startswith(POINTS) or text.startswith("number of points"):
        return {int(v): {0: "No point.", 1: "One point: they touch.", 2: "Two points."}[int(v)]
                for v in CASE.findall(text)}
    in_brackets = re.compile(r"\([^)]*\)")
    matches = list(CASE.finditer(in_brackets.sub(lambda m: "-" * len(m[0]), text)))
    ends = [m.start() for m in matches[1:]] + [len(text)]
    found, shared = {}, []
    for match, end in zip(matches, ends):
        said, value = text[match.end():end], int(match[1])
        if not polished(said) and end < len(text) and text[end:].startswith(", ") and \
                not text[end:].startswith(", or"):
            shared.append(value)
            continue
        meaning = polished(said.partition(", else")[0])
        if "else" in match[0]:
            meaning = f"In all other cases {meaning}" if meaning else "In all other cases."
        for each in [*shared, value]:
            found[each] = f"{found[each]} Or: {meaning}" if each in found else meaning or DONE
        shared = []
    return found


def referred(text, name, routines):
    """The table of another routine that the text points to."""
    match = re.search(r"`(kez\w+)`", text)
    if not match:
        return {}
    other = match[1]
    return next(filter(None, (table_of(routines[other], n) for n in ("pos", "rel", "code", name))),
                {})


def meanings(routine, argument, routines):
    if argument.name == "code1":
        return table_of(routines["kezptp1"], "code")
    if routine.name in OTHERS:
        return OTHERS[routine.name]
    own = table_of(routine, argument.name)
    if own:
        return own
    text = " ".join(argument.text.split())
    if text == "always 0" or text == "0":
        return {0: "Always."}
    found = sentence_cases(text)
    if "`kezpsl` position" in text:
        positions = {v: f"P3 is on the line P1 P2: {m[0].lower()}{m[1:]}"
                     for v, m in referred(text, argument.name, routines).items() if v}
        also = {v: f"{positions.get(v, '')} {m}".strip() for v, m in found.items()}
        found = positions | also
    if not found or text.startswith("class of"):
        found = referred(text, argument.name, routines)
    return found


def is_report(argument, routine):
    if argument.direction != "out" or argument.kind != "integer":
        return False
    return argument.name in NAMES or argument.name == "n" and POINTS in argument.text


def decides(argument, output):
    """The clause by which this integer alone decides whether the output is written."""
    found = conditions.comparison(output.kept_when)
    return found if found and found.name == argument.name else None


def not_written(routine, argument, value):
    for output in routine.outputs():
        found = decides(argument, output)
        if found:
            holds = {"is": value in found.values, "not": value not in found.values,
                     "below": value < found.values[0]}[found.relation]
            if holds:
                yield output.name


def other_clauses(report):
    """By clause the outputs that stay unwritten in cases that the integer does not tell."""
    found = {}
    for a in report.routine.outputs():
        if a.kept_when and not conditions.beyond(a.kept_when) and not decides(report.argument, a):
            found.setdefault(a.kept_when, []).append(a.name)
    return found


def example(calls, argument, value):
    """A worked call that gives this value, an ordinary one first."""
    return next((call for call in calls
                 if str(value) in (call.results[argument.name] or "").split()), None)


def checked(report, calls):
    """No worked call gives a value that has no meaning here."""
    known = {str(case.value) for case in report.cases}
    for call in calls:
        for text in (call.results[report.argument.name] or "").split():
            if text not in known | {"."}:
                raise ValueError(f"{report.routine.name}: no meaning of {report.argument.name} "
                                 f"{text} is read from the header")
    return report


def reports(interface, calls):
    routines = {r.name: r for r in interface.routines}
    for r in interface.routines:
        for a in r.outputs():
            if is_report(a, r):
                cases = [Case(v, m, list(not_written(r, a, v)), example(calls[r.name], a, v))
                         for v, m in sorted(meanings(r, a, routines).items())]
                yield checked(Report(r, a, cases), calls[r.name])
