"""Area, centroid and principal axes of sections, from their outlines (lengths in mm)."""

import math

import kezlib

# Pass-through value of the outlines, which has no meaning here.
VALUE = 0

SECTIONS = {
    "two angles 100 x 10": kezlib.kezsec_l2(100, 100, 10, 10, 10, VALUE),
    "box 240 x 360": kezlib.kezsec_box(240, 200, 20, 12, 360, 10, 180, VALUE),
    "channel 75 x 200 x 20": kezlib.kezsec_c(75, 200, 20, 2),
}


def contours(outline):
    """Vertices of each contour, with an entry for the first again, their number, and the sign."""
    for position in range(1, outline.nc + 1):
        x, y = (kezlib.kezadr(4, outline.nv, position, entries).target
                for entries in (outline.x, outline.y))
        yield [*x, 0], [*y, 0], len(x), outline.sign[position - 1]


def integrals(outline):
    """Area, first and second moments about the axes through the origin."""
    total = [0] * 6
    for X, Y, n, sign in contours(outline):
        of_contour = (kezlib.kezapl(X, Y, n).area, *kezlib.kezspl(X, Y, n)[2:],
                      *kezlib.kezipl(X, Y, n)[2:])
        total = [t + sign * value for t, value in zip(total, of_contour)]
    return total


def main():
    print(f"{'':24}{'A cm2':>9}{'x mm':>9}{'y mm':>9}{'Iu cm4':>10}{'Iv cm4':>10}{'to u deg':>10}")
    for name, outline in SECTIONS.items():
        area, Sx, Sy, Ix, Iy, Ixy = integrals(outline)
        x, y = Sy / area, Sx / area
        axes = kezlib.kezinp(Ix - area * y * y, Iy - area * x * x, Ixy - area * x * y)
        print(f"{name:24}{area / 1e2:9.2f}{x:9.2f}{y:9.2f}{axes.u / 1e4:10.1f}{axes.v / 1e4:10.1f}"
              f"{round(math.degrees(axes.theta), 2) + 0:10.2f}")


if __name__ == "__main__":
    main()
