"""A section as SVG: for each action alone its drawing and stresses, and beside them the report."""

from cmath import rect
from html import escape
from pathlib import Path

from girder.check import BOTTOM, LEFT, RIGHT, TOP
from girder.report import report
from girder.shapes import INTERNAL

TEMPLATE = Path(__file__).with_name("picture.svg").read_text(encoding="utf-8")
COLUMN, LINE = 710, 17


class Drawing:
    """In pixels x + iy, with y down; what is put first lies below the rest."""

    def __init__(self, r):
        self.r, self.out, e = r, [], r.edges
        self.shear = r.gross.at - r.torsion[0] if r.torsion else -e[LEFT]
        width = max(e[LEFT], -self.shear.real) + e[RIGHT]
        self.scale = min(400 / width, 540 / (e[BOTTOM] + e[TOP]))
        self.middle = complex(e[RIGHT] - width / 2, (e[TOP] - e[BOTTOM]) / 2)
        self.edge = self.on(e[RIGHT] - width).real

    def on(self, z):
        return 350 + 418j + self.scale * (z - self.middle).conjugate()

    def text(self, style, z, words):
        self.out.append(f"<text class='{style}' x='{z.real:.1f}' y='{z.imag:.1f}' dy='.35em'>"
                        f"{words}</text>")

    def path(self, style, *points):
        d = "L".join(f"{z.real:.1f} {z.imag:.1f}" for z in points)
        self.out.append(f"<path class='{style}' d='M{d}'/>")

    def mark(self, name, z):
        self.out.append(f"<use href='#{name}' x='{z.real:.1f}' y='{z.imag:.1f}'/>")

    def outline(self):
        d = ""
        for ring in ([(self.on(z), bulge) for z, bulge in loop.curve()] for loop in self.r.loops):
            for i, (z, _) in enumerate(ring + ring[:1]):
                last, bulge = ring[i - 1]
                r, sweep = abs(z - last) / 2**0.5, int(bulge < 0)
                d += "M" if i == 0 else f"A{r:.2f} {r:.2f} 0 0 {sweep} " if bulge else "L"
                d += f"{z.real:.2f} {z.imag:.2f}"
        return d

    def size(self, p, q, beside, colour):
        """The distance of two points, measured beside them."""
        ends, unit = (p + beside, q + beside), beside / abs(beside)
        for begin, end in zip((p, q), ends):
            self.path("size", begin, end + 5 * unit)
        self.path(f"size ends line-{colour}", *ends)
        side = "mid" if abs(unit.imag) > 0.5 else "end" if unit.real < 0 else "start"
        self.text(f"{side} {colour} halo", sum(ends) / 2 + 10 * unit,
                  f"{round(abs(q - p) / self.scale, 1):g}")

    def part(self, style, p, u, v):
        self.path(style, *(self.on(p.at(*at)) for at in ((u, 0), (u, 1), (v, 1), (v, 0), (u, 0))))

    def plates(self, state):
        """Those with slots are clipped. The first that has lost something in either direction has
        its widths beside it."""
        self.out.append("<g clip-path='url(#section)'>")
        for r in state.plates:
            self.part("unruled" if r.fault else "effective", r.plate, r.begin, r.end)
        self.out.append("</g>")
        sized = []
        for number, r in enumerate(state.plates, 1):
            p, inner = r.plate, int("angle" in r.plate.name)  # whether c is on the inner side
            inward = (2 * inner - 1) * p.across.conjugate() / p.t
            for u, v, share in sorted(r.lost, key=lambda i: i[2]):
                self.part("lost" if share == 1 else "thinned", p, u, v)
            at = self.on(p.at((0.3 if p.kind == INTERNAL else 0.6) * p.width, inner)) + 18 * inward
            self.mark("bubble", at)
            self.text("number", at, number)
            if p.kind == INTERNAL and p.along not in sized and r.gone():
                sized += [p.along, -p.along]
                gap = next(i[:2] for i in r.lost if i[2] == 1)
                ends = [self.on(p.at(u, 1 - inner)) for u in (r.begin, *gap, r.end)]
                for colour, p1, p2 in zip(("blue", "red", "blue"), ends, ends[1:]):
                    self.size(p1, p2, -24 * inward, colour)

    def axes(self):
        theta, at, e = self.r.axes[2], self.on(self.r.gross.at), self.r.edges
        low, high = (self.on(side * e[side]).imag - at.imag for side in (BOTTOM, TOP))
        right = self.on(e[RIGHT]).real - at.real
        for turn, names, style in ((0, "xy", "axis"), (theta, "uv", "principal")) if theta else (
                (0, ("x = u", "y = v"), "principal"),):
            for name, unit, back, ahead in (
                    (names[0], rect(1, -turn), at.real - self.edge + 22, right + 58),
                    (names[1], rect(1, -turn) * -1j, low + 22, 46 - high)):
                self.path(style, at - back * unit, at + ahead * unit)
                self.text(style + "-name mid halo", at + (ahead + 10) * unit, name)

    def sizes(self):
        e, middle = self.r.edges, self.on(self.r.gross.at)
        left, right, high = (self.on(complex(x, y)) for x, y in (
            (-e[LEFT], -e[BOTTOM]), (e[RIGHT], -e[BOTTOM]), (-e[LEFT], e[TOP])))
        self.size(left, right, 52j, "head")
        self.size(left, high, self.edge - left.real - 72, "head")
        self.size(right, complex(right.real, middle.imag), 42, "grey")
        step = next(s for i in range(5) for s in (10**i, 2 * 10**i, 5 * 10**i)
                    if s * self.scale > 80)
        self.path("bar", 60 + 790j, 60 + step * self.scale + 790j)
        self.text("start", 60 + 776j, f"{step} mm")

    def centres(self, state):
        if state and any(r.lost for r in state.plates):
            self.mark("moved", self.on(state.left.at))
        self.mark("centroid", self.on(self.r.gross.at))
        if self.r.torsion:
            self.mark("shear", at := self.on(self.shear))
            self.text("grey end halo", at + 5 + 18j, f"x0 {self.r.torsion[0]:.1f}")

    def stresses(self, state):
        """Along the vertical through the centroid, compression to the right."""
        r, at = self.r, self.r.gross.at.real
        s, t = (state.stress(at + side * r.edges[side]) if state else r.gross_stress(side)
                for side in (TOP, BOTTOM))
        high, low = (690 + 1j * self.on(side * r.edges[side]).imag for side in (TOP, BOTTOM))
        ends = [(high, s), (low, t)]
        if s * t < 0:
            ends.insert(1, (high + (low - high) * s / (s - t), 0))
        unit = 46 / max(abs(s), abs(t), 1e-9)
        for (p, f), (q, g) in zip(ends, ends[1:]):
            self.path("compression" if f + g > 0 else "tension", p, p + unit * f, q + unit * g, q)
        self.path("edge", low, high, high + unit * s, low + unit * t, low)
        for z, words in ((high - 14j, f"{s:+.1f}"), (low + 14j, f"{t:+.1f}"), (low + 33j, "N/mm²")):
            self.text("head mid", z, words)

    def whole(self, state):
        edge = f"fill-rule='evenodd' d='{self.outline()}'/>"
        self.axes()
        self.out.append(f"<path class='steel' {edge}")
        if state:
            marked = ", INCOMPLETE" if self.r.faults else ""
            self.text("head", 60 + 96j, f"{state.name} alone{marked}")
            self.plates(state)
        self.out.append(f"<path class='edge' {edge}")
        self.centres(state)
        self.sizes()
        if not state or state.name != "N eN":
            self.stresses(state)
        return "\n".join(self.out)


def draw(number, r):
    states, lines = r.states or [None], report(number, r)
    x, key = 80 + COLUMN * len(states), 80 + LINE * len(lines)
    drawings = [f"<g transform='translate({COLUMN * i} 0)'>{Drawing(r).whole(state)}</g>"
                for i, state in enumerate(states)]
    rows = [f"<text class='{'mono' if i else 'title'}' xml:space='preserve' x='{x}' "
            f"y='{48 + LINE * i}'>{escape(line)}</text>" for i, line in enumerate(lines)]
    return TEMPLATE.format(width=x + 6.5 * max(map(len, lines)), height=max(820, key + 190),
                           outline=Drawing(r).outline(), drawings="\n".join(drawings + rows),
                           list=x, key=key)
