"""Effective sections of class 4, each under one action alone: EN 1993-1-5, 4.3 and 4.4, for lips
EN 1993-1-3, 5.5.3.2."""

from dataclasses import dataclass
from math import sqrt
from typing import List, Tuple

from kezsection import en1993_1_3 as en3
from kezsection import en1993_1_5 as en5
from kezsection.en1993_1_1 import epsilon
from kezsection.geometry import Properties, combined, field, missing
from kezsection.model import (INTERNAL, LIP, NO_LIP, OUTSTAND, SLOTTED, Plate, Reduction, Strip)


@dataclass
class Effective:
    """What is left under N, or under a moment about an axis with a sign. W: to the gross edge with
    the largest compression and to that with the largest tension."""
    axis: str  # N, y or z
    sign: int
    reductions: List[Reduction]
    left: Properties
    W: Tuple[float, float]
    faults: List[str]
    outside: List[str]

    @property
    def name(self):
        return "N" if self.axis == "N" else f"M{self.axis}{'+' if self.sign > 0 else '-'}"

    @property
    def W_min(self):
        return min(self.W)

    @property
    def reduced(self):
        return any(r.lost for r in self.reductions)


class Field:
    """Linear stresses of an action of 1, of a section with the properties p."""
    def __init__(self, p, axis, sign, free, largest=1.0):
        self.at, self.largest = p.at, largest
        self.vector = None if axis == "N" else (sign * field(p, axis, free)).conjugate()

    def __call__(self, z):
        return 1.0 if self.vector is None else (self.vector * (z - self.at)).real


def compressed(plate, stress):
    """The reduction to be of a plate that is compressed somewhere, else None."""
    s, e = stress(plate.start), stress(plate.end)
    if max(s, e) <= 1e-6 * max(abs(stress.largest), abs(s), abs(e)):
        return None
    larger, other = max(s, e), min(s, e)
    psi, width, at_start = other / larger, plate.width, s >= e
    if psi > 1 - 1e-9:
        psi = 1.0
    bc = width / (1 - psi) if psi < 0 else width
    return Reduction(plate, psi, at_start, 0.0 if at_start else width - bc, bc, be1=bc)


def reduce_internal(r, eps, factor=1.0):
    """EN 1993-1-5, 4.4(2) and table 4.1; factor: on the slenderness, EN 1993-1-3, (5.16)."""
    p = r.plate
    r.k = en5.k_internal(r.psi)
    r.lambda_p = en5.plate_slenderness(p.width, p.t, eps, r.k)
    r.rho = en5.rho_internal(r.lambda_p * factor, r.psi)
    first, second = en5.shares_internal(r.psi)
    r.be1, r.be2 = first * r.rho * r.bc, second * r.rho * r.bc
    near, far = (r.be1, r.be2) if r.at_start else (r.be2, r.be1)
    r.lost = [Strip(r.begin + near, r.begin + r.bc - far)]


def reduce_outstand(r, eps):
    """EN 1993-1-5, 4.4(2) and table 4.2: the tip, or what is compressed furthest from the
    support, is lost."""
    p = r.plate
    r.k = en5.k_outstand(r.psi, not r.at_start)
    r.lambda_p = en5.plate_slenderness(p.width, p.t, eps, r.k)
    r.rho = en5.rho_outstand(r.lambda_p)
    r.be1, r.be2 = r.rho * r.bc, 0.0
    r.lost = [Strip(r.begin + r.be1, r.begin + r.bc)]


def near_lip(flange, factor, eps):
    """What of a flange is effective at its lip."""
    trial = Reduction(flange.plate, flange.psi, flange.at_start, flange.begin, flange.bc)
    reduce_internal(trial, eps, factor)
    return trial, (trial.be2 if flange.at_start else trial.be1)


def reduce_lips(g, pairs, eps, how, fy):
    """EN 1993-1-3, 5.5.3.2: the lip and what is effective of its flange beside it have the
    thickness chi t. pairs: lip and flange of each stiffener that is compressed."""
    stiffeners = []
    for lip, flange in pairs:
        corner, end, _ = g.cold.points[lip.plate.name.split()[0]]
        stiffeners.append(en3.EdgeStiffener(
            lip.plate.t, flange.plate.width, lip.plate.width, abs(end - corner),
            abs(end - flange.plate.end),
            lambda factor, flange=flange: near_lip(flange, factor, eps)[1], eps))
    extra = []
    for (lip, flange), s, found in zip(pairs, stiffeners, en3.reduce_stiffeners(
            stiffeners, g.cold.h, fy, how)):
        p, width = lip.plate, lip.plate.width
        lip.lip, lip.k, lip.lambda_p, lip.rho = found, s.k, s.slenderness, found.rho_c
        lip.begin, lip.bc, lip.be1, lip.be2 = 0.0, width, found.ceff, 0.0
        # The flange in the state of the last step, whose be at the web is of the first one.
        b, be = flange.plate.width, found.be2
        other = flange.be1 if flange.at_start else flange.be2
        flange.be1, flange.be2 = (other, be) if flange.at_start else (be, other)
        begin, end = ((flange.begin + other, b - be) if flange.at_start
                      else (max(b - flange.bc, 0.0) + other, b - be))
        flange.lost = [Strip(begin, max(end, begin))]
        thin, flat = 1 - found.chi, p.to_corner
        lip.lost = [Strip(min(flat, found.ceff), found.ceff, thin), Strip(found.ceff, width)]
        flange.lost.append(Strip(b - be, max(b - flange.plate.to_corner, b - be), thin))
        ring = g.cold.corner_ring(p.name.split()[0])
        if ring and thin > 0:
            extra.append((lip, less(ring, thin)))
    return extra


def less(ring, share=1.0):
    return Properties(-share * ring.A, ring.at, *(-share * i for i in ring[2:]))


def lost_corners(g, reductions):
    """Of flanges whose lip counts as none: a rounded corner is lost with the width before it, and
    only once, however far the flange and the lip reach into it."""
    extra = []
    for r in reductions:
        p = r.plate
        flat = p.width - p.to_corner
        if (p.kind == OUTSTAND and p.to_corner
                and any(s.end > max(flat, s.begin) + 1e-9 * p.width for s in r.lost)):
            r.lost = [Strip(s.begin, min(s.end, flat)) for s in r.lost]
            extra.append((r, less(g.cold.corner_ring(p.name.split()[0]))))
    return extra


def reduce_all(g, stress, fy, how, kept):
    """Every plate that is compressed, and corners of lips. kept: by name those that are done."""
    eps, found = epsilon(fy), dict(kept)
    for p in g.plates:
        r = None if p.name in kept else compressed(p, stress)
        if r is None:
            continue
        found[p.name] = r
        if en5.outside_tables(r.psi, p.tip, not r.at_start) and p.kind not in (LIP, NO_LIP):
            table = "4.2" if p.tip else "4.1"
            r.outside = f"{p.name}: psi {r.psi:.2f} (EN 1993-1-5, table {table})"
        if p.kind == SLOTTED:
            r.fault = "it has slots"
        elif p.kind == NO_LIP:
            r.rho, r.be1, r.lost = 0.0, 0.0, [Strip(p.to_corner, p.width)]
        elif p.kind == INTERNAL:
            reduce_internal(r, eps)
        elif p.kind != LIP:
            reduce_outstand(r, eps)
    pairs = []
    for r in [r for r in found.values() if r.plate.kind == LIP and r.plate.name not in kept]:
        name = r.plate.name.replace("lip", "flange")
        flange = found.get(name)
        if flange and name not in kept:
            pairs.append((r, flange))
        else:
            reduce_outstand(r, eps)
    extra = reduce_lips(g, pairs, eps, how, fy) if pairs else []
    extra += lost_corners(g, [r for name, r in found.items() if name not in kept])
    for r in found.values():
        r.lost = [s for s in r.lost
                  if s.end - s.begin > 1e-9 * r.plate.width and s.share > 1e-9]
    return [found[p.name] for p in g.plates if p.name in found], extra


def first_step(plate: Plate, axis):
    """Flanges, whose stress is that of the gross section: EN 1993-1-5, 4.4(3)."""
    if axis == "N" or plate.kind in (LIP, NO_LIP):
        return True
    along = abs(plate.along.imag) if axis == "y" else abs(plate.along.real)
    return along < 0.5


def stays(r, axis):
    """Whether a plate keeps what the first step finds: a lip does with its flange."""
    return axis == "y" if r.lip else first_step(r.plate, axis)


def effective(g, axis, sign, fy, how):
    """In two steps: flanges by the stresses of the gross section, webs by those of the section with
    effective flanges and whole webs."""
    p, kept, rings = g.gross, {}, []
    for step in (1, 2):
        stress = Field(p, axis, sign, g.free, 1.0 if axis == "N" else max(g.stresses(p, axis)))
        found, extra = reduce_all(g, stress, fy, how, kept)
        extra += rings
        if step == 2 or axis == "N":
            break
        lost = [missing(r.plate, s) for r in found for s in r.lost if first_step(r.plate, axis)]
        lost += [ring for _, ring in extra]
        lost += [missing(r.plate, s) for r in found for s in r.lost
                 if s.share < 1 and not first_step(r.plate, axis)]
        if not lost:
            break
        p = combined([g.gross, *lost])
        kept = {r.plate.name: r for r in found if stays(r, axis)}
        rings = [(lip, ring) for lip, ring in extra if stays(lip, axis)]
    parts = [missing(r.plate, s) for r in found for s in r.lost] + [ring for _, ring in extra]
    left = combined([g.gross, *parts]) if parts else g.gross
    up, down = (0.0, 0.0) if axis == "N" else g.stresses(left, axis)
    W = (0.0, 0.0) if axis == "N" else (1 / up, 1 / down) if sign > 0 else (1 / down, 1 / up)
    faults = [f"{r.plate.name}: {r.fault}" for r in found if r.fault]
    return Effective(axis, sign, found, left, W, faults, [r.outside for r in found if r.outside])
