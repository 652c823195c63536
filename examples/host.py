import kezlib

a, b, c = 0, 1, -0.5  # the line y = 0.5
d, e, f = 0, 0, -1  # the unit circle x^2 + y^2 - 1 = 0
n, x1, y1, x2, y2 = kezlib.kezlci(a, b, c, d, e, f)
if n == 2:
    print(f"({x1:g}, {y1:g}) and ({x2:g}, {y2:g})")
