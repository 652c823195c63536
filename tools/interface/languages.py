"""What the bindings' writers share: names that a language accepts, its literals, its comments."""

import math
import re
import textwrap
from dataclasses import dataclass, field

from .arithmetic import signed
from .rows import single, word


@dataclass(frozen=True)
class Literals:
    """How a language writes values. The manual's page fills in what its reader typed by these too,
    so they are patterns and no functions."""

    real: str = "{}"  # around the digits, which have a point or an exponent
    integer: str = "{}"
    least_integer: str = "-2147483648"
    not_a_number: str = "nan"
    infinity: str = "inf"
    joint: str = ", "  # between the entries of an array
    row: int = 10000  # so many entries fit in a line
    row_joint: str = ", "  # between the entries of two lines
    filler: str = ""  # the entry of an array that has none, where a language knows no such arrays

    def of(self, literal, kind):
        """A row's literal."""
        bits = word(literal, kind)
        if kind == "integer":
            return (self.least_integer if bits == 1 << 31 else
                    self.integer.format(signed(bits)))
        value = single(bits)
        if math.isnan(value):
            return self.not_a_number
        if math.isinf(value):
            return ("-" if value < 0 else "") + self.infinity
        digits = f"{value:.9g}"
        return self.real.format(digits if set(digits) & set(".e") else digits + ".0")


@dataclass(frozen=True)
class Language:
    """A language that a binding is written for. `escape` is its one rule for a name of the header
    that it reserves, in whatever case if it knows none."""

    title: str
    file: str  # what a host adds, below share/kezlib/bindings; or only the folder of its page
    reserved: frozenset = frozenset()
    knows_case: bool = True
    escape: str = "{}_"
    order: float = 99  # its place among the manual's tabs
    literals: Literals = field(default_factory=Literals)

    @property
    def key(self):
        """Its name in a manual's address, and that of its function in the tests."""
        return self.title.lower().replace("#", "sharp")

    @property
    def folder(self):
        return self.file.partition("/")[0]

    def name(self, name):
        known = name if self.knows_case else name.lower()
        return self.escape.format(name) if known in self.reserved else name


def shape(argument):
    """What an argument is: "integer", "real array [n + 1]", "callback"."""
    if argument.callback:
        return argument.kind
    kind = {"word": "real or integer"}.get(argument.kind, argument.kind)
    return f"{kind} array [{argument.extent}]" if argument.extent else kind


def known_as(routine):
    """What people call it: its readable name, or the routine that it is too."""
    return routine.readable or f"the same as {routine.second_name_of}"


def description(routine):
    """Summary and details as paragraphs; a summary that ends in a colon goes on in the details."""
    leads_up = routine.summary.endswith(":") and not routine.details.startswith((" ", "|", "- "))
    return (routine.summary + (" " if leads_up else "\n\n") + routine.details).rstrip()


def remarks(routine, without=()):
    """Its titled paragraphs, each behind its title."""
    return "\n\n".join(f"{title}:{chr(10) if text.startswith('- ') else ' '}{text}"
                       for title, text in routine.remarks().items() if title not in without)


def documentation(routine):
    """All that the header says of it, except of its arguments."""
    return "\n\n".join(filter(None, [description(routine), remarks(routine)]))


def wrapped(text, prefix, width=100):
    """Paragraphs as the lines of a comment; sketches and tables, which are indented or begin with a
    bar, stay as they are, and items of a list begin a line."""
    lines = []
    for paragraph in text.split("\n\n"):
        lines += [""] if lines and paragraph else []
        if paragraph.startswith((" ", "|")):
            lines += paragraph.splitlines()
            continue
        for item in re.split(r"\n(?=- )", paragraph):
            indent = "  " if item.startswith("- ") else ""
            lines += textwrap.wrap(" ".join(item.split()), width - len(prefix),
                                   subsequent_indent=indent, break_long_words=False,
                                   break_on_hyphens=False)
    return [(prefix + line).rstrip() for line in lines]


OVERRUN = re.compile(r"(?<=\.)\s+[A-Z][^.]*\boverrun\b[^.]*\.")


def where_arrays_are_checked(text):
    """Without the sentences on arrays that are too short, for languages that refuse these."""
    return OVERRUN.sub("", text)


GLUE = "\N{NO-BREAK SPACE}"


def glued(text):
    """With blanks at which no line of a statement breaks."""
    return text.replace(" ", GLUE)


def broken(text, width, indent="    "):
    """A statement's lines, which break at the blanks that are not glued."""
    lines = textwrap.wrap(text, width, subsequent_indent=indent, break_long_words=False,
                          break_on_hyphens=False)
    return [line.replace(GLUE, " ") for line in lines]


def is_list(argument):
    """Whether it is an array that has not always one entry."""
    return argument.extent not in ("", "1")


def forms(routine):
    """The kinds of its raw words: a declaration for each; one of none where it has no words."""
    return ["integer", "real"] if routine.words() else [None]


INTEGERS = re.compile(r"(?:[-\d\s,&]|«\w+»)*")  # or what a page puts integers in place of


def form_of(routine, literals, language):
    """The kind of a call's raw words, by the texts of what they hold."""
    texts = [literals.get(a.name, "").replace(language.literals.least_integer, "0")
             for a in routine.words()]
    return "integer" if all(map(INTEGERS.fullmatch, texts)) else "real"
