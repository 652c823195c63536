"""What of the Pascal unit takes open arrays and refuses those that are too short."""

import itertools
import re

from . import shapes
from .arithmetic import substituted
from .languages import broken, forms, glued, is_list

KINDS = {"real": "Single", "integer": "Integer"}

PAIRS = """
/// <summary>How many common entries kezmer4 finds: room for com.</summary>
function KezPairs(const a: array of Integer; n1: Integer; const b: array of Integer;
  n2: Integer): Int64; overload;

/// <summary>At least as many as the pairs that kezmer13 finds: room for ia and ib, which have
/// n1 + n2 entries at least.</summary>
function KezPairs(const a: array of Single; n1: Integer; const b: array of Single; n2: Integer;
  tol: Single): Int64; overload;"""

HELPERS = """
uses
  SysUtils;

type
  TReals = array of Single;
  TIntegers = array of Integer;
  PReal = ^Single;
  PInteger32 = ^Integer;

var
  NoEntry: Single = 0;

procedure Check(const Place: string; Entries, Extent: Int64);
begin
  if Entries < Extent then
    raise ERangeError.CreateFmt('%s has %d entries, too few: %d', [Place, Entries, Extent]);
end;

// The library takes no nil, which is where the entries of an empty array lie.
function Entries(First: Pointer): Pointer;
begin
  Result := First;
  if Result = nil then
    Result := @NoEntry;
end;

function Most(a, b: Int64): Int64;
begin
  if a > b then Result := a else Result := b;
end;

// As the library adds counts: in 32 bits, and none before the first or behind the last.
function Total(const Counts: array of Integer; n: Int64): Int64;
var
  i: Integer;
begin
  Result := 0;
  for i := 0 to High(Counts) do
    if i < n then
      Result := Result + Counts[i];
  Result := Integer(LongWord(Result and $FFFFFFFF));
end;

function Entry(const Counts: array of Integer; i: Int64): Int64;
begin
  Result := 0;
  if (i >= 1) and (i <= Length(Counts)) then
    Result := Counts[i - 1];
end;

// Of sorted lists.
function CountedReals(const a, b: TReals; Reach: Double): Int64;
var
  i, First, Behind: Integer;
begin
  Result := 0;
  First := 0;
  Behind := 0;
  for i := 0 to High(a) do
  begin
    while (First < Length(b)) and (Double(a[i]) - Double(b[First]) > Reach) do
      Inc(First);
    while (Behind < Length(b)) and (Double(b[Behind]) - Double(a[i]) <= Reach) do
      Inc(Behind);
    if Behind > First then
      Result := Result + Behind - First;
  end;
end;

function CountedIntegers(const a, b: TIntegers): Int64;
var
  i, First, Behind: Integer;
begin
  Result := 0;
  First := 0;
  Behind := 0;
  for i := 0 to High(a) do
  begin
    while (First < Length(b)) and (b[First] < a[i]) do
      Inc(First);
    while (Behind < Length(b)) and (b[Behind] <= a[i]) do
      Inc(Behind);
    Result := Result + Behind - First;
  end;
end;

function IsFinite(const x: Single): Boolean;
begin
  Result := PInteger32(@x)^ and $7F800000 <> $7F800000;
end;

function SortedReals(const Given: array of Single; n: Integer): TReals;
var
  i, Count: Integer;
begin
  Result := nil;
  SetLength(Result, Most(n, 0));
  Count := 0;
  for i := 0 to High(Result) do
    if IsFinite(Given[i]) then
    begin
      Result[Count] := Given[i];
      Inc(Count);
    end;
  SetLength(Result, Count);
  kezord(PReal(Entries(Pointer(Result)))^, Count);
end;

function SortedIntegers(const Given: array of Integer; n: Integer): TIntegers;
var
  i: Integer;
begin
  Result := nil;
  SetLength(Result, Most(n, 0));
  for i := 0 to High(Result) do
    Result[i] := Given[i];
  kezord1(PInteger32(Entries(Pointer(Result)))^, Length(Result));
end;

function KezPairs(const a: array of Integer; n1: Integer; const b: array of Integer;
  n2: Integer): Int64;
begin
  Check('KezPairs: a', Length(a), n1);
  Check('KezPairs: b', Length(b), n2);
  Result := CountedIntegers(SortedIntegers(a, n1), SortedIntegers(b, n2));
end;

function KezPairs(const a: array of Single; n1: Integer; const b: array of Single; n2: Integer;
  tol: Single): Int64;
var
  Reach: Double;
begin
  Check('KezPairs: a', Length(a), n1);
  Check('KezPairs: b', Length(b), n2);
  if not IsFinite(tol) then
    Exit(Most(n1, 0) * Most(n2, 0));
  Reach := tol;
  Reach := Reach + Reach / 16777216;  // so much may be rounded to the tolerance
  Result := CountedReals(SortedReals(a, n1), SortedReals(b, n2), Reach);
end;"""


def lists(routine):
    return [a for a in routine.arguments if is_list(a) and not a.callback]


def passed(argument):
    if argument.direction == "in":
        return "" if argument.callback else "const "
    always = argument.direction == "out" and not argument.is_kept() and not is_list(argument)
    return "out " if always else "var "


def type_of(argument, form):
    if argument.callback:
        return argument.callback.name
    kind = KINDS[argument.kind_in(form)]
    return f"array of {kind}" if is_list(argument) else kind


def head(routine, form, name):
    parts = []
    for (how, kind), members in itertools.groupby(routine.arguments,
                                                  lambda a: (passed(a), type_of(a, form))):
        parts.append(glued(how) + ", ".join(name(a.name) for a in members) + glued(f": {kind}"))
    return broken(f"procedure {routine.name}({'; '.join(parts)});", 100, "  ")


def declaration(routine, name):
    """Beside that which takes the first entries."""
    return [line for form in forms(routine)
            for line in [*head(routine, form, name), "  overload;"]] if lists(routine) else []


def over_long(expression, routine, name, pairs=""):
    terms = {a.name: name(a.name) if a.extent else f"Int64({name(a.name)})"
             for a in routine.arguments}
    arrays = "|".join(a.name for a in routine.arguments if a.extent)
    text = re.sub(rf"\b({arrays})\(", r"entry(\1, ", expression)
    terms |= {"max": "Most", "sum": "Total", "entry": "Entry", "pairs": pairs}
    return substituted(text, terms).replace("/", "div")


def checks(argument, routine, name):
    own = name(argument.name)
    place, entries = f"'{routine.name}: {argument.name}'", f"High({own}) + 1"
    extent = over_long(argument.extent, routine, name)
    if found := shapes.pairs(argument, routine):
        named = [n for pair in zip(found.lists, found.counts) for n in pair] + [found.tolerance]
        pairs = f"KezPairs({', '.join(name(n) for n in named if n)})"
        yield f"if {entries} < {extent} then"
        yield f"  Check({place}, {entries}, {over_long(found.extent, routine, name, pairs)});"
    else:
        yield f"Check({place}, {entries}, {extent});"


def actual(argument, form, name):
    own = name(argument.name)
    if not is_list(argument) or argument.callback:
        return own
    pointer = {"real": "PReal", "integer": "PInteger32"}[argument.kind_in(form)]
    return f"{pointer}(Entries(@{own}[0]))^"


def implementation(routine, form, name):
    call = f"{routine.name}({', '.join(actual(a, form, name) for a in routine.arguments)});"
    body = [line for a in lists(routine) for line in checks(a, routine, name)] + [call]
    return ["", *head(routine, form, name), "begin",
            *(line for text in body for line in broken("  " + text, 100, "    ")), "end;"]


def implementations(interface, name):
    return HELPERS.splitlines() + [line for routine in interface.routines if lists(routine)
                                   for form in forms(routine)
                                   for line in implementation(routine, form, name)]
