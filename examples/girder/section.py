"""A section under its forces: EN 1993-1-5, 4.3 to 4.6, and for lips EN 1993-1-3, 5.5.3."""

from collections import namedtuple
from itertools import product
from math import copysign, degrees, isclose, sqrt

import kezlib
from girder import shapes

E, NU = 210000.0, 0.3  # EN 1993-1-1, 3.2.6
DIRECTIONS = {"N": 0, "M": 1j, "N eN": 1}  # in which the stress grows under an action
LEFT, RIGHT, BOTTOM, TOP = -1, 1, -1j, 1j  # outwards; edges are that far from the origin
NAMES = {LEFT: "left", RIGHT: "right", BOTTOM: "bottom", TOP: "top"}
# Of every section: what, symbol, unit, the effective section meant, value by properties and edges.
QUANTITIES = (
    ("Area", "A", "cm2", "N", lambda p, e, r: p.A / 100),
    ("Centroid from the left", "xs", "mm", "N", lambda p, e, r: p.at.real + r.edges[LEFT]),
    ("Centroid from the bottom", "ys", "mm", "N", lambda p, e, r: p.at.imag + r.edges[BOTTOM]),
    ("Second moment", "Ix", "cm4", "M", lambda p, e, r: p.Ix / 1e4),
    ("Modulus, top", "Wt", "cm3", "M", lambda p, e, r: p.Ix / (e[TOP] - p.at.imag) / 1e3),
    ("Modulus, bottom", "Wb", "cm3", "M", lambda p, e, r: p.Ix / (e[BOTTOM] + p.at.imag) / 1e3),
    ("Second moment", "Iy", "cm4", "N eN", lambda p, e, r: p.Iy / 1e4),
    ("Product moment", "Ixy", "cm4", "", lambda p, e, r: p.Ixy / 1e4),
    ("Principal moment", "Iu", "cm4", "", lambda p, e, r: r.axes.u / 1e4),
    ("Principal moment", "Iv", "cm4", "", lambda p, e, r: r.axes.v / 1e4),
    ("Angle from x to u", "", "deg", "", lambda p, e, r: degrees(r.axes.theta)),
    ("Stress at the top", "", "N/mm2", TOP, lambda p, e, r: r.gross_stress(TOP)),
    ("Stress at the bottom", "", "N/mm2", BOTTOM, lambda p, e, r: r.gross_stress(BOTTOM)),
    ("To the shear centre", "x0", "mm", "", lambda p, e, r: r.x0),
    ("Warping constant", "Iw", "cm6", "", lambda p, e, r: r.Iw and r.Iw / 1e6))


class State(namedtuple("State", "name load plates left edges")):
    """The effective section that is left under one action alone."""
    def stress(self, z):
        p, arm = self.left, z - self.left.at
        return self.load * {"N": 1 / p.A, "M": arm.imag / p.Ix, "N eN": arm.real / p.Iy}[self.name]


class Plate(namedtuple("Plate", "name kind start along across width t")):
    """A panel of a given section. along is a unit vector, across leads to the opposite face."""
    def at(self, u, through=0.5):
        return self.start + u * self.along + through * self.across

    def without(self, u, v, share):
        """Of so much of it between u and v as a hole."""
        A, squares = -share * (v - u) * self.t, ((v - u) ** 2 / 12, self.t**2 / 12)
        Ix, Iy = (A * square for square in squares[::1 if self.along.imag else -1])
        return shapes.Properties(A, self.at((u + v) / 2), Ix, Iy, 0.0)

    def rho(self, fy, k):
        """Of an outstand: EN 1993-1-5, 4.4 (4.3), which the library does not have."""
        slenderness = self.width / self.t / (28.4 * sqrt(235 / fy) * sqrt(k))
        return 1.0 if slenderness <= 0.748 else min(1.0, (slenderness - 0.188) / slenderness**2)


def place(panel, vertices, inset):
    a, b, c = (vertices[number - 1] for number in (panel.a, panel.b, panel.c))
    x, y = (b - a).real, (b - a).imag
    along = complex(copysign(1, x), 0) if abs(x) >= abs(y) else complex(0, copysign(1, y))
    across = 1j * ((c - a) / along).imag * along
    begin = 0.0 if panel.kind == shapes.NO_LIP else inset
    width = max(abs(x), abs(y)) - begin * (1 if panel.kind in (shapes.OUTSTAND, shapes.LIP) else 2)
    return Plate(panel.name, panel.kind, a + begin * along, along, across, width, abs(across))


class Reduced:
    """A plate in compression from begin to end. ends: effective widths at the larger compression,
    which is at_start or not, and beyond; lost: from, to and share of what is not effective."""
    def __init__(self, plate, start, end):
        self.plate, self.at_start = plate, start >= end
        self.psi = min(start, end) / max(start, end)
        width = plate.width / (1 - min(self.psi, 0.0))
        self.begin = 0.0 if self.at_start else plate.width - width
        self.end = self.begin + width
        self.ends, self.lost, self.rule, self.fault = (width, 0.0), [], "", ""

    def gone(self):
        return sum(v - u for u, v, share in self.lost if share == 1)

    def reduce_outstand(self, fy):
        """EN 1993-1-5, table 4.2; with more tension than it knows, its last value."""
        psi, width = max(self.psi, -1 if self.at_start else -3), self.end - self.begin
        if psi > 1 - 1e-6 or not self.at_start:
            k = 0.57 - 0.21 * psi + 0.07 * psi**2
        elif psi >= 0:
            k = 0.578 / (psi + 0.34)
        else:
            k = 1.7 - 5 * psi + 17.1 * psi**2
        self.ends, self.rule = (width * self.plate.rho(fy, k), 0.0), f"outstand (host), k {k:.3g}"
        self.lost = [(self.begin + self.ends[0], self.end, 1)]

    def reduce_internal(self, fy):
        p, self.rule = self.plate, "internal (kezef2)"
        self.ends = tuple(kezlib.kezef2(p.width, self.end - self.begin, p.t, sqrt(fy), sqrt(235),
                                        100.0, 100 * self.psi))
        if None in self.ends:
            self.ends, self.fault = (0.0, 0.0), "kezef2 has none for psi = -3"
        first, last = self.ends if self.at_start else self.ends[::-1]
        self.lost = [(self.begin + first, self.end - last, 1)]

    def reduce_lip(self, flange, depth, both, fy):
        """EN 1993-1-3, 5.5.3.2: it and the effective flange beside it have the thickness chi t."""
        p, b, leg = self.plate, flange.plate.width, flange.ends[0]  # the larger one is at the lip
        k = 0.5 + 0.83 * max(p.width / b - 0.35, 0.0) ** (2 / 3)
        width = p.width * p.rho(fy, k)
        chi = kezlib.kezchi(p.t, leg, b, width, depth, fy, E, NU, int(both)).chi
        self.begin, self.end, self.ends = 0.0, p.width, (width, 0.0)
        self.rule = f"lip (host), k {k:.3g}; chi {chi:.3f} (kezchi)"
        if chi:
            self.lost = [(0.0, width, 1 - chi), (width, p.width, 1)]
            flange.lost.append((b - leg, b, 1 - chi))
        self.fault = "" if chi else "kezchi does not settle"


def reduce_all(plates, stress, fy):
    ends = {p: (stress(p.at(0.0)), stress(p.at(p.width))) for p in plates}
    found = {p.name: Reduced(p, *s) for p, s in ends.items() if max(s) > 1e-6 * abs(min(s))}
    both = {"top flange", "top lip", "bottom flange", "bottom lip"} <= found.keys()
    for name, r in found.items():
        flange = found.get(name.replace("lip", "flange"))
        if r.plate.kind == shapes.SLOTTED:
            r.fault = "it has slots"
        elif r.plate.kind == shapes.NO_LIP:
            r.ends, r.rule, r.lost = (0.0, 0.0), shapes.NO_LIP + " (host)", [(r.begin, r.end, 1)]
        elif r.plate.kind == shapes.INTERNAL:
            r.reduce_internal(fy)
        elif r.plate.kind == shapes.LIP and flange:
            r.reduce_lip(flange, plates[0].width, both, fy)
        else:
            r.reduce_outstand(fy)
    for r in found.values():
        r.lost = [(u, v, s) for u, v, s in r.lost if v - u > 1e-6 * r.plate.width and s > 1e-6]
    return list(found.values())


class Result:
    """Of a section the gross properties; states: the effective sections, under each action alone;
    stresses: with them, at the corners; faults: why nothing effective is known."""
    def __init__(self, section):
        self.section, shape, d = section, shapes.SHAPES[section.shape], section.dims
        self.loops = shapes.build(shape, d)
        vertices = [z for loop in self.loops for z in loop.z]
        g = shapes.combined([p for loop in self.loops for p in (loop.polygon(), *loop.fillets())])
        # Rounding leaves symmetric sections some Ixy, which would turn the axes where Ix = Iy.
        self.gross = g._replace(Ixy=0.0) if abs(g.Ixy) < 1e-6 * (g.Ix + g.Iy) else g
        self.edges = {side: max((z / side).real for z in vertices) for side in NAMES}
        self.axes = kezlib.kezinp(*self.gross[2:])
        self.x0 = self.Iw = None
        if section.shape == "channel" and not d.nw:  # both are those of a whole web
            self.x0 = kezlib.kezshc_c(d.b, d.h, d.c, d.t).x0
            self.Iw = kezlib.kezwar_c(d.b, d.h, d.c, d.t).Iw
        panels = shape.panels(d) if callable(shape.panels) else shape.panels
        self.plates = [p for panel in panels
                       if (p := place(panel, vertices, shape.inset(d))).width > 0]
        self.load()
        self.faults = list(dict.fromkeys(f"{r.plate.name}: {r.fault}" for state in self.states
                                         for r in state.plates if r.fault))
        self.where, self.largest = max(self.stresses.items(), key=lambda pair: abs(pair[1]))
        verdict = "ABOVE fy" if abs(self.largest) > section.fy else "not above fy"
        self.verdict = "incomplete" if self.faults else verdict

    def edges_left(self, found):
        """How far the section reaches, where tips of outstands are lost."""
        ends = {r.plate.name: u for r in found for u, v, _ in r.lost if v > 0.999 * r.plate.width}
        tips = [(p.along, (p.at(ends.get(p.name, p.width)) / p.along).real)
                for p in self.plates if p.kind == shapes.OUTSTAND]
        return {side: max((far for along, far in tips if along == side), default=edge)
                for side, edge in self.edges.items()}

    def effective(self, name, load):
        """Webs are reduced by the stresses of the section with effective flanges (of one stress,
        with lips) and whole webs, found again until they settle: EN 1993-1-5, 4.4(3)."""
        base, before, along = self.gross, [], DIRECTIONS[name] * copysign(1, load)
        for _ in range(20):
            found = reduce_all(self.plates, lambda z: ((z - base.at) / along).real if along else 1,
                               self.section.fy)
            lost = [(r.plate, r.plate.without(*part)) for r in found for part in r.lost]
            flanges = [part for p, part in lost if p.kind in (shapes.LIP, shapes.NO_LIP)
                       or not along or not (p.along / along).real]
            area = [part.A for part in flanges]
            if len(area) == len(before) and all(map(isclose, area, before)):
                break
            base, before = shapes.combined([self.gross, *flanges]), area
        else:
            found[0].fault = "effective widths do not settle"
        left = shapes.combined([self.gross] + [part for _, part in lost])
        return State(name, load, found, left, self.edges_left(found))

    def load(self):
        """EN 1993-1-5, 4.3: N alone, M alone, and N times the shift eN of the centroid."""
        N, M = self.section.N, self.section.M
        pushed = [self.effective("N", N)] if N > 0 else []
        shift = pushed[0].left.at - self.gross.at if pushed else 0j
        tiny = 1e-5 * sum(self.edges.values())
        Mx, My = (-N * e if abs(e) > tiny else 0.0 for e in (shift.imag, shift.real))
        turned = [self.effective("N eN", My)] if My else []
        cases = []
        for moment in (M, M + Mx) if Mx else (M,):  # EN 1993-1-3, 6.1.3(3): no shift may relieve
            states = pushed + ([self.effective("M", moment)] if moment else []) + turned
            cases.append((states, self.at_corners(states)))
        self.states, self.stresses = max(cases, key=lambda case: max(map(abs, case[1].values())))

    def at_corners(self, states):
        """EN 1993-1-5, 4.6 (4.15): each action by its own section, each edge by its own modulus."""
        turned = any(state.name == "N eN" for state in states)
        corners = product((TOP, BOTTOM), (LEFT, RIGHT)) if turned else product((TOP, BOTTOM))
        tension = min(self.section.N, 0.0) / self.gross.A
        return {" ".join(NAMES[side] for side in corner): tension + sum(
            state.stress(sum(side * state.edges[side] for side in corner)) for state in states)
            for corner in corners}

    def gross_stress(self, side):
        """Of free bending, above or below the centroid."""
        p, s, y = self.gross, self.section, (self.edges[side] * side - self.gross.at).imag
        return s.N / p.A + s.M * p.Iy * y / (p.Ix * p.Iy - p.Ixy**2)

    def quantities(self):
        known = {} if self.faults else {s.name: (s.left, s.edges, self) for s in self.states}
        at = {side: max((s for where, s in self.stresses.items() if NAMES[side] in where), key=abs)
              for side in (TOP, BOTTOM) if not self.faults}
        for *names, state, value in QUANTITIES:
            yield (*names, value(self.gross, self.edges, self),
                   value(*known[state]) if state in known else at.get(state))


def results(sections):
    return [Result(section) for section in sections]
