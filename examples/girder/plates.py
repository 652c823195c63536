"""What of the compressed plates is effective: EN 1993-1-5, 4.4, and EN 1993-1-3, 5.5.3 for lips."""

from collections import namedtuple
from dataclasses import dataclass
from math import isclose, sqrt

import kezlib
from girder.section import combined, rectangle, signum
from girder.shapes import INTERNAL, LIP, NO_LIP, OUTSTAND, SLOTTED

E, NU = 210000.0, 0.3  # EN 1993-1-1, 3.2.6
MOST_PASSES = 20
SIDES = {(-1, 0): "left", (1, 0): "right", (0, -1): "bottom", (0, 1): "top"}
# The effective section under one action alone, and why something has no rule.
State = namedtuple("State", "name plates left edges faults")


class Plate(namedtuple("Plate", "name kind start along across width t")):
    """A panel of a given section. along is a unit vector, across leads to the opposite face."""

    def at(self, u, through=0.5):
        return tuple(self.start[i] + u * self.along[i] + through * self.across[i] for i in (0, 1))


def place(panel, outline, inset):
    a, b, c = ((outline.x[n - 1], outline.y[n - 1]) for n in panel[2:])
    axis = 0 if abs(b[0] - a[0]) >= abs(b[1] - a[1]) else 1
    along, across = [0, 0], [c[0] - a[0], c[1] - a[1]]
    along[axis], across[axis] = signum(b[axis] - a[axis]), 0.0
    begin = 0.0 if panel.kind == NO_LIP else inset
    width = abs(b[axis] - a[axis]) - begin * (2 if panel.kind in (INTERNAL, SLOTTED) else 1)
    return Plate(*panel[:2], tuple(a[i] + begin * along[i] for i in (0, 1)), tuple(along), across,
                 width, abs(sum(across)))


@dataclass
class Reduced:
    """A plate in compression."""
    plate: Plate
    psi: float  # ratio of the stresses at its ends, the larger compression below the line
    at_start: bool  # the larger compression, at the supported end
    compressed: float  # width
    ends: tuple  # effective widths at the larger compression, and beyond
    lost: list  # from, to and share of what is not effective of the width
    rule: str = ""
    fault: str = ""  # why there is no rule

    def gone(self):
        return sum(v - u for u, v, share in self.lost if share == 1)


def compressed(p, stress):
    s = [stress(*p.at(u)) for u in (0.0, p.width)]
    low, high = sorted(s)
    if high <= 1e-6 * abs(low):
        return None
    width = p.width / (1 - min(low / high, 0.0))
    return Reduced(p, low / high, s[0] >= s[1], width, (width, 0.0), [])


def outstand_rho(p, fy, k):
    """EN 1993-1-5, 4.4 (4.3), which the library does not have."""
    slenderness = p.width / p.t / (28.4 * sqrt(235 / fy) * sqrt(k))
    return 1.0 if slenderness <= 0.748 else (slenderness - 0.188) / slenderness**2


def outstand_k(psi, at_free_edge):
    """EN 1993-1-5, table 4.2; with more tension than it knows, its last value."""
    if at_free_edge or psi > 1 - 1e-6:
        return 0.57 - 0.21 * max(psi, -3) + 0.07 * max(psi, -3) ** 2
    return 0.578 / (psi + 0.34) if psi >= 0 else 1.7 - 5 * max(psi, -1) + 17.1 * max(psi, -1) ** 2


def reduce_outstand(r, fy):
    k = outstand_k(r.psi, not r.at_start)
    begin = 0.0 if r.at_start else r.plate.width - r.compressed
    width = r.compressed * outstand_rho(r.plate, fy, k)
    r.ends, r.rule = (width, 0.0), f"outstand (host), k {k:.3g}"
    r.lost = [(begin + width, begin + r.compressed, 1)]


def reduce_internal(r, fy):
    p, r.rule = r.plate, "internal (kezef2)"
    be1, be2 = kezlib.kezef2(p.width, r.compressed, p.t, sqrt(fy), sqrt(235), 100.0, 100 * r.psi)
    if be1 is None:
        r.fault = "kezef2 has none for psi = -3"
        return
    r.ends, end = (be1, be2), r.compressed - be2
    r.lost = [(be1, end, 1) if r.at_start else (p.width - end, p.width - be1, 1)]


def reduce_lip(r, flange, depth, both, fy):
    """EN 1993-1-3, 5.5.3.2: the stiffener is the lip and what of the flange is effective beside it,
    and has the thickness chi t."""
    p, b, leg = r.plate, flange.plate.width, flange.ends[flange.at_start]
    k = 0.5 + 0.83 * max(p.width / b - 0.35, 0.0) ** (2 / 3)
    width = p.width * outstand_rho(p, fy, k)
    chi = kezlib.kezchi(p.t, leg, b, width, depth, fy, E, NU, int(both)).chi
    r.fault = "" if chi else "kezchi does not settle"
    r.rule = f"lip (host), k {k:.3g}; chi {chi:.3f} (kezchi)"
    r.compressed, r.ends = p.width, (width, 0.0)
    r.lost = [(0.0, width, 1 - chi), (width, p.width, 1)]
    flange.lost.append((b - leg, b, 1 - chi))


def reduce_all(plates, fy, stress):
    found = {p.name: r for p in plates if (r := compressed(p, stress))}
    flanges = {name: found[flange] for name, r in found.items()
               if r.plate.kind == LIP and (r.at_start or r.psi > 0)
               and (flange := name.replace("lip", "flange")) in found}
    for name, r in found.items():
        if r.plate.kind == SLOTTED:
            r.fault = "it has slots"
        elif r.plate.kind == NO_LIP:
            r.compressed, r.ends, r.rule = r.plate.width, (0.0, 0.0), NO_LIP + " (host)"
            r.lost = [(0.0, r.plate.width, 1)]
        elif name in flanges:
            reduce_lip(r, flanges[name], plates[0].width, len(flanges) == 2, fy)
        else:
            (reduce_internal if r.plate.kind == INTERNAL else reduce_outstand)(r, fy)
    for r in found.values():
        r.lost = [i for i in r.lost if i[1] - i[0] > 1e-6 * r.plate.width and i[2] > 1e-6]
    return list(found.values())


def edges_left(edges, plates, found):
    """How far the section reaches, where tips of outstands are lost."""
    ends = {r.plate.name: u for r in found for u, v, _ in r.lost if v > 0.999 * r.plate.width}
    reach = {side: [] for side in edges}
    for p in plates:
        if p.kind == OUTSTAND:
            reach[SIDES[p.along]].append(p.at(ends.get(p.name, p.width))[p.along[0] == 0])
    return {side: (max if side in ("right", "top") else min)(reach[side] or [edges[side]])
            for side in edges}


def effective(plates, gross, edges, fy, name, gx, gy):
    """Under stresses that grow by gx across and by gy up, or do not. Webs are reduced by those of
    the section with effective flanges (of one stress, with their lips) and whole webs, which are
    found again until they settle: EN 1993-1-5, 4.4(3)."""
    base, before = gross, []
    for _ in range(MOST_PASSES):
        found = reduce_all(plates, fy, lambda x, y: gx * (x - base.x) + gy * (y - base.y)
                           if gx or gy else 1.0)
        lost = [(r.plate, rectangle(r.plate.at(u, 0), r.plate.at(v, 1), -share))
                for r in found for u, v, share in r.lost]
        flanges = [part for p, part in lost if p.kind in (LIP, NO_LIP)
                   or gx * p.along[0] + gy * p.along[1] == 0]
        area = [part.A for part in flanges]
        if len(area) == len(before) and all(map(isclose, area, before)):
            break
        base, before = combined([gross, *flanges]), area
    else:
        found[0].fault = "effective widths do not settle"
    left = combined([gross] + [part for _, part in lost])
    return State(name, found, left, edges_left(edges, plates, found),
                 [f"{r.plate.name}: {r.fault}" for r in found if r.fault])
