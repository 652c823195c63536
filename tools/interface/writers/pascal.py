"""The unit for Free Pascal and Delphi."""

import itertools
from xml.sax.saxutils import escape

from ..checked_pascal import PAIRS, implementations, lists
from ..checked_pascal import declaration as checked_declaration
from ..languages import (Language, Literals, broken, form_of, forms, glued, is_list, known_as,
                         remarks, wrapped)
from . import NOTICE

RESERVED = frozenset("""
    absolute and array as asm begin case class const constref constructor destructor dispinterface
    div do downto else end except exports external false file finalization finally for function
    goto if implementation in inherited initialization inline interface is label library mod nil
    not object of on operator or out packed procedure program property raise record repeat
    resourcestring self set shl shr string then threadvar to true try type unit until uses var
    while with xor""".split())
LANGUAGE = Language("Pascal", "pascal/kezlib.pas", RESERVED, knows_case=False, order=6,
                    literals=Literals(not_a_number="NaN", infinity="Infinity"))
KINDS = {"real": "Single", "integer": "Integer"}

# A unit's Integer has 16 bits in Free Pascal's own mode, whatever that of the program.
TOP = """\
// KezLib: single-precision numeric routines for programs that design steel structures.
//
// {}
unit KezLib;

{{$IFDEF FPC}}{{$MODE OBJFPC}}{{$ENDIF}}{{$R-}}

interface

const
  KezLibrary = {{$IFDEF MSWINDOWS}}'KezLib.dll'{{$ELSE}}'libKezLib.so.1'{{$ENDIF}};
"""
BY_REFERENCE = {"FPC": "constref", "Delphi": "const [Ref]"}


def passed(argument, compiler):
    if argument.direction == "in":
        return "" if argument.callback else f"{BY_REFERENCE[compiler]} "
    return "out " if argument.direction == "out" and not argument.is_kept() else "var "


def type_of(argument, form):
    if argument.callback:
        return argument.callback.name
    return KINDS[argument.kind_in(form)]


def parameters(routine, form, compiler):
    """Neighbours that are alike share a type, but no attribute: whether [Ref] would hold for more
    than the first of them is nothing to rely on."""
    def alike(argument):
        how = passed(argument, compiler)
        alone = argument.name if "[" in how else ""
        return glued(how), glued(f": {type_of(argument, form)}"), is_list(argument), alone

    return "; ".join(how + ", ".join(LANGUAGE.name(member.name) for member in members) + kind
                     for (how, kind, *_), members in itertools.groupby(routine.arguments, alike))


def statement(text):
    return broken(text, 100, "  ")


def head(routine, form, compiler):
    return statement(f"procedure {routine.name}({parameters(routine, form, compiler)});")


def element(opening, text):
    closing = f"</{opening.split()[0]}>"
    return wrapped(f"<{opening}>{escape(text)}{closing}", "/// ")


def document(routine):
    yield from element("summary", f"{known_as(routine)}: {routine.summary}")
    if text := "\n\n".join(filter(None, [routine.details, remarks(routine)])):
        # Between the marks a sketch or a table stands as it does in the header.
        yield from ["/// <remarks>", *wrapped(escape(text), "/// "), "/// </remarks>"]
    for argument in routine.arguments:
        entries = f" [{argument.extent}]" if argument.extent else ""
        yield from element(f'param name="{LANGUAGE.name(argument.name)}"',
                           f"{argument.direction}{entries}: {argument.whole_text()}")


def declaration(routine):
    overload = "overload; " if forms(routine) != [None] or lists(routine) else ""
    lines = ["", *document(routine)]
    for form in forms(routine):
        lines += ["{$IFDEF FPC}", *head(routine, form, "FPC"), "{$ELSE}",
                  *head(routine, form, "Delphi"), "{$ENDIF}",
                  f"  {overload}winapi; external KezLibrary name '{routine.name}';"]
    return lines + checked_declaration(routine, LANGUAGE.name)


def callback_head(callback, name=""):
    """Of the type, or with a name of a host's function; for both compilers."""
    constant = "{{$IFDEF FPC}}{FPC}{{$ELSE}}{Delphi}{{$ENDIF}}".format(**BY_REFERENCE)
    arguments = "; ".join(f"{constant if a.constant else 'var'} {a.name}: {KINDS[a.kind]}"
                          for a in callback.arguments)
    return f"function{name}({arguments}): {KINDS[callback.result]}; winapi;"


def callback_type(callback):
    return ["", "type", *("  " + line for line in element("summary", callback.text)),
            f"  {callback.name} =", f"    {callback_head(callback)}"]


def write(interface):
    lines = [line for callback in interface.callbacks for line in callback_type(callback)]
    for group in interface.groups:
        lines += ["", *wrapped(f"{group.title}\n\n{group.text}", "// ")]
        lines += [line for routine in interface.routines if routine.group == group.title
                  for line in declaration(routine)]
    return "\n".join([TOP.format(NOTICE), *lines[1:], *PAIRS.splitlines(), "", "implementation",
                      *implementations(interface, LANGUAGE.name), "", "end."]) + "\n"


def signature(routine):
    return "\n".join(line for form in forms(routine) for line in head(routine, form, "FPC"))


def variable(argument):
    return f"{argument.name}Values" if argument.callback else LANGUAGE.name(argument.name)


def variables(routine, form, sizes):
    for argument in routine.arguments:
        kind = "Single" if argument.callback else type_of(argument, form)
        array = "array of " if is_list(argument) else ""
        yield f"{variable(argument)}: {array}{kind};"


def settings(routine, literals, sizes):
    """An array gets one entry at least: the first is what is passed."""
    for argument in routine.arguments:
        name, value = variable(argument), literals.get(argument.name)
        if is_list(argument):
            yield f"{name} := [{value}];" if value else f"{name} := nil;"
            yield f"SetLength({name}, Max(1, {sizes[argument.name]}));"
        elif value or argument.kept_when:
            yield f"{name} := {value or 0};"


def invocation(routine):
    actual = (f"@{a.name}" if a.callback else variable(a) + ("[0]" if is_list(a) else "")
              for a in routine.arguments)
    return statement(f"{routine.name}({', '.join(actual)});")


def callbacks(routine):
    for argument in routine.arguments:
        if callback := argument.callback:
            yield from [callback_head(callback, f" {argument.name}"), "begin",
                        f"  Result := {variable(argument)}[{callback.arguments[0].name} - 1];",
                        "end;", ""]


def printed(argument, sizes):
    name = LANGUAGE.name(argument.name)
    if not is_list(argument):
        return [f"WriteLn('{argument.name} = ', {name});"]
    return [f"Write('{argument.name} =');",
            f"for Entry := 1 to {sizes[argument.name]} do Write(' ', {name}[Entry - 1]);",
            "WriteLn;"]


def call(routine, literals, sizes):
    has_entries = any(map(is_list, routine.outputs()))
    names = [*variables(routine, form_of(routine, literals, LANGUAGE), sizes),
             *(["Entry: Integer;"] if has_entries else [])]
    steps = [*settings(routine, literals, sizes), *invocation(routine),
             *(line for a in routine.outputs() for line in printed(a, sizes))]
    return "\n".join([
        "program WorkedCall;", "{$IFDEF FPC}{$MODE OBJFPC}{$ENDIF}",
        "{$IFDEF MSWINDOWS}{$APPTYPE CONSOLE}{$ENDIF}",
        "uses Math, KezLib;", "var", *("  " + line for line in names), "", *callbacks(routine),
        "begin", "  SetExceptionMask([exInvalidOp, exDenormalized, exZeroDivide, exOverflow,",
        "    exUnderflow, exPrecision]);", *("  " + line for line in steps), "end."]) + "\n"
