"""Calls in C, which has the header and needs no binding: nothing is written for it."""

import re

from .. import conditions
from ..languages import Language, Literals, broken, form_of, glued

LANGUAGE = Language("C", "c/", order=1,
                    literals=Literals(real="{}f", least_integer="INT32_MIN", not_a_number="NAN",
                                      infinity="INFINITY", filler="0"))
TYPES = {"real": "float", "integer": "int32_t", "word": "void"}
UNSET = {"real": "NAN", "integer": "INT32_MIN"}
FORMATS = {"real": "%.9g", "integer": "%d"}
SIMPLE = re.compile(r"\w+( [-+*] \w+)?")  # an extent that C can compute too


def parameter(argument):
    if argument.kind == "callback":
        return f"{argument.callback.name} {argument.name}"
    const = "const " if argument.direction == "in" else ""
    pointed = argument.kind == "word" or not argument.extent
    name = f"*{argument.name}" if pointed else f"{argument.name}[]"
    return f"{const}{TYPES[argument.kind]} {name}"


def wrapped(opening, parts, closing):
    """Lines that break between the parts only."""
    return "\n".join(broken(f"{glued(opening)}{', '.join(map(glued, parts))}{closing}", 88))


def signature(routine):
    return wrapped(f"void {routine.name}(", map(parameter, routine.arguments), ");")


def callback(argument, literals):
    return ("/* Above the function that calls: */\n"
            f"static float {argument.name}(const int32_t *i) {{\n"
            f"  static const float values[] = {{{literals[argument.name]}}};\n"
            "  return values[*i - 1];\n}\n")


def scalar(argument, literals):
    if argument.direction != "out" or argument.name in literals:
        return f"{argument.name} = {literals[argument.name]}"
    unset = f" = {UNSET[argument.kind]}" if argument.kept_when else ""
    return argument.name + unset


def scalar_declarations(routine, literals, form):
    for direction, const in (("in", "const "), ("in,out", ""), ("out", "")):
        for kind in ("real", "integer"):
            found = [scalar(a, literals) for a in routine.arguments if not a.extent
                     and a.direction == direction and a.kind_in(form) == kind]
            if found:
                yield wrapped(f"{const}{TYPES[kind]} ", found, ";")


def array_declaration(argument, literals, sizes, form):
    const = "const " if argument.direction == "in" else ""
    given = argument.direction != "out" or argument.name in literals
    size, values = ("", literals[argument.name]) if given else (sizes[argument.name], "0")
    kind = TYPES[argument.kind_in(form)]
    return f"{const}{kind} {argument.name}[{size}] = {{{values}}};"


def limit(argument, routine, sizes):
    """How many entries there are to be printed: the arrays themselves always have one."""
    count = conditions.beyond(argument.kept_when) if argument.direction == "out" else None
    if count and count.isidentifier():
        return count
    written = {a.name for a in routine.outputs()}
    still_holds = written.isdisjoint(argument.extent.split())
    is_known = SIMPLE.fullmatch(argument.extent) and still_holds
    return argument.extent if is_known else sizes[argument.name]


def printing(argument, routine, sizes, form):
    name, shown = argument.name, FORMATS[argument.kind_in(form)]
    if not argument.extent:
        return f'printf("{name} = {shown}\\n", {name});'
    return (f"for (int entry = 0; entry < {limit(argument, routine, sizes)}; entry++) "
            f'printf("{name}[%d] = {shown}\\n", entry, {name}[entry]);')


def call(routine, literals, sizes):
    form = form_of(routine, literals, LANGUAGE)
    arrays = [a for a in routine.arguments if a.extent and a.kind != "callback"]
    passed = [a.name if a.extent else f"&{a.name}" for a in routine.arguments]
    lines = [callback(a, literals) for a in routine.arguments if a.kind == "callback"]
    lines += scalar_declarations(routine, literals, form)
    lines += [array_declaration(a, literals, sizes, form) for a in arrays]
    lines.append(wrapped(f"{routine.name}(", passed, ");"))
    lines += [printing(a, routine, sizes, form) for a in routine.outputs()]
    return "\n".join(lines)
