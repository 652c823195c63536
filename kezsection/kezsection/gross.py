"""Gross values of a section."""

from math import pi

import kezlib
from kezsection import en1993_1_1 as en1
from kezsection.cold_formed import Cold
from kezsection.geometry import Cut, field, gross_properties, open_section
from kezsection.model import Values
from kezsection.shapes import SHAPES, inner_radius


class Geometry:
    """What a section is made of, before any rule."""
    def __init__(self, section):
        self.section, self.shape = section, SHAPES[section.shape]
        d = section.dims
        self.loops = self.shape.outline(d)
        self.vertices = [z for loop in self.loops for z in loop.z]
        p = gross_properties(self.loops)
        # Rounding leaves symmetrical sections some Iyz, which would turn the axes where Iy = Iz.
        self.gross = p._replace(Iyz=0.0) if abs(p.Iyz) < 1e-6 * (p.Iy + p.Iz) else p
        self.free = self.shape.free and self.gross.Iyz != 0
        self.elastic = self.shape.cold or self.shape.free  # no plastic moduli are used
        self.plates = self.shape.plates(d)
        self.cold = Cold(section.shape, d) if self.shape.cold else None
        self.flanged = self.shape.flanged(d)
        self.right = max(z.real for z in self.vertices)
        self.left = min(z.real for z in self.vertices)
        self.top = max(z.imag for z in self.vertices)
        self.bottom = min(z.imag for z in self.vertices)
        self.cuts, self.halves = {}, {}

    def cut(self, axis):
        if axis not in self.cuts:
            self.cuts[axis] = Cut(self.loops, self.gross, axis)
        return self.cuts[axis]

    def stresses(self, p, axis):
        """Of a moment of 1 the largest compression and the largest tension, of properties p at the
        gross edges."""
        if not self.free:
            if axis == "y":
                up, down, I = self.top - p.at.imag, p.at.imag - self.bottom, p.Iy
            else:
                up, down, I = self.right - p.at.real, p.at.real - self.left, p.Iz
            return up / I, down / I
        f = field(p, axis, True).conjugate()
        found = [(f * (z - p.at)).real for z in self.vertices]
        return max(found), -min(found)

    def half(self, axis):
        """The level that has half of the area above it."""
        if axis not in self.halves:
            cut, f = self.cut(axis), self.flanged
            symmetrical = f and (f.equal or axis == "z")
            self.halves[axis] = ((cut.low + cut.high) / 2 if symmetrical else
                                 cut.level_of(self.gross.A / 2))
        return self.halves[axis]

    def wpl(self, axis):
        return self.cut(axis).plastic(self.half(axis))[1]


def torsion_constant(g):
    """Rolled I by the producers' formula; hollow sections and boxes by Bredt with s t^3 / 3; solid
    bars by de Saint-Venant; else the sum of b t^3 / 3."""
    s, d, f = g.section, g.section.dims, g.flanged
    if s.shape == "rolled":
        return en1.torsion_constant_rolled_i(d.h, d.b, d.tf, d.tw, d.r)
    if s.shape in ("rhs", "hollow"):
        r = (d.r + inner_radius(d)) / 2 if s.shape == "hollow" else 0.0
        inside = (d.b - d.t) * (d.h - d.t) - r * r * (4 - pi)
        around = 2 * (d.b + d.h - 2 * d.t) - 2 * r * (4 - pi)
        return 4 * inside**2 * d.t / around + around * d.t**3 / 3
    if s.shape == "box":
        wide, high = d.s + d.tw, d.h - (d.tt + d.tb) / 2
        cell = 4 * (wide * high) ** 2 / (wide / d.tt + wide / d.tb + 2 * high / d.tw)
        return cell + (d.bt * d.tt**3 + d.bb * d.tb**3 + 2 * f.hw * d.tw**3) / 3
    if s.shape in ("chs", "round"):
        return g.gross.Iy + g.gross.Iz
    if s.shape == "flat":
        b, t = max(d.b, d.h), min(d.b, d.h)
        return b * t**3 * (1 / 3 - 0.21 * t / b * (1 - (t / b) ** 4 / 12))
    if s.shape == "girder":
        return (d.b1 * d.t1**3 + d.b2 * d.t2**3 + f.hw * d.tw**3) / 3
    if s.shape == "tee":
        return (d.b * d.tf**3 + (d.h - d.tf) * d.tw**3) / 3
    if s.shape == "angles":
        return 2 * (d.a * d.th**3 + (d.h - d.th) * d.tv**3) / 3
    if s.shape == "angle":
        return (d.h + d.b - d.t) * d.t**3 / 3
    return None if getattr(d, "nw", 0) else g.gross.A * g.cold.t**2 / 3


def warping(g):
    """The shear centre from the centroid, and Iw, where they are known."""
    f = g.flanged
    if f and f.family == "I":
        I1, I2, h = f.t1 * f.b1**3 / 12, f.t2 * f.b2**3 / 12, f.h - (f.t1 + f.t2) / 2
        z = f.h / 2 - f.t1 / 2 - h * I2 / (I1 + I2)
        return (0j if f.equal else 1j * (z - g.gross.at.imag)), h * h * I1 * I2 / (I1 + I2)
    if g.cold and not getattr(g.section.dims, "nw", 0):
        centre, Iw = open_section(g.cold.line(), g.cold.t, g.gross.at)
        tiny = 1e-7 * (g.top - g.bottom)  # what rounding and single precision leave
        return complex(centre.real if abs(centre.real) > tiny else 0.0,
                       centre.imag if abs(centre.imag) > tiny else 0.0), Iw
    if g.section.shape in ("rhs", "hollow", "chs", "flat", "round"):
        return 0j, None
    return None, None


def elastic_shear_area(g):
    """Iy t / Sy at the centroid: EN 1993-1-1, 6.2.6(4)."""
    d = g.section.dims
    if g.section.shape == "flat":
        return 2 / 3 * g.gross.A
    if g.section.shape == "round":
        return 3 / 4 * g.gross.A
    t = 2 * d.tv if g.section.shape == "angles" else d.t
    return g.gross.Iy * t / g.cut("y").above(g.gross.at.imag)[1]


def shear_areas(g, eta):
    """Along z and along y."""
    s, d, f, A = g.section, g.section.dims, g.flanged, g.gross.A
    if s.shape == "rolled":
        return (en1.shear_area_rolled_i(A, d.b, d.tf, d.tw, d.r, f.hw, eta), A - f.hw * d.tw)
    if s.shape in ("rhs", "hollow"):
        return en1.shear_area_hollow(A, d.h, d.b), en1.shear_area_hollow(A, d.b, d.h)
    if f:
        return en1.shear_area_welded(f.hw, f.webs * f.tw, eta), A - f.hw * f.webs * f.tw
    if s.shape == "tee":
        return en1.shear_area_tee(A, d.b, d.h, d.tf, d.tw, d.r), None
    if s.shape == "chs":
        return (en1.shear_area_tube(A),) * 2
    return (None, None) if g.cold else (elastic_shear_area(g), None)


def values(g, eta):
    p = g.gross
    u, v, theta = principal(p)
    sy, sz = g.stresses(p, "y"), g.stresses(p, "z")
    W = {"top": p.Iy / (g.top - p.at.imag), "bottom": p.Iy / (p.at.imag - g.bottom),
         "right": p.Iz / (g.right - p.at.real), "left": p.Iz / (p.at.real - g.left)}
    centre, Iw = warping(g)
    Av_z, Av_y = shear_areas(g, eta)
    plastic = not (g.free or getattr(g.section.dims, "nw", 0))
    return Values(p.A, p.at - complex(g.left, g.bottom), p.Iy, p.Iz, p.Iyz, u, v, theta, W,
                  1 / max(sy), 1 / max(sz), g.wpl("y") if plastic else None,
                  g.wpl("z") if plastic else None, torsion_constant(g), Iw, centre, Av_z, Av_y)


def principal(p):
    """By the library; u is the major axis, theta the angle from y to it."""
    if p.Iyz == 0:
        return (p.Iy, p.Iz, 0.0) if p.Iy >= p.Iz else (p.Iz, p.Iy, pi / 2)
    u, v, theta = kezlib.kezinp(*p[2:])
    if u >= v:
        return u, v, theta
    return v, u, theta + (pi / 2 if theta <= 0 else -pi / 2)
