"""A section under its forces: the check of EN 1993-1-5, 4.6, and all that is shown of it."""

from math import degrees

import kezlib
from girder.plates import effective, place
from girder.section import combined
from girder.shapes import SHAPES, build

LEFT, RIGHT, BOTTOM, TOP = -1, 1, -1j, 1j  # outwards; edges are that far from the origin
NAMES = {LEFT: "left", RIGHT: "right", BOTTOM: "bottom", TOP: "top"}
# What, symbol, unit, the effective section that is meant, and the value of a section that has the
# properties p and the edges e.
QUANTITIES = (
    ("Area", "A", "cm2", "N", lambda p, e, r: p.A / 100),
    ("Centroid from the left", "xs", "mm", "N", lambda p, e, r: p.at.real + r.edges[LEFT]),
    ("Centroid from the bottom", "ys", "mm", "N", lambda p, e, r: p.at.imag + r.edges[BOTTOM]),
    ("Second moment", "Ix", "cm4", "M", lambda p, e, r: p.Ix / 1e4),
    ("Modulus of the top", "Wt", "cm3", "M", lambda p, e, r: p.Ix / (e[TOP] - p.at.imag) / 1e3),
    ("Modulus of the bottom", "Wb", "cm3", "M",
     lambda p, e, r: p.Ix / (e[BOTTOM] + p.at.imag) / 1e3),
    ("Second moment", "Iy", "cm4", "N eN", lambda p, e, r: p.Iy / 1e4),
    ("Product moment", "Ixy", "cm4", "", lambda p, e, r: p.Ixy / 1e4),
    ("Principal moment", "Iu", "cm4", "", lambda p, e, r: r.axes[0] / 1e4),
    ("Principal moment", "Iv", "cm4", "", lambda p, e, r: r.axes[1] / 1e4),
    ("Angle from x to u", "", "deg", "", lambda p, e, r: degrees(r.axes[2])),
    ("Stress at the top", "", "N/mm2", TOP, lambda p, e, r: r.gross_stress(TOP)),
    ("Stress at the bottom", "", "N/mm2", BOTTOM, lambda p, e, r: r.gross_stress(BOTTOM)),
    ("To the shear centre", "x0", "mm", "", lambda p, e, r: r.torsion and r.torsion[0]),
    ("Warping constant", "Iw", "cm6", "", lambda p, e, r: r.torsion and r.torsion[1] / 1e6))


class Result:
    """Of a section the gross properties; states: the effective sections, under each action alone;
    stresses: with them, at the corners; faults: why nothing effective is known."""

    def __init__(self, section):
        shape, d, self.given = SHAPES[section.shape], section.dims, section
        self.loops = build(shape, d)
        vertices = [z for loop in self.loops for z in loop.z]
        g = combined([p for loop in self.loops for p in (loop.polygon(), *loop.fillets())])
        # Rounding leaves a symmetric section a product moment, and where Ix = Iy even that would
        # turn its axes by 45 degrees.
        self.gross = g._replace(Ixy=0.0) if abs(g.Ixy) < 1e-6 * (g.Ix + g.Iy) else g
        self.edges = {side: max((z / side).real for z in vertices) for side in NAMES}
        self.axes = tuple(kezlib.kezinp(*self.gross[2:]))
        walls = (d.b, d.h, d.c, d.t) if section.shape == "channel" else None
        self.torsion = walls and (kezlib.kezshc_c(*walls).x0, kezlib.kezwar_c(*walls).Iw)
        plates = [place(panel, vertices, shape.inset(d)) for panel in shape.panels(d)]
        self.load([p for p in plates if p.width > 0])
        self.faults = list(dict.fromkeys(f for state in self.states for f in state.faults))
        self.where = max(self.stresses, key=lambda at: abs(self.stresses[at]))
        self.largest = self.stresses[self.where]
        above = abs(self.largest) > section.fy
        self.verdict = "incomplete" if self.faults else "ABOVE fy" if above else "not above fy"

    def load(self, plates):
        def under(name, load):
            return [effective(plates, self.gross, self.edges, self.given.fy, name, load)]
        N, M = self.given.N, self.given.M
        pushed = under("N", N) if N > 0 else []
        shift = pushed[0].left.at - self.gross.at if pushed else 0j
        tiny = 1e-5 * sum(self.edges.values())
        Mx, My = (-N * (e if abs(e) > tiny else 0.0) for e in (shift.imag, shift.real))
        turned = under("N eN", My) if My else []
        # A shift that relieves the section counts as none: EN 1993-1-3, 6.1.3(3).
        cases = [pushed + (under("M", moment) if moment else []) + turned
                 for moment in dict.fromkeys((M, M + Mx))]
        self.states, self.stresses = max(((case, self.at_corners(case)) for case in cases),
                                         key=lambda pair: max(map(abs, pair[1].values())))

    def at_corners(self, states):
        """EN 1993-1-5, 4.6 (4.15): each action by its own section, each edge by its own modulus."""
        tension = min(self.given.N, 0.0) / self.gross.A
        turned = any(s.name == "N eN" for s in states)
        return {f"{NAMES[side]} {NAMES.get(beside, '')}".strip(): tension + sum(
            s.stress(side * s.edges[side] + beside * s.edges.get(beside, 0)) for s in states)
            for side in (TOP, BOTTOM) for beside in ((LEFT, RIGHT) if turned else (0,))}

    def gross_stress(self, side):
        """Of free bending, above or below the centroid."""
        p, s, y = self.gross, self.given, (self.edges[side] * side - self.gross.at).imag
        return s.N / p.A + s.M * p.Iy * y / (p.Ix * p.Iy - p.Ixy**2)

    def quantities(self):
        """What, symbol, unit, gross and effective value: of every section the same ones."""
        known = {} if self.faults else {s.name: (s.left, s.edges, self) for s in self.states}
        at = {side: max((s for where, s in self.stresses.items() if NAMES[side] in where), key=abs)
              for side in (TOP, BOTTOM) if not self.faults}
        for *names, state, value in QUANTITIES:
            yield (*names, value(self.gross, self.edges, self),
                   value(*known[state]) if state in known else at.get(state))


def results(sections):
    return [Result(section) for section in sections]
