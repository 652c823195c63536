"""Writes a program that makes the worked calls through the module: see worked_calls.main."""

import row_values
import worked_calls
from interface import arithmetic
from interface.writers import fortran

ANSWER = 'write (*, "(*(1x, z8.8))", advance="no") transfer({}, [0])'
TYPES = {"real": "real(c_float)", "integer": "integer(c_int32_t)"}


def of_bits(bits):
    return "-0.0" if bits == 1 << 31 else f"transfer({arithmetic.signed(bits)}, 0.0)"


def literal(text, kind):
    if kind == "real" and "n" in text:  # the writer's asks for a module
        return of_bits(row_values.word(text, kind))
    return worked_calls.literal(fortran, of_bits)(text, kind)


def invocation(routine):
    """By keyword, so that names count too."""
    named = ", ".join(f"{a.name}={a.name}" for a in routine.arguments)
    return fortran.statement(f"call {routine.name}({named})")


def calling(number, row):
    routine, form = row.routine, row_values.form(row)
    literals, sizes = row_values.texts(row, literal, fortran.LANGUAGE.literals.joint)
    host = fortran.host_name(routine)
    return "\n".join([
        f"subroutine row{number}()", f"use kezlib, only: {routine.name}",
        *([f"use {host}"] if host else []), "implicit none",
        *fortran.variables(routine, form, sizes), *fortran.settings(routine, form, literals),
        *invocation(routine), f'write (*, "(i0)", advance="no") {number}',
        *(ANSWER.format(name) for name in row.wanted), "print *", f"end subroutine row{number}"])


def dummy(argument, family):
    if argument.callback:
        return f"procedure({argument.callback.name}) :: {argument.name}"
    used, bounds = worked_calls.use(argument.name, family), ""
    if argument.extent not in ("", "1"):  # entries behind those that are written are the caller's
        used = used if used == "in" else "in,out"
        bounds = f"({argument.extent if argument.extent.isdigit() else '*'})"
    kind = TYPES[family[0].kinds[argument.name]]
    return f"{kind}, intent({used.replace(',', '')}) :: {argument.name}{bounds}"


def use(name, family):
    """A routine's interface as its rows use it, and an assignment that lets no other pass."""
    arguments = family[0].routine.arguments
    used = f"used_{name}"
    names = ", ".join(argument.name for argument in arguments)
    return "\n".join([
        f"subroutine use_{name}()", "use kezlib", "implicit none", "abstract interface",
        *fortran.statement(f"subroutine {used}({names}) bind(c)"), "import",
        *fortran.conventions(used, fortran.HOST),
        *(dummy(argument, family) for argument in arguments), f"end subroutine {used}",
        "end interface", f"procedure({used}), pointer :: with_{name}",
        f"with_{name} => {name}", f"if (.not. associated(with_{name})) stop 1",
        f"end subroutine use_{name}"])


def write():
    families = worked_calls.families()
    names = [*(f"use_{name}" for name in families),
             *(f"row{number}" for number in range(len(worked_calls.ROWS)))]
    hosts = [line for routine in worked_calls.INTERFACE.routines if fortran.host_name(routine)
             for line in fortran.host_module(routine)]
    return "\n".join([
        *hosts, *(use(*family) for family in families.items()),
        *(calling(number, row) for number, row in enumerate(worked_calls.ROWS)),
        "program calls", "implicit none", *(f"call {name}()" for name in names),
        "end program calls"]) + "\n"


if __name__ == "__main__":
    worked_calls.main(fortran, write)
