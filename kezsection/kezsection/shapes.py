"""The shapes: dimensions, outlines, plates. Points are y + iz from the middle of the outline's box,
as the library has it."""

from dataclasses import dataclass
from typing import Callable, NamedTuple, Tuple

import kezlib
from kezsection.cold_formed import Cold, corner_radius
from kezsection.geometry import Loop
from kezsection.model import INTERNAL, LEG, OUTSTAND, Plate


class Rule(NamedTuple):
    """What the dimensions must keep, lest contours cross themselves."""
    text: str
    holds: Callable


class Flanged(NamedTuple):
    """An I section or a box by its flanges and webs, h high; hw the clear height of the webs."""
    family: str  # I or box
    rolled: bool
    h: float
    b1: float
    t1: float
    b2: float
    t2: float
    tw: float  # of each web
    webs: int
    hw: float
    r: float = 0.0

    @property
    def equal(self):
        return self.b1 == self.b2 and self.t1 == self.t2


@dataclass(frozen=True)
class Shape:
    """dims: in the order of the line, ? behind one that may be 0; keys: those of the shape only."""
    dims: str
    outline: Callable  # of the dimensions: loops
    plates: Callable
    rules: Tuple[Rule, ...] = ()
    keys: Tuple[str, ...] = ()
    cold: bool = False
    free: bool = False  # bends freely where its axes are turned
    flanged: Callable = lambda d: None


def loops_of(record, radii=None):
    """Of an outline of the library, without its edges of no length; radii by the vertex number."""
    counts, signs, y, z = (entries(v) for v in (record.nv, record.sign, record.x, record.y))
    vertices, radii, first, loops = list(map(complex, y, z)), radii or {}, 0, []
    for n, sign in zip(counts, signs):
        last = first + int(n)
        loops.append(Loop(sign, vertices[first:last],
                          [radii.get(i, 0.0) for i in range(first + 1, last + 1)]))
        first = last
    return loops


def entries(value):
    """Of a scalar, a list or an array of numpy, as Python's numbers."""
    if hasattr(value, "tolist"):
        value = value.tolist()
    return value if isinstance(value, list) else [value]



# I sections: the vertices are numbered from the top left corner, counter-clockwise.
#     1----------------12
#     2-----3    10----11
#           |    |
#       5---4    9---8
#       6------------7

def girder_outline(d):
    return loops_of(kezlib.kezsec_ia(d.d, d.b1, d.b2, d.t1, d.t2, d.tw, 0.0))


def rolled_outline(d):
    return loops_of(kezlib.kezsec_ia(d.h, d.b, d.b, d.tf, d.tf, d.tw, 0.0),
                    dict.fromkeys((3, 4, 9, 10), d.r))


def i_plates(f):
    """Between the fillets."""
    top, bottom, side = (f.h - f.t1) / 2, (f.t2 - f.h) / 2, f.tw / 2 + f.r
    plates = [Plate("web", INTERNAL, 1j * (f.h / 2 - f.t1 - f.r), 1j * (f.t2 + f.r - f.h / 2),
                    f.tw)]
    for name, z, b, t in (("top", top, f.b1, f.t1), ("bottom", bottom, f.b2, f.t2)):
        for way, side_name in ((-1, "left"), (1, "right")):
            plates.append(Plate(f"{name} flange, {side_name}", OUTSTAND,
                                complex(way * side, z), complex(way * b / 2, z), t))
    return plates


def girder_flanged(d):
    return Flanged("I", False, d.d, d.b1, d.t1, d.b2, d.t2, d.tw, 1, d.d - d.t1 - d.t2)


def rolled_flanged(d):
    return Flanged("I", True, d.h, d.b, d.tf, d.b, d.tf, d.tw, 1, d.h - 2 * d.tf, d.r)


def tee_outline(d):
    """    1--------------8
           2----3    6----7
                |    |
                4----5       """
    return loops_of(kezlib.kezsec_t(d.b, d.h, d.tf, d.tw, 0.0), dict.fromkeys((3, 6), d.r))


def tee_plates(d):
    z, side = (d.h - d.tf) / 2, d.tw / 2 + d.r
    return [Plate("flange, left", OUTSTAND, complex(-side, z), complex(-d.b / 2, z), d.tf),
            Plate("flange, right", OUTSTAND, complex(side, z), complex(d.b / 2, z), d.tf),
            Plate("stem", OUTSTAND, 1j * (d.h / 2 - d.tf - d.r), -1j * d.h / 2, d.tw)]


def box_outline(d):
    return loops_of(kezlib.kezsec_box(d.bt, d.bb, d.tt, d.tb, d.h, d.tw, d.s, 0.0))


def box_plates(d):
    top, bottom = (d.h - d.tt) / 2, (d.tb - d.h) / 2
    inner, outer = d.s / 2, d.s / 2 + d.tw
    high, low = d.h / 2 - d.tt, d.tb - d.h / 2
    plates = [Plate("top plate", INTERNAL, complex(-inner, top), complex(inner, top), d.tt),
              Plate("bottom plate", INTERNAL, complex(-inner, bottom), complex(inner, bottom),
                    d.tb)]
    for way, name in ((-1, "left"), (1, "right")):
        y = way * (inner + d.tw / 2)
        plates.append(Plate(f"{name} web", INTERNAL, complex(y, high), complex(y, low), d.tw))
        for side, z, b, t in (("top", top, d.bt, d.tt), ("bottom", bottom, d.bb, d.tb)):
            if b / 2 - outer > 1e-6:
                plates.append(Plate(f"{side} plate, {name}", OUTSTAND, complex(way * outer, z),
                                    complex(way * b / 2, z), t))
    return plates


def box_flanged(d):
    return Flanged("box", False, d.h, d.bt, d.tt, d.bb, d.tb, d.tw, 2, d.h - d.tt - d.tb)


def inner_radius(d):
    return max(0.0, d.r - d.t) if d.ri is None else d.ri


def hollow_outline(d):
    """    1-----------4
           |  5-----8  |
           |  6-----7  |
           2-----------3    """
    radii = {**dict.fromkeys((1, 2, 3, 4), d.r), **dict.fromkeys((5, 6, 7, 8), inner_radius(d))}
    return loops_of(kezlib.kezsec_rhs(d.b, d.h, d.t, 0.0), radii)


def rhs_outline(d):
    return loops_of(kezlib.kezsec_rhs(d.b, d.h, d.t, 0.0))


def hollow_plates(d):
    """b - 3 t, EN 1993-1-5, 4.4(2); what is flat where corners are sharper."""
    less = max(d.t, min(getattr(d, "r", 0.0), 1.5 * d.t))
    y, z, b, h = (d.b - d.t) / 2, (d.h - d.t) / 2, d.b / 2 - less, d.h / 2 - less
    return [Plate("top", INTERNAL, complex(-b, z), complex(b, z), d.t),
            Plate("bottom", INTERNAL, complex(-b, -z), complex(b, -z), d.t),
            Plate("left side", INTERNAL, complex(-y, h), complex(-y, -h), d.t),
            Plate("right side", INTERNAL, complex(y, h), complex(y, -h), d.t)]


def hollow_flanged(d):
    return Flanged("box", True, d.h, d.b, d.t, d.b, d.t, d.t, 2, d.h - 2 * d.t)


def square(r):
    """Whose corners are rounded to a circle."""
    return [complex(-r, r), complex(-r, -r), complex(r, -r), complex(r, r)], [r] * 4


def tube_outline(d):
    return [Loop(1.0, *square(d.d / 2)), Loop(-1.0, *square(d.d / 2 - d.t))]


def angles_outline(d):
    """    1-----------6  7-----------12
           2-------3   |  |   10------11
                   |   |  |   |
                   4---5  8---9          """
    return loops_of(kezlib.kezsec_l2(d.a, d.h, d.s, d.th, d.tv, 0.0))


def angles_plates(d):
    """Legs in full, from the heels."""
    plates, high = [], d.h / 2
    for way, name in ((-1, "left"), (1, "right")):
        heel = way * d.s / 2
        plates += [Plate(f"{name} angle, top leg", LEG, complex(heel, high - d.th / 2),
                         complex(heel + way * d.a, high - d.th / 2), d.th),
                   Plate(f"{name} angle, leg", LEG, complex(heel + way * d.tv / 2, high),
                         complex(heel + way * d.tv / 2, -high), d.tv)]
    return plates


def angle_outline(d):
    """    6-5
           | |
           | 4---3
           1-----2    """
    y, z, t = d.b / 2, d.h / 2, d.t
    return [Loop(1.0, [complex(-y, -z), complex(y, -z), complex(y, t - z), complex(t - y, t - z),
                       complex(t - y, z), complex(-y, z)], [0.0, 0.0, d.r2, d.r1, d.r2, 0.0])]


def angle_plates(d):
    y, z, t = d.b / 2, d.h / 2, d.t
    return [Plate("vertical leg", LEG, complex(t / 2 - y, -z), complex(t / 2 - y, z), t),
            Plate("horizontal leg", LEG, complex(-y, t / 2 - z), complex(y, t / 2 - z), t)]


def flat_outline(d):
    y, z = d.b / 2, d.h / 2
    return [Loop(1.0, [complex(-y, z), complex(-y, -z), complex(y, -z), complex(y, z)])]


def channel_outline(d):
    """Of the library, whose slots are kept; without its edges of no length, and with the core's
    thickness. Outside vertices 1, 6, 7 and 24 and inside ones 12, 13, 18 and 19 are rounded."""
    cold = Cold("channel", d)
    t, r, c = cold.t, cold.r, bool(d.c)
    b, lip = cold.sides["top"]
    record = kezlib.kezsec_c(b + (t if c else t / 2), cold.h + t, lip + t / 2 if c else 0.0, t,
                             0.0, 0.0, 0.0, 0.0, d.sw, d.yw, d.nw, 0.0, 0.0, 0.0, 0.0)
    outer, inner = ((1, 6, 7, 24), (12, 13, 18, 19)) if c else ((1, 2), (5, 6))
    radii = {**dict.fromkeys(outer, r + t), **dict.fromkeys(inner, r)} if r else {}
    first, *slots = loops_of(record, radii)
    kept = [(z, r) for i, (z, r) in enumerate(zip(first.z, first.r))
            if r > 0 or is_vertex(first.z, i)]
    return [Loop(1.0, [z for z, _ in kept], [r for _, r in kept]), *slots]


def is_vertex(ring, i):
    """Whether a contour turns there: neither the double of the last one nor on a straight edge."""
    z, before = ring[i], ring[i - 1]
    if abs(z - before) < 1e-6:
        return False
    after = next((p for p in ring[i + 1:] + ring[:i] if abs(p - z) > 1e-6), z)
    back = next(p for p in ring[i - 1::-1] + ring[:i - 1:-1] if abs(p - z) > 1e-6)
    turn = ((z - back).conjugate() * (after - z)).imag
    return abs(turn) > 1e-6 * abs(z - back) * abs(after - z)


def cold_shape(name, dims, outline, rules):
    return Shape(dims, outline, lambda d: list(Cold(name, d).plates()), rules,
                 ("r", "coat", "tol"), cold=True, free=name != "zed")


def cold_outline(name):
    return lambda d: [Cold(name, d).outline()]


def corner(d):
    """What a rounded corner takes of the overall width."""
    return d.t + corner_radius(d)


UNEQUAL = (
    Rule("c1 = 0 or c1 >= t + r", lambda d: d.c1 == 0 or d.c1 >= corner(d)),
    Rule("c2 = 0 or c2 >= t + r", lambda d: d.c2 == 0 or d.c2 >= corner(d)),
    Rule("b1 > t + r for each of its corners",
         lambda d: d.b1 > corner(d) * (2 if d.c1 else 1)),
    Rule("b2 > t + r for each of its corners",
         lambda d: d.b2 > corner(d) * (2 if d.c2 else 1)),
    Rule("c1 + c2 < h", lambda d: d.c1 + d.c2 < d.h),
    Rule("2 (t + r) < h", lambda d: 2 * corner(d) < d.h),
    Rule("coat < t", lambda d: d.coat < d.t))

SHAPES = {
    "girder": Shape("d b1 b2 t1 t2 tw", girder_outline, lambda d: i_plates(girder_flanged(d)),
                    (Rule("t1 + t2 < d", lambda d: d.t1 + d.t2 < d.d),
                     Rule("tw < b1", lambda d: d.tw < d.b1),
                     Rule("tw < b2", lambda d: d.tw < d.b2)), flanged=girder_flanged),
    "rolled": Shape("h b tf tw r?", rolled_outline, lambda d: i_plates(rolled_flanged(d)),
                    (Rule("2 (tf + r) < h", lambda d: 2 * (d.tf + d.r) < d.h),
                     Rule("tw + 2 r < b", lambda d: d.tw + 2 * d.r < d.b)),
                    flanged=rolled_flanged),
    "tee": Shape("b h tf tw", tee_outline, tee_plates,
                 (Rule("tf + r < h", lambda d: d.tf + d.r < d.h),
                  Rule("tw + 2 r < b", lambda d: d.tw + 2 * d.r < d.b)), ("r",)),
    "box": Shape("bt bb tt tb h tw s", box_outline, box_plates,
                 (Rule("tt + tb < h", lambda d: d.tt + d.tb < d.h),
                  Rule("s + 2 tw <= bt", lambda d: d.s + 2 * d.tw <= d.bt),
                  Rule("s + 2 tw <= bb", lambda d: d.s + 2 * d.tw <= d.bb)),
                 flanged=box_flanged),
    "rhs": Shape("b h t", rhs_outline, hollow_plates,
                 (Rule("2 t < b", lambda d: 2 * d.t < d.b),
                  Rule("2 t < h", lambda d: 2 * d.t < d.h)), flanged=hollow_flanged),
    "hollow": Shape("b h t r?", hollow_outline, hollow_plates,
                    (Rule("3 t < b", lambda d: 3 * d.t < d.b),
                     Rule("3 t < h", lambda d: 3 * d.t < d.h),
                     Rule("2 r < b", lambda d: 2 * d.r < d.b),
                     Rule("2 r < h", lambda d: 2 * d.r < d.h),
                     Rule("ri <= r", lambda d: inner_radius(d) <= d.r),
                     Rule("2 ri < b - 2 t", lambda d: 2 * inner_radius(d) < d.b - 2 * d.t),
                     Rule("2 ri < h - 2 t", lambda d: 2 * inner_radius(d) < d.h - 2 * d.t),
                     Rule("(r - ri) (2 - sqrt 2) < 2 t, which leaves the corner some wall",
                          lambda d: (d.r - inner_radius(d)) * (2 - 2**0.5) < 2 * d.t)),
                    ("ri",), flanged=hollow_flanged),
    "chs": Shape("d t", tube_outline, lambda d: [], (Rule("2 t < d", lambda d: 2 * d.t < d.d),)),
    "angles": Shape("a h s? th tv", angles_outline, angles_plates,
                    (Rule("tv < a", lambda d: d.tv < d.a), Rule("th < h", lambda d: d.th < d.h))),
    "angle": Shape("h b t r1? r2?", angle_outline, angle_plates,
                   (Rule("t + r1 + r2 < h", lambda d: d.t + d.r1 + d.r2 < d.h),
                    Rule("t + r1 + r2 < b", lambda d: d.t + d.r1 + d.r2 < d.b),
                    Rule("r2 <= t", lambda d: d.r2 <= d.t)), free=True),
    "channel": cold_shape("channel", "b h c? t sw? yw? nw?", channel_outline, (
        Rule("b > t + r for each of its corners",
             lambda d: d.b > corner(d) * (2 if d.c else 1)),
        Rule("h > 2 (t + r)", lambda d: d.h > 2 * corner(d)),
        Rule("c = 0 or t + r <= c < h / 2",
             lambda d: d.c == 0 or corner(d) <= d.c < d.h / 2),
        Rule("nw is 0, 1 or 2", lambda d: d.nw in (0, 1, 2)),
        Rule("nw = 0 or sw > 0", lambda d: d.nw == 0 or d.sw > 0),
        Rule("nw = 0 or yw + sw / 2 < h / 2 - t",
             lambda d: d.nw == 0 or d.yw + d.sw / 2 < d.h / 2 - d.t),
        Rule("nw < 2 or yw > sw / 2", lambda d: d.nw < 2 or d.yw > d.sw / 2),
        Rule("coat < t", lambda d: d.coat < d.t))),
    "cee": cold_shape("cee", "b1 b2 h c1? c2? t", cold_outline("cee"), UNEQUAL),
    "zed": cold_shape("zed", "b1 b2 h c1? c2? t", cold_outline("zed"), UNEQUAL),
    "flat": Shape("b h", flat_outline, lambda d: []),
    "round": Shape("d", lambda d: [Loop(1.0, *square(d.d / 2))], lambda d: []),
}
KEYS = {"r": None, "ri": None, "coat": 0.0, "tol": 5.0}
DEFAULTS = {("tee", "r"): 0.0}


def names(shape):
    return [word.rstrip("?") for word in SHAPES[shape].dims.split()]
