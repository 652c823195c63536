"""EN 1993-1-5: plates in compression and in shear. Lengths in mm, stresses in N/mm2."""

from math import inf, sqrt


def k_internal(psi):
    """Table 4.1: buckling coefficient of an internal part, psi = s2 / s1 with s1 the larger
    compression. Beyond psi = -3, which the table ends with, the value there."""
    if psi >= 0:
        return 8.2 / (1.05 + psi)
    if abs(psi + 1) < 1e-6:
        return 23.9
    if psi > -1:
        return 7.81 - 6.29 * psi + 9.78 * psi**2
    return 5.98 * (1 - max(psi, -3.0)) ** 2


def k_outstand(psi, tip_larger):
    """Table 4.2: of an outstand with the larger compression s1 at its tip, or at its support.
    Beyond the table, which ends with psi = -3 and -1, the value there."""
    if tip_larger or psi > 1 - 1e-6:
        psi = max(psi, -3.0)
        return 0.57 - 0.21 * psi + 0.07 * psi**2
    if psi >= 0:
        return 0.578 / (psi + 0.34)
    psi = max(psi, -1.0)
    return 1.7 - 5 * psi + 17.1 * psi**2


def outside_tables(psi, tip, tip_larger):
    """Whether table 4.1 or 4.2 has no such psi."""
    return psi < (-1 if tip and not tip_larger else -3) - 1e-6


def plate_slenderness(b, t, eps, k):
    """4.4(2)."""
    return b / t / (28.4 * eps * sqrt(k))


def rho_internal(slenderness, psi):
    """4.4(2), (4.2)."""
    psi = max(psi, -3.0)
    if slenderness <= 0.5 + sqrt(0.085 - 0.055 * psi):
        return 1.0
    return min((slenderness - 0.055 * (3 + psi)) / slenderness**2, 1.0)


def rho_outstand(slenderness):
    """4.4(2), (4.3)."""
    return 1.0 if slenderness <= 0.748 else min((slenderness - 0.188) / slenderness**2, 1.0)


def shares_internal(psi):
    """Table 4.1: of the effective width the shares at the larger compression and beyond."""
    first = 2 / (5 - psi) if psi >= 0 else 0.4
    return first, 1 - first


def shear_buckling_limit(eps, eta, k, a):
    """5.1(2): of hw/tw, with stiffeners at the supports only, or with a distance a between some."""
    return (31 * sqrt(k) if a else 72) * eps / eta


def k_tau(hw, a):
    """A.3(1), (A.5): without longitudinal stiffeners; a = 0 for supports only."""
    if not a:
        return 5.34
    return 5.34 + 4 * (hw / a) ** 2 if a >= hw else 4 + 5.34 * (hw / a) ** 2


def shear_slenderness(hw, tw, eps, k):
    """5.3(3), (5.6); with k = 5.34 it is (5.5), whose 86.4 is rounded."""
    return hw / (37.4 * tw * eps * sqrt(k))


def chi_w(slenderness, eta, rigid):
    """Table 5.1: web contribution to the resistance in shear."""
    if slenderness < 0.83 / eta:
        return eta
    if slenderness < 1.08 or not rigid:
        return 0.83 / slenderness
    return 1.37 / (0.7 + slenderness)


def shear_resistance(chi, fy, hw, tw, gamma_m1):
    """5.2(1), (5.2): of the webs alone, tw of all together."""
    return chi * fy * hw * tw / sqrt(3) / gamma_m1


def flange_induced_limit(section_class, E, fy, Aw, Afc):
    """8(1), (8.1): of hw/tw. k by the class: 0.3 where plastic rotation, 0.4 where the plastic,
    0.55 where the elastic moment resistance is used."""
    k = {1: 0.3, 2: 0.4}.get(section_class, 0.55)
    return k * E / fy * sqrt(Aw / Afc) if Afc > 0 else inf


def shear_and_moment(eta1, eta3, flanges):
    """7.1(1), (7.1): eta1 of the plastic moment, flanges = Mf / Mpl; None where it does not apply,
    since V is small or the flanges carry M alone."""
    if eta3 <= 0.5 or eta1 < flanges:
        return None
    return eta1 + (1 - flanges) * (2 * min(eta3, 1.0) - 1) ** 2


def linear_sum(N, A, My, Wy, Mz, Wz, fy, gamma_m0):
    """4.6, (4.14) and (4.15), with N eN in the moments; also EN 1993-1-1, (6.44)."""
    limit = fy / gamma_m0
    return (N / A + (My / Wy if My else 0.0) + (Mz / Wz if Mz else 0.0)) / limit
