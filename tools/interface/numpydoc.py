"""A routine's documentation in the form of numpydoc, as of a function that takes the inputs, by
keyword what optional results are to be where they are not written, and returns the outputs."""

import itertools

from . import conditions, shapes
from .defaults import optional_inputs
from .languages import description, known_as, remarks, where_arrays_are_checked, wrapped

WIDTH = 92
KINDS = {"real": "float", "integer": "int", "word": "float or int"}


def callback_hint(callback):
    taken = ", ".join(KINDS[a.kind] for a in callback.arguments)
    return f"Callable[[{taken}], {KINDS[callback.result]}]"


def items(arguments, kind, text, name):
    """Neighbours that are documented alike share an entry."""
    for (kind_text, about), members in itertools.groupby(arguments, lambda a: (kind(a), text(a))):
        names = ", ".join(name(a.name) for a in members)
        yield from [f"{names} : {kind_text}", *wrapped(about, "    ", WIDTH)]


def documented_kind(argument):
    if argument.callback:
        return callback_hint(argument.callback)
    kind = KINDS[argument.kind]
    last = " or without the last" if shapes.read_entries(argument) else ""
    return f"sequence of {kind}, [{argument.extent}]{last}" if argument.extent else kind


def documented_input(routine):
    optional = optional_inputs(routine)
    return lambda a: documented_kind(a) + (", default 0" if a.name in optional else "")


def notes(routine):
    """Its other name, its titled paragraphs, and where else to look."""
    family = (f'Of the family "{routine.group}", whose conventions and tables of codes '
              "help(kezlib.routines) has.")
    texts = f"Name: {known_as(routine)}", where_arrays_are_checked(remarks(routine)), family
    return wrapped("\n\n".join(filter(None, texts)), "", WIDTH)


def documented_result(argument):
    kind = KINDS[argument.kind]
    if argument.extent:
        return f"array of {kind}, [{argument.extent}]"
    return f"{kind} or None" if argument.is_kept() else kind


def result_text(argument):
    if not argument.kept_when:
        return argument.text
    if argument.direction == "in,out":
        return argument.whole_text()
    if expression := conditions.beyond(argument.kept_when):
        return f"{argument.text}; its length is {expression}, unless it was given"
    unwritten = "not written" if argument.extent else "None"
    return f"{argument.text}; {unwritten}, or what was given, when {argument.kept_when}"


def section(title, lines):
    return ["", title, "-" * len(title), *lines] if lines else []


def documentation(routine, name):
    """The lines of a docstring; `name` gives an argument's name as the function has it."""
    given = [*items(routine.inputs(), documented_input(routine), lambda a: a.text, name),
             *items(routine.kept_outputs(), lambda a: f"{documented_kind(a)}, optional",
                    lambda a: "what to return where it is not written", name)]
    returned = items(routine.outputs(), documented_result, result_text, name)
    text = where_arrays_are_checked(description(routine))
    return (wrapped(text, "", WIDTH) + section("Parameters", given)
            + section("Returns", [*returned]) + section("Notes", notes(routine)))
