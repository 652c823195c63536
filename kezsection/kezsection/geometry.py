"""Areas and their moments. Points are complex, y + iz: y to the right, z up, in mm."""

from functools import reduce
from math import asin, pi, sqrt, tan
from typing import List, NamedTuple

import kezlib


class Properties(NamedTuple):
    """Area, centroid, and second moments about the axes through it."""
    A: float
    at: complex
    Iy: float
    Iz: float
    Iyz: float


def combined(parts):
    A = sum(p.A for p in parts)
    at = sum(p.A * p.at for p in parts) / A
    Iy = Iz = Iyz = 0.0
    for p in parts:
        y, z = p.at.real - at.real, p.at.imag - at.imag
        Iy += p.Iy + p.A * z * z
        Iz += p.Iz + p.A * y * y
        Iyz += p.Iyz + p.A * y * z
    return Properties(A, at, Iy, Iz, Iyz)


def missing(plate, strip):
    """What a strip of a plate lacks, as an area below zero."""
    b, along = strip.end - strip.begin, plate.along
    A, squares = -strip.share * b * plate.t, (b * b / 12, plate.t**2 / 12)
    Iy, Iz = squares if abs(along.imag) > 0.5 else squares[::-1]
    return Properties(A, plate.at((strip.begin + strip.end) / 2), A * Iy, A * Iz, 0.0)


def quarter_ring(centre, inside, outside, diagonal):
    """Between two arcs about a centre, in the quadrant of the diagonal, e.g. 1 - 1j."""
    A = pi / 4 * (outside**2 - inside**2)
    off = 4 / (3 * pi) * (outside**3 - inside**3) / (outside**2 - inside**2)
    second, fourth = A * off**2, outside**4 - inside**4
    Iyz = (fourth / 8 - second) * diagonal.real * diagonal.imag
    own = pi / 16 * fourth - second
    return Properties(A, centre + off * diagonal, own, own, Iyz)


# Between two tangents at a right angle and their arc of the radius 1: the area, its centroid from
# each tangent, and its second moments about the axes through it.
FILLET_A = 1 - pi / 4
FILLET_AT = (10 - 3 * pi) / (12 - 3 * pi)
FILLET_I = 1 - 5 * pi / 16 - FILLET_A * FILLET_AT**2
# Iyz: of the square 1/4, less the quarter circle's about the corner, less A at^2.
FILLET_IYZ = 1 / 4 - (1 / 8 - 2 / 3 + pi / 4) - FILLET_A * FILLET_AT**2


class Corner(NamedTuple):
    """A rounded vertex. back, ahead: unit vectors along the contour; sign: 1 where the fillet adds
    material, -1 where rounding takes it away."""
    at: complex
    r: float
    back: complex
    ahead: complex
    turn: int  # 1 to the left
    sign: float

    def properties(self):
        inward, r = self.back + self.ahead, self.r
        own = self.sign * FILLET_I * r**4
        return Properties(self.sign * FILLET_A * r**2, self.at + FILLET_AT * r * inward, own, own,
                          self.sign * FILLET_IYZ * r**4 * inward.real * inward.imag)


class Loop:
    """A contour, counter-clockwise, with vertices rounded by the radii r. sign: -1 of a hole."""
    def __init__(self, sign, z, r=None):
        self.sign, self.z = sign, z
        self.r = r or [0.0] * len(z)
        self.corners = [self.corner(i) for i, r in enumerate(self.r) if r > 0]

    def directions(self, i):
        z = self.z[i]
        back, ahead = self.z[i - 1] - z, self.z[(i + 1) % len(self.z)] - z
        return back / (abs(back) or 1), ahead / (abs(ahead) or 1)

    def corner(self, i):
        back, ahead = self.directions(i)
        turn = 1 if (ahead.conjugate() * back).imag > 0 else -1
        return Corner(self.z[i], self.r[i], back, ahead, turn, -turn * self.sign)

    def polygon(self):
        """By the library, second moments about its own centroid to keep their accuracy."""
        n, ring = len(self.z), self.z + self.z[:1]
        y, z = [p.real for p in ring], [p.imag for p in ring]
        A, (*_, Sy, Sz) = kezlib.kezapl(y, z, n).area, kezlib.kezspl(y, z, n)
        at = complex(Sz, Sy) / A
        moved = [p - at.real for p in y], [p - at.imag for p in z]
        Iy, Iz, Iyz = kezlib.kezipl(*moved, n)[2:]
        return Properties(self.sign * A, at, self.sign * Iy, self.sign * Iz, self.sign * Iyz)

    def curve(self):
        """The rounded contour's vertices, each with the bulge of what follows, as DXF has it."""
        for i, z in enumerate(self.z):
            r = self.r[i]
            if r > 0:
                back, ahead = self.directions(i)
                turn = 1 if (ahead.conjugate() * back).imag > 0 else -1
                yield z + r * back, turn * tan(pi / 8)
                yield z + r * ahead, 0.0
            else:
                yield z, 0.0


def gross_properties(loops: List[Loop]):
    return combined([p for loop in loops
                     for p in (loop.polygon(), *(c.properties() for c in loop.corners))])


def fillet_beyond(x, r):
    """Area, and first moment about the arc's centre, of what a fillet has further than x from one
    of its tangents; it is r - sqrt(r^2 - p^2) wide at p = r - x."""
    p = r - x
    root = sqrt(max(r * r - p * p, 0.0))
    return (r * p - (p * root + r * r * asin(min(p / r, 1.0))) / 2,
            r * p * p / 2 + (root**3 - r**3) / 3)


class Cut:
    """How a section is cut by lines that are parallel to an axis: y for My, z for Mz."""
    def __init__(self, loops, gross, axis):
        self.gross = gross
        self.middle = gross.at.imag if axis == "y" else gross.at.real
        self.edges, self.fillets, levels = [], [], set()
        for loop in loops:
            ring = loop.z
            for p, q in zip(ring, ring[1:] + ring[:1]):
                y, u, v = (p.real, p.imag, q.imag) if axis == "y" else (-p.imag, p.real, q.real)
                if u != v:
                    self.edges.append((loop.sign * y, u, v))
                    levels.update((u, v))
            for c in loop.corners:
                inward = c.back + c.ahead
                u, way = ((c.at.imag, inward.imag) if axis == "y" else (c.at.real, inward.real))
                area, moment = fillet_beyond(0.0, c.r)
                self.fillets.append((u, c.r, way, c.sign, area, moment))
                levels.add(u + way * c.r)
        self.levels = sorted(levels)
        self.low, self.high = self.levels[0], self.levels[-1]

    def above(self, level):
        """Area above a level, and its first moment about the level."""
        A = S = 0.0
        for y, u, v in self.edges:
            u, v = u - level if u > level else 0.0, v - level if v > level else 0.0
            A += y * (v - u)
            S += y * (v * v - u * u) / 2
        for u, r, way, sign, area, moment in self.fillets:
            x = (level - u) * way  # from the tangent, inwards
            if 0 < x < r:
                part, lever = fillet_beyond(x, r)
                if way < 0:  # what is above lies nearer to the tangent
                    part, lever = area - part, moment - lever
            elif (x > 0) == (way < 0):
                part, lever = area, moment
            else:
                continue
            A += sign * part
            S += sign * (part * (u + way * r - level) - way * lever)
        return A, S

    def level_of(self, A):
        """The level that has an area A above it."""
        if A <= 0:
            return self.high
        if A >= self.gross.A:
            return self.low
        levels, first, last = self.levels, 0, len(self.levels) - 1
        while last - first > 1:
            half = (first + last) // 2
            first, last = (half, last) if self.above(levels[half])[0] > A else (first, half)
        low, high = levels[first], levels[last]
        at_low, at_high = self.above(low)[0] - A, self.above(high)[0] - A
        for _ in range(60):  # linear where no arc is cut
            level = low if at_low == at_high else low + (high - low) * at_low / (at_low - at_high)
            here = self.above(level)[0] - A
            if abs(here) < 1e-9 * self.gross.A or high - low < 1e-12 * (self.high - self.low):
                break
            if here > 0:
                low, at_low, at_high = level, here, at_high / 2
            else:
                high, at_high, at_low = level, here, at_low / 2
        return level

    def plastic(self, level):
        """Of a section that is pressed above the level and pulled below it: N / fy, and M / fy
        about the centroid."""
        A, S = self.above(level)
        S += A * (level - self.middle)
        return 2 * A - self.gross.A, 2 * S


def field(p: Properties, axis, free):
    """The stress of a moment of 1 about an axis at a point z from the centroid is
    (field.conjugate() * z).real. free: bending is not constrained to the axes."""
    if not free:
        return 1j / p.Iy if axis == "y" else 1 / p.Iz + 0j
    D = p.Iy * p.Iz - p.Iyz**2
    return complex(-p.Iyz, p.Iz) / D if axis == "y" else complex(p.Iy, -p.Iyz) / D


def open_section(points, t, at):
    """Shear centre from a point `at`, and warping constant, of a thin-walled open section along
    centre lines: integrals of the sectorial coordinate, which is linear in each part."""
    parts, A, centre = list(zip(points, points[1:])), 0.0, 0j
    for p, q in parts:
        A, centre = A + t * abs(q - p), centre + t * abs(q - p) * (p + q) / 2
    points = [p - centre / A for p in points]

    def integral(f, g):
        return sum(t * abs(q - p) * (2 * f[i] * g[i] + f[i] * g[i + 1] + f[i + 1] * g[i]
                                     + 2 * f[i + 1] * g[i + 1]) / 6
                   for i, (p, q) in enumerate(zip(points, points[1:])))

    def sectorial(pole):
        return reduce(lambda w, pq: w + [w[-1] + ((pq[0] - pole).conjugate()
                                                 * (pq[1] - pq[0])).imag],
                      zip(points, points[1:]), [0.0])

    y, z, one = [p.real for p in points], [p.imag for p in points], [1.0] * len(points)
    w = sectorial(0j)
    Iy, Iz, Iyz = integral(z, z), integral(y, y), integral(y, z)
    Iwy, Iwz, D = integral(w, z), integral(w, y), Iy * Iz - Iyz**2
    pole = complex((Iz * Iwy - Iyz * Iwz) / D, (Iyz * Iwy - Iy * Iwz) / D)
    w = sectorial(pole)
    mean = integral(w, one) / A
    w = [value - mean for value in w]
    return pole + centre / A - at, integral(w, w)
