"""Gross values beside closed forms in double precision and published tables."""

import math
import unittest

import kezlib
from common import Case, sheet
from kezsection import profiles
from kezsection.cold_formed import Cold
from kezsection.geometry import Cut, gross_properties, open_section
from kezsection.gross import Geometry
from kezsection.reading import parse


def rounded(b, h, r):
    """Second moment of a rectangle with rounded corners about its middle, b wide."""
    q, off, own = math.pi * r**2 / 4, r - 4 * r / (3 * math.pi), math.pi / 16 - 4 / (9 * math.pi)
    return b * h**3 / 12 - 4 * (r**4 / 12 + r**2 * (h / 2 - r / 2) ** 2 - own * r**4
                                - q * (h / 2 - off) ** 2)


class Gross(Case):
    def test_rolled_profiles(self):
        """Rectangles, and fillets as squares without quarter circles."""
        rolled = [entry for entry in profiles.table().values() if entry[1] == "rolled"]
        self.assertEqual(len(rolled), 352)
        for name, _, d in rolled:
            h, b, tw, tf, r = (d[key] for key in ("h", "b", "tw", "tf", "r"))
            p = Geometry(parse(f"{name} 235 0 0")).gross
            q, own = math.pi * r**2 / 4, (math.pi / 16 - 4 / (9 * math.pi)) * r**4
            off = r - 4 * r / (3 * math.pi)  # from the tangents to the quarter circle's centroid
            A = b * h - (b - tw) * (h - 2 * tf) + 4 * (r**2 - q)
            Iy = (b * h**3 - (b - tw) * (h - 2 * tf) ** 3) / 12 + 4 * (
                r**4 / 12 + r**2 * (h / 2 - tf - r / 2) ** 2 - own - q * (h / 2 - tf - off) ** 2)
            Iz = (2 * tf * b**3 + (h - 2 * tf) * tw**3) / 12 + 4 * (
                r**4 / 12 + r**2 * (tw / 2 + r / 2) ** 2 - own - q * (tw / 2 + off) ** 2)
            self.nears(3e-6, A=(p.A, A), Iy=(p.Iy, Iy), Iz=(p.Iz, Iz))

    def test_published(self):
        """Tables of the producers: A, Iy, Wpl,y, Iz, Wpl,z, It, Iw, Av,z in cm."""
        for name, *wanted in (("IPE 300", 53.81, 8356, 628.4, 603.8, 125.2, 20.12, 125.9e3, 25.68),
                              ("HE 200 B", 78.08, 5696, 642.5, 2003, 305.8, 59.28, 171.1e3, 24.83)):
            v = sheet(f"{name} 235 0 0").values
            found = (v.A / 1e2, v.Iy / 1e4, v.Wpl_y / 1e3, v.Iz / 1e4, v.Wpl_z / 1e3, v.It / 1e4,
                     v.Iw / 1e6, v.Av_z / 1e2)
            for one, other in zip(found, wanted):
                self.near(one, other, 6e-4 if name == "IPE 300" else 2e-3)
        for name, A, Iy, Wpl in (("SHS 100x5 cold", 18.4, 271, 64.6),
                                 ("CHS 168.3x8", 40.3, 1297, 206)):
            v = sheet(f"{name} 355 0 0").values
            for one, other in ((v.A / 1e2, A), (v.Iy / 1e4, Iy), (v.Wpl_y / 1e3, Wpl)):
                self.near(one, other, 3e-3)
        v = sheet("L 80x8 235 0 0").values
        self.nears(5e-3, A=(v.A, 1227), I=(v.Iy, 72.2e4), Iu=(v.Iu, 115e4), Iv=(v.Iv, 29.9e4),
                   theta=(v.theta, math.pi / 4))

    def test_hollow_section(self):
        v = sheet("hollow 200 100 5 10 355 0 0 ri=5").values
        self.nears(3e-6, A=(v.A, 200 * 100 - 190 * 90 - (4 - math.pi) * (10**2 - 5**2)),
                   Iy=(v.Iy, rounded(200, 100, 10) - rounded(190, 90, 5)),
                   Iz=(v.Iz, rounded(100, 200, 10) - rounded(90, 190, 5)))

    def test_closed_forms(self):
        """Wpl of a tube, of bars and of a tee whose neutral axis lies in the stem; It by Bredt."""
        tube, rod, bar, tee, rhs = (sheet(line).values for line in (
            "chs 200 10 235 0 0", "round 40 235 0 0", "flat 20 60 235 0 0",
            "tee 100 200 10 8 235 0 0", "rhs 100 200 5 235 0 0"))
        z = (1000 + 190 * 8) / 2 / 8  # from the tip to the plastic neutral axis
        self.nears(
            3e-6, tube=(tube.Wpl_y, (200**3 - 180**3) / 6), rod=(rod.Wpl_z, 40**3 / 6),
            bar=(bar.Wpl_y, 20 * 60**2 / 4), bar_z=(bar.Wpl_z, 60 * 20**2 / 4),
            tee=(tee.Wpl_y, 8 * z**2 / 2 + 8 * (190 - z) ** 2 / 2 + 1000 * (195 - z)),
            rhs=(rhs.It, 4 * (95 * 195) ** 2 * 5 / 580 + 580 * 125 / 3))

    def test_cuts_across_arcs(self):
        """Area and first moment above any level, beside sums of thin slices of a rolled tee."""
        g = Geometry(parse("half IPE 300 235 0 0"))
        cut, d = Cut(g.loops, g.gross, "y"), g.section.dims
        def width(z):
            x = d.h / 2 - d.tf - z  # below the flange
            if x < 0:
                return d.b
            return d.tw + (2 * (d.r - math.sqrt(d.r**2 - (d.r - x) ** 2)) if x < d.r else 0)
        for level in (60.0, 55.5, 50.0, 0.0):
            n, top = 20000, d.h / 2
            step = (top - level) / n
            slices = [(level + (i + 0.5) * step, width(level + (i + 0.5) * step)) for i in range(n)]
            A, S = cut.above(level)
            self.near(A, sum(w for _, w in slices) * step, 1e-4)
            self.near(S, sum(w * (z - level) for z, w in slices) * step, 1e-4)

    def test_open_sections(self):
        """Shear centre and Iw beside the library's closed forms, and of a Z: b^3 h^2 t (b + 2 h) /
        (12 (2 b + h))."""
        cold = Cold("channel", parse("channel 75 200 20 2 0 0 0 350 0 0").dims)
        at = gross_properties([cold.outline()]).at
        centre, Iw = open_section(cold.line(), 2.0, at)
        self.near(Iw, kezlib.kezwar_c(75, 200, 20, 2).Iw, 1e-6)
        g = Geometry(parse("channel 75 200 20 2 0 0 0 350 0 0 r=0"))
        x0 = open_section(g.cold.line(), 2.0, g.gross.at)[0]
        self.near(-x0.real, kezlib.kezshc_c(75, 200, 20, 2).x0, 1e-3)
        _, Iw = open_section([-60 + 100j, 100j, -100j, 60 - 100j], 3.0, 0j)
        self.near(Iw, 60**3 * 200**2 * 3 * (60 + 400) / (12 * (120 + 200)), 1e-9)

    def test_cold_formed(self):
        """Straight parts and quarter rings; the core's thickness on the nominal centre line."""
        s = sheet("channel 74 200 20.8 2 0 0 0 350 0 0 r=3 coat=0.04")
        self.near(s.g.cold.t, 1.96)
        straight = 198 + 2 * 72 + 2 * 19.8 - 4 * 2 * (3 + 0.98)
        self.near(s.values.A, 1.96 * (straight + 4 * math.pi / 2 * 3.98), 1e-6)
        self.near(sheet("channel 74 200 20.8 2 0 0 0 350 0 0 tol=14.5").g.cold.t, 2 * 85.5 / 95)
        one, other = (sheet(f"{name} 350 0 0 r=3").values for name in (
            "channel 75 200 20 2 0 0 0", "cee 75 75 200 20 20 2"))
        self.nears(1e-6, A=(one.A, other.A), Iy=(one.Iy, other.Iy), Iz=(one.Iz, other.Iz))

    def test_scaling(self):
        """Ten times as large."""
        for dims in ("zed 60 70 200 20 18 2", "angle 100 65 7 10 5", "box 60 56 1.2 1.2 100 .8 50"):
            name, *numbers = dims.split()
            large = sheet(f"{name} {' '.join(str(10 * float(n)) for n in numbers)} 235 0 0").values
            small = sheet(f"{dims} 235 0 0").values
            for value, power in (("A", 2), ("Iy", 4), ("Iyz", 4), ("It", 4), ("Wel_y", 3)):
                self.near(getattr(large, value), getattr(small, value) * 10**power, 2e-5)


class Names(Case):
    def test_names_as_people_write_them(self):
        for text, name in (("IPE 300", "IPE300"), ("heb200", "HEB200"), ("HE 200 B", "HEB200"),
                           ("UB 305x165x40", "UB305x165x40"), ("SHS 100x5", "SHS100x5/cold"),
                           ("SHS 100x100x5", "SHS100x5/cold"),
                           ("RHS 200x100x8 hot", "RHS200x100x8/hot"),
                           ("L 80x80x8", "L80x8"), ("HL 1000 AA", "HL1000AA")):
            self.assertEqual(parse(f"{text} 235 0 0").profile, name, text)
        for line, reason in (("HE 210 B 235 0 0", "HEB2[02]0"),
                             ("SHS 100x5 hot 235 0 0", "is cold"),
                             ("half L 80x8 235 0 0", "none")):
            with self.assertRaisesRegex(ValueError, reason):
                parse(line)


if __name__ == "__main__":
    unittest.main()
