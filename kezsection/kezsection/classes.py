"""Classes of plates and sections: EN 1993-1-1, table 5.2."""

from dataclasses import dataclass, field
from math import inf
from typing import List

from kezsection import en1993_1_1 as en1
from kezsection.en1993_1_5 import k_outstand
from kezsection.effective import Field
from kezsection.model import LEG, PlateClass


@dataclass
class Classification:
    """Of a section under an action: the class, and its plates that are compressed."""
    number: int = 1
    plates: List[PlateClass] = field(default_factory=list)
    note: str = ""


class Elastic:
    """The stresses of N, and of a moment about an axis: N held and M raised until the extreme
    compressed fibre yields, or as both are."""
    def __init__(self, g, axis, sign, N, M, fy, scaled):
        self.uniform = N / g.gross.A if axis != "N" else 1.0
        if axis == "N":
            self.bend, self.factor = None, 0.0
            return
        self.bend = Field(g.gross, axis, sign, g.free)
        largest = g.stresses(g.gross, axis)[0 if sign > 0 else 1]
        self.factor = abs(M) if scaled else max((fy - self.uniform) / largest, 0.0)

    def __call__(self, z):
        return self.uniform + (self.factor * self.bend(z) if self.factor else 0.0)


def neutral_level(g, axis, sign, N, M, fy, scaled):
    """Where the plastic neutral axis lies: N held, or N and M raised alike."""
    cut, A = g.cut(axis), g.gross.A
    if not N:
        return g.half(axis)
    N = max(-A, min(A, N / fy))
    if not scaled or not M:
        above = (A + N) / 2
        return cut.level_of(above if sign > 0 else A - above)
    low, high, ratio = -A, A, N * fy / abs(M)
    for _ in range(50):  # N / M of the plastic section falls as less of it is compressed
        middle = (low + high) / 2
        above = (A + middle) / 2
        n, m = cut.plastic(cut.level_of(above if sign > 0 else A - above))
        n, m = (n, m) if sign > 0 else (-n, m)
        low, high = (middle, high) if n < ratio * m else (low, middle)
    return cut.level_of((A + middle) / 2 if sign > 0 else (A - middle) / 2)


def compressed_share(g, plate, axis, sign, level):
    """alpha, and whether the end is compressed. A plate along the neutral axis is compressed by
    what lies beyond rounding."""
    s, e = ((plate.start.imag, plate.end.imag) if axis == "y"
            else (plate.start.real, plate.end.real))
    s, e = sign * (s - level), sign * (e - level)
    tiny = 1e-6 * (g.top - g.bottom + g.right - g.left)
    high, low = max(s, e), min(s, e)
    if high <= tiny:
        return 0.0, False
    if low >= -tiny:
        return 1.0, True
    return high / (high - low), e > 0


def classify(g, axis, sign, fy, N=0.0, M=0.0, scaled=False):
    """Under N alone (axis N), or under a moment and N."""
    if g.section.shape == "chs":
        d, eps = g.section.dims, en1.epsilon(fy)
        number = en1.class_of(d.d / d.t, en1.tube_limits(eps))
        return Classification(number, [], f"d/t {d.d / d.t:.1f}")
    eps, found = en1.epsilon(fy), Classification(3 if g.elastic else 1)
    stress = Elastic(g, axis, sign, N, M, fy, scaled)
    level = None
    if axis != "N" and not g.elastic and g.plates:
        level = neutral_level(g, axis, sign, N, M, fy, scaled)
    for plate in g.plates:
        s, e = stress(plate.start), stress(plate.end)
        larger, tip_larger = max(s, e), e > s
        pressed = larger > 1e-6 * (1.0 if axis == "N" else fy)
        if axis == "N":
            alpha, tip = 1.0, True
        elif level is not None:
            alpha, tip = compressed_share(g, plate, axis, sign, level)
        else:
            alpha, tip = (1.0, True) if pressed else (0.0, False)
        if not pressed and not alpha:
            continue
        psi = min(s, e) / larger if pressed else -inf
        if psi > 1 - 1e-9:
            psi = 1.0
        if plate.tip:
            limits = en1.outstand_limits(eps, alpha, tip, k_outstand(psi, tip_larger))
        else:
            limits = en1.internal_limits(eps, alpha, psi)
        if not pressed:
            limits = (*limits[:2], inf)
        slenderness = plate.width / plate.t
        number = en1.class_of(slenderness, limits)
        if g.elastic:
            number = 3 if slenderness <= limits[2] else 4
        found.plates.append(PlateClass(plate, slenderness, alpha, psi, limits, number))
        found.number = max(found.number, number)
    if any(p.kind == LEG for p in g.plates) and (axis == "N" or N > 0):
        check_angles(g, eps, found)
    return found


def check_angles(g, eps, found):
    """Sheet 3, of legs that are compressed."""
    d, (first, second) = g.section.dims, en1.angle_limits(eps)
    h, b, t1, t2 = ((d.h, d.b, d.t, d.t) if g.section.shape == "angle" else
                    (d.h, d.a, d.tv, d.th))
    longest, mean = max(h / t1, b / t2), (b + h) / (t1 + t2)
    found.note = f"h/t {longest:.1f}, (b + h) / 2 t {mean:.1f}"
    if longest > first or mean > second:
        found.number = 4
