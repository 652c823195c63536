"""A module of Visual Basic for Applications: its external procedures, variables and procedures."""

import re
from dataclasses import dataclass, field

from vba_text import Line, enter

MOST_PARAMETERS = 60
SIZES = {"Single": 4, "Long": 4, "LongPtr": None, "Variant": None}
DECLARE = re.compile(r'(?:Public|Private) Declare (?P<safe>PtrSafe )?Sub (?P<name>\w+) Lib '
                     r'"(?P<library>[^"]+)"(?: Alias "(?P<alias>\w+)")? \((?P<parameters>.*)\)')
PROCEDURE = re.compile(r"(?:Public |Private )?(?P<kind>Sub|Function) (?P<name>\w+)"
                       r"\((?P<parameters>[^()]*)\)(?: As (?P<result>\w+))?")
PARAMETER = re.compile(r"(ByRef|ByVal) ([A-Za-z]\w*) As ([A-Za-z]\w*)")
FIELD = re.compile(r"    (\w+) As (Single|Long)")


@dataclass(frozen=True)
class Parameter:
    name: str
    type: str
    by_reference: bool


@dataclass(frozen=True)
class External:
    """A procedure of a library."""

    name: str
    library: str
    entry: str
    parameters: tuple


@dataclass
class Procedure:
    name: str
    kind: str
    parameters: tuple
    result: str
    line: Line
    body: list = field(default_factory=list)


@dataclass
class Module:
    name: str = ""
    explicit: bool = False
    names: dict = field(default_factory=dict)  # all, by their name in lower case
    variables: list = field(default_factory=list)  # what declares them, a line each

    def of(self, kind):
        return [value for value in self.names.values() if isinstance(value, kind)]


def parse_parameters(text, line):
    found = {}
    for part in filter(None, (part.strip() for part in text.split(","))):
        match = PARAMETER.fullmatch(" ".join(part.split()))
        if not match or match[3] not in SIZES:
            line.refuse(f"'{part}' is no parameter")
        enter(found, match[2], Parameter(match[2], match[3], match[1] == "ByRef"), line)
    if len(found) > MOST_PARAMETERS:
        line.refuse("too many parameters")
    return tuple(found.values())


def parse_declare(line, vba7):
    match = DECLARE.fullmatch(" ".join(line.text.split()))
    if not match:
        line.refuse("no declaration of an external procedure")
    if bool(match["safe"]) != vba7:
        line.refuse("PtrSafe belongs to VBA7, and only there")
    parameters = parse_parameters(match["parameters"], line)
    if not vba7 and any(p.type == "LongPtr" for p in parameters):
        line.refuse("LongPtr is known from VBA7 on")
    return External(match["name"], match["library"], match["alias"] or match["name"], parameters)


def read_block(lines, end):
    """The lines up to that which closes a type or a procedure."""
    body = []
    for line in lines:
        if line.text.strip() == end:
            return body
        body.append(line)
    raise ValueError(f"no {end}")


def read_procedure(line, lines):
    match = PROCEDURE.fullmatch(line.text.strip())
    if not match or bool(match["result"]) != (match["kind"] == "Function"):
        line.refuse("no procedure")
    return Procedure(match["name"], match["kind"], parse_parameters(match["parameters"], line),
                     match["result"], line, read_block(lines, f"End {match['kind']}"))


def read_type(line, lines):
    for member in read_block(lines, "End Type"):
        if not FIELD.fullmatch(member.text):
            member.refuse("no member of a type")
    return line.text.split()[-1], line.text


def read_module(lines, vba7=True):
    """Of the lines that are compiled."""
    module, lines = Module(), iter(lines)
    for line in lines:
        text = line.text.strip()
        words = text.split()
        if not words or text.startswith("'"):
            continue
        if match := re.fullmatch(r'Attribute VB_Name = "(\w+)"', text):
            if line.number != 1:
                line.refuse("the name stands in the first line")
            module.name = match[1]
        elif text == "Option Explicit":
            module.explicit = True
        elif "Declare" in words[:2]:
            if module.of(Procedure):
                line.refuse("a declaration stands behind a procedure")
            external = parse_declare(line, vba7)
            enter(module.names, external.name, external, line)
        elif "Type" in words[:2]:
            enter(module.names, *read_type(line, lines), line)
        elif "Sub" in words[:2] or "Function" in words[:2]:
            procedure = read_procedure(line, lines)
            enter(module.names, procedure.name, procedure, line)
        elif words[0] in ("Private", "Public", "Dim"):
            if module.of(Procedure):
                line.refuse("a variable of the module stands behind a procedure")
            module.variables.append(Line(line.number, text.split(" ", 1)[1]))
        else:
            line.refuse("not known at this place")
    if module.name:
        enter(module.names, module.name, module.name, Line(1, "the module"))
    return module
