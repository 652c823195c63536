"""The declarations of JavaScript's package, which document each routine."""

import re
import textwrap

from .. import shapes
from ..defaults import optional_inputs
from ..languages import (GLUE, Language, broken, documentation, known_as, shape,
                         where_arrays_are_checked, wrapped)
from . import NOTICE, javascript

LANGUAGE = Language(
    title="TypeScript", file="javascript/kezlib.d.ts", reserved=javascript.RESERVED, order=8,
    literals=javascript.LANGUAGE.literals)

HEAD = f"""\
// {NOTICE}

/** Reals or integers, whose bits are moved. */
export type RealList = Float32Array | Float64Array;
export type IntegerList = Int32Array | Uint32Array | Int16Array | Uint16Array | Int8Array
  | Uint8Array | Uint8ClampedArray;

/** What comes back for such lists: of plain arrays, integers if all their numbers are. */
export type Moved<List> = List extends RealList ? Float32Array
  : List extends IntegerList ? Int32Array : Float32Array | Int32Array;

/** A number for all items, or an entry for each. */
export type Many = number | ArrayLike<number>;

/** Makes an instance of the library, whose kept values are its own: of the bytes of kezlib.wasm or
 * of the module that was compiled of them. If neither is given, of the file beside the package. */
export function load(from?: ArrayBuffer | ArrayBufferView | WebAssembly.Module): Promise<KezLib>;

/** The library's module, which workers can share: each loads it for itself. */
export function compile(): Promise<WebAssembly.Module>;

/** The version of the library, with which `load` compares that of the module. */
export const version: string;

/** The file that `load` reads if nothing is given, as an address; "embedded" in bundles and in
 * `kezlib.browser.js`, which have the module in them. */
export const library: string;

/** The routines by family. Arrays have at least as many entries as their extents in brackets say:
 * fewer are refused. Positions are counted from 1; 0 means "none". */
export interface KezLib {{
  /** Routines for many items in one call. */
  readonly batch: Batch;
"""

BATCH = """
/** The routines by name, for many items: an input is a number for all of them, or an array with an
 * entry for each; the counts of lists are numbers. The items are called in order. A list holds the
 * entries of one item behind those of another, or those of one item for all: then it does not come
 * back from many. What a call does not write is -2147483648 or a not-a-number. */
export interface Batch {"""

LISTS = {"real": "Float32Array", "integer": "Int32Array", "word": "Moved<List>"}
TYPES = {"real": "number", "integer": "number", "nothing": "void"}


def given_type(argument):
    if argument.kind == "callback":
        passed = ", ".join(f"{a.name}: number" for a in argument.callback.arguments)
        return f"({passed}) => {TYPES[argument.callback.result]}"
    if argument.kind == "word":
        return "List"
    return "ArrayLike<number>" if argument.extent else "number"


def result_type(argument):
    if argument.extent:
        return LISTS[argument.kind]
    return "number | undefined" if argument.is_kept() else "number"


def kept_type(argument):
    return f"{argument.name}?: {given_type(argument)}"


def braces(members):
    return f"{{ {'; '.join(members)} }}"


def signature(routine):
    kept = routine.kept_outputs()
    optional = optional_inputs(routine)
    given = [f"{LANGUAGE.name(a.name)}{'?' if a.name in optional else ''}: {given_type(a)}"
             for a in routine.inputs()]
    given += [f"kept?: {braces(map(kept_type, kept))}"] if kept else []
    results = braces(f"{a.name}: {result_type(a)}" for a in routine.outputs())
    lists = routine.words()
    variable = "<List extends ArrayLike<number>>" if lists else ""
    line = f"{routine.name}{variable}({', '.join(given)}): {results};"
    return "\n".join(broken(re.sub(r"(?<=[:{|]) | (?=[}|])", GLUE, line), 96, "  "))


def call(routine, literals, sizes):
    return javascript.call(routine, literals, sizes, typed=True)


def described(name, argument):
    return f"{name} - {shape(argument)}: {argument.whole_text()}"


def said_of_input(argument, routine):
    if argument.name in optional_inputs(routine):
        return "; 0 where it is not given"
    return "; the last entry may be missing" if shapes.read_entries(argument) else ""


def tag(text):
    first, *rest = wrapped(text, "   *   ")
    return [first.replace("*   ", "* ", 1), *rest]


def comment(routine):
    text = where_arrays_are_checked(f"{known_as(routine)}\n\n{documentation(routine)}")
    lines = ["  /**", *wrapped(text, "   * "), "   *"]
    for argument in routine.inputs():
        lines += tag(f"@param {described(LANGUAGE.name(argument.name), argument)}"
                     + said_of_input(argument, routine))
    if names := javascript.kept(routine):
        lines += tag(f"@param kept - what outputs hold before the call: {', '.join(names)}; of"
                     " those that are not given, scalars come back undefined where they are kept")
    lines.append("   * @returns")
    for argument in routine.outputs():
        lines += tag(f"- {described(argument.name, argument)}")
    return [*lines, "   */"]


def group_comment(group):
    text = where_arrays_are_checked(group.text)
    lines = wrapped(f"{group.title}\n\n{text}", "   * ")
    return ["  /*", *lines, "   */", ""]


def in_batch(argument, routine):
    needed = argument.direction != "out" and argument.name not in optional_inputs(routine)
    counts = {name for a in routine.arguments if a.extent for name in re.findall(r"\w+", a.extent)}
    kind = ("ArrayLike<number>" if argument.extent else
            "number" if argument.name in counts else "Many")
    return f"{argument.name}{'' if needed else '?'}: {kind}"


def out_of_batch(argument):
    shared = argument.extent and argument.direction == "in,out"
    return f"{argument.name}{'?' if shared else ''}: {LISTS[argument.kind]}"


def is_batched(routine):
    return all(a.kind in ("real", "integer") for a in routine.arguments)


def batch_signature(routine):
    given = [in_batch(a, routine) for a in routine.arguments if a.direction != "out" or a.is_kept()]
    results = braces(map(out_of_batch, routine.outputs()))
    line = f"{routine.name}(given: {braces(given)}): {results};"
    return textwrap.indent("\n".join(broken(line, 96, "  ")), "  ")


def write(interface):
    out, groups = [HEAD], {group.title: group for group in interface.groups}
    for routine in interface.routines:
        if group := groups.pop(routine.group, None):
            out += group_comment(group)
        out += [*comment(routine), textwrap.indent(signature(routine), "  "), ""]
    batch = [batch_signature(r) for r in interface.routines if is_batched(r)]
    return "\n".join([*out[:-1], "}", BATCH, *batch, "}", ""])
