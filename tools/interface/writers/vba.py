"""The binding for Visual Basic for Applications, a module of 32- and 64-bit Office."""

import itertools
import textwrap

from ..languages import (Language, Literals, broken, documentation, form_of, forms, glued, is_list,
                         known_as, shape, wrapped)
from . import NOTICE

LANGUAGE = Language(
    "VBA", "vba/KezLib.bas",
    frozenset("""abs access addressof alias and any append array as attribute base binary boolean
        byref byte byval call case cbool cbyte ccur cdate cdbl cdec cdecl cint circle clng clnglng
        clngptr close compare const csng cstr currency cvar cverr date debug decimal declare
        defbool defbyte defcur defdate defdbl defdec defint deflng deflnglng deflngptr defobj
        defsng defstr defvar dim do doevents double each else elseif empty end endif enum eqv
        erase error event exit explicit false fix for friend function get global gosub goto if imp
        implements in input inputb int integer is lbound len lenb let lib like line linput lock
        long longlong longptr loop lset me mid mod module name new next not nothing null object on
        open option optional or output paramarray preserve print private property psn ptrsafe
        public put raiseevent random read redim rem reset resume return rset scale seek select set
        sgn shared single spc static step stop string sub tab text then to true type typeof ubound
        unlock until variant wend while width with withevents write xor""".split()),
    knows_case=False, order=5,
    literals=Literals("{}!", not_a_number="SingleFromBits(&H7FC00000)",
                      infinity="SingleFromBits(&H7F800000)",
                      row=30, row_joint=", _\n            "))

TYPES = {"real": "Single", "integer": "Long"}
DIRECTIONS = {"in": "read", "out": "written", "in,out": "read and written"}
WIDTH = 96
HEAD = f"""
Attribute VB_Name = "KezLib"
Option Explicit

' {NOTICE}
'
' Office of 64 bits takes the KezLib.dll of x64, of 32 bits that of x86. An array is passed by the
' entry that is to be its first, x(1), and is not checked: it must have the extent that is said, and
' an entry where the extent is 0. Lists of reals or integers have a declaration for each.

Private Type LongWord
    word As Long
End Type

Private Type SingleWord
    word As Single
End Type
""".lstrip()
TAIL = """
' The Single of these bits: &H7FC00000 is not-a-number, &H7F800000 infinity.
Public Function SingleFromBits(ByVal bits As Long) As Single
    Dim given As LongWord
    Dim found As SingleWord
    given.word = bits
    LSet found = given
    SingleFromBits = found.word
End Function
"""


def name(argument):
    return LANGUAGE.name(argument.name)


def declared_name(routine, form):
    """VBA has no overloads."""
    return routine.name + TYPES.get(form, "")


def type_name(argument, form):
    return TYPES[argument.kind_in(form)]


def continued(text, indent=""):
    """The editor takes 24 continuations and 1023 characters in a line."""
    lines = broken(indent + text, WIDTH)
    return " _\n".join(lines if len(lines) <= 25 else broken(indent + text, 1000))


def parameter(argument, form, pointer):
    if argument.callback:
        return f"ByVal {name(argument)} As {pointer}"
    return f"ByRef {name(argument)} As {type_name(argument, form)}"


def declaration(routine, form, safe):
    pointer = "LongPtr" if safe else "Long"
    parameters = [glued(parameter(a, form, pointer)) for a in routine.arguments]
    alias = f' Alias "{routine.name}"' if form else ""
    return (f'Public Declare {"PtrSafe " if safe else ""}Sub {declared_name(routine, form)} '
            f'Lib "KezLib.dll"{alias} ( _\n{continued(", ".join(parameters) + ")", "    ")}')


def signature(routine):
    return "\n".join(declaration(routine, form, True) for form in forms(routine))


def comment(routine):
    text = f"{routine.name}, {known_as(routine)}: {documentation(routine)}"
    lines = wrapped(text, "' ", WIDTH)
    says = (lambda a: f"{DIRECTIONS[a.direction]}, {shape(a)}: {a.whole_text()}")
    for text, members in itertools.groupby(routine.arguments, says):
        names = ", ".join(map(name, members))
        lines += textwrap.wrap(f"{names}: {text}", WIDTH, initial_indent="'   ",
                               subsequent_indent="'       ", break_on_hyphens=False)
    return "\n".join(lines)


def write(interface):
    parts = [HEAD + "\n#If VBA7 Then"]
    for group in interface.groups:
        parts.append("\n".join(["'", f"' {group.title}", "'", *wrapped(group.text, "' ", WIDTH)]))
        parts += [f"{comment(routine)}\n{signature(routine)}"
                  for routine in interface.routines if routine.group == group.title]
    parts += ["#Else", *(declaration(routine, form, False) for routine in interface.routines
                         for form in forms(routine)), "#End If"]
    text = "\n\n".join(parts) + "\n" + TAIL
    return text.replace("\n", "\r\n")  # VBA's editor takes no other line ends


def variable(argument, form, sizes):
    kind = "Single" if argument.callback else type_name(argument, form)
    if argument.callback:
        return f"Private {argument.name}_values(1 To {sizes[argument.name]} + 1) As {kind}"
    bounds = f"(1 To {sizes[argument.name]} + 1)" if is_list(argument) else ""
    return f"Dim {name(argument)}{bounds} As {kind}"


def setting(argument, text):
    variable = f"{argument.name}_values" if argument.callback else name(argument)
    if not is_list(argument):
        return [f"{variable} = {text}"]
    return ["entry = 0", continued(f"For Each item In Array({text})"), "    entry = entry + 1",
            f"    {variable}(entry) = item", "Next"]


def printed(argument, sizes):
    if not is_list(argument):
        return [f'Debug.Print "{argument.name} ="; {name(argument)}']
    return [f"For entry = 1 To {sizes[argument.name]}",
            f'    Debug.Print "{argument.name}("; entry; ") ="; {name(argument)}(entry)', "Next"]


def callback_function(argument, sizes):
    """What AddressOf takes stands in a module."""
    function = f"{argument.name}_at"
    return [variable(argument, "", sizes), "",
            f"Function {function}(ByRef i As Long) As Single",
            f"    {function} = {argument.name}_values(i)", "End Function", ""]


def call(routine, literals, sizes):
    """A whole procedure."""
    form = form_of(routine, literals, LANGUAGE)
    callbacks = [a for a in routine.arguments if a.callback]
    passed = [glued(f"AddressOf {a.name}_at") if a.callback else
              name(a) + ("(1)" if is_list(a) else "") for a in routine.arguments]
    body = [variable(a, form, sizes) for a in routine.arguments if not a.callback]
    if any(map(is_list, routine.arguments)):
        body += ["Dim entry As Long", "Dim item As Variant"]
    body += [line for a in routine.arguments if a.name in literals
             for line in setting(a, literals[a.name])]
    called = declared_name(routine, form if len(forms(routine)) > 1 else None)
    body.append(continued(f"{called} {', '.join(passed)}"))
    body += [line for a in routine.outputs() for line in printed(a, sizes)]
    return "\n".join([line for a in callbacks for line in callback_function(a, sizes)]
                     + [f"Sub Worked_{routine.name}()", textwrap.indent("\n".join(body), "    "),
                        "End Sub"])
