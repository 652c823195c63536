"""The shapes and their contours. Points are complex x + iy, in mm from the middle of a section."""

from collections import namedtuple
from itertools import islice
from math import pi, tan

import kezlib

INTERNAL, SLOTTED, OUTSTAND = "internal", "slotted", "outstand"
LIP, NO_LIP = "lip", "lip that counts as none"
# A line of the file in mm, N and N/mm2: N positive in compression, M where it compresses the top.
Section = namedtuple("Section", "name shape dims fy N M")
Properties = namedtuple("Properties", "A at Ix Iy Ixy")  # at: the centroid, that the rest is about
FILLET = (10 - 3 * pi) / (12 - 3 * pi)  # from the tangents to the centroid, of r = 1
# A plate from the vertex a, its supported end, as far as b; c is in the face opposite a.
Panel = namedtuple("Panel", "name kind a b c")
# dims: in the order of the line, ? behind one that may be 0; rules: lest contours cross themselves;
# panels: or their function, lips after flanges, a web first; inset: where plates begin to count.
Shape = namedtuple("Shape", "dims builder arguments rules panels inset radii",
                   defaults=(lambda d: 0.0, lambda d: {}))


class Loop(namedtuple("Loop", "sign z r")):
    """A contour whose vertices are rounded by the radii r; sign: -1 of a hole."""
    def polygon(self):
        """Second moments are taken about its own centroid, to keep their digits."""
        n, ring = len(self.z), self.z + self.z[:1]
        x, y = [z.real for z in ring], [z.imag for z in ring]
        A, (*_, Sx, Sy) = kezlib.kezapl(x, y, n).area, kezlib.kezspl(x, y, n)
        moments = kezlib.kezipl(*kezlib.keztra(x, y, n + 1, Sy / A, Sx / A), n)[2:]
        return Properties(self.sign * A, complex(Sy, Sx) / A, *(self.sign * i for i in moments))

    def corners(self):
        """Vertex, radius, directions back and ahead, and the turn there: 1 left, -1 right."""
        for i, (z, r) in enumerate(zip(self.z, self.r)):
            others = self.z[i - 1], self.z[(i + 1) % len(self.z)]
            back, ahead = ((other - z) / (abs(other - z) or 1) for other in others)
            yield z, r, back, ahead, round((ahead.conjugate() * back).imag)

    def fillets(self):
        """Between an arc and its tangents: material that the contour lacks or has too much."""
        for z, r, back, ahead, turn in self.corners() if any(self.r) else ():
            sign, inward = -turn * self.sign, back + ahead
            A, shift = sign * (1 - pi / 4) * r**2, sign * (1 - pi / 4) * FILLET**2 * r**4
            own = sign * (1 - 5 * pi / 16) * r**4 - shift
            yield Properties(A, z + FILLET * r * inward, own, own, 0.0)  # Ixy of all four is none

    def curve(self):
        """The rounded contour's vertices, each with the bulge of what follows, as DXF has it."""
        for z, r, back, ahead, turn in self.corners():
            yield from [(z + r * back, turn * tan(pi / 8))] * (r > 0) + [(z + r * ahead, 0.0)]


def combined(parts):
    A = sum(p.A for p in parts)
    at = sum(p.A * p.at for p in parts) / A
    return Properties(A, at, sum(p.Ix + p.A * (p.at - at).imag ** 2 for p in parts),
                      sum(p.Iy + p.A * (p.at - at).real ** 2 for p in parts),
                      sum(p.Ixy + p.A * ((p.at - at) ** 2).imag / 2 for p in parts))


def panels(kind, *rows):
    return [Panel(name, kind, *vertices) for name, *vertices in rows]


def channel(d):
    """Beyond the ratios of EN 1993-1-3, 5.2(2), flanges without lips reach to their outer edges."""
    web = SLOTTED if d.nw else INTERNAL
    if d.c == 0:
        return panels(web, ("web", 6, 5, 1)) + panels(OUTSTAND, ("top flange", 6, 7, 1),
                                                      ("bottom flange", 5, 4, 2))
    stiff = 0.2 <= d.c / d.b <= 0.6
    flange, lip, top, bottom = (INTERNAL, LIP, 19, 12) if stiff else (OUTSTAND, NO_LIP, 24, 7)
    return (panels(web, ("web", 18, 13, 1))
            + panels(flange, ("top flange", 18, top, 1), ("bottom flange", 13, bottom, 6))
            + panels(lip, ("top lip", 19, 22, 24), ("bottom lip", 12, 9, 7)))


FLANGES = panels(OUTSTAND, ("top flange, left", 3, 2, 1), ("top flange, right", 10, 11, 1),
                 ("bottom flange, left", 4, 5, 6), ("bottom flange, right", 9, 8, 6))
GIRDER = panels(INTERNAL, ("web", 10, 9, 3)) + FLANGES
BOX = panels(INTERNAL, ("top plate", 13, 16, 1), ("left web", 13, 14, 3), ("right web", 16, 15, 10),
             ("bottom plate", 14, 15, 6)) + FLANGES
TEE = panels(OUTSTAND, ("flange, left", 3, 2, 1), ("flange, right", 6, 7, 1), ("web", 6, 5, 3))
RHS = panels(INTERNAL, ("top", 5, 8, 1), ("left side", 5, 6, 1), ("right side", 8, 7, 4),
             ("bottom", 6, 7, 2))
ANGLES = panels(OUTSTAND, ("left angle, top leg", 6, 1, 2), ("left angle, leg", 6, 5, 3),
                ("right angle, top leg", 7, 12, 10), ("right angle, leg", 7, 8, 10))
SHAPES = {
    "girder": Shape("d b1 b2 t1 t2 tw", kezlib.kezsec_ia, "d b1 b2 t1 t2 tw",
                    ("t1 + t2 < d", "tw < b1", "tw < b2"), GIRDER),
    "rolled": Shape("h b tf tw r", kezlib.kezsec_ia, "h b b tf tf tw",
                    ("2 * (tf + r) < h", "tw + 2 * r < b"), GIRDER, inset=lambda d: d.r,
                    radii=lambda d: dict.fromkeys((3, 4, 9, 10), d.r)),
    "tee": Shape("b h tf tw", kezlib.kezsec_t, "b h tf tw", ("tf < h", "tw < b"), TEE),
    "box": Shape("bt bb tt tb h tw s", kezlib.kezsec_box, "bt bb tt tb h tw s",
                 ("tt + tb < h", "s + 2 * tw <= bt", "s + 2 * tw <= bb"), BOX),
    "rhs": Shape("b h t", kezlib.kezsec_rhs, "b h t", ("2 * t < b", "2 * t < h"), RHS),
    "hollow": Shape("b h t r", kezlib.kezsec_rhs, "b h t",  # b - 3 t: EN 1993-1-5, 4.4(2)
                    ("2 * t < b", "2 * t < h", "2 * r < b", "2 * r < h"), RHS,
                    inset=lambda d: max(0.0, min(d.r, 1.5 * d.t) - d.t),
                    radii=lambda d: {n: max(0.0, d.r - d.t * (n > 4)) for n in range(1, 9)}),
    "angles": Shape("a h s? th tv", kezlib.kezsec_l2, "a h s th tv", ("tv < a", "th < h"), ANGLES),
    "channel": Shape("b h c? t sw? yw? nw?", kezlib.kezsec_c, "b h c t 0 0 0 0 sw yw nw 0 0 0",
                     ("2 * t < b", "2 * t < h", "c == 0 or t < c < h / 2", "nw in (0, 1, 2)",
                      "nw == 0 or sw > 0", "nw == 0 or yw + sw / 2 < h / 2 - t",
                      "nw < 2 or yw > sw / 2"),
                     channel, inset=lambda d: -d.t / 2)}  # between centre-lines: EN 1993-1-3, 5.1
# Beyond 10 m powers could overflow, below 0.1 mm the library's tolerance would begin to show.
LIMITS = {word: {name.rstrip("?"): (0.0 if name.endswith("?") else 0.1, 10000.0)
                 for name in shape.dims.split()} for word, shape in SHAPES.items()}


def build(shape, d):
    record = shape.builder(*(float(vars(d).get(name, 0)) for name in shape.arguments.split()), 0.0)
    counts, signs = ([v] if isinstance(v, (int, float)) else map(float, v)
                     for v in (record.nv, record.sign))
    radii = shape.radii(d)
    vertices = iter([(complex(x, y), radii.get(number, 0.0))
                     for number, (x, y) in enumerate(zip(record.x, record.y), 1)])
    return [Loop(sign, *map(list, zip(*islice(vertices, int(n)))))
            for n, sign in zip(counts, signs)]
