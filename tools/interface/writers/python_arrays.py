"""Functions of arrays for Python, by the readable names, and a named tuple for each."""

import itertools

from .. import bulk, shapes
from ..defaults import optional_inputs
from ..languages import Language, description, remarks, wrapped
from ..numpydoc import WIDTH, section
from . import NOTICE, python

LANGUAGE = Language("NumPy", "python/kezlib/arrays.py", python.LANGUAGE.reserved, order=2.5,
                    literals=python.LANGUAGE.literals)
ARRAYS = {"real": "RealArray", "integer": "IntegerArray", "word": "WordArray"}
INTRODUCTION = """The routines for many items at a time, by their readable names.

    >>> from kezlib import arrays as kz
    >>> kz.distance([[0, 0, 0], [0, 0, 3]], [2, 3, 6])
    array([7.      , 4.690416], dtype=float32)

What belongs together is one array: a point in space has shape (..., 3), a line a x + b y + c = 0
too, a list of n points in the plane (..., n, 2). The axes in front, written ..., are broadcast as
numpy's are, and the results have them. Numbers of any type are taken, in arrays, views and lists.
Results are float32 and int32 arrays: several in a named tuple, a single one by itself. Arrays that
are given never change; those that a routine changes are results.

Counts of entries are those of the arrays. Where items have lists of different lengths give the
counts, and arrays as long as the longest. An outline needs no entry behind its last vertex, and is
a result only with changed=True, which returns it as the routine leaves it.

What a routine does not write is not-a-number in arrays of reals and 0 in those of integers, also
behind the last entry of a list that counts. To have another value there give it by keyword.

numpy is needed for this module, and for no other of the package."""


def class_name(routine):
    return "".join(word.capitalize() for word in routine.readable.split("_"))


class Function:
    """What is generated for a routine."""

    def __init__(self, routine):
        self.routine, self.name = routine, routine.readable or routine.name
        self.operands = bulk.operands(routine)
        self.given = [o for o in self.operands if o.is_given()]
        self.counts = [o for o in self.operands if o.role.startswith("count")]
        self.kept = [o for o in self.operands if o.is_kept()]
        self.results = [o for o in self.operands if o.role.endswith("out")]
        self.works = [o for o in self.operands if o.role == "work"]
        self.optional = [o for o in self.given if o.name in optional_inputs(routine)]

    def all_results(self):
        return [o for o in self.operands if o in self.results + self.works]

    def result_type(self):
        if len(self.results) > 1:  # second names have no type of their own
            return class_name(self.routine) if self.routine.readable else "NamedTuple"
        return ARRAYS[self.results[0].kind]


def given_hint(operand):
    if operand.kind == "callback":
        return "Union[Callable[[int], float], ArrayLike]"
    return "ArrayLike"


def parameters(function, changed=""):
    name = LANGUAGE.name
    given = [f"{name(o.name)}: {given_hint(o)}{' = 0' if o in function.optional else ''}"
             for o in function.given]
    optional = [f"{name(o.name)}: Optional[ArrayLike] = None"
                for o in function.counts + function.kept]
    return given + (["*", *optional] if optional else []) + ([changed] if changed else [])


def definition(function, changed="", result=""):
    start, end = f"def {function.name}(", f") -> {result or function.result_type()}:"
    pieces = parameters(function, changed)
    whole = start + ", ".join(pieces) + end
    return [whole] if len(whole) <= 100 else [start, *python.filled(pieces, "        "), end]


def fields(name, text, results):
    lines = ["", "", f"class {name}(NamedTuple):", f'    """{text}"""', ""]
    for operand in results:
        field = operand.result_name()
        hidden = "  # type: ignore[assignment]" if hasattr(tuple, field) else ""
        lines.append(f"    {LANGUAGE.name(field)}: {ARRAYS[operand.kind]}{hidden}")
    return lines


def classes(function):
    name, lines = class_name(function.routine), []
    if len(function.results) > 1:
        lines += fields(name, f"Results of `{function.name}`.", function.results)
    if function.works:
        lines += fields(f"{name}Changed", f"Results of `{function.name}` and what it changed.",
                        function.all_results())
    return lines


def over_integers(expression):
    """An extent as the package computes it: v has the integers."""
    names = {"max": "np.maximum", "sum": "total"}

    def term(match):
        name, bracket = match[1], match[2]
        if name in names:
            return names[name] + bracket
        return f"entry(v.{name}, " if bracket else f"v.{name}"
    return "lambda v: " + bulk.re.sub(r"([A-Za-z_]\w*)( *\(|)", term, expression).replace("/", "//")


def described(operand, routine):
    members = " ".join(a.name for a in operand.arguments)
    parts = [f'"{operand.name}"', f'"{operand.kind}"', f'"{operand.role}"', f'"{members}"']
    if operand.inner:
        parts.append(f"inner={operand.inner}")
    if operand.extent:
        parts += [f'extent="{shape_extent(operand)}"', f"size={over_integers(operand.extent)}"]
    if operand.taken:
        parts.append(f"taken={over_integers(operand.taken)}")
        if operand.taken.isidentifier():
            parts.append(f'counted="{operand.taken}"')
    if operand.written():
        parts.append(f"written={over_integers(operand.written())}")
        found = shapes.pairs(operand.arguments[0], routine)
        names = [*itertools.chain(*zip(found.lists, found.counts)), found.tolerance]
        quoted = ", ".join(f'"{name}"' for name in filter(None, names))
        parts += [f"pairs=({quoted})", f"paired={over_integers(found.extent)}"]
    if operand.is_kept():
        parts.append("kept=True")
    return python.indented(python.filled([f"Operand({parts[0]}", *parts[1:]], "    "))


def walk_of(function):
    routine = function.routine
    results = class_name(routine) if len(function.results) > 1 else "None"
    lines = ["", "", f'_{function.name} = Batch("{function.name}", "{routine.name}", {results}, [']
    for operand in function.operands:
        *first, last = described(operand, routine)
        lines += [*first, last + "),"]
    options = []
    if function.works:
        options.append(f"changed={class_name(routine)}Changed")
    if routine.kept or any(a.callback for a in routine.arguments):
        options.append("ordered=True")
    return [*lines[:-1], f"{lines[-1][:-1]}]{''.join(f', {o}' for o in options)})"]


def shape_extent(operand):
    """Of lists as they are taken; results can have one entry more."""
    extent = operand.taken or operand.extent
    return bulk.re.sub(r"max\((\w+), 0\)", r"\1", extent)


def shape(operand, extent):
    pieces = ["...", *filter(None, [extent]), *map(str, operand.inner)]
    return f"({', '.join(pieces)})"


def text_of(operand, name):
    names = ", ".join(a.name for a in operand.arguments)
    text = "; ".join(operand.texts)
    return text if names == name else f"{names}: {text}"


def nested(texts, inner):
    """Texts in as many brackets as they have axes."""
    if not inner:
        return texts[0]
    step = len(texts) // inner[0]
    parts = [nested(texts[i:i + step], inner[1:]) for i in range(0, len(texts), step)]
    return f"[{', '.join(parts)}]"


def value(operand, literals):
    """Of a call: lists of coordinates stand one after another there."""
    texts = [literals.get(a.name, LANGUAGE.literals.not_a_number) for a in operand.arguments]
    if not operand.extent:
        return nested(texts, operand.inner)
    lists = [f"[{text}]" for text in texts]
    return f"np.stack([{', '.join(lists)}], -1)" if operand.inner else lists[0]


def signature(routine):
    return "\n".join(definition(Function(routine))).rstrip(":")


def call(routine, literals, sizes):
    """Results that have a value before the call are given by name."""
    function = Function(routine)
    by_name = function.counts + [o for o in function.kept
                                 if any(a.name in literals for a in o.arguments)]
    values = [(o, LANGUAGE.name(o.name)) for o in function.given + by_name]
    lines = [f"{name} = {value(o, literals)}" for o, name in values]
    passed = [f"{name}={name}" if o in by_name else name for o, name in values]
    called = python.indented(wrapped(f"result = kz.{function.name}({', '.join(passed)})", ""))
    numpy = ["import numpy as np"] if any("np." in line for line in lines) else []
    return "\n".join([*numpy, "from kezlib import arrays as kz", "", *lines, *called,
                      "print(result)"]) + "\n"


def entry_lines(name, kind, text):
    return [f"{name} : {kind}", *wrapped(text, "    ", WIDTH)]


KINDS = {"real": "float", "integer": "int", "word": "float or int"}


def given_lines(function):
    name = LANGUAGE.name
    for operand in function.given:
        extent = shape_extent(operand) if operand.extent else ""
        kind = f"{KINDS.get(operand.kind, 'float')} {shape(operand, extent)}"
        if operand in function.optional:
            kind += ", optional"
        if operand.kind == "callback":
            kind = f"function of a position, or {kind}"
        yield from entry_lines(name(operand.name), kind, text_of(operand, operand.name))
    for operand in function.counts:
        yield from entry_lines(name(operand.name), "int (...), optional",
                               f"{operand.texts[0]}; found from the arrays if not given")
    for operand in function.kept:
        extent = shape_extent(operand) if operand.extent else ""
        yield from entry_lines(name(operand.name),
                               f"{KINDS[operand.kind]} {shape(operand, extent)}, optional",
                               "what is there where it is not written")
    if function.works:
        yield from entry_lines("changed", "bool, optional",
                               f"whether to return {function.works[0].name} as the routine leaves "
                               "it, too")


def result_lines(function):
    name = LANGUAGE.name
    for operand in function.all_results():
        extent = bulk.re.sub(r"max\((\w+), 0\)", r"\1", operand.extent)
        note = ", if changed" if operand.role == "work" else ""
        text = text_of(operand, operand.result_name())
        if operand.written():
            text += "; as many entries as the item with most has"
        kinds = {"real": "float32", "integer": "int32", "word": "float32 or int32"}
        yield from entry_lines(name(operand.result_name()),
                               f"{kinds[operand.kind]} {shape(operand, extent)}{note}", text)


def documentation(function):
    routine = function.routine
    order = ("\n\nThe calls are made in the order of the items." if routine.kept else "")
    notes = wrapped("\n\n".join(filter(None, [f"Routine: `{routine.name}`{'.' if order else ''}"
                                              + order, remarks(routine)])), "", WIDTH)
    return (wrapped(description(routine), "", WIDTH)
            + section("Parameters", list(given_lines(function)))
            + section("Returns", list(result_lines(function))) + section("Notes", notes))


def passed(function):
    name = LANGUAGE.name
    groups = [function.given, function.counts, function.kept]
    texts = [python.as_tuple([name(o.name) for o in group]) if group else "()" for group in groups]
    if function.works:
        texts.append("changed")
    else:
        while texts[-1] == "()":
            texts.pop()
    return python.indented(wrapped(f"return _{function.name}({', '.join(texts)})", "    "))


def overloads(function):
    """Of a function whose results depend on what is wanted."""
    changed = f"{class_name(function.routine)}Changed"
    for hint, result in (("changed: Literal[False] = False", ""),
                         ("changed: Literal[True]", changed),
                         ("changed: bool", f"Union[{function.result_type()}, {changed}]")):
        *first, last = definition(function, hint, result)
        yield from ["", "", "@overload", *first, last + " ..."]


def written(function):
    lines = classes(function) + walk_of(function)
    docstring = python.quoted(documentation(function))
    if function.works:
        lines += overloads(function)
    whole = definition(function, *(["changed: bool = False", "Any"] if function.works else []))
    return lines + ["", "", *whole, *docstring, *passed(function)]


def write(interface):
    functions = [Function(r) for r in interface.routines if r.readable]
    names = {r.name: r.readable for r in interface.routines if r.readable}
    lines = [f"# {NOTICE}", f'r"""{INTRODUCTION}']
    for group in interface.groups:
        lines += python.family(group, interface.routines)
    lines += ['"""', "", "from __future__ import annotations  # help shows their names", "",
              "from typing import (",
              "    Any, Callable, Literal, NamedTuple, Optional, Union, overload)", "",
              "import numpy as np", "from numpy.typing import ArrayLike, NDArray", "",
              "from ._batch import Batch, Operand", "from ._extents import entry, total", "",
              "RealArray = NDArray[np.float32]", "IntegerArray = NDArray[np.int32]",
              "WordArray = NDArray[Any]", "", "__all__ = [",
              *(f'    "{f.name}",' for f in functions),
              *(f'    "{r.name}",' for r in interface.routines), "]"]
    for function in functions:
        lines += written(function)
    lines += ["", "", "# The routines' own names, and second ones."]
    lines += [f"{r.name} = {names[r.second_name_of or r.name]}" for r in interface.routines]
    return "\n".join(lines) + "\n"
