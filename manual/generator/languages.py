"""The languages behind the tabs: C, and those that have a binding's writer."""

import pathlib
from dataclasses import dataclass

import c
from interface.writers import all_writers

ORDER = ["C", "Python", "Fortran", "C#", "VBA", "Pascal", "JavaScript", "TypeScript"]  # then others


@dataclass
class Tab:
    key: str
    title: str
    literals: object
    writer: object
    folder: str  # of the binding

    @property
    def page(self):
        return f"language-{self.folder}.html"


def key_of(title):
    return title.lower().replace("#", "sharp")


def tabs():
    writers = [c, *(w for w in all_writers().values() if hasattr(w, "LANGUAGE"))]
    ordered = sorted((w for w in writers if hasattr(w, "call")),
                     key=lambda w: [*ORDER, w.LANGUAGE.title].index(w.LANGUAGE.title))
    return [Tab(key_of(w.LANGUAGE.title), w.LANGUAGE.title, w.LANGUAGE.literals, w,
                "c" if w is c else pathlib.PurePath(w.LANGUAGE.file).parts[0]) for w in ordered]


def holes(routine, form):
    """What a page fills in. Writers know a real by its point, so the holes of lists of either kind
    have one where they are to hold reals."""
    def hole(argument):
        point = "." if argument.kind == "word" and form == "real" else ""
        return f"«{argument.name}{point}»"

    given = {a.name: hole(a) for a in routine.inputs()}
    sizes = {a.name: f"«#{a.name}»" for a in routine.arguments if a.extent}
    return given, sizes


def template(writer, routine, form):
    return writer.call(routine, *holes(routine, form))


def data(tab, routine):
    """What the page needs to write calls."""
    return {"key": tab.key, "literals": vars(tab.literals),
            "templates": {form: template(tab.writer, routine, form)
                          for form in ("real", "integer")}}
