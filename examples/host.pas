program Host;

{$IFDEF FPC}{$MODE OBJFPC}{$ENDIF}
{$IFDEF MSWINDOWS}{$APPTYPE CONSOLE}{$ENDIF}

uses
  KezLib;

var
  n: Integer;
  x1, y1, x2, y2: Single;

begin
  // They are kept where there are no two points.
  x1 := 0; y1 := 0; x2 := 0; y2 := 0;
  // The line y = 0.5 across the unit circle x^2 + y^2 - 1 = 0.
  kezlci(0, 1, -0.5, 0, 0, -1, n, x1, y1, x2, y2);
  if n = 2 then
    WriteLn('(', x1:0:6, ', ', y1:0:1, ') and (', x2:0:6, ', ', y2:0:1, ')');
end.
