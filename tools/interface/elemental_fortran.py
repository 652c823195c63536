"""The Fortran module whose routines take scalars or arrays of one shape: those that C's interface
allows no elemental form of."""

from .checked_fortran import declarations, statement

TOP = """\
!> Elemental forms of the routines whose arguments are scalars and that keep nothing: arguments are
!> scalars, or arrays of one shape. The others are as in kezlib. `use kezlib_elemental` takes the place
!> of `use kezlib`.
module kezlib_elemental"""


def is_elemental(routine):
    return not routine.kept and not any(a.extent or a.callback for a in routine.arguments)


def generic(routine):
    return ["", f"  interface {routine.name}",
            f"    module procedure elemental_{routine.name}",
            f"  end interface {routine.name}"]


def procedure(routine):
    names = ", ".join(a.name for a in routine.arguments)
    return ["", *statement(f"elemental subroutine elemental_{routine.name}({names})", 2),
            f"    use kezlib, only: single => {routine.name}", *declarations(routine, None),
            *statement(f"call single({names})", 4),
            f"  end subroutine elemental_{routine.name}"]


def elemental_module(interface):
    elemental = [r for r in interface.routines if is_elemental(r)]
    passed_on = ["c_float", "c_int32_t", *(c.name for c in interface.callbacks),
                 *(r.name for r in interface.routines if not is_elemental(r))]
    lines = [*TOP.splitlines(), *(f"  use kezlib, only: {name}" for name in passed_on),
             "  implicit none", "  public"]
    lines += [line for routine in elemental for line in generic(routine)]
    lines += ["", "contains"]
    lines += [line for routine in elemental for line in procedure(routine)]
    return [*lines, "", "end module kezlib_elemental"]
