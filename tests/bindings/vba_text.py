"""Text of Visual Basic for Applications: its logical lines, what of them is compiled, its tokens,
and what the editor would refuse. Knows nothing of how the text was made."""

import re
from dataclasses import dataclass

# What may name nothing: the language's keywords, and the functions and types that it reserves.
RESERVED = frozenset("""
    abs addressof and any array as attribute boolean byref byte byval call case cbool cbyte ccur
    cdate cdbl cdec cint circle clng clnglng clngptr close const csng cstr currency cvar cverr date
    debug decimal declare defbool defbyte defcur defdate defdbl defdec defint deflng deflnglng
    deflngptr defobj defsng defstr defvar dim do doevents double each else elseif empty end endif
    enum eqv erase event exit false fix for friend function get global gosub goto if imp implements
    in input inputb int integer is lbound len lenb let like lock long longlong longptr loop lset me
    mod new next not nothing null on open option optional or paramarray preserve print private psn
    public put raiseevent redim rem resume return rset scale seek select set sgn shared single spc
    static step stop string sub tab then to true type typeof ubound unlock until variant wend while
    with withevents write xor""".split())

TOKEN = re.compile(r"""\s*(?:(?P<string>"(?:[^"]|"")*")
    |(?P<number>&[Hh][0-9A-Fa-f]+&?|(?:\d+\.?\d*|\.\d+)(?:[eE][+-]?\d+)?[!#&%@]?)
    |(?P<name>[A-Za-z]\w*)
    |(?P<sign><=|>=|<>|[-+*/\\&=<>(),;.^:])
    |(?P<comment>'.*))""", re.VERBOSE)
LONGEST_LINE, MOST_CONTINUATIONS, LONGEST_NAME = 1023, 24, 255


class Refused(Exception):
    """What the language or its editor would not take."""


@dataclass(frozen=True)
class Line:
    """A logical line."""

    number: int
    text: str

    def tokens(self):
        return tokens(self.text, self.number)

    def refuse(self, why):
        raise Refused(f"line {self.number}: {why}: {self.text.strip()[:80]}")


def tokens(text, number=0):
    """Kind and text of each token, without comments."""
    found, at = [], 0
    text = text.rstrip()
    while at < len(text):
        match = TOKEN.match(text, at)
        if not match:
            raise Refused(f"line {number}: no token at {text[at:at + 20]!r}")
        if match.lastgroup == "name" and len(match["name"]) > LONGEST_NAME:
            raise Refused(f"line {number}: a name of {len(match['name'])} letters")
        if match.lastgroup != "comment":
            found.append((match.lastgroup, match[match.lastgroup]))
        at = match.end()
    return found


def physical_lines(data):
    """The lines of a module's file."""
    if not data.isascii():
        raise Refused("the file is not of ASCII alone")
    text = data.decode()
    if text.replace("\r\n", "").count("\n") or not text.endswith("\r\n"):
        raise Refused("a line does not end as the editor's import wants it")
    return text.split("\r\n")[:-1]


def logical_lines(lines):
    """The lines with those that continue them."""
    result, parts, begin = [], [], 1
    for number, line in enumerate(lines, 1):
        if len(line) > LONGEST_LINE:
            raise Refused(f"line {number} has {len(line)} characters")
        begin = begin if parts else number
        parts.append(line)
        if line.endswith(" _"):
            parts[-1] = line[:-1]
            if len(parts) > MOST_CONTINUATIONS:
                raise Refused(f"line {begin} has too many continuations")
        else:
            result.append(Line(begin, "".join(parts)))
            parts = []
    if parts:
        raise Refused("the last line is continued")
    return result


def compiled_lines(lines, constants):
    """What is left of #If NAME Then, #Else and #End If, which these modules do not nest."""
    active, within = True, False
    for line in lines:
        text = line.text.strip()
        if match := re.fullmatch(r"#If (\w+) Then", text):
            if within or match[1] not in constants:
                line.refuse("a condition that is not known here")
            active, within = constants[match[1]], True
        elif text == "#Else" and within:
            active = not active
        elif text == "#End If" and within:
            active, within = True, False
        elif text.startswith("#"):
            line.refuse("no directive, or one out of place")
        elif active:
            yield line
    if within:
        raise Refused("an #If has no end")


def check_name(name, line):
    if name.lower() in RESERVED:
        line.refuse(f"{name} is reserved")
    return name.lower()


def enter(table, name, value, line):
    """Into what is declared, whose names know no case."""
    if check_name(name, line) in table:
        line.refuse(f"{name} is declared twice")
    table[name.lower()] = value
