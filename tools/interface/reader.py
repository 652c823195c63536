"""Reads include/kezlib.h into the model.

The header must keep a strict form: groups of routines, each routine one Doxygen comment followed by
one prototype, each argument named by a @param whose direction agrees with its type, each array with
its extent. What breaks the form is refused with its line.
"""

import pathlib
import re

from . import arithmetic
from .model import Argument, FormError, Interface, Routine

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
HEADER = ROOT / "include/kezlib.h"

ITEM = re.compile(
    r"/\*\*(?P<comment>.*?)\*/"
    r"(?:\s*KEZ_API\s+void\s+KEZ_CALL\s+(?P<name>\w+)\((?P<parameters>[^()]*)\);)?",
    re.DOTALL,
)
PARAMETER = re.compile(
    r"(?P<const>const )?(?P<type>float|int32_t|void) "
    r"(?:\*(?P<pointer>\w+)|(?P<array>\w+)\[\])"
    r"|(?P<callback>kez_\w+) (?P<routine>\w+)"
)
TAG = re.compile(
    r"@param\[(in|out|in,out)\] ((?:\w+)(?:,\w+)*) (?:\[([^\]]+)\] )?(.+)", re.DOTALL
)
KINDS = {"float": "real", "int32_t": "integer", "void": "word"}


def plain(text):
    return " ".join(text.split())


def parse_comment(comment):
    """Splits a comment into its description, its @param texts and its other paragraphs."""
    lines = [re.sub(r"^\s*\* ?", "", line) for line in comment.strip().splitlines()]
    chunks = re.split(r"(?m)^(?=@)", "\n".join(lines))
    tags = [chunk for chunk in chunks[1:] if chunk.startswith("@param")]
    others = [chunk for chunk in chunks[1:] if not chunk.startswith("@param")]
    return chunks[0].strip(), tags, others


def parse_parameter(text):
    match = PARAMETER.fullmatch(plain(text))
    if not match:
        raise FormError(f"'{plain(text)}' is not an argument by reference of a known type")
    if match["callback"]:
        return Argument(match["routine"], "callback", "in"), True
    is_array = bool(match["array"]) or match["type"] == "void"
    direction = "in" if match["const"] else "written"
    return Argument(match["pointer"] or match["array"], KINDS[match["type"]], direction), is_array


def check_extent(argument, arguments):
    integers = [a for a in arguments if a.kind == "integer" and a.direction != "out"]
    arithmetic.check(argument.extent, integers, f"extent [{argument.extent}] of {argument.name}",
                     "an integer input")


def document(tag, by_name, arrays):
    """Enters a @param's facts into the arguments that it names, and returns their names."""
    found = TAG.fullmatch(tag.strip())
    if not found:
        raise FormError(f"'{plain(tag)}' is not '@param[direction] names [extent] text'")
    direction, names, extent, text = found.groups()
    for name in names.split(","):
        argument = by_name.get(name)
        if not argument:
            raise FormError(f"{name} is documented but is no argument")
        if (direction == "in") != (argument.direction == "in"):
            raise FormError(f"@param[{direction}] {name} contradicts the prototype's const")
        if bool(extent) != (name in arrays or argument.kind == "callback"):
            raise FormError(f"{name}: an array has an extent, a scalar has none")
        argument.direction, argument.extent, argument.text = direction, extent or "", plain(text)
    return names.split(",")


def parse_arguments(parameters, tags):
    parsed = [parse_parameter(p) for p in parameters.split(",")]
    arguments = [argument for argument, _ in parsed]
    arrays = {argument.name for argument, is_array in parsed if is_array}
    by_name = {argument.name: argument for argument in arguments}
    if len(by_name) != len(arguments):
        raise FormError("two arguments have one name")
    documented = [name for tag in tags for name in document(tag, by_name, arrays)]
    if documented != list(by_name):
        raise FormError("the @params are not the arguments in their order: "
                        + (", ".join(sorted(set(by_name) - set(documented))) or "order differs"))
    for argument in arguments:
        if argument.extent:
            check_extent(argument, arguments)
    return arguments


def kept_value(paragraphs):
    kept = ""
    for paragraph in paragraphs:
        title, _, text = paragraph.partition("\n")
        if title != "@par Kept value":
            raise FormError(f"unknown paragraph '{title}'")
        kept = plain(text)
    return kept


def parse_routine(match, group):
    description, tags, paragraphs = parse_comment(match["comment"])
    arguments = parse_arguments(match["parameters"], tags)
    summary, _, details = plain_description(description).partition("\n")
    if not summary:
        raise FormError("no description")
    return Routine(match["name"], group, summary, details.rstrip(), kept_value(paragraphs),
                   arguments)


def plain_description(description):
    """The first sentence on a line of its own, then the rest with its lines as they stand: they are
    indented in a sketch."""
    first = re.match(r"(.+?[.:])(?:\s*\n(?= )|\s+|$)", description, re.DOTALL)
    return plain(first[1]) + "\n" + description[first.end():] if first else ""


def parse_header(text):
    routines, group, end = [], None, 0
    for match in ITEM.finditer(text):
        line = text.count("\n", 0, match.start()) + 1
        try:
            check_between(text[end:match.start()])
            comment = match["comment"]
            if match["name"]:
                if group is None:
                    raise FormError(f"{match['name']} stands outside a group")
                routines.append(parse_routine(match, group))
            elif title := re.search(r"@defgroup \w+ (.+)", comment):
                group = title[1]
            elif "@}" in comment:
                group = None
        except FormError as error:
            raise FormError(f"line {line}: {match['name'] or ''}: {error}") from None
        end = match.end()
    check_between(text[end:])
    names = [routine.name for routine in routines]
    if len(set(names)) != len(names):
        raise FormError("a routine is declared twice")
    return Interface(routines)


def check_between(text):
    code = re.sub(r"(?m)^#.*$", "", text)
    if "KEZ_API" in code or "kez" in re.sub(r"typedef[^;]*;", "", code):
        raise FormError("a prototype without a comment, or not of the form "
                        "'KEZ_API void KEZ_CALL name(arguments);'")


def read():
    return parse_header(HEADER.read_text())
