"""A section under its forces: the check of EN 1993-1-5, 4.6, and all that is shown of it."""

from functools import cache
from math import degrees

import kezlib
from girder.plates import effective, place
from girder.section import signum, whole
from girder.shapes import SHAPES, build

# What, symbol, unit, the state that the effective value is of, and the value of a section that has
# the properties p and reaches as far as e.
QUANTITIES = (
    ("Area", "A", "cm2", "N", lambda p, e, r: p.A / 100),
    ("Centroid from the left", "xs", "mm", "N", lambda p, e, r: p.x - r.edges["left"]),
    ("Centroid from the bottom", "ys", "mm", "N", lambda p, e, r: p.y - r.edges["bottom"]),
    ("Second moment", "Ix", "cm4", "M", lambda p, e, r: p.Ix / 1e4),
    ("Modulus of the top", "Wt", "cm3", "M", lambda p, e, r: p.Ix / (e["top"] - p.y) / 1e3),
    ("Modulus of the bottom", "Wb", "cm3", "M", lambda p, e, r: p.Ix / (p.y - e["bottom"]) / 1e3),
    ("Second moment", "Iy", "cm4", "N eN", lambda p, e, r: p.Iy / 1e4),
    ("Product moment", "Ixy", "cm4", "", lambda p, e, r: p.Ixy / 1e4),
    ("Principal moment", "Iu", "cm4", "", lambda p, e, r: r.axes[0] / 1e4),
    ("Principal moment", "Iv", "cm4", "", lambda p, e, r: r.axes[1] / 1e4),
    ("Angle from x to u", "", "deg", "", lambda p, e, r: degrees(r.axes[2])),
    ("Stress at the top", "", "N/mm2", "top", lambda p, e, r: r.gross_stress("top")),
    ("Stress at the bottom", "", "N/mm2", "bottom", lambda p, e, r: r.gross_stress("bottom")),
    ("To the shear centre", "x0", "mm", "", lambda p, e, r: r.torsion and r.torsion[0]),
    ("Warping constant", "Iw", "cm6", "", lambda p, e, r: r.torsion and r.torsion[1] / 1e6))


class Result:
    """Of a section the gross properties; states: the effective sections, under each action alone;
    stresses: with them, at the corners; faults: why nothing effective is known."""

    def __init__(self, section):
        shape, d, self.given = SHAPES[section.shape], section.dims, section
        self.outline = build(shape, d)
        x, y, self.gross = self.outline.x, self.outline.y, whole(self.outline)
        self.edges = {"left": min(x), "right": max(x), "bottom": min(y), "top": max(y)}
        self.axes = tuple(kezlib.kezinp(*self.gross[3:]))
        walls = (d.b, d.h, d.c, d.t) if section.shape == "channel" else None
        self.torsion = walls and (kezlib.kezshc_c(*walls).x0, kezlib.kezwar_c(*walls).Iw)
        plates = [place(panel, self.outline, shape.inset(d)) for panel in shape.panels(d)]
        self.load([p for p in plates if p.width > 0])
        self.faults = list(dict.fromkeys(f for state in self.states for f in state.faults))
        self.reduced = any(r.lost for state in self.states for r in state.plates)
        self.worst = max(self.stresses, key=lambda name: abs(self.stresses[name]))
        above = abs(self.stresses[self.worst]) > section.fy
        self.verdict = "incomplete" if self.faults else "ABOVE fy" if above else "not above fy"

    def load(self, plates):
        @cache
        def under(*action):
            return effective(plates, g, e, self.given.fy, *action)
        N, M, g, e = self.given.N, self.given.M, self.gross, self.edges
        pushed = under("N", 0, 0) if N > 0 else None
        p, tiny = pushed.left if pushed else g, 1e-5 * (e["right"] - e["left"] + e["top"] - e["bottom"])
        ex, ey = (shift if abs(shift) > tiny else 0.0 for shift in (p.x - g.x, p.y - g.y))
        turned, self.stresses = ex and under("N eN", -signum(ex), 0), {}
        # A shift that relieves the section counts as none: EN 1993-1-3, 6.1.3(3).
        for moments in ({"M": Mx, "N eN": -N * ex} for Mx in dict.fromkeys((M, M - N * ey))):
            bent = moments["M"] and under("M", 0, signum(moments["M"]))
            stresses = corner_stresses(N / p.A, bent, turned, moments)
            if max(map(abs, stresses.values())) > max(map(abs, self.stresses.values()), default=-1):
                self.stresses, self.moments = stresses, moments
                self.states = [state for state in (pushed, bent, turned) if state]

    def stress(self, state, at):
        """On the effective section, under that action alone."""
        if state.name == "N":
            return self.given.N / state.left.A
        p, moment = state.left, self.moments[state.name]
        return moment * ((at[1] - p.y) / p.Ix if state.name == "M" else (at[0] - p.x) / p.Iy)

    def gross_stress(self, edge):
        """Of free bending, above or below the centroid."""
        p, s = self.gross, self.given
        return s.N / p.A + s.M * p.Iy * (self.edges[edge] - p.y) / (p.Ix * p.Iy - p.Ixy**2)

    def quantities(self):
        """What, symbol, unit, gross and effective value: of every section the same ones."""
        states = {} if self.faults else {s.name: (s.left, s.edges, self) for s in self.states}
        at = {edge: max((s for name, s in self.stresses.items() if edge in name), key=abs)
              for edge in ("top", "bottom") if not self.faults}
        for *names, state, value in QUANTITIES:
            yield (*names, value(self.gross, self.edges, self),
                   value(*states[state]) if state in states else at.get(state))


def corner_stresses(force, bent, turned, moments):
    """EN 1993-1-5, 4.6 (4.15): each edge by its own modulus."""
    up = {edge: bent and moments["M"] * (bent.edges[edge] - bent.left.y) / bent.left.Ix
          for edge in ("top", "bottom")}
    across = {" " + edge: moments["N eN"] * (turned.edges[edge] - turned.left.x) / turned.left.Iy
              for edge in ("left", "right")} if turned else {"": 0.0}
    return {u + a: force + up[u] + across[a] for u in up for a in across}


def results(sections):
    return [Result(section) for section in sections]
