"""Writes a program that makes the worked calls through the unit: see worked_calls.main."""

import row_values
import worked_calls
from interface.writers import pascal

BEGINNING = """\
program Calls;
{$IFDEF MSWINDOWS}{$APPTYPE CONSOLE}{$ENDIF}
{$MODE OBJFPC}
uses Math, SysUtils, KezLib;

function Real(Bits: LongWord): Single;
begin
  Result := PSingle(@Bits)^;
end;

procedure Answer(const Results; Count: Integer);
var
  Bits: PLongWord;
begin
  Bits := @Results;
  for Count := Count downto 1 do
  begin
    Write(' ', IntToHex(Bits^, 8));
    Inc(Bits);
  end;
end;
"""
MASKED = ("SetExceptionMask([exInvalidOp, exDenormalized, exZeroDivide, exOverflow, exUnderflow, "
          "exPrecision]);")
PASSED = {"in": "constref", "out": "out", "in,out": "var"}
TYPES = {"real": "Single", "integer": "Integer"}


literal = worked_calls.literal(pascal, lambda bits: f"Real(${bits:08x})")


def answers(row, sizes):
    for name in row.wanted:
        (argument,) = (a for a in row.routine.arguments if a.name == name)
        shown = pascal.LANGUAGE.name(name) + ("[0]" if argument.extent not in ("", "1") else "")
        yield f"Answer({shown}, {sizes[name]});"


def own_variables(row, form, sizes):
    """Without those that a routine of the host reads: it cannot be nested, nor can they."""
    return [line for argument, line in zip(row.routine.arguments,
                                           pascal.variables(row.routine, form, sizes))
            if not argument.callback]


def calling(number, row):
    form = row_values.form(row)
    literals, sizes = row_values.texts(row, literal, ", ")
    return "\n".join([
        f"procedure Row{number};", "var", *own_variables(row, form, sizes), "begin",
        *pascal.settings(row.routine, literals, sizes), *pascal.invocation(row.routine),
        f"Write({number});", *answers(row, sizes), "WriteLn;", "end;"])


def use(name, family):
    """A routine's type as its rows use it, and an assignment that lets no other pass."""
    routine, kinds = family[0].routine, family[0].kinds
    parameters = [f"{a.name}_: {a.callback.name}" if a.callback else
                  f"{PASSED[worked_calls.use(a.name, family)]} {a.name}_: {TYPES[kinds[a.name]]}"
                  for a in routine.arguments]
    return (f"Use_{name}: procedure({'; '.join(parameters)}); winapi;",
            f"Use_{name} := @{routine.name}; if not Assigned(Use_{name}) then Halt(1);")


def host_routines(routine):
    values = [f"{pascal.variable(a)}: array of Single;" for a in routine.arguments if a.callback]
    return ["var", *values, *pascal.callbacks(routine)] if values else []


def write():
    lines = [line for routine in worked_calls.INTERFACE.routines for line in host_routines(routine)]
    lines += [calling(number, row) for number, row in enumerate(worked_calls.ROWS)]
    types, assignments = zip(*(use(*family) for family in worked_calls.families().items()))
    calls = [f"Row{number};" for number in range(len(worked_calls.ROWS))]
    return "\n".join([BEGINNING, *lines, "var", *types, "begin", MASKED, *assignments, *calls,
                      "end."]) + "\n"


if __name__ == "__main__":
    worked_calls.main(pascal, write)
