"""A section as SVG: for each action alone its drawing and stresses, and beside them the report."""

from cmath import rect
from html import escape
from pathlib import Path

from girder.report import report
from girder.section import BOTTOM, LEFT, RIGHT, TOP
from girder.shapes import INTERNAL, OUTSTAND

TEMPLATE = Path(__file__).with_name("picture.svg").read_text(encoding="utf-8")
COLUMN, LINE = 710, 17


class Drawing:
    """Of one effective section, or of the gross one, in pixels x + iy with y down."""
    def __init__(self, r, state):
        self.r, self.state, self.out, e = r, state, [], r.edges
        self.shear = r.gross.at - (r.x0 or 0)
        width = max(e[LEFT], -self.shear.real) + e[RIGHT]
        self.scale = min(400 / width, 540 / (e[BOTTOM] + e[TOP]))
        self.middle = complex(e[RIGHT] - width / 2, (e[TOP] - e[BOTTOM]) / 2)
        self.left, self.at = self.on(e[RIGHT] - width).real, self.on(r.gross.at)
        self.low, self.high = self.on(-e[LEFT] - 1j * e[BOTTOM]), self.on(e[RIGHT] + 1j * e[TOP])

    def on(self, z):
        return 350 + 418j + self.scale * (z - self.middle).conjugate()

    def text(self, style, z, words):
        self.out.append(f"<text class='{style}' x='{z.real:.1f}' y='{z.imag:.1f}' dy='.35em'>"
                        f"{words}</text>")

    def path(self, style, *points):
        d = "L".join(f"{z.real:.1f} {z.imag:.1f}" for z in points)
        self.out.append(f"<path class='{style}' d='M{d}'/>")

    def part(self, style, p, u, v):
        self.path(style, *(self.on(p.at(*at)) for at in ((u, 0), (u, 1), (v, 1), (v, 0), (u, 0))))

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
        self.path("size " + colour, p, p + beside, q + beside, q)
        unit = beside / abs(beside)
        side = "mid" if abs(unit.imag) > 0.5 else "end" if unit.real < 0 else "start"
        self.text(f"{side} {colour} halo", (p + q) / 2 + beside + 10 * unit,
                  f"{round(abs(q - p) / self.scale, 1):g}")

    def plates(self):
        """Clipped where they have slots. The first along x and along y have widths beside them."""
        sized, plates = set(), self.state.plates
        self.out.append("<g clip-path='url(#section)'>")
        for r in plates:
            self.part("unruled" if r.fault else "effective", r.plate, r.begin, r.end)
        self.out.append("</g>")
        for number, r in enumerate(plates, 1):
            p, inner = r.plate, int("angle" in r.plate.name)  # whether c is on the inner side
            inward = (2 * inner - 1) * p.across.conjugate() / p.t
            for u, v, share in sorted(r.lost, key=lambda i: i[2]):
                self.part("lost" if share == 1 else "thinned", p, u, v)
            out = p.kind == OUTSTAND and not p.along.imag  # clear of the web's dimensions
            at = self.on(p.at((0.3 if p.kind == INTERNAL else 0.6) * p.width, inner != out))
            self.text("number halo", at + (18 - 36 * out) * inward, chr(0x245F + number))  # circled
            if p.kind == INTERNAL and p.along not in sized and r.gone():
                sized |= {p.along, -p.along}
                gap = next(i[:2] for i in r.lost if i[2] == 1)
                ends = [self.on(p.at(u, 1 - inner)) for u in (r.begin, *gap, r.end)]
                for colour, z1, z2 in zip(("blue", "red", "blue"), ends, ends[1:]):
                    self.size(z1, z2, -24 * inward, colour)

    def axes(self):
        phi, at, low, high = self.r.axes.theta, self.at, self.low, self.high
        for turn, name, back, ahead in (
                (1, "u" if phi else "x = u", at.real - self.left + 22, high.real - at.real + 58),
                (-1j, "v" if phi else "y = v", low.imag - at.imag + 22, at.imag - high.imag + 46)):
            unit = turn * rect(1, -phi)
            self.path("principal", at - back * unit, at + ahead * unit)
            self.text("principal-name mid halo", at + (ahead + 10) * unit, name)

    def stresses(self):
        """Along the vertical through the centroid, compression to the right."""
        r, top, bottom = self.r, 690 + 1j * self.high.imag, 690 + 1j * self.low.imag
        s, t = (self.state.stress(r.gross.at.real + side * r.edges[side]) if self.state
                else r.gross_stress(side) for side in (TOP, BOTTOM))
        zero = [(top + (bottom - top) * s / (s - t), 0)] if s * t < 0 else []
        ends, unit = [(top, s), *zero, (bottom, t)], 46 / max(abs(s), abs(t), 1e-9)
        for (p, f), (q, g) in zip(ends, ends[1:]):
            self.path("compression" if f + g > 0 else "tension", p, p + unit * f, q + unit * g, q)
        self.path("edge", bottom, top, top + unit * s, bottom + unit * t, bottom)
        self.text("head mid", top - 14j, f"{s:+.1f}")
        self.text("head mid", bottom + 14j, f"{t:+.1f} N/mm²")

    def whole(self):
        outline, state, low = self.outline(), self.state, self.low
        self.axes()
        self.out.append(f"<path class='steel' fill-rule='evenodd' d='{outline}'/>")
        if state:
            self.text("head", 60 + 96j, f"{state.name} alone{', INCOMPLETE' * bool(self.r.faults)}")
            self.plates()
        self.out.append(f"<path class='edge' fill-rule='evenodd' d='{outline}'/>")
        if state and any(r.lost for r in state.plates):
            self.text("moved halo", self.on(state.left.at), "●")
        self.text("centroid", self.at, "⊕")
        if self.r.x0:
            self.text("shear halo", self.on(self.shear), "✕")
        right = complex(self.high.real, low.imag)
        self.size(low, right, 52j, "head")
        self.size(low, complex(low.real, self.high.imag), self.left - low.real - 72, "head")
        self.size(right, complex(right.real, self.at.imag), 42, "grey")
        if not state or state.name != "N eN":
            self.stresses()
        return "\n".join(self.out)


def draw(number, r):
    states, lines = r.states or [None], report(number, r)
    x, key = 80 + COLUMN * len(states), 80 + LINE * len(lines)
    rows = [f"<g transform='translate({COLUMN * i} 0)'>{Drawing(r, state).whole()}</g>"
            for i, state in enumerate(states)]
    rows += [f"<text class='{'mono' if i else 'title'}' xml:space='preserve' x='{x}' "
             f"y='{48 + LINE * i}'>{escape(line)}</text>" for i, line in enumerate(lines)]
    return TEMPLATE.format(x=x, key=key, width=x + 6.5 * max(map(len, lines)), rows="\n".join(rows),
                           height=max(820, key + 190), outline=Drawing(r, None).outline())
