"""EN 1993-1-3: cold-formed sections. Lengths in mm, stresses in N/mm2."""

from math import pi, sin, sqrt, tan

import kezlib
from kezsection.en1993_1_5 import plate_slenderness, rho_outstand
from kezsection.model import E, NU, LipResult


def core_thickness(t, coat, tol):
    """3.2.4(3), (3.3a) and (3.3b): tol is the lower tolerance in percent."""
    return (t - coat) * (1.0 if tol <= 5 else (100 - tol) / 95)


def corner_share(r, t):
    """5.1(2), figure 5.1: g_r from the crossing of centre lines at a right angle to the middle of
    their arc. A sharp corner has none."""
    return (r + t / 2) * (tan(pi / 4) - sin(pi / 4)) if r > 0 else 0.0


def corners_may_be_neglected(r, t, widths):
    """5.1(3): r <= 5 t and r <= 0.10 bp."""
    return r <= 5 * t and r <= 0.10 * min(widths)


def radius_limit(t, fy):
    """5.1(6): above it tests are wanted."""
    return 0.04 * t * E / fy


def proportions(b, c, h, t):
    """5.2(1), table 5.1: what is outside, of a flange b with a lip c, or without one."""
    if b / t > (60 if c else 50):
        yield f"b/t {b / t:.1f} > {60 if c else 50} (EN 1993-1-3, table 5.1)"
    if c / t > 50:
        yield f"c/t {c / t:.1f} > 50 (EN 1993-1-3, table 5.1)"
    if h / t > 500:
        yield f"h/t {h / t:.1f} > 500 (EN 1993-1-3, table 5.1)"


def lip_counts(b, c):
    """5.2(2), (5.2a): 0.2 <= c/b <= 0.6."""
    return 0.2 - 1e-9 <= c / b <= 0.6 + 1e-9


def k_lip(ratio):
    """5.5.3.2(5)a, (5.13b) and (5.13c), of bp,c / bp; beyond 0.6 the value there."""
    return 0.5 if ratio <= 0.35 else 0.5 + 0.83 * (min(ratio, 0.6) - 0.35) ** (2 / 3)


def stiffener(t, be2, ceff, reach, gap):
    """5.5.3.2(6), figure 5.7: As, Is about the axis along the flange, and b1 from the web. reach:
    from the web to the lip, gap: from the lip to the end of the flange's width (g_r)."""
    length = be2 + ceff
    As, off = t * length, ceff**2 / 2 / length  # off: of the centroid from the flange
    Is = t * (be2 * (t * t / 12 + off**2) + ceff**3 / 12 + ceff * (ceff / 2 - off) ** 2)
    return As, Is, reach - be2 * (be2 / 2 + gap) / length


def spring_stiffness(t, b1, b2, hw, kf):
    """5.5.3.1(5), (5.10b)."""
    return E * t**3 / (4 * (1 - NU**2)) / (b1**2 * hw + b1**3 + 0.5 * b1 * b2 * hw * kf)


def critical_stress(K, As, Is):
    """5.5.3.2(7), (5.15)."""
    return 2 * sqrt(K * E * Is) / As


def chi_d(slenderness):
    """5.5.3.1(7), (5.12a) to (5.12c)."""
    if slenderness <= 0.65:
        return 1.0
    return 1.47 - 0.723 * slenderness if slenderness < 1.38 else 0.66 / slenderness


class EdgeStiffener:
    """What of a flange and its lip does not change in the iteration of 5.5.3.2. effective_flange:
    the width be2 at the lip by the factor on the plate's slenderness."""
    def __init__(self, t, bp, cp, reach, gap, effective_flange, eps):
        self.t, self.cp, self.reach, self.gap = t, cp, reach, gap
        self.effective_flange = effective_flange
        self.k = k_lip(cp / bp)
        self.slenderness = plate_slenderness(cp, t, eps, self.k)

    def at(self, chi):
        """5.5.3.2(5) and (10), (5.13a) and (5.16): be2, ceff, As, Is and b1 with the slenderness of
        the plates times sqrt(chi)."""
        factor = sqrt(chi)
        be2 = self.effective_flange(factor)
        ceff = rho_outstand(self.slenderness * factor) * self.cp
        return (be2, ceff, *stiffener(self.t, be2, ceff, self.reach, self.gap))


def reduce_stiffeners(pair, hw, fy, how):
    """5.5.3.2(3) to (10): the reductions of one or two edge stiffeners, of both flanges where both
    are compressed, by which kf = As2 / As1. how: once, held (K of the first step) or iterated."""
    chis, springs, results = [1.0] * len(pair), None, []
    for step in range(1, 100):
        found = [s.at(chi) for s, chi in zip(pair, chis)]
        if springs is None or how == "iterated":
            springs = []
            for i, s in enumerate(pair):
                As, b1 = found[i][2], found[i][4]
                As2, b2 = (found[1 - i][2], found[1 - i][4]) if len(pair) == 2 else (0.0, 0.0)
                kf = As2 / As
                springs.append((spring_stiffness(s.t, b1, b2, hw, kf), kf, b1, b2))
        results = []
        for (be2, ceff, As, Is, _), (K, kf, b1, b2), s in zip(found, springs, pair):
            stress = critical_stress(K, As, Is)
            slenderness = sqrt(fy / stress)
            results.append(LipResult(be2, ceff, As, Is, b1, b2, kf, K, stress, slenderness,
                                     chi_d(slenderness), ceff / s.cp, step))
        news = [r.chi for r in results]
        if how == "once" or max(abs(a - b) for a, b in zip(news, chis)) < 1e-6:
            break
        chis = news
    for s, r in zip(pair, results):
        compare(s, r, hw, fy)
    return results


def compare(s, result, hw, fy):
    """The library's figure, which knows one spring lever for both flanges: for comparison."""
    if result.kf == 0 or (abs(result.kf - 1) < 1e-6 and abs(result.b2 - result.b1) < 1e-6 * hw):
        be2, ceff, _, _, b1 = s.at(1.0)
        b = b1 + be2**2 / 2 / (be2 + ceff)  # by which the library has the same b1
        result.kezchi = kezlib.kezchi(s.t, be2, b, ceff, hw, fy, E, NU, round(result.kf)).chi


def shear_strength(hw, t, fy):
    """6.1.5(2), table 6.1, web without stiffening at the support: slenderness and fbv."""
    slenderness = 0.346 * hw / t * sqrt(fy / E)
    if slenderness <= 0.83:
        return slenderness, 0.58 * fy
    if slenderness < 1.40:
        return slenderness, 0.48 * fy / slenderness
    return slenderness, 0.67 * fy / slenderness**2


def shear_and_moment(axial_and_bending, V, Vw, flanges):
    """6.1.10, (6.27): flanges = Mf / Mpl."""
    shear = (1 - flanges) * (2 * min(V / Vw, 1.0) - 1) ** 2 if V > Vw / 2 else 0
    return axial_and_bending + shear
