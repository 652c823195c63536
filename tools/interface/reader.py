"""Reads include/kezlib.h into the model.

The header must keep a strict form: groups of routines, each routine one Doxygen comment followed by
one prototype, each argument named by a @param whose direction agrees with its type, each array with
its extent, what is kept in one clause at the end. Titled paragraphs stand before the arguments. A
callback's type stands above the routines that take it, below a comment of its own. What breaks the
form is refused with its line.
"""

import pathlib
import re

from . import arithmetic, conditions, paragraphs
from .model import Argument, Callback, CallbackArgument, FormError, Group, Interface, Routine

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
HEADER = ROOT / "include/kezlib.h"

ITEM = re.compile(
    r"/\*\*(?P<comment>.*?)\*/"
    r"(?:\s*KEZ_API\s+void\s+KEZ_CALL\s+(?P<name>\w+)\((?P<parameters>[^()]*)\);"
    r"|\s*typedef\s+(?P<result>\w+)\(KEZ_CALL \*(?P<callback>kez_\w+)\)"
    r"\((?P<passed>[^()]*)\);)?",
    re.DOTALL,
)
PARAMETER = re.compile(
    r"(?P<const>const )?(?P<type>float|int32_t|void) "
    r"(?:\*(?P<pointer>\w+)|(?P<array>\w+)\[\])"
    r"|(?P<callback>kez_\w+) (?P<routine>\w+)"
)
PASSED = re.compile(
    r"(?P<const>const )?(?P<type>float|int32_t|void) "
    r"(?:\*(?P<pointer>\w+)|(?P<array>\w+)\[\]|(?<!void )(?P<value>\w+))"
)
TAG = re.compile(
    r"@param\[(in|out|in,out)\] ((?:\w+)(?:,\w+)*) (?:\[([^\]]+)\] )?(.+)", re.DOTALL
)
KINDS = {"float": "real", "int32_t": "integer", "void": "word"}
CLAUSE = re.compile(r"(.+?); (kept|unchanged) (?:when (?!beyond )|(?=beyond ))([^;]+)")
RESULTS = KINDS | {"void": "nothing"}


def plain(text):
    return " ".join(text.split())


def parse_comment(comment):
    """Splits a comment into its description, its @param texts and the paragraphs before these."""
    lines = [re.sub(r"^\s*\* ?", "", line) for line in comment.strip().splitlines()]
    chunks = re.split(r"(?m)^(?=@)", "\n".join(lines))
    tags = [chunk for chunk in chunks[1:] if chunk.startswith("@param")]
    others = [chunk for chunk in chunks[1:] if not chunk.startswith("@param")]
    if chunks[1:] != others + tags:
        raise FormError("the arguments stand at the end")
    return chunks[0].strip(), tags, [chunk.strip() for chunk in others]


def parse_passed(text):
    match = PASSED.fullmatch(plain(text))
    if not match:
        raise FormError(f"'{plain(text)}' is not an argument of a known type")
    return CallbackArgument(match["pointer"] or match["array"] or match["value"],
                            KINDS[match["type"]], bool(match["const"]), not match["value"])


def parse_callback(match):
    text, tags, others = parse_comment(match["comment"])
    if not text or tags or others:
        raise FormError("the comment of a callback's type is a description and nothing else")
    if match["result"] not in RESULTS:
        raise FormError(f"'{match['result']}' is not a result of a known type")
    return Callback(match["callback"], plain(text), RESULTS[match["result"]],
                    [parse_passed(p) for p in match["passed"].split(",")])


def parse_parameter(text, callbacks):
    match = PARAMETER.fullmatch(plain(text))
    if not match:
        raise FormError(f"'{plain(text)}' is not an argument by reference of a known type")
    if match["callback"]:
        types = [c for c in callbacks if c.name == match["callback"]]
        if not types:
            raise FormError(f"{match['callback']} is not declared above")
        return Argument(match["routine"], "callback", "in", callback=types[0]), True
    is_array = bool(match["array"]) or match["type"] == "void"
    direction = "in" if match["const"] else "written"
    return Argument(match["pointer"] or match["array"], KINDS[match["type"]], direction), is_array


def check_extent(argument, arguments):
    integers = [a for a in arguments if a.kind == "integer" and a.direction != "out"]
    arithmetic.check(argument.extent, integers, f"extent [{argument.extent}] of {argument.name}",
                     "an integer input")


def split_clause(text, direction):
    """The text of an argument without its closing clause, and the condition in that."""
    if direction == "in":
        return text, ""
    word = "kept" if direction == "out" else "unchanged"
    found = CLAUSE.fullmatch(text)
    says, condition = (found[1], found[3]) if found and found[2] == word else (text, "")
    if re.search(r"\b(kept|unchanged)\b", says + condition):
        raise FormError(f"'{text}': what is kept stands in one clause at the end, '; {word} when "
                        f"...' or '; {word} beyond ...'")
    return says, condition


def document(tag, line, by_name, arrays):
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
        argument.direction, argument.extent, argument.line = direction, extent or "", line
        argument.text, argument.kept_when = split_clause(plain(text), direction)
    return names.split(",")


def parse_arguments(parameters, tags, callbacks):
    parsed = [parse_parameter(p, callbacks) for p in parameters.split(",")]
    arguments = [argument for argument, _ in parsed]
    arrays = {argument.name for argument, is_array in parsed if is_array}
    by_name = {argument.name: argument for argument in arguments}
    if len(by_name) != len(arguments):
        raise FormError("two arguments have one name")
    documented = [name for line, tag in enumerate(tags)
                  for name in document(tag, line, by_name, arrays)]
    if documented != list(by_name):
        raise FormError("the @params are not the arguments in their order: "
                        + (", ".join(sorted(set(by_name) - set(documented))) or "order differs"))
    for argument in arguments:
        if argument.extent:
            check_extent(argument, arguments)
        if argument.kept_when:
            conditions.check(argument, arguments)
    return arguments


def parse_routine(match, group, callbacks):
    description, tags, titled = parse_comment(match["comment"])
    arguments = parse_arguments(match["parameters"], tags, callbacks)
    summary, _, details = plain_description(description).partition("\n")
    if not summary:
        raise FormError("no description")
    return Routine(match["name"], group.title, group.name, summary, details.rstrip(),
                   **paragraphs.read(titled), arguments=arguments)


def plain_description(description):
    """The first sentence on a line of its own, then the rest with its lines as they stand: they are
    indented in a sketch."""
    first = re.match(r"(.+?(?<!\.\.)(?<! )[.:])(?:\s*\n(?= )|\s+|$)", description, re.DOTALL)
    return plain(first[1]) + "\n" + description[first.end():] if first else ""


def group_text(comment):
    """What a group's comment says below its title."""
    _, _, (title, *_) = parse_comment(comment)
    return title.partition("\n")[2].strip()


def parse_item(match, group, interface):
    """Enters what a comment and the declaration below it say; returns the group that is open."""
    if match["callback"]:
        interface.callbacks.append(parse_callback(match))
    elif match["name"]:
        if group is None:
            raise FormError(f"{match['name']} stands outside a group")
        interface.routines.append(parse_routine(match, group, interface.callbacks))
    elif found := re.search(r"@defgroup (\w+) (.+)", match["comment"]):
        interface.groups.append(Group(*found.groups(), group_text(match["comment"])))
        return interface.groups[-1]
    elif "@}" in match["comment"]:
        return None
    return group


def check_between(text):
    code = re.sub(r"(?m)^#.*$", "", text)
    if re.search("KEZ_|kez|typedef", code):
        raise FormError("a declaration without a comment, or not of the form "
                        "'KEZ_API void KEZ_CALL name(arguments);' or "
                        "'typedef result(KEZ_CALL *name)(arguments);'")


def parse_header(text):
    interface, group, end = Interface(), None, 0
    for match in ITEM.finditer(text):
        line = text.count("\n", 0, match.start()) + 1
        try:
            check_between(text[end:match.start()])
            group = parse_item(match, group, interface)
        except FormError as error:
            place = match["name"] or match["callback"] or ""
            raise FormError(f"line {line}: {place}: {error}") from None
        end = match.end()
    check_between(text[end:])
    names = [declared.name for declared in interface.routines + interface.callbacks]
    if len(set(names)) != len(names):
        raise FormError("a name is declared twice")
    paragraphs.check(interface.routines)
    return interface


def version():
    """The library's, as 1.0.0."""
    return ".".join(re.findall(r"#define KEZ_VERSION_\w+ (\d+)", HEADER.read_text()))


def read():
    return parse_header(HEADER.read_text())
