"""The routines as data for JavaScript, which call the library as WebAssembly."""

import ast
import itertools
import re

from .. import conditions, shapes
from ..arithmetic import substituted
from ..defaults import optional_inputs
from ..languages import Language, Literals
from ..model import FormError
from ..reader import version
from ..straight_javascript import straight_calls
from . import NOTICE

RESERVED = frozenset("""
    arguments await break case catch class const continue debugger default delete do else enum eval
    export extends false finally for function if implements import in instanceof interface let new
    null package private protected public return static super switch this throw true try typeof var
    void while with yield kept""".split())

LANGUAGE = Language(
    title="JavaScript", file="javascript/routines.js", reserved=RESERVED, order=7,
    literals=Literals(not_a_number="NaN", infinity="Infinity"))


class WholeQuotients(ast.NodeTransformer):
    def visit_BinOp(self, node):
        self.generic_visit(node)
        return (ast.Call(ast.Name("trunc"), [node], []) if isinstance(node.op, ast.Div) else node)


def arithmetic(expression, routine):
    """A function of the integers by name."""
    tree = WholeQuotients().visit(ast.parse(expression, mode="eval"))
    arrays = [a.name for a in routine.arguments if a.extent]
    terms = {a.name: f"v.{a.name}" for a in routine.arguments}
    terms |= {name: name for name in ("max", "sum", "trunc")} | {"pairs": "v.pairs"}
    code = substituted(ast.unparse(tree), terms)
    for name in arrays:
        code = code.replace(f"v.{name}(", f"entry(v.{name}, ")
    return f"(v) => {code}" if "v." in code else f"() => {code}"


def pairs_of(argument, routine):
    """Of an output that holds pairs: what they are made of, and its extent by their number."""
    found = shapes.pairs(argument, routine)
    if not found:
        return []
    names = [*itertools.chain(*zip(found.lists, found.counts)), found.tolerance]
    listed = ", ".join(f'"{name}"' for name in names if name)
    return [f"pairs: [{listed}]", f"paired: {arithmetic(found.extent, routine)}"]


def fields(argument, routine):
    """What consecutive arguments must have in common to stand in one group."""
    found = [f'kind: "{argument.kind}"', f'direction: "{argument.direction}"']
    if argument.extent and argument.kind != "callback":
        found += [f"extent: {arithmetic(argument.extent, routine)}", f'asks: "{argument.extent}"']
    if read := shapes.read_entries(argument):
        found.append(f"read: {arithmetic(read, routine)}")
    found += pairs_of(argument, routine)
    if argument.name in optional_inputs(routine):
        found.append("optional: true")
    if argument.is_kept():
        found.append("kept: true")
        if expression := conditions.beyond(argument.kept_when):
            found.append(f"written: {arithmetic(expression, routine)}")
    return ", ".join(found)


def check_callbacks(interface):
    """The WebAssembly module passes one type of routine on, in cmake/javascript/host.c."""
    known = [("integer", True, True)]
    for callback in interface.callbacks:
        signature = [(a.kind, a.constant, a.by_pointer) for a in callback.arguments]
        if callback.name != "kez_z_callback" or callback.result != "real" or signature != known:
            raise FormError(f"{callback.name}: JavaScript's package knows kez_z_callback alone")


def write(interface):
    check_callbacks(interface)
    out = [f"// {NOTICE}", 'import { entry, max, sum, trunc } from "./arithmetic.js";', "",
           "/** The library's, of which this is the interface. */",
           f'export const version = "{version()}";', "", "export const routines = ["]
    for routine in interface.routines:
        out.append(f'  {{ name: "{routine.name}", groups: [')
        for shared, group in itertools.groupby(routine.arguments, lambda a: fields(a, routine)):
            names = ", ".join(f'"{argument.name}"' for argument in group)
            out.append(f"    {{ names: [{names}], {shared} }},")
        out.append("  ] },")
    return "\n".join([*out, "];", straight_calls(interface, LANGUAGE.name)])


def kept(routine):
    """Names of the outputs whose values before the call may be given."""
    return [a.name for a in routine.kept_outputs()]


def braces(names):
    return f"{{ {', '.join(names)} }}"


def signature(routine):
    optional = optional_inputs(routine)
    given = [LANGUAGE.name(a.name) + (" = 0" if a.name in optional else "")
             for a in routine.inputs()]
    given += [f"{braces(kept(routine))} = {{}}"] if kept(routine) else []
    results = braces(a.name for a in routine.outputs())
    return f"{routine.name}({', '.join(given)})\n  -> {results}"


def declared(argument, literals, typed):
    """With the types that a compiler would not find out."""
    name, value = LANGUAGE.name(argument.name), literals[argument.name]
    if argument.kind == "callback":
        value = f"({'i: number' if typed else 'i'}) => [{value}][i - 1] ?? NaN"
    elif argument.extent:
        name, value = name + (": number[]" if typed else ""), f"[{value}]"
    return f"const {name} = {value};"


def call(routine, literals, sizes, typed=False):
    before = [name for name in kept(routine) if name in literals]
    shown = [a for a in routine.arguments if a.direction != "out" or a.name in before]
    given = [LANGUAGE.name(a.name) for a in routine.inputs()]
    given += [braces(re.sub(r"^(.+): \1$", r"\1", f"{name}: {LANGUAGE.name(name)}")
                     for name in before)] if before else []
    return "\n".join([
        'import { load } from "kezlib";', "", "const kez = await load();",
        *(declared(a, literals, typed) for a in shown),
        f"console.log(kez.{routine.name}({', '.join(given)}));", ""])
