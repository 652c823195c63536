"""A section as SVG: its outline with dimensions, or what of it is effective in a state."""

from cmath import rect
from html import escape

from kezsection import data, dimensions
from kezsection.model import INTERNAL
from kezsection.texts import figure

STYLE = data("picture.css").strip()
DEFS = ("<defs><pattern id='kezhatch' width='4' height='4' patternUnits='userSpaceOnUse' "
        "patternTransform='rotate(45)'><rect width='4' height='4' fill='#fff'/>"
        "<path d='M0 0V4' stroke='#c81e1e' stroke-width='2'/></pattern></defs>")
STEP = 22  # from one dimension line to the next


class Drawing:
    """In pixels x + iy with y down, w wide and h high from (0, 0)."""
    def __init__(self, sheet, w, h, margins):
        self.g, self.out = sheet.g, []
        left, right, top, bottom = margins
        g = self.g
        self.scale = min((w - left - right) / (g.right - g.left),
                         (h - top - bottom) / (g.top - g.bottom))
        self.middle = complex((g.left + g.right) / 2, (g.top + g.bottom) / 2)
        self.centre = complex((w + left - right) / 2, (h + top - bottom) / 2)
        self.low = self.on(complex(g.left, g.bottom))
        self.high = self.on(complex(g.right, g.top))

    def on(self, z):
        return self.centre + self.scale * (z - self.middle).conjugate()

    def path(self, style, *points, close=False):
        d = "L".join(f"{z.real:.1f} {z.imag:.1f}" for z in points)
        self.out.append(f"<path class='{style}' d='M{d}{'Z' if close else ''}'/>")

    def text(self, style, z, words, turn=0):
        rotate = f" transform='rotate({turn} {z.real:.1f} {z.imag:.1f})'" if turn else ""
        self.out.append(f"<text class='{style}' x='{z.real:.1f}' y='{z.imag:.1f}' dy='.35em'"
                        f"{rotate}>{escape(words)}</text>")

    def outline(self):
        d = ""
        for loop in self.g.loops:
            ring = [(self.on(z), bulge) for z, bulge in loop.curve()]
            for i, (z, _) in enumerate(ring + ring[:1]):
                last, bulge = ring[i - 1]
                r, sweep = abs(z - last) / 2**0.5, int(bulge < 0)
                d += "M" if i == 0 else f"A{r:.2f} {r:.2f} 0 0 {sweep} " if bulge else "L"
                d += f"{z.real:.2f} {z.imag:.2f}"
            d += "Z"
        return d

    def steel(self, style):
        self.out.append(f"<path class='{style}' fill-rule='evenodd' d='{self.outline()}'/>")

    def part(self, style, plate, u, v):
        """Thin walls are drawn thicker, to be seen."""
        across = 1j * plate.along * max(plate.t, 3.2 / self.scale) / 2
        self.path(style, *(self.on(z) for z in (plate.at(u) + across, plate.at(v) + across,
                                                plate.at(v) - across, plate.at(u) - across)),
                  close=True)

    def size(self, p, q, beside, words, style="size"):
        """The distance of two points, at a line beside them with ticks."""
        a, b = p + beside, q + beside
        unit = beside / abs(beside)
        self.path(style, p + 3 * unit, a + 3 * unit)
        self.path(style, q + 3 * unit, b + 3 * unit)
        self.path(style, a, b)
        for z in (a, b):
            self.path(style, z - (2.5 + 2.5j), z + (2.5 + 2.5j))
        upright = abs((b - a).imag) > abs((b - a).real)
        off = (6 if abs(b - a) > 4.5 * len(words) or style == "size" else 15) * unit
        colour = style if style != "size" else ""
        self.text(f"mid halo {colour}", (a + b) / 2 + off, words, -90 if upright else 0)

    def leader(self, z, towards, words):
        """From a point of the section to words outside it."""
        p = self.on(z)
        self.path("size", p, towards)
        self.out.append(f"<circle class='g' cx='{p.real:.1f}' cy='{p.imag:.1f}' r='1.4'/>")
        right = towards.real >= p.real
        self.text("halo" if right else "end halo", towards + (3 if right else -3), words)

    def axes(self, theta=0.0, turned=False):
        at, size = self.on(self.g.gross.at), 0.5 * max(self.high.real - self.low.real,
                                                       self.low.imag - self.high.imag) + 12
        high, low = self.high, self.low
        if not turned:
            self.path("axis", complex(low.real - 9, at.imag), complex(high.real + 11, at.imag))
            self.path("axis", complex(at.real, low.imag + 9), complex(at.real, high.imag - 10))
            self.text("name halo", complex(high.real + 13, at.imag), "y")
            self.text("name halo", complex(at.real + 4, high.imag - 6), "z")
            return
        for way, name in ((rect(1, -theta), "u"), (-1j * rect(1, -theta), "v")):
            self.path("axis", at - size * way, at + size * way)
            self.text("name mid halo", at + (size + 7) * way, name)

    def point(self, style, z, r=2.6):
        p = self.on(z)
        self.out.append(f"<circle class='{style}' cx='{p.real:.1f}' cy='{p.imag:.1f}' r='{r}'/>")


def gross(sheet, w, h):
    """The outline with every width and thickness."""
    sizes, leaders = dimensions.of(sheet)
    most = {side: max((s.level for s in sizes if s.side == side), default=-1) + 1
            for side in ("left", "right", "top", "bottom")}
    room = 64 if leaders else 12
    d = Drawing(sheet, w, h, (14 + STEP * most["left"], room + STEP * most["right"],
                              20 + STEP * most["top"], 18 + STEP * most["bottom"]))
    v = sheet.values
    d.axes()
    if v.Iyz:
        d.axes(v.theta, True)
    d.steel("steel")
    d.steel("edge")
    for s in sizes:
        beside = {"left": -1, "right": 1, "top": -1j, "bottom": 1j}[s.side]
        p, q = d.on(s.p), d.on(s.q)
        edge = {"left": d.low.real, "right": d.high.real, "top": d.high.imag,
                "bottom": d.low.imag}[s.side]
        start = p.real if beside in (-1, 1) else p.imag
        far = abs(edge - start) + 12 + STEP * s.level
        if beside in (-1, 1):
            q = complex(p.real, q.imag)
        else:
            q = complex(q.real, p.imag)
        d.size(p, q, far * beside, s.words)
    places = spread([d.on(z).imag for z, _ in leaders], d.high.imag, d.low.imag)
    for (z, words), y in zip(leaders, places):
        d.leader(z, complex(d.high.real + 22 + STEP * most["right"], y), words)
    if v.shear_centre is not None and abs(v.shear_centre) > 1e-6:
        at = d.on(sheet.g.gross.at + v.shear_centre)
        if 0 < at.real < w and 0 < at.imag < h:
            d.text("mid halo", at, "✕")
    d.point("g", sheet.g.gross.at)
    return "".join(d.out)


def spread(wanted, low, high, least=13):
    """Heights for words, near those wanted and apart from each other."""
    order = sorted(range(len(wanted)), key=lambda i: wanted[i])
    found, last = [0.0] * len(wanted), low - least
    for i in order:
        last = found[i] = max(wanted[i], last + least)
    over = max(last - max(high, low + least * (len(wanted) - 1)), 0.0)
    return [y - over for y in found]


def effective(sheet, state, w, h):
    """What is effective in a state, coloured, with widths, and the stresses beside it."""
    d = Drawing(sheet, w, h, (30, 44, 38, 22))
    d.text("title", 4 + 9j, f"{words_of(state)}{', INCOMPLETE' if state.faults else ''}")
    d.axes()
    d.steel("steel")
    d.steel("edge")
    for r in state.reductions:
        d.part("none" if r.fault else "eff", r.plate, r.begin, r.begin + r.bc)
        for s in sorted(r.lost):
            d.part("lost" if s.share == 1 else "thin", r.plate, s.begin, s.end)
    widths(d, state)
    if abs(state.left.at - sheet.g.gross.at) > 1e-6:
        d.point("moved", state.left.at)
    d.point("g", sheet.g.gross.at)
    if state.axis == "y" and not sheet.g.free:
        stresses(d, sheet, state)
    return "".join(d.out)


def words_of(state):
    if state.faults:
        return state.name
    if state.axis == "N":
        return f"N: Aeff {figure(state.left.A / 100, 5)} cm²"
    return f"{state.name}: Weff {figure(state.W_min / 1e3, 5)} cm³"


def widths(d, state):
    """be1, what is lost and be2 of plates that lose something, one of each direction and side."""
    seen = set()
    for r in state.reductions:
        p, gone = r.plate, [s for s in r.lost if s.share == 1]
        if not gone or r.fault:
            continue
        side = round(p.start.real) * (abs(p.along.imag) > 0.5), round(p.along.real)
        key = (p.kind, abs(p.along.imag) > 0.5, side if p.kind != INTERNAL else p.start.imag > 0)
        if key in seen:
            continue
        seen.add(key)
        upright = abs(p.along.imag) > 0.5
        left = p.start.real < d.middle.real - 0.25 * (d.g.right - d.g.left)
        beside = (-12 if left else 12) if upright else \
            (12j if p.start.imag > d.middle.imag else -12j)
        cut = gone[0]
        for u, v, style in ((r.begin, cut.begin, "blue"), (cut.begin, cut.end, "red"),
                            (cut.end, r.begin + r.bc, "blue")):
            if (v - u) * d.scale > 2:
                d.size(d.on(p.at(u)), d.on(p.at(v)), beside, f"{v - u:.1f}", style)


def stresses(d, sheet, state):
    """Along the height, of a moment that makes the largest one equal fy."""
    g, left = sheet.g, state.left
    top, bottom = (g.top - left.at.imag) * state.sign, (g.bottom - left.at.imag) * state.sign
    most = max(abs(top), abs(bottom))
    x = d.high.real + 26
    ends = [(complex(x, d.high.imag), 14 * top / most),
            (complex(x, d.low.imag), 14 * bottom / most)]
    zero = complex(x, d.on(left.at).imag)
    for z, s in ends:
        d.path("press" if s > 0 else "pull", z, z + s, zero, close=True)
    d.path("edge", ends[0][0], ends[1][0], ends[1][0] + ends[1][1], ends[0][0] + ends[0][1],
           close=True)
