"""The Fortran module whose routines take arrays of assumed shape and refuse those that are too
short."""

import itertools
import re

from . import shapes
from .arithmetic import substituted
from .languages import broken, forms, is_list

KINDS = {"real": "real(c_float)", "integer": "integer(c_int32_t)"}

TOP = """\
!> The same routines for arrays that are passed whole or as sections: one that has fewer entries
!> than its extent ends the program, and a message says which. `use kezlib_checked` takes the place
!> of `use kezlib`.
module kezlib_checked
  use, intrinsic :: iso_fortran_env, only: error_unit, int64, real64
  use, intrinsic :: ieee_arithmetic, only: ieee_is_finite
"""

HELPERS = """\
  private :: error_unit, int64, real64, ieee_is_finite
  private :: kez_check, kez_entry, kez_total, kez_pairs_integer, kez_pairs_real, kez_counted

  !> At least as many as there are pairs of entries of two lists that are equal, or within the
  !> tolerance: room for outputs of kezmer4 and kezmer13.
  interface kez_pairs
    module procedure kez_pairs_integer, kez_pairs_real
  end interface kez_pairs

contains

  subroutine kez_check(place, entries, extent)
    character(*), intent(in) :: place
    integer(int64), intent(in) :: entries, extent
    if (entries >= extent) return
    write (error_unit, "(2a, i0, a, i0)") place, " has ", entries, " entries, too few: ", extent
    error stop 1
  end subroutine kez_check

  !> As the library adds counts: in 32 bits, and none before the first or behind the last.
  pure function kez_total(counts, n) result(total)
    integer(c_int32_t), intent(in) :: counts(:), n
    integer(int64) :: total
    total = sum(int(counts(:min(n, size(counts))), int64))
    total = modulo(total + 2_int64**31, 2_int64**32) - 2_int64**31
  end function kez_total

  pure function kez_entry(counts, i) result(entry)
    integer(c_int32_t), intent(in) :: counts(:), i
    integer(int64) :: entry
    entry = 0
    if (i >= 1 .and. i <= size(counts)) entry = counts(i)
  end function kez_entry

  pure function kez_pairs_integer(a, n1, b, n2) result(pairs)
    integer(c_int32_t), intent(in) :: a(:), n1, b(:), n2
    integer(c_int32_t), allocatable :: x(:), y(:)
    integer(int64) :: pairs
    allocate (x, source=a(:n1))
    allocate (y, source=b(:n2))
    call sort_integers(x, size(x))
    call sort_integers(y, size(y))
    pairs = kez_counted(real(x, real64), real(y, real64), 0.0_real64)
  end function kez_pairs_integer

  pure function kez_pairs_real(a, n1, b, n2, tol) result(pairs)
    real(c_float), intent(in) :: a(:), b(:), tol
    integer(c_int32_t), intent(in) :: n1, n2
    real(c_float), allocatable :: x(:), y(:)
    integer(int64) :: pairs
    if (.not. ieee_is_finite(tol)) then
      pairs = max(int(n1, int64), 0_int64) * max(int(n2, int64), 0_int64)
      return
    end if
    allocate (x, source=pack(a(:n1), ieee_is_finite(a(:n1))))
    allocate (y, source=pack(b(:n2), ieee_is_finite(b(:n2))))
    call sort_reals(x, size(x))
    call sort_reals(y, size(y))
    ! So much may be rounded to the tolerance.
    pairs = kez_counted(real(x, real64), real(y, real64), tol * (1 + 2.0_real64**(-24)))
  end function kez_pairs_real

  pure function kez_counted(a, b, reach) result(pairs)
    real(real64), intent(in) :: a(:), b(:), reach
    integer(int64) :: pairs
    integer :: i, first, behind
    pairs = 0
    first = 1
    behind = 1
    do i = 1, size(a)
      do while (first <= size(b))
        if (a(i) - b(first) <= reach) exit
        first = first + 1
      end do
      do while (behind <= size(b))
        if (b(behind) - a(i) > reach) exit
        behind = behind + 1
      end do
      pairs = pairs + max(behind - first, 0)
    end do
  end function kez_counted"""


def lists(routine):
    return [a for a in routine.arguments if is_list(a) and not a.callback]


def statement(text, depth):
    lines = broken(" " * depth + text, 94, " " * (depth + 4))
    return [line + " &" for line in lines[:-1]] + lines[-1:]


def intent(argument):
    written = "inout" if is_list(argument) or argument.kept_when else "out"
    return {"in": "in", "out": written, "in,out": "inout"}[argument.direction]


def declared(argument, form):
    if argument.callback:
        return f"procedure({argument.callback.name})"
    return f"{KINDS[argument.kind_in(form)]}, intent({intent(argument)})"


def dummy(argument):
    return argument.name + ("(:)" if is_list(argument) and not argument.callback else "")


def declarations(routine, form):
    for kind, members in itertools.groupby(routine.arguments, lambda a: declared(a, form)):
        yield from statement(f"{kind} :: {', '.join(map(dummy, members))}", 4)


def over_long(expression, routine, pairs=""):
    terms = {a.name: a.name if a.extent else f"int({a.name}, int64)" for a in routine.arguments}
    terms |= {"max": "max", "sum": "kez_total", "pairs": pairs}
    arrays = "|".join(a.name for a in routine.arguments if a.extent)
    text = re.sub(rf"\b({arrays})\(", r"entry(\1, ", expression)
    text = substituted(re.sub(r"\b\d+\b", r"\g<0>_int64", text),
                       terms | {"entry": "kez_entry", "_int64": "_int64"})
    return re.sub(r"(kez_(?:total|entry)\(\w+, )int\((\w+), int64\)", r"\1\2", text)


def check(argument, routine):
    place = f'"{routine.name}: {argument.name}"'
    entries = f"size({argument.name}, kind=int64)"
    extent = over_long(argument.extent, routine)
    if found := shapes.pairs(argument, routine):
        named = [name for pair in zip(found.lists, found.counts) for name in pair]
        pairs = f"kez_pairs({', '.join(filter(None, [*named, found.tolerance]))})"
        yield from statement(f"if ({entries} < {extent}) call kez_check({place}, {entries}, "
                             f"{over_long(found.extent, routine, pairs)})", 4)
    else:
        yield from statement(f"call kez_check({place}, {entries}, {extent})", 4)


def procedure(routine, form):
    name = f"{routine.name}_{form}" if form else routine.name
    names = ", ".join(a.name for a in routine.arguments)
    return ["", *statement(f"subroutine checked_{name}({names})", 2),
            f"    use kezlib, only: unchecked => {name}",
            *declarations(routine, form),
            *(line for a in lists(routine) for line in check(a, routine)),
            *statement(f"call unchecked({names})", 4),
            f"  end subroutine checked_{name}"]


def generic(routine):
    names = [f"checked_{routine.name}_{form}" if form else f"checked_{routine.name}"
             for form in forms(routine)]
    return ["", f"  interface {routine.name}", f"    module procedure {', '.join(names)}",
            f"  end interface {routine.name}"]


def checked_module(interface):
    passed_on = ["c_float", "c_int32_t", *(c.name for c in interface.callbacks),
                 *(r.name for r in interface.routines if not lists(r))]
    sorts = "use kezlib, only: sort_reals => kezord, sort_integers => kezord1"
    checked = [r for r in interface.routines if lists(r)]
    lines = TOP.splitlines() + [line for name in passed_on
                                for line in [f"  use kezlib, only: {name}"]]
    lines += [f"  {sorts}", "  implicit none", "  public",
              "  private :: sort_reals, sort_integers"]
    lines += [line for routine in checked for line in generic(routine)]
    lines += HELPERS.splitlines()
    lines += [line for routine in checked for form in forms(routine)
              for line in procedure(routine, form)]
    return [*lines, "", "end module kezlib_checked"]
