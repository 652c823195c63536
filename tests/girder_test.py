"""The section host beside hand calculations, and what it makes of good and bad input.

It takes the binding for Python, and Debian's python3-ezdxf and python3-distributed."""

import csv
import math
import pathlib
import subprocess
import sys
import tempfile
import unittest
import xml.dom.minidom

EXAMPLES = pathlib.Path(__file__).resolve().parents[1] / "examples"
sys.path.insert(0, str(EXAMPLES))
from girder.section import Result  # noqa: E402
from girder.read import PROFILES, parse  # noqa: E402
from girder.report import report  # noqa: E402


def result(line):
    return Result(parse(line))


def plates(r, state):
    """By name: the psi that the plate is reduced by, what is lost of its width, its rule."""
    found = next(s for s in r.states if s.name == state)
    return {p.plate.name: p for p in found.plates}


def run(*arguments, folder):
    return subprocess.run([sys.executable, "-B", EXAMPLES / "girder", *arguments], cwd=folder,
                          text=True, capture_output=True, encoding="utf-8")


class Case(unittest.TestCase):
    def near(self, found, wanted, most):
        self.assertLessEqual(abs(found - wanted), most * abs(wanted), (found, wanted))

    def holds(self, r, most=1e-4, **wanted):
        """Gross values by symbol, and effective ones behind an e."""
        found = {}
        for _, symbol, _, gross, effective in r.quantities():
            found[symbol], found["e" + symbol] = gross, effective
        for symbol, value in wanted.items():
            with self.subTest(symbol):
                self.near(found[symbol], value, most)


class Gross(Case):
    def test_rolled_sections(self):
        """Rectangles, and fillets as squares without quarter circles, in double precision."""
        self.assertEqual(len(PROFILES), 90)
        for name, d in PROFILES.items():
            h, b, tw, tf, r = (d[key] for key in ("h", "b", "tw", "tf", "r"))
            q, own = math.pi * r**2 / 4, (math.pi / 16 - 4 / (9 * math.pi)) * r**4
            off = r - 4 * r / (3 * math.pi)  # from the tangents to the quarter circle's centroid
            A = b * h - (b - tw) * (h - 2 * tf) + 4 * (r**2 - q)
            Ix = (b * h**3 - (b - tw) * (h - 2 * tf) ** 3) / 12 + 4 * (
                r**4 / 12 + r**2 * (h / 2 - tf - r / 2) ** 2 - own - q * (h / 2 - tf - off) ** 2)
            Iy = (2 * tf * b**3 + (h - 2 * tf) * tw**3) / 12 + 4 * (
                r**4 / 12 + r**2 * (tw / 2 + r / 2) ** 2 - own - q * (tw / 2 + off) ** 2)
            self.holds(result(f"{name} 235 0 0"), 3e-6, A=A / 100, Ix=Ix / 1e4, Iy=Iy / 1e4)

    def test_published(self):
        """The tables of EN 10365, in cm2 and cm4."""
        for name, *wanted in (("IPE 300", 53.81, 8356, 603.8), ("HEA 200", 53.83, 3692, 1336),
                              ("HEB 200", 78.08, 5696, 2003)):
            gross = result(f"{name} 235 0 0").gross
            found = (gross.A / 100, gross.Ix / 1e4, gross.Iy / 1e4)
            self.assertEqual([float(f"{value:.4g}") for value in found], wanted)

    def test_hollow_section(self):
        """Rectangles of 200 x 100 and 190 x 90 with corners rounded by 10 and 5."""
        def rounded(b, h, r):
            q, off = math.pi * r**2 / 4, r - 4 * r / (3 * math.pi)
            own = (math.pi / 16 - 4 / (9 * math.pi)) * r**4
            return b * h**3 / 12 - 4 * (r**4 / 12 + r**2 * (h / 2 - r / 2) ** 2 - own
                                        - q * (h / 2 - off) ** 2)
        self.holds(result("hollow 200 100 5 10  355 0 0"), 3e-6,
                   A=(200 * 100 - 190 * 90 - (4 - math.pi) * (10**2 - 5**2)) / 100,
                   Ix=(rounded(200, 100, 10) - rounded(190, 90, 5)) / 1e4,
                   Iy=(rounded(100, 200, 10) - rounded(90, 190, 5)) / 1e4)

    def test_angles(self):
        """Rectangles of 100 x 6 and 8 x 144 on either side of a gap of 10."""
        A, sum_y = 2 * (600 + 1152), 2 * (600 * 147 + 1152 * 72)
        Ix = 2 * (100 * 6**3 + 8 * 144**3) / 12 + 2 * (600 * 147**2 + 1152 * 72**2) - sum_y**2 / A
        Iy = 2 * (6 * 100**3 + 144 * 8**3) / 12 + 2 * (600 * 55**2 + 1152 * 9**2)
        self.holds(result("angles 100 150 10 6 8  355 0 0"), 3e-6, A=A / 100, xs=105,
                   ys=sum_y / A, Ix=Ix / 1e4, Iy=Iy / 1e4)

    def test_channels(self):
        """x0 and Iw from integrals of the sectorial coordinate along the centre-line. The slot,
        2.25 cm2, lies 5.5 cm below mid-height and 2.15278 cm left of the centroid of the channel,
        11.25 cm2, that it leaves 9 cm2 of: Ixy = -2.25 5.5 2.15278 11.25 / 9."""
        self.holds(result("channel 75 200 20 2 0 0 0  350 0 0"), 4e-6, x0=54.3939, Iw=4615.385)
        self.holds(result("channel 55 160 0 4 0 0 0  235 0 0"), 4e-6, Iw=1083.052)
        slotted = result("channel 80 250 25 2.5 90 55 1  350 -90 0")
        self.holds(slotted, 4e-6, Ixy=-33.3008, Iu=959.672)
        self.near(slotted.axes.theta, math.radians(2.17739), 1e-5)
        self.assertIsNone(slotted.x0)  # which is known of a whole web

    def test_free_bending(self):
        """M (y Iy - x Ixy) / (Ix Iy - Ixy^2) at the top, above the centroid."""
        r = result("channel 80 250 25 2.5 90 55 1  350 0 10")
        self.near(r.gross_stress(1j), 117.703, 1e-5)


class Effective(Case):
    def test_class_4_web(self):
        """eps = sqrt(235 / 355) = 0.813617. A = 8000 + 10000 + 9200 mm2, ys = 556.8015, the web
        from 25 to 1175: psi = -531.8015 / 618.1985 = -0.860244, k = 7.81 - 6.29 psi + 9.78 psi^2 =
        20.45832, lambda_p = 143.75 / (28.4 eps sqrt k) = 1.375418, rho = (1.375418 - 0.055 (3 +
        psi)) / 1.375418^2 = 0.664842, bc = 618.1985, beff = 411.0044: 164.4017 at the top, 246.6026
        above the axis, 207.1942 lost, its middle at 906.9988. Without 1657.553 mm2 there: ys =
        534.0756, Ix = 6.954505e9, stresses 2.4e9 665.9244 / Ix and 2.4e9 534.0756 / Ix."""
        r = result("girder 1200 320 400 25 25 8  355 0 2400")
        web = plates(r, "M")["web"]
        for found, wanted in zip((web.psi, *web.ends, web.gone()),
                                 (-0.860244, 164.4017, 246.6026, 207.1942)):
            self.near(found, wanted, 1e-4)
        self.holds(r, eIx=695450.5, eWt=10443.385, eWb=13021.574)
        self.near(r.stresses["top"], 229.8106, 1e-4)
        self.near(r.stresses["bottom"], -184.3095, 1e-4)

    def test_class_4_box(self):
        """Top plate: lambda_p = (500 / 12) / (28.4 0.813617 2) = 0.901614, rho = (0.901614 - 0.22)
        / 0.901614^2 = 0.838489, 80.7557 lost. With it lost ys falls from 508.0282 to 491.5427: in
        the webs, from 12 to 988, psi = -479.5427 / 496.4573 = -0.965929, k = 23.01063, lambda_p =
        122 / (28.4 0.813617 sqrt k) = 1.100671, rho = 0.816192, bc = 496.4573, 91.2530 lost below
        988 - 162.0817. Without that: ys = 475.9899, Ix = 4.268922e9."""
        r = result("box 600 560 12 12 1000 8 500  355 0 2500")
        found = plates(r, "M")
        self.near(found["top plate"].gone(), 80.7557, 1e-4)
        self.near(found["left web"].psi, -0.965929, 1e-4)  # -0.966 with whole flanges: -1.033
        self.near(found["right web"].gone(), 91.2530, 1e-4)
        self.holds(r, eIx=426892.2, eWt=8146.640, eWb=8968.513)

    def test_slender_outstands(self):
        """c = (400 - 10) / 2 = 195, k = 0.43: lambda_p = 24.375 / (28.4 0.813617 0.655744) =
        1.608690, rho = (1.608690 - 0.188) / 1.608690^2 = 0.548978, 107.0506 remain. The web, all in
        compression: lambda_p = 48.4 / (28.4 0.813617 2) = 1.047315, rho = 0.754252, 365.0578. A =
        4 107.0506 8 + 2 10 8 + 3650.578 = 7236.199. Under M the top flange is 224.1013 wide: ys =
        214.7945, Ix = 3.844678e8, and the web (psi = -0.745997, lambda_p = 0.494) whole."""
        self.holds(result("girder 500 400 400 8 8 10  355 500 0"), eA=72.36199, eys=250)
        r = result("girder 500 400 400 8 8 10  355 0 100")
        self.holds(r, eIx=38446.78, eWt=1348.038, eWb=1789.933)
        self.assertEqual(plates(r, "M")["web"].lost, [])

    def test_slender_stem(self):
        """Compression grows to the free edge: ys = 227.7273, psi = -57.2727 / 227.7273 = -0.251497,
        k = 0.57 - 0.21 psi + 0.07 psi^2 = 0.627242, lambda_p = 35.625 / (28.4 0.813617 sqrt k) =
        1.946701, rho = 0.464081 of bc = 285 / (1 - psi) = 227.7273: the lowest 122.0434 are lost.
        Then ys = 265.5469, Ix = 1.013583e7, and the lowest fibre is 143.5035 below the centroid."""
        r = result("tee 200 300 15 8  355 0 -60")
        self.near(plates(r, "M")["web"].gone(), 122.0434, 1e-4)
        self.holds(r, eIx=1013.583, eWt=294.1921, eWb=70.63124)
        self.near(r.largest, 849.482, 1e-4)

    def test_legs_of_angles(self):
        """From the outer edges: lambda_p = (100 / 6) / (28.4 0.813617 sqrt 0.43) = 1.099959, rho =
        (1.099959 - 0.188) / 1.099959^2 = 0.753741; (150 / 8) / 15.15208 = 1.237454, 0.685339."""
        found = plates(result("angles 100 150 10 6 8  355 100 0"), "N")
        for side in ("left", "right"):
            self.near(found[f"{side} angle, top leg"].ends[0], 75.3741, 1e-5)
            self.near(found[f"{side} angle, leg"].ends[0], 150 * 0.685339, 1e-5)

    def test_turned_over(self):
        """The same under -M."""
        for one, other in (("girder 1200 320 400 20 15 8", "girder 1200 400 320 15 20 8"),
                           ("box 700 560 12 8 1000 6 500", "box 560 700 8 12 1000 6 500"),
                           *((same, same) for same in (
                               "hollow 200 300 4 8", "rhs 200 300 4", "IPE 600",
                               *(f"channel 75 200 {c} 1.5 0 0 0" for c in (0, 10, 20))))):
            turned = result(f"{other} 355 90 -40").stresses
            for where, stress in result(f"{one} 355 90 40").stresses.items():
                side, *beside = where.split()
                over = " ".join([{"top": "bottom", "bottom": "top"}[side], *beside])
                self.near(turned[over], stress, 1e-5)

    def test_buckling_coefficients(self):
        """EN 1993-1-5, table 4.2: 0.43 and 1.70 at psi = 1 and 0 with the supported edge pressed,
        23.8 at -1, 0.57 and 0.85 at 0 and -1 with the free edge; beyond it the last."""
        for at_start, psi, k in ((True, 1, 0.43), (True, 0, 1.7), (True, -1, 23.8),
                                 (False, 1, 0.43), (False, 0, 0.57), (False, -1, 0.85),
                                 (True, -2, 23.8), (False, -3, 1.83), (False, -5, 1.83)):
            p = plates(result("tee 200 300 15 8  355 10 0"), "N")["web"]
            p.psi, p.at_start = psi, at_start
            p.reduce_outstand(355)
            self.assertTrue(p.rule.endswith(f"k {k:g}"), p.rule)

    def test_least_slender_outstand(self):
        """At lambda_p = 0.748 (4.3) gives 1.0009, which is 1."""
        leg = plates(result("angles 68.02 68.02 0 6 6  355 100 0"), "N")["left angle, leg"]
        self.assertEqual(leg.ends, (leg.plate.width, 0.0))

    def test_lipped_channel(self):
        """Between centre-lines 198, 73 and 19 (with half the corner); eps = 0.819407. Flange:
        lambda_p = 36.5 / (56.8 eps) = 0.784232, rho = 0.917421, be = 33.48586 on either side. Lip:
        19 / 73 < 0.35, k = 0.5, lambda_p = 0.577325: whole. Stiffener: As = 2 52.48586 = 104.9717,
        19^2 / (2 52.48586) = 3.439021 from the flange, Is = 2 (19^3 / 12 + 19 6.060979^2 +
        33.48586 (3.439021^2 + 2^2 / 12)) = 3353.504. b1 = 73 - 33.48586^2 / (2 52.48586) =
        62.31805. K = 2.1e5 8 / (3.64 (198 b1^2 + b1^3 + 99 b1^2)) = 0.330751 with kf = 1, sigma_cr
        = 2 sqrt(K 2.1e5 Is) / As = 290.7819, lambda_d = sqrt(350 / sigma_cr) = 1.097110. EN has chi
        = 1.47 - 0.723 lambda_d = 0.676789; iterated with sqrt(chi) lambda_d: 0.817448, 0.752836,
        0.781762, 0.768664, 0.774564, 0.771900, 0.773102, 0.772560. Web: lambda_p = 2.127095, rho =
        0.421501, 114.5428 lost. A = 764 - 229.0856 - 2 2 6.028285 - 2 0.227440 104.9717 = 463.0516.
        First moment about the back: 764 22.21204 less 229.0856 1, 24.11314 37.5 and 2 0.227440 2
        (33.48586 57.25707 + 19 74): the centroid is at 27.67134, by 5.45930 off."""
        r = result("channel 75 200 20 2 0 0 0  350 60 0")
        self.holds(r, eA=4.630516, exs=27.67134, eys=100)
        self.near(r.states[1].load, -60e3 * 5.45930, 1e-4)  # presses the web: 4.3
        self.assertIn("chi 0.773 (kezchi)", plates(r, "N")["top lip"].rule)
        self.assertNotIn("top lip", plates(r, "N eN"))

    def test_lips_out_of_proportion(self):
        """c / b beyond 0.2 to 0.6 as if c were 0; at its ends the lip counts."""
        for c in (14.9, 45.1):
            found = plates(result(f"channel 75 200 {c} 2 0 0 0  350 60 0"), "N")
            plain = plates(result("channel 75 200 0 2 0 0 0  350 60 0"), "N")
            self.near(found["top flange"].ends[0], plain["top flange"].ends[0], 1e-6)
            self.near(found["top lip"].gone(), c - 2, 1e-6)
        for c in (15, 45):
            self.assertIn("chi", plates(result(f"channel 75 200 {c} 2 0 0 0  350 60 0"),
                                        "N")["top lip"].rule)
        # Pressed at its end alone it is lost so far, or the zero line would never settle.
        settled = result("channel 57.8 104.5 43.9 4 0 0 0  700 260 857")
        self.assertEqual(settled.faults, [])
        lip = plates(settled, "M")["bottom lip"]
        self.near(lip.gone(), lip.plate.width / (1 - lip.psi), 1e-6)

    def test_slender_lip(self):
        """24.5 / 49 = 0.5: k = 0.5 + 0.83 0.15^(2/3) = 0.734318, lambda_p = 24.5 / (28.4 0.819407
        sqrt k) = 1.228587, rho = (1.228587 - 0.188) / 1.228587^2 = 0.689393."""
        lip = plates(result("channel 50 150 25 1 0 0 0  350 10 0"), "N")["top lip"]
        self.near(lip.ends[0], 24.5 * 0.689393, 1e-4)
        self.near(lip.gone(), 24.5 * (1 - 0.689393), 1e-4)

    def test_other_lips(self):
        """One that is pressed at its end, its flange not, is an outstand; a stocky one is whole."""
        found = plates(result("channel 100 110 54 1 0 0 0  350 0 5"), "M")
        self.assertNotIn("bottom flange", found)
        self.assertTrue(found["bottom lip"].rule.startswith("outstand"))
        found = plates(result("channel 60 100 20 6 0 0 0  235 10 0"), "N")
        self.assertEqual(found["top lip"].lost + found["top flange"].lost, [])

    def test_width_between_round_corners(self):
        """b - 3 t, more where r is less (EN 1993-1-5, 4.4(2)), and clear of the walls."""
        for r, width in ((10, 185), (6, 188), (3, 190)):
            found = plates(result(f"hollow 200 100 5 {r}  355 10 0"), "N")
            self.near(found["top"].plate.width, width, 1e-6)

    def test_check(self):
        """N / A + (M + N eN) / W. Of the stem lambda_p = 35.625 / (28.4 0.813617 sqrt 0.43) =
        2.351163, rho = 0.391310 under N alone: 173.4767 8 lost, and the centroid 50.2714 higher. A
        shift that relieves counts as none."""
        A, up, shift = 5280 - 173.4767 * 8, 4463.674e4 / 72.27273, 50.2714
        self.holds(result("tee 200 300 15 8  355 200 0"), eA=A / 100, eys=227.7273 + shift)
        pressed = result("tee 200 300 15 8  355 200 -20")
        self.near(pressed.largest, 200e3 / A + (20e6 + 200e3 * shift) / 70631.24, 1e-4)
        relieved = result("tee 200 300 15 8  355 200 20")
        self.near(relieved.stresses["top"], 200e3 / A + 20e6 / up, 1e-4)
        self.assertIn("is ABOVE fy: 134.3 % of it", "\n".join(report(1, pressed)))
        self.assertIn("is not above fy: ", "\n".join(report(1, relieved)))
        self.near(result("IPE 300 235 -100 0").largest, -100e3 / 5381.2, 1e-4)


GOOD = """\
\ufeffIPE300 235 0 90 Träger <1> & Söhne   # a comment
hollow 20cm 0.1m 5 10  355MPa 400000N 5e6Nmm
angles 100 100 0 10 10  235 420 0  no gap

channel 75 200 20 2 40 50 2  350 60 0
channel 80 250 25 2.5 90 55 1  350 -90 0
girder 1200 320 400 25 25 8  355 500 2400
"""


class Host(Case):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "good.txt").write_text(GOOD, "utf-8")

    def host(self, *arguments, status=0):
        done = run(*arguments, folder=self.folder)
        self.assertEqual(done.returncode, status, done.stderr)
        return done

    def test_report(self):
        done = self.host("good.txt")
        self.assertEqual(done.stderr, "")
        self.assertIn("1  Träger <1> & Söhne\n   rolled: h 300, b 150, tf 10.7, tw 7.1, r 15 mm\n"
                      "   fy 235 N/mm2, N 0 kN, M 90 kNm\n", done.stdout)
        self.assertIn("hollow: b 200, h 100, t 5, r 10 mm\n   fy 355 N/mm2, N 400 kN, M 5 kNm",
                      done.stdout)
        self.assertRegex(done.stdout, r"Area +A +cm2 +6\.04000 +\?")
        self.assertIn("INCOMPLETE, no rule for web: it has slots.", done.stdout)
        self.assertIn("No plate is in compression", done.stdout)
        self.assertIn("kezchi iterates", done.stdout)

    def test_faults(self):
        """Each is named with what to write instead, and the other lines are computed."""
        faults = (
            ("rhs 100", "h, t, fy, N, M missing; write rhs b h t fy N M [name]"),
            ("IPE 300 235", "N, M missing; write IPE300 fy N M [name]"),
            ("zed 1 2", "unknown word 'zed'; write girder, rolled, tee, box, rhs, hollow, angles, "
                        "channel, or a profile such as IPE 300, HEB 200"),
            ("hea 210 235 0 0", "unknown word 'HEA210'; write HEA100, HEA120"),
            ("tee 200 150 15 12,5 355 0 0", "tw '12,5' is not a number, with mm or cm or m behind "
                                            "it or nothing; write tee b h tf tw fy N M [name]"),
            ("tee 200 150 15 12kN 355 0 0", "tw '12kN' is not a number, with mm"),
            ("tee 200 150 15 0 355 0 0", "tw 0 is outside 0.1 to 10000 mm"),
            ("rhs 100 20m 4 355 0 0", "h 20m is outside 0.1 to 10000 mm"),
            ("rhs 100 200 4 nan 0 0", "fy 'nan' is not a number, with N/mm2"),
            ("rhs 100 200 4 0 0 0", "fy 0 is outside 100 to 1000 N/mm2"),
            ("girder 50 320 400 25 25 8 355 0 0", "write such that t1 + t2 < d"),
            ("channel 75 200 20 2 40 80 1 350 0 0", "such that nw == 0 or yw + sw / 2 < h / 2 - t"),
            ("rhs 100 200 4 355 0 0 \x07", "a character in the name cannot be printed"),
            (b"rhs 100 200 4 355 0 0 \xff", "not in UTF-8"))
        lines = [line if isinstance(line, bytes) else line.encode() for line, _ in faults]
        (self.folder / "bad.txt").write_bytes(b"\n".join([*lines, b"IPE 80 235 0 1 The last"]))
        done = self.host("bad.txt", status=1)
        said = done.stderr.splitlines()
        self.assertEqual(len(said), len(faults), done.stderr)
        for number, (line, (_, reason)) in enumerate(zip(said, faults), 1):
            self.assertTrue(line.startswith(f"bad.txt:{number}: "), line)
            self.assertIn(reason, line)
        self.assertIn("1  The last\n", done.stdout)

    def test_files(self):
        (self.folder / "cr.txt").write_bytes(b"IPE 80 235 0 1 A\rIPE 80 235 0 1 B\r")
        self.assertIn("2  B\n", self.host("cr.txt").stdout)
        (self.folder / "empty.txt").write_text("# nothing\n")
        self.assertIn("empty.txt: no section", self.host("empty.txt", status=1).stderr)
        self.assertIn("missing.txt", self.host("missing.txt", status=2).stderr)
        self.assertIn("no/section-1.svg", self.host("good.txt", "--svg", "no", status=2).stderr)
        self.assertIn("invalid choice: 0", self.host("good.txt", "--jobs", "0", status=2).stderr)
        self.assertRegex(self.host("good.txt", "--dask", "nowhere", status=2).stderr,
                         "^girder: missing port number in address 'nowhere'\n$")

    def test_no_binding(self):
        done = subprocess.run([sys.executable, "-I", "-S", "-B", EXAMPLES / "girder", "good.txt"],
                              cwd=self.folder, text=True, capture_output=True)
        self.assertEqual(done.returncode, 2)
        self.assertIn("'kezlib'; does PYTHONPATH name share/kezlib/bindings/python?", done.stderr)

    def test_pictures(self):
        self.host("good.txt", "--quiet", "--svg", ".")
        for number, marks, lost in ((1, 0, 0), (2, 0, 3), (4, 2, 2), (5, 0, 0), (6, 0, 2)):
            text = (self.folder / f"section-{number}.svg").read_text("utf-8")
            xml.dom.minidom.parseString(text.encode())
            self.assertNotRegex(text, r"\bnan\b|\binf\b")
            self.assertEqual(text.count("alone, INCOMPLETE"), marks, number)
            self.assertEqual(text.count("class='lost' d"), lost, number)
        self.assertEqual(text.count("alone<"), 2)  # N and M

    def test_table_and_outlines(self):
        import ezdxf
        self.host("good.txt", "--quiet", "--csv", "t.csv", "--dxf", "t.dxf")
        with open(self.folder / "t.csv", encoding="utf-8", newline="") as file:
            rows = list(csv.DictReader(file))
        self.assertEqual([row["verdict"] for row in rows],
                         ["not above fy"] * 3 + ["incomplete"] + ["not above fy"] * 2)
        self.assertEqual(rows[0]["name"], "Träger <1> & Söhne")
        self.assertEqual(rows[3]["A effective [cm2]"], "")
        self.near(float(rows[5]["Wt effective [cm3]"]), 10443.385, 1e-4)
        outlines = list(ezdxf.readfile(self.folder / "t.dxf").modelspace())
        self.assertEqual(len(outlines), 1 + 2 + 2 + 3 + 2 + 1)
        for outline, turn in zip(outlines, (-1, 1, 1)):  # the arcs of IPE 300 and of the hollow one
            bulges = [bulge for *_, bulge in outline if bulge]
            self.assertEqual(len(bulges), 4)
            self.near(sum(bulges), 4 * turn * math.tan(math.pi / 8), 1e-12)
        self.assertEqual(outlines[0].dxf.flags & 1, 1)  # closed

    def test_studies(self):
        """The same lines in the same order from one process, from two and from a cluster."""
        from distributed import LocalCluster
        with open(self.folder / "many.txt", "w", encoding="utf-8") as file:
            for i in range(450):
                print(f"girder {400 + i} 300 300 12 12 6 355 {i % 7 * 50} {i % 5 * 40}", file=file)
        self.host("many.txt", "--quiet", "--csv", "1.csv")
        self.host("many.txt", "--quiet", "--csv", "2.csv", "--jobs", "2")
        with LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None) as cluster:
            self.host("many.txt", "--quiet", "--csv", "3.csv", "--dask", cluster.scheduler_address)
        one, two, three = ((self.folder / f"{n}.csv").read_bytes() for n in (1, 2, 3))
        self.assertEqual(one.count(b"\n"), 451)
        self.assertEqual(two, one)
        self.assertEqual(three, one)


if __name__ == "__main__":
    unittest.main()
