"""The languages behind the tabs: those that have a writer."""

from dataclasses import dataclass

from interface import writers


@dataclass
class Tab:
    key: str
    title: str
    literals: object
    writer: object
    folder: str  # of its page

    @property
    def page(self):
        return f"language-{self.folder}.html"


def tabs():
    return [Tab(key, w.LANGUAGE.title, w.LANGUAGE.literals, w, w.LANGUAGE.folder)
            for key, w in writers.languages().items()]


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


def templates(writer, routine):
    """By what lists of either kind hold; most routines have none, and one template."""
    forms = {form: template(writer, routine, form) for form in ("real", "integer")}
    return forms if forms["real"] != forms["integer"] else {"real": forms["real"]}


def data(tab, routine):
    """What the page needs to write calls."""
    return {"key": tab.key, "literals": vars(tab.literals),
            "templates": templates(tab.writer, routine)}
