"""A section as SVG: for each action alone its drawing and stresses, and beside them the report."""

from html import escape
from math import cos, hypot, sin
from pathlib import Path

from girder.report import report
from girder.section import curve
from girder.shapes import INTERNAL

TEMPLATE = Path(__file__).with_name("picture.svg").read_text(encoding="utf-8")
MIDDLE, COLUMN, LINE = (350, 418), 710, 17


class Drawing:
    """In pixels, with y down."""

    def __init__(self, r):
        self.r, self.e, self.out, e = r, r.edges, [], r.edges
        self.shear = r.gross.x - r.torsion[0] if r.torsion else e["left"]
        self.left = min(e["left"], self.shear)
        self.scale = min(400 / (e["right"] - self.left), 540 / (e["top"] - e["bottom"]))

    def on(self, x, y):
        e = self.e
        return (MIDDLE[0] + self.scale * (x - (self.left + e["right"]) / 2),
                MIDDLE[1] - self.scale * (y - (e["bottom"] + e["top"]) / 2))

    def text(self, style, x, y, words):
        self.out.append(f"<text class='{style}' x='{x:.1f}' y='{y:.1f}' dy='.35em'>"
                        f"{escape(str(words))}</text>")

    def path(self, style, *points):
        """Closed where it returns."""
        d = "L".join(f"{x:.1f} {y:.1f}" for x, y in points)
        self.out.append(f"<path class='{style}' d='M{d}'/>")

    def circle(self, style, x, y, r):
        self.out.append(f"<circle class='{style}' cx='{x:.1f}' cy='{y:.1f}' r='{r}'/>")

    def part(self, style, p, u, v):
        corners = ((u, 0), (u, 1), (v, 1), (v, 0), (u, 0))
        self.path(style, *(self.on(*p.at(*corner)) for corner in corners))

    def outline(self):
        d = ""
        for ring in map(list, map(curve, self.r.outline.loops)):
            for i, (x, y, _) in enumerate(ring + ring[:1]):
                x0, y0, bulge = ring[i - 1]
                r = self.scale * hypot(x - x0, y - y0) / 2**0.5
                d += "M" if i == 0 else f"A{r:.2f} {r:.2f} 0 0 {int(bulge < 0)} " if bulge else "L"
                d += "{:.2f} {:.2f}".format(*self.on(x, y))
        return d

    def size(self, p, q, dx, dy, colour, length):
        """The distance of two points, measured beside them."""
        ends, far = [(x + dx, y + dy) for x, y in (p, q)], hypot(dx, dy)
        for begin, (x, y) in zip((p, q), ends):
            self.path("size", begin, (x + 5 * dx / far, y + 5 * dy / far))
            self.path("edge", (x - 4, y + 4), (x + 4, y - 4))
        self.path(f"size line-{colour}", *ends)
        x, y = ((a + b) / 2 + 10 * d / far for a, b, d in zip(*ends, (dx, dy)))
        side = "mid" if abs(dy) > abs(dx) else "end" if dx < 0 else "start"
        self.text(f"{side} {colour} halo", x, y, f"{length:.5g}")

    def plates(self, state):
        """Those with slots are clipped. A chain of widths stands outside the first in either
        direction that has lost something."""
        self.out.append("<g clip-path='url(#section)'>")
        for r in state.plates:
            end = r.plate.width if r.compressed == r.plate.width or not r.at_start else r.compressed
            self.part("unruled" if r.fault else "effective", r.plate, end - r.compressed, end)
        self.out.append("</g>")
        chained = []
        for number, r in enumerate(state.plates, 1):
            p, inner = r.plate, 1 if "angle" in r.plate.name else 0  # the side that is inside
            for u, v, share in sorted(r.lost, key=lambda i: i[2]):
                self.part("lost" if share == 1 else "thinned", p, u, v)
            nx, ny = ((2 * inner - 1) * c / p.t for c in (p.across[0], -p.across[1]))
            x, y = self.on(*p.at((0.3 if p.kind == INTERNAL else 0.6) * p.width, inner))
            self.circle("bubble", x + 18 * nx, y + 18 * ny, 11)
            self.text("number", x + 18 * nx, y + 18 * ny, number)
            if r.gone() and p.kind == INTERNAL and tuple(map(abs, p.along)) not in chained:
                chained.append(tuple(map(abs, p.along)))
                self.chain(r, -24 * nx, -24 * ny, 1 - inner)

    def chain(self, r, dx, dy, outer):
        p, gap = r.plate, next(i[:2] for i in r.lost if i[2] == 1)
        begin = 0.0 if r.at_start else p.width - r.compressed
        ends = [begin, *gap, begin + r.compressed]
        for u, v, colour in zip(ends, ends[1:], ("blue", "red", "blue")):
            self.size(self.on(*p.at(u, outer)), self.on(*p.at(v, outer)), dx, dy, colour, v - u)

    def axes(self):
        e, g, theta = self.e, self.r.gross, self.r.axes[2]
        (x, y), (left, low), (right, high) = map(self.on, (g.x, self.left, e["right"]),
                                                 (g.y, e["bottom"], e["top"]))
        turns = ((0.0, "xy", "axis"), (theta, "uv", "principal")) if theta else (
            (0.0, ("x = u", "y = v"), "principal"),)
        for turn, names, style in turns:
            for name, ux, uy, back, ahead in (
                    (names[0], cos(turn), -sin(turn), x - left + 22, right - x + 58),
                    (names[1], -sin(turn), -cos(turn), low - y + 22, y - high + 46)):
                self.path(style, (x - back * ux, y - back * uy), (x + ahead * ux, y + ahead * uy))
                self.text("grey mid halo" if style == "axis" else "purple mid halo",
                          x + (ahead + 10) * ux, y + (ahead + 10) * uy, name)

    def centres(self, state):
        g = self.r.gross
        (x, y), (sx, sy) = self.on(g.x, g.y), self.on(self.shear, g.y)
        if state and any(r.lost for r in state.plates):
            self.circle("moved", *self.on(state.left.x, state.left.y), 5)
        self.circle("centroid", x, y, 6)
        self.path("centroid", (x - 6, y), (x + 6, y))
        self.path("centroid", (x, y - 6), (x, y + 6))
        if self.r.torsion:
            self.path("shear", (sx - 6, sy - 6), (sx + 6, sy + 6))
            self.path("shear", (sx - 6, sy + 6), (sx + 6, sy - 6))
            self.text("orange end halo", sx + 5, sy - 16, "S")
            self.text("grey end halo", sx + 5, sy + 18, f"x0 {self.r.torsion[0]:.1f}")

    def sizes(self):
        e, g = self.e, self.r.gross
        (left, low), (right, high), (edge, middle) = map(
            self.on, (e["left"], e["right"], self.left), (e["bottom"], e["top"], g.y))
        self.size((left, low), (right, low), 0, 52, "head", e["right"] - e["left"])
        self.size((left, low), (left, high), edge - left - 72, 0, "head", e["top"] - e["bottom"])
        self.size((right, low), (right, middle), 42, 0, "grey", g.y - e["bottom"])
        step = next(s for s in (f * 10**i for i in range(5) for f in (1, 2, 5))
                    if s * self.scale > 80)
        self.path("bar", (60, 790), (60 + step * self.scale, 790))
        self.text("start", 60, 776, f"{step} mm")

    def stresses(self, state):
        """Along the vertical through the centroid, compression to the right."""
        r, e, g = self.r, self.e, self.r.gross
        top, bottom = (r.stress(state, (g.x, e[edge])) if state else r.gross_stress(edge)
                       for edge in ("top", "bottom"))
        unit, x = 46 / max(abs(top), abs(bottom), 1e-9), 690
        high, low = self.on(0, e["top"])[1], self.on(0, e["bottom"])[1]
        split = high + (low - high) * top / (top - bottom) if top * bottom < 0 else low
        ends = ((top, high, 0 if top * bottom < 0 else bottom, split), (0, split, bottom, low))
        for s1, y1, s2, y2 in ends:
            self.path("compression" if s1 + s2 > 0 else "tension", (x, y1), (x + unit * s1, y1),
                      (x + unit * s2, y2), (x, y2))
        self.path("edge", (x, high), (x, low), (x + unit * bottom, low), (x + unit * top, high),
                  (x, high))
        self.text("head mid", x, high - 14, f"{top:+.1f}")
        self.text("head mid", x, low + 14, f"{bottom:+.1f}")
        self.text("grey mid", x, low + 33, "stress [N/mm²]")


def draw(number, r):
    pages = []
    for column, state in enumerate(r.states or [None]):
        d = Drawing(r)
        outline = d.outline()
        d.axes()
        d.out.append(f"<path class='steel' fill-rule='evenodd' d='{outline}'/>")
        if state:
            d.text("head", 60, 96, f"{state.name} alone" + ", INCOMPLETE" * bool(state.faults))
            d.plates(state)
        d.out.append(f"<path class='edge' fill-rule='evenodd' d='{outline}'/>")
        d.centres(state)
        d.sizes()
        if not state or state.name != "N eN":
            d.stresses(state)
        pages.append(f"<g transform='translate({COLUMN * column} 0)'>" + "\n".join(d.out) + "</g>")
    lines, list_x = report(number, r), 80 + COLUMN * len(pages)
    rows = [f"<text class='mono' xml:space='preserve' x='{list_x}' y='{60 + LINE * i}'>"
            f"{escape(line)}</text>" for i, line in enumerate(lines)]
    key = 80 + LINE * len(lines)
    return TEMPLATE.format(width=list_x + 700, height=max(820, key + 200), outline=outline,
                           drawings="\n".join(pages + rows), list=list_x, key=key)
