"""The package for Python: a function a routine, and a named tuple for what it returns."""

import itertools
import keyword

from .. import conditions, shapes
from ..arithmetic import substituted
from ..defaults import optional_inputs
from ..languages import Language, Literals, known_as, where_arrays_are_checked, wrapped
from ..model import FormError
from ..numpydoc import callback_hint, documentation
from ..reader import version
from . import NOTICE

LANGUAGE = Language(
    "Python", "python/kezlib/routines.py", frozenset(keyword.kwlist), order=2,
    literals=Literals(not_a_number='float("nan")', infinity='float("inf")'))

HINTS = {"real": "float", "integer": "int"}
LISTS = {"real": "Reals", "integer": "Integers", "word": "Words"}
INTRODUCTION = """The routines by family.

A function takes a routine's inputs, in the order of its arguments, and returns its outputs as a
named tuple. Reals are rounded to single precision, integers have 32 bits; angles are in radians,
lengths in whatever unit the caller uses throughout. Lists are numpy arrays or plain sequences with
at least as many entries as the argument's extent in brackets says (fewer are refused), and are
copied: one that the routine changes is returned. Positions are counted from 1; 0 means "none".

What a routine does not write is None, and of a list the entries that it does not write are left
out, or hold a not-a-number of their own or the smallest integer where they are not the last. To
have another value there give it as a keyword argument."""


def results_class(routine):
    return routine.name.capitalize()


def hint(argument):
    if argument.callback:
        return callback_hint(argument.callback)
    return LISTS[argument.kind] if argument.extent else HINTS[argument.kind]


def result_hint(argument):
    if argument.extent:
        return f"{hint(argument)[:-1]}Array"
    return f"Optional[{hint(argument)}]" if argument.is_kept() else hint(argument)


def parameters(routine):
    optional = optional_inputs(routine)
    given = [f"{LANGUAGE.name(a.name)}: {hint(a)}{' = 0' if a.name in optional else ''}"
             for a in routine.inputs()]
    kept = [f"{LANGUAGE.name(a.name)}: Optional[{hint(a)}] = None" for a in routine.kept_outputs()]
    return given + (["*", *kept] if kept else [])


def filled(pieces, prefix):
    """Lines of pieces with commas between them, none of which is broken."""
    lines = wrapped(", ".join(piece.replace(" ", "\0") for piece in pieces), prefix)
    return [line.replace("\0", " ") for line in lines]


def indented(lines):
    return lines[:1] + [f"    {line}" for line in lines[1:]]


def definition(routine):
    """The lines that begin a function."""
    start, end = f"def {routine.name}(", f") -> {results_class(routine)}:"
    whole = start + ", ".join(parameters(routine)) + end
    return [whole] if len(whole) <= 100 else [start, *filled(parameters(routine), "        "), end]


def signature(routine):
    return "\n".join(definition(routine)).rstrip(":")


def declared(argument, name, literal):
    if argument.callback:
        return [f"{name}_values = [{literal}]", "", "",
                f"def {name}(i):", f"    return {name}_values[i - 1]", "", ""]
    return [f"{name} = [{literal}]" if argument.extent else f"{name} = {literal}"]


def call(routine, literals, sizes):
    kept = [a for a in routine.kept_outputs() if a.name in literals]
    lines, passed = [], []
    for argument in routine.inputs() + kept:
        name = LANGUAGE.name(argument.name)
        lines += declared(argument, name, literals[argument.name])
        passed.append(f"{name}={name}" if argument in kept else name)
    called = indented(wrapped(f"result = kezlib.{routine.name}({', '.join(passed)})", ""))
    return "\n".join(["import kezlib", "", *lines, *called, "print(result)"]) + "\n"


def terms(routine):
    """What an extent's names are called over the values of a call."""
    names = {a.name: f'Entries(v["{a.name}"])' if a.extent else f'v["{a.name}"]'
             for a in routine.arguments}
    return names | {"max": "max", "sum": "total", "pairs": 'v["pairs"]'}


def over_values(expression, routine):
    return f"lambda v: {substituted(expression, terms(routine)).replace('/', '//')}"


def check_callback(callback):
    signature = [(a.kind, a.by_pointer) for a in callback.arguments]
    if callback.result != "real" or signature != [("integer", True)]:
        raise FormError(f"{callback.name}: Python's callbacks take a position by reference and "
                        "return a real")


def pairs_of(argument, routine):
    """Of an output that holds pairs: what they are made of, and its extent by their number."""
    found = shapes.pairs(argument, routine)
    if not found:
        return []
    names = [*itertools.chain(*zip(found.lists, found.counts)), found.tolerance]
    return [f"pairs={tuple(filter(None, names))}", f"paired={over_values(found.extent, routine)}"]


def description(argument, routine):
    """What the package has to know of an argument but for its name."""
    fields = [f'"{argument.kind}"', f'"{argument.direction}"']
    if argument.extent:
        fields += [f'extent="{argument.extent}"', f"size={over_values(argument.extent, routine)}"]
    if read := shapes.read_entries(argument):
        fields.append(f"read={over_values(read, routine)}")
    fields += pairs_of(argument, routine)
    if argument.is_kept():
        fields.append("kept=True")
        if expression := conditions.beyond(argument.kept_when):
            fields.append(f"written={over_values(expression, routine)}")
    if argument.callback:
        check_callback(argument.callback)
    return fields


def described(routine):
    lines = [f"_{routine.name} = routine(", f'    "{routine.name}", {results_class(routine)},']
    for fields, members in itertools.groupby(routine.arguments, lambda a: description(a, routine)):
        names = " ".join(a.name for a in members)
        group = indented(filled([f'arguments("{names}"', *fields], "    "))
        lines += [*group[:-1], group[-1] + "),"]
    return [*lines[:-1], lines[-1][:-1] + ")"]


def results(routine):
    lines = ["", "", f"class {results_class(routine)}(NamedTuple):",
             f'    """Results of `{routine.name}`."""', ""]
    return lines + [field(a) for a in routine.outputs()]


def field(argument):
    """Those who check types are told that it may hide a method of tuple."""
    hidden = "  # type: ignore[assignment]" if hasattr(tuple, argument.name) else ""
    return f"    {LANGUAGE.name(argument.name)}: {result_hint(argument)}{hidden}"


def quoted(lines):
    text = [f"    {line}".rstrip() for line in lines]
    return [f'    r"""{text[0].strip()}', *text[1:], '    """']


def as_tuple(names):
    return f"({', '.join(names)}{',' if len(names) == 1 else ''})"


def passed(routine):
    given = as_tuple([LANGUAGE.name(a.name) for a in routine.inputs()])
    kept = [LANGUAGE.name(a.name) for a in routine.kept_outputs()]
    if not kept:
        return indented(wrapped(f"return _{routine.name}({given})", "    "))
    none_is_given = " is ".join([*kept, "None"])
    return (indented(wrapped(f"kept = (() if {none_is_given} else {as_tuple(kept)})", "    "))
            + indented(wrapped(f"return _{routine.name}({given}, kept)", "    ")))


def function(routine):
    docstring = quoted(documentation(routine, LANGUAGE.name))
    return ["", "", *definition(routine), *docstring, *passed(routine)]


def family(group, routines):
    members = [r for r in routines if r.group == group.title]
    items = [f"{r.name}, {known_as(r)}: {r.summary.rstrip(':.')}." for r in members]
    listed = [line for item in items for line in indented(wrapped(item, "", 96))]
    text = wrapped(where_arrays_are_checked(group.text), "") if group.text else []
    return ["", group.title, "-" * len(group.title), *text, *([""] if text else []), *listed]


def write(interface):
    lines = [f"# {NOTICE}", f'r"""{INTRODUCTION}']
    for group in interface.groups:
        lines += family(group, interface.routines)
    lines += ['"""', "",
              "from typing import Callable, NamedTuple, Optional", "",
              "from ._call import Entries, arguments, routine, total",
              "from ._library import check_version",
              "from ._types import IntegerArray, Integers, RealArray, Reals, WordArray, Words", "",
              f'__version__ = "{version()}"', "check_version(__version__)", ""]
    lines += ["__all__ = [", *(f'    "{r.name}",' for r in interface.routines), "]"]
    for routine in interface.routines:
        lines += results(routine) + ["", ""] + described(routine) + function(routine)
    return "\n".join(lines) + "\n"
