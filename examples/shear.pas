// What shear does at the centroid of a T: the outline is moved there and cut along the x axis, and
// what lies above has the first moment that the shear stress is in proportion to.
program Shear;

{$IFDEF FPC}{$MODE OBJFPC}{$ENDIF}
{$IFDEF MSWINDOWS}{$APPTYPE CONSOLE}{$ENDIF}

uses
  KezLib;

const
  n = 8;
  Polygon = 2;

type
  // Routines close an outline with an entry more, and cut it into at most 2 n vertices.
  TCoordinates = array[0..2 * n] of Single;

var
  // Flange 200 x 20 on a web 10 x 180, in mm, counter-clockwise from the top left.
  X: TCoordinates = (-100, -100, -5, -5, 5, 5, 100, 100, 0, 0, 0, 0, 0, 0, 0, 0, 0);
  Y: TCoordinates = (200, 180, 180, 0, 0, 180, 180, 200, 0, 0, 0, 0, 0, 0, 0, 0, 0);
  AboveX, AboveY, BelowX, BelowY: TCoordinates;
  Area, Sx, Sy, Height, Width: Single;
  Above, Below, i: Integer;

procedure Measure(var X, Y: TCoordinates; Count: Integer);
begin
  kezair(X[0], Y[0], Count, Polygon, 0, 1, Area);
  kezstm(X[0], Y[0], Count, Polygon, 0, 1, Sx, Sy);
end;

begin
  Measure(X, Y, n);
  Height := Sx / Area;
  WriteLn('area ', Area:0:1, ' mm2, centroid ', Height:0:1, ' mm above the foot');

  for i := 0 to n - 1 do
    Y[i] := Y[i] - Height;
  // Entries behind the vertices of a part are kept.
  AboveX := Default(TCoordinates);
  AboveY := Default(TCoordinates);
  BelowX := Default(TCoordinates);
  BelowY := Default(TCoordinates);
  kezpin(n, X[0], Y[0], 0, 1, 0, Above, AboveX[0], AboveY[0], Below, BelowX[0], BelowY[0], Width);
  Measure(AboveX, AboveY, Above);
  WriteLn('above it ', Area:0:1, ' mm2 with a first moment of ', Sx:0:0, ' mm3, where it is ',
    Width:0:1, ' mm wide');
end.
