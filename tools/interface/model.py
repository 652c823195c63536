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
    text: str = ""  # without the clause "; kept when ..." or "; unchanged when ..."
    kept_when: str = ""  # condition of that clause: the cases in which it is not written
    callback: "Callback | None" = None  # of that kind, its type

    def is_kept(self):
        """Whether it is an output that some case leaves as the caller had it."""
        return self.direction == "out" and bool(self.kept_when)

    def kind_in(self, form):
        """Its kind where raw words are of that form, real or integer."""
        return form if self.kind == "word" else self.kind

    def whole_text(self):
        word = "unchanged" if self.direction == "in,out" else "kept"
        return self.text + (f"; {word} when {self.kept_when}" if self.kept_when else "")


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
    name: str
    group: str  # its title
    summary: str
    details: str
    kept: str  # what it keeps from call to call
    arguments: list = field(default_factory=list)

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
