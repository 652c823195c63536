"""Outlines and plates of cold-formed sections, about their centre line."""

from math import sqrt

import kezsection.en1993_1_3 as en3
from kezsection.geometry import Loop, quarter_ring
from kezsection.model import INTERNAL, LIP, NO_LIP, OUTSTAND, SLOTTED, Plate


def lips(d):
    return [c for c in ((d.c,) if hasattr(d, "c") else (d.c1, d.c2)) if c]


def corner_radius(d):
    """The inner one: 1.5 t where none is given, or what a shorter lip leaves."""
    if d.r is not None:
        return d.r
    return max(0.0, min(1.5 * d.t, *(c - d.t for c in lips(d)), d.h))


class Cold:
    """The centre line of a channel or Z:

        channel, cee                  zed
        1------0/5 end of the top     0/5------1
        |      lip or flange                   |
        2------3/6                             2------3/6

    web from 1 to 2, flanges from 1 to 0 and from 2 to 3, lips from 0 to 5 and from 3 to 6."""

    def __init__(self, shape, d):
        self.d, nominal = d, d.t
        self.t = t = en3.core_thickness(nominal, d.coat, d.tol)
        self.nominal = nominal
        self.r = corner_radius(d)
        b1, b2, c1, c2 = (d.b, d.b, d.c, d.c) if shape == "channel" else (d.b1, d.b2, d.c1, d.c2)
        self.overall = {"top": (b1, c1), "bottom": (b2, c2)}
        self.h = d.h - nominal  # between centre lines
        sides = {}
        for name, b, c in (("top", b1, c1), ("bottom", b2, c2)):
            sides[name] = (b - (nominal if c else nominal / 2), c - nominal / 2 if c else 0.0)
        self.sides = sides
        # Overall widths of the core, from the middle of the web to the outside.
        reach = {name: b + (t / 2 if c else 0.0) for name, (b, c) in sides.items()}
        if shape == "zed":
            web = (reach["top"] - reach["bottom"]) / 2
            ways = {"top": -1, "bottom": 1}
        else:
            web = (t / 2 - max(reach.values())) / 2
            ways = {"top": 1, "bottom": 1}
        top, bottom = complex(web, self.h / 2), complex(web, -self.h / 2)
        self.web = top, bottom
        self.points = {}
        for name, corner in (("top", top), ("bottom", bottom)):
            b, c = sides[name]
            flange = corner + ways[name] * b
            tip = flange + (-1j if name == "top" else 1j) * c if c else None
            self.points[name] = corner, flange, tip

    def line(self):
        """From the top's tip to the bottom's."""
        (top, flange, tip), (bottom, other, end) = self.points["top"], self.points["bottom"]
        return ([tip] if tip else []) + [flange, top, bottom, other] + ([end] if end else [])

    def outline(self):
        """Both faces of the line, rounded where it turns."""
        line, t, r = self.line(), self.t, self.r
        units = [(q - p) / abs(q - p) for p, q in zip(line, line[1:])]
        faces = []
        for side in (1, -1):  # left of the line's way, right of it
            face = []
            for i, p in enumerate(line):
                before, after = units[max(i - 1, 0)], units[min(i, len(units) - 1)]
                turn = (before.conjugate() * after).imag
                shift = side * t / 2 * 1j
                if abs(turn) < 0.5:
                    face.append((p + shift * after, 0.0))
                else:
                    radius = 0.0 if r == 0 else r if turn * side > 0 else r + t
                    face.append((p + shift * (before + after), radius))
            faces.append(face)
        ring = faces[1] + faces[0][::-1]
        area = sum((p[0].conjugate() * q[0]).imag for p, q in zip(ring, ring[1:] + ring[:1]))
        if area < 0:
            ring.reverse()
        return Loop(1.0, [z for z, _ in ring], [radius for _, radius in ring])

    def plates(self):
        """Web, flanges, lips. Notional widths end in the middle of the corners' arcs."""
        g, t = en3.corner_share(self.r, self.t), self.t
        flat = (self.r + t / 2) * sqrt(0.5) if self.r else 0.0
        top, bottom = self.web
        kind = SLOTTED if getattr(self.d, "nw", 0) else INTERNAL
        yield Plate("web", kind, top - 1j * g, bottom + 1j * g, t, flat)
        lips = []
        for name, (corner, flange, tip) in self.points.items():
            way = (flange - corner) / abs(flange - corner)
            start, (b, c) = corner + way * g, self.overall[name]
            if tip and en3.lip_counts(b, c):
                along = (tip - flange) / abs(tip - flange)
                yield Plate(f"{name} flange", INTERNAL, start, flange - way * g, t, flat)
                lips.append(Plate(f"{name} lip", LIP, flange + along * g, tip, t, flat))
            elif tip:
                along = (tip - flange) / abs(tip - flange)
                yield Plate(f"{name} flange", OUTSTAND, start, flange + way * t / 2, t,
                            self.r + t if self.r else 0.0)
                lips.append(Plate(f"{name} lip", NO_LIP, flange + along * t / 2, tip, t, self.r))
            else:
                yield Plate(f"{name} flange", OUTSTAND, start, flange, t)
        yield from lips

    def corner_ring(self, name):
        """The rounded corner between a flange and its lip."""
        if not self.r:
            return None
        corner, flange, tip = self.points[name]
        inward = (corner - flange) / abs(corner - flange) + (tip - flange) / abs(tip - flange)
        middle = self.r + self.t / 2
        return quarter_ring(flange + middle * inward, self.r, self.r + self.t, -inward)

    def outside(self, fy):
        """What the rules do not cover."""
        t, r = self.t, self.r
        if not 0.45 <= t <= 15:
            yield f"core thickness {t:.3g} not in 0.45 to 15 mm (EN 1993-1-3, 3.2.4(1))"
        if r > en3.radius_limit(t, fy):
            yield f"r {r:.3g} > 0.04 t E / fy (EN 1993-1-3, 5.1(6))"
        for name, (b, c) in self.overall.items():
            for reason in en3.proportions(b, c, self.d.h, t):
                yield f"{name} {reason}" if not reason.startswith("h/t") else reason
            if c > 0.6 * b * (1 + 1e-9):
                yield f"{name} c/b {c / b:.2f} > 0.6 (EN 1993-1-3, 5.2(2))"
