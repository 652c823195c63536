Attribute VB_Name = "Host"
Option Explicit

' The points in which the line y = 0.5 meets the unit circle x^2 + y^2 - 1 = 0.
Public Sub FirstCall()
    Dim n As Long
    Dim x1 As Single, y1 As Single, x2 As Single, y2 As Single
    kezlci 0, 1, -0.5, 0, 0, -1, n, x1, y1, x2, y2
    If n = 2 Then Debug.Print "("; x1; ","; y1; ") and ("; x2; ","; y2; ")"
End Sub

' Two angles 80 x 8 back to back, 10 apart: area, centroid and second moments.
Public Sub SectionValues()
    Dim contours As Long, i As Long, n As Long
    Dim vertices(1 To 2) As Long, kind(1 To 2) As Long, sign(1 To 2) As Single
    Dim x(1 To 12) As Single, y(1 To 12) As Single
    Dim v1(1 To 2) As Single, v2(1 To 2) As Single, v3(1 To 2) As Single
    Dim v4(1 To 2) As Single, v5(1 To 2) As Single, v6(1 To 2) As Single
    Dim v7(1 To 2) As Single
    kezsec_l2 80, 80, 10, 8, 8, 0, contours, vertices(1), x(1), y(1), kind(1), sign(1), v1(1), _
        v2(1), v3(1), v4(1), v5(1), v6(1), v7(1)

    ' A contour of its own has room for the first vertex, repeated behind the last.
    Dim cx(1 To 7) As Single, cy(1 To 7) As Single
    Dim a As Single, mx As Single, my As Single, jx As Single, jy As Single, jxy As Single
    Dim area As Single, sx As Single, sy As Single, ix As Single, iy As Single, ixy As Single
    For i = 1 To contours
        n = vertices(i)
        kezadrSingle 0, vertices(1), i, x(1), cx(1)
        kezadrSingle 0, vertices(1), i, y(1), cy(1)
        kezapl cx(1), cy(1), n, a
        kezspl cx(1), cy(1), n, mx, my
        kezipl cx(1), cy(1), n, jx, jy, jxy
        area = area + sign(i) * a
        sx = sx + sign(i) * mx
        sy = sy + sign(i) * my
        ix = ix + sign(i) * jx
        iy = iy + sign(i) * jy
        ixy = ixy + sign(i) * jxy
    Next

    Dim xc As Single, yc As Single, u As Single, v As Single, theta As Single
    xc = sy / area
    yc = sx / area
    kezinp ix - area * yc * yc, iy - area * xc * xc, ixy - area * xc * yc, u, v, theta
    Debug.Print "area"; area; "centroid"; xc; yc; "principal moments"; u; v
End Sub
