"""The languages behind the tabs: C, and those that have a binding's writer."""

from dataclasses import dataclass

import c
from interface.writers import all_writers

ORDER = ["C", "Python", "Fortran", "C#", "VBA", "Pascal", "JavaScript", "TypeScript"]


@dataclass
class Tab:
    key: str
    title: str
    literals: object
    writer: object
    page: str  # of the language


def key_of(title):
    return title.lower().replace("#", "sharp")


def tabs():
    writers = [c, *(w for w in all_writers().values() if hasattr(w, "LANGUAGE"))]
    ordered = sorted((w for w in writers if hasattr(w, "call")),
                     key=lambda w: ORDER.index(w.LANGUAGE.title))
    return [Tab(key_of(w.LANGUAGE.title), w.LANGUAGE.title, w.LANGUAGE.literals, w,
                f"language-{key_of(w.LANGUAGE.title)}.html") for w in ordered]


def holes(routine):
    """What a page fills in."""
    given = {a.name: f"«{a.name}»" for a in routine.inputs()}
    sizes = {a.name: f"«#{a.name}»" for a in routine.arguments if a.extent}
    return given, sizes


def template(tab, routine):
    return tab.writer.call(routine, *holes(routine))


def filled(tab, routine, row):
    """The template with a row's values."""
    text = template(tab, routine)
    literals = tab.literals
    for a in routine.inputs():
        kind = row.kinds[a.name]
        values = literals.joint.join(literals.of(v, kind) for v in row.given[a.name])
        text = text.replace(f"«{a.name}»", values)
    for a in routine.arguments:
        if a.extent:
            text = text.replace(f"«#{a.name}»", str(size(a, row)))
    return text


def size(argument, row):
    """Entries of an array in a row."""
    operands = row.given if argument.direction != "out" else row.wanted
    return len(operands[argument.name])
