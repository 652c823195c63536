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
    text: str = ""


@dataclass
class Routine:
    name: str
    group: str
    summary: str
    details: str
    kept: str
    arguments: list = field(default_factory=list)


@dataclass
class Interface:
    routines: list
