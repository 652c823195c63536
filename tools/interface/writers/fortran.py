"""The Fortran module: interfaces of the routines, and of the routine that a host is called by."""

import itertools

from ..checked_fortran import checked_module
from ..elemental_fortran import elemental_module
from ..languages import (Language, Literals, broken, documentation, form_of, forms, is_list,
                         known_as, wrapped)
from . import NOTICE

# Three entries a line: one ends at column 132 whatever they are, and a statement after 256 lines.
# The least integer is none of Fortran's model.
LANGUAGE = Language("Fortran", "fortran/kezlib.F90", knows_case=False, order=3, literals=Literals(
    not_a_number="ieee_value(1.0, ieee_quiet_nan)", infinity="ieee_value(1.0, ieee_positive_inf)",
    row=3, row_joint=", &\n    ", least_integer="ibset(0, 31)"))
KINDS = {"real": "real(c_float)", "integer": "integer(c_int32_t)"}
DEFAULT_KINDS = {"real": "real", "integer": "integer"}

HOST = "#if defined(_WIN32) && !defined(_WIN64)"  # where what a host writes is a standard call

# gfortran says nothing of the system in its macros, and a guess would corrupt the stack.
TOP = """\
#if defined(_WIN32)
#if !defined(_WIN64) && (!defined(__SIZEOF_POINTER__) || __SIZEOF_POINTER__ == 4)
#define KEZ_STANDARD_CALL
#endif
#elif defined(__SIZEOF_POINTER__) && !defined(__unix__)
#if __SIZEOF_POINTER__ == 4
#error "32 bits: compile with -D_WIN32 for Windows, or with -D__unix__ for another system"
#endif
#endif

!> KezLib: single-precision numeric routines for programs that design steel structures.
!>
!> {}
module kezlib
  use, intrinsic :: iso_c_binding, only: c_float, c_int32_t
  implicit none
  public
"""


def indented(lines, depth):
    """What is the preprocessor's stays in the first column."""
    return ["" if not line else line if line[0] == "#" else " " * depth + line for line in lines]


def statement(text):
    """Its lines, broken behind commas."""
    lines = broken(text, 86)
    return [line + " &" for line in lines[:-1]] + lines[-1:]


def conventions(name, where="#ifdef KEZ_STANDARD_CALL"):
    return [where, f"!GCC$ ATTRIBUTES STDCALL :: {name}",
            f"!DIR$ ATTRIBUTES STDCALL :: {name}", "#endif"]


def intent(argument):
    """What is kept, or of an array stands behind its extent, belongs to the caller: of a section
    that is intent(out) a compiler copies back more than was written."""
    if argument.direction == "in":
        return "in"
    kept = argument.direction == "in,out" or argument.kept_when or is_list(argument)
    return "inout" if kept else "out"


def declared(argument, form):
    if argument.callback:
        return f"procedure({argument.callback.name})"
    kind = KINDS[argument.kind_in(form)]
    return f"{kind}, intent({intent(argument)})"


def dummy(argument):
    bounds = argument.extent if argument.extent.isdigit() else "*"
    return argument.name + (f"({bounds})" if is_list(argument) and not argument.callback else "")


def declarations(routine, form, documented=True):
    """Neighbours that are alike share a declaration."""
    def alike(argument):
        text = (argument.extent, argument.whole_text()) if documented else ()
        return declared(argument, form), *text

    for (declaration, *text), members in itertools.groupby(routine.arguments, alike):
        members = list(members)
        if documented:
            extent, text = text
            entries = f" [{extent}]" if extent else ""
            yield from wrapped(f"{members[0].direction}{entries}: {text}", "!> ", 92)
        yield from statement(f"{declaration} :: {', '.join(map(dummy, members))}")


def is_pure(routine):
    """What the host's routine does nobody knows, and a kept value is another call's."""
    return not routine.kept and not any(a.callback for a in routine.arguments)


def head(routine, name, binding=""):
    names = ", ".join(argument.name for argument in routine.arguments)
    pure = "pure " if is_pure(routine) else ""
    return statement(f"{pure}subroutine {name}({names}){binding}")


def body(routine, form):
    name = f"{routine.name}_{form}" if form else routine.name
    return [*head(routine, name, f' bind(c, name="{routine.name}")'),
            *indented(["import", *conventions(name), *declarations(routine, form)], 2),
            f"end subroutine {name}"]


def text_of(routine):
    return f"{known_as(routine)}: {documentation(routine)}"


def interface_of(routine):
    specifics = [line for form in forms(routine) for line in body(routine, form)]
    generic = f" {routine.name}" if forms(routine) != [None] else ""
    return ["", *wrapped(text_of(routine), "!> ", 98), f"interface{generic}",
            *indented(specifics, 2), f"end interface{generic}"]


def function(callback, name, statements=(), directives=()):
    """A host's routine, or with no statements what it is to look like."""
    names = ", ".join(argument.name for argument in callback.arguments)
    dummies = [f"{KINDS[a.kind]}, intent({'in' if a.constant else 'inout'}) :: {a.name}"
               for a in callback.arguments]
    return [f"function {name}({names}) bind(c) result(value)",
            *indented([*directives, *dummies, f"{KINDS[callback.result]} :: value", *statements],
                      2), f"end function {name}"]


def abstract(callback):
    directives = ["import", *conventions(callback.name)]
    return ["", *wrapped(callback.text, "!> ", 98), "abstract interface",
            *indented(function(callback, callback.name, directives=directives), 2),
            "end interface"]


def write(interface):
    lines = [line for callback in interface.callbacks for line in abstract(callback)]
    for group in interface.groups:
        lines += ["", *wrapped(f"{group.title}\n\n{group.text}", "! ", 98)]
        lines += [line for routine in interface.routines if routine.group == group.title
                  for line in interface_of(routine)]
    return "\n".join([TOP.format(NOTICE), *indented(lines[1:], 2), "", "end module kezlib", "",
                      *checked_module(interface), "",
                      *elemental_module(interface)]) + "\n"


def signature(routine):
    return "\n\n".join("\n".join([
        *head(routine, routine.name), *indented(declarations(routine, form, documented=False), 2),
        f"end subroutine {routine.name}"]) for form in forms(routine))


def values_name(argument):
    return f"values_of_{argument.name}" if argument.callback else argument.name


def variables(routine, form, sizes):
    for argument in routine.arguments:
        if not argument.callback:
            kind = DEFAULT_KINDS[argument.kind_in(form)]
            bounds = f"({sizes[argument.name]})" if is_list(argument) else ""
            yield f"{kind} :: {argument.name}{bounds}"


def settings(routine, form, literals):
    for argument in routine.arguments:
        if argument.name in literals:
            value = literals[argument.name]
            typed = DEFAULT_KINDS.get(argument.kind_in(form), "real")
            yield (f"{values_name(argument)} = "
                   + (f"[{typed} :: {value}]" if is_list(argument) else value))
        elif argument.kept_when:
            yield f"{argument.name} = 0"


def invocation(routine):
    names = ", ".join(argument.name for argument in routine.arguments)
    return statement(f"call {routine.name}({names})")


def host_name(routine):
    return f"host_of_{routine.name}" if any(a.callback for a in routine.arguments) else ""


def host_module(routine):
    """What a routine calls back, in a module: an inner one would want an executable stack."""
    called = [a for a in routine.arguments if a.callback]
    functions = [line for a in called for line in function(
        a.callback, a.name, [f"value = {values_name(a)}({a.callback.arguments[0].name})"],
        conventions(a.name, HOST))]
    values = [f"{DEFAULT_KINDS[a.callback.result]}, allocatable :: {values_name(a)}(:)"
              for a in called]
    return [f"module {host_name(routine)}", *indented(["use kezlib", "implicit none", *values], 2),
            "contains", *indented(functions, 2), f"end module {host_name(routine)}", ""]


def call(routine, literals, sizes):
    form = form_of(routine, literals, LANGUAGE)
    printed = [f'print *, "{a.name} =", {a.name}' for a in routine.outputs()]
    host = host_name(routine)
    return "\n".join([
        *(host_module(routine) if host else []), "program worked_call", *indented([
            "use, intrinsic :: ieee_arithmetic", "use kezlib", *([f"use {host}"] if host else []),
            "implicit none", *variables(routine, form, sizes), *settings(routine, form, literals),
            *invocation(routine), *printed], 2), "end program worked_call"]) + "\n"
