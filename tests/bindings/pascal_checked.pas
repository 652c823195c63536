// Arrays that are passed whole: long lists, empty ones, and one that is too short.
program Checked;
{$IFDEF FPC}{$MODE OBJFPC}{$ENDIF}
uses
  SysUtils, KezLib;
const
  N = 100000;
var
  A, B, Com, Dif, Ia, Ib: array of Integer;
  X, Y: array of Single;
  NCom, NDif, NM, I: Integer;
  Area: Single;

procedure That(Holds: Boolean; const What: string);
begin
  if not Holds then
  begin
    WriteLn(What);
    Halt(1);
  end;
end;

procedure Refused(Entries: Integer; const What: string);
begin
  SetLength(X, Entries);
  SetLength(Y, 5);
  try
    kezapl(X, Y, 4, Area);
    That(What = '', 'nothing is refused');
  except
    on Refusal: ERangeError do
      That(Refusal.Message = What, Refusal.Message);
  end;
end;

begin
  A := nil; B := nil; Com := nil; Dif := nil; Ia := nil; Ib := nil; X := nil; Y := nil;
  SetLength(A, N);
  SetLength(B, N);
  SetLength(X, N);
  SetLength(Y, N);
  SetLength(Com, 1);
  SetLength(Dif, 2 * N);
  SetLength(Ia, 2 * N);
  SetLength(Ib, 2 * N);
  for I := 0 to N - 1 do
  begin
    A[I] := I;
    B[I] := I + N - 1;
    X[I] := 2 * I;
    Y[I] := 2 * I + 0.5;
  end;
  kezmer4(N, A, N, B, NCom, Com, NDif, Dif);
  That((NCom = 1) and (Com[0] = N - 1) and (NDif = 2 * N - 2), 'common entries');
  kezmer13(N, X, N, Y, NM, Ia, Ib, 0.5);
  That((NM = N) and (Ib[N - 1] = N) and (KezPairs(X, N, Y, N, 0.5) = N), 'near entries');
  // The difference is larger than the tolerance until it is rounded.
  X[0] := 1;
  Y[0] := -1e-9;
  That(KezPairs(X, 1, Y, 1, 1) = 1, 'a rounded difference');
  Com := nil;
  kezmer4(0, Com, 0, Com, NCom, Com, NDif, Com);
  That((NCom = 0) and (NDif = 0), 'empty lists');
  Refused(5, '');
  Refused(4, 'kezapl: X has 4 entries, too few: 5');
  Refused(0, 'kezapl: X has 0 entries, too few: 5');
  WriteLn('as it should be');
end.
