"""What the header says."""

from dataclasses import dataclass, field


class FormError(Exception):
    """The header breaks its form."""


@dataclass
class Argument:
    name: str
    kind: str  # real, integer, word or callback
    direction: str  # in, out or in,out
    extent: str = ""
    text: str = ""  # without the clause "; kept ..." or "; unchanged ..."
    kept_when: str = ""  # the cases in which it is not written: "n is 0", "beyond count"
    callback: "Callback | None" = None  # of that kind, its type
    line: int = 0  # number of the @param that names it: those that belong together share one

    def is_kept(self):
        """Whether it is an output that some case leaves as the caller had it."""
        return self.direction == "out" and bool(self.kept_when)

    def kind_in(self, form):
        """Its kind where raw words are of that form, real or integer."""
        return form if self.kind == "word" else self.kind

    def kept_clause(self):
        """As the header writes it; empty if it is always written."""
        word = "unchanged" if self.direction == "in,out" else "kept"
        when = "" if self.kept_when.startswith("beyond ") else "when "
        return f"{word} {when}{self.kept_when}" if self.kept_when else ""

    def whole_text(self):
        return "; ".join(filter(None, [self.text, self.kept_clause()]))


@dataclass
class CallbackArgument:
    name: str
    kind: str  # real, integer or word
    constant: bool
    by_pointer: bool


@dataclass
class Callback:
    """The type of a routine of the host."""

    name: str
    text: str
    result: str  # real, integer or nothing
    arguments: list


@dataclass
class Group:
    """Routines that stand together: a chapter of the manual."""

    name: str
    title: str
    text: str  # paragraphs and tables, with their lines as they stand


@dataclass
class Routine:
    """The texts between the details and the arguments are those of the titled paragraphs."""

    name: str
    group: str  # its title
    group_name: str
    summary: str
    details: str
    readable: str = ""  # a name for people; none if it is another routine under a second name
    second_name_of: str = ""  # that routine
    measures_through: list = field(default_factory=list)  # routines whose decisions it shares
    deliberate: str = ""  # what surprises
    degenerate: str = ""
    accuracy: str = ""
    time: str = ""
    source: str = ""
    kept: str = ""  # what it keeps from call to call
    arguments: list = field(default_factory=list)

    def remarks(self):
        """Title and text of the paragraphs that it has besides its names."""
        through = ", ".join(f"`{name}`" for name in self.measures_through)
        texts = {"Measures through": through, "Deliberate": self.deliberate,
                 "Degenerate input": self.degenerate, "Accuracy": self.accuracy,
                 "Time": self.time, "Source": self.source, "Kept value": self.kept}
        return {title: text for title, text in texts.items() if text}

    def inputs(self):
        return [a for a in self.arguments if a.direction != "out"]

    def outputs(self):
        return [a for a in self.arguments if a.direction != "in"]

    def kept_outputs(self):
        return [a for a in self.arguments if a.is_kept()]

    def words(self):
        return [a for a in self.arguments if a.kind == "word"]


@dataclass
class Interface:
    groups: list = field(default_factory=list)
    routines: list = field(default_factory=list)
    callbacks: list = field(default_factory=list)
