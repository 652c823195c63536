"""EN 1993-1-1: classes, shear, and the resistance of sections. Lengths in mm, stresses in N/mm2."""

from math import inf, pi, sqrt


def epsilon(fy):
    """Table 5.2."""
    return sqrt(235 / fy)


def internal_limits(eps, alpha, psi):
    """Table 5.2, sheet 1: c/t of a part between two supports, for class 1, 2 and 3. alpha: the part
    that is compressed when plastic; psi: ratio of the elastic stresses."""
    if alpha > 0.5:
        first, second = 396 * eps / (13 * alpha - 1), 456 * eps / (13 * alpha - 1)
    else:
        first, second = ((36 * eps / alpha, 41.5 * eps / alpha) if alpha > 0 else (inf, inf))
    if psi > -1 + 1e-6:  # pure bending does not miss it by rounding
        third = 42 * eps / (0.67 + 0.33 * psi)
    else:
        third = 62 * eps * (1 - psi) * sqrt(-psi) if psi > -inf else inf
    return first, second, third


def outstand_limits(eps, alpha, tip_compressed, k):
    """Table 5.2, sheet 2: c/t of an outstand flange, for class 1, 2 and 3. alpha: as above; k: the
    buckling coefficient of EN 1993-1-5, table 4.2."""
    share = alpha if tip_compressed else alpha * sqrt(alpha)
    third = 21 * eps * sqrt(k)
    return (9 * eps / share, 10 * eps / share, third) if share > 0 else (inf, inf, third)


def angle_limits(eps):
    """Table 5.2, sheet 3, class 3 in compression: of h/t and of (b + h) / (2 t)."""
    return 15 * eps, 11.5 * eps


def tube_limits(eps):
    """Table 5.2, sheet 3: d/t of circular hollow sections, for class 1, 2 and 3."""
    return 50 * eps**2, 70 * eps**2, 90 * eps**2


def class_of(slenderness, limits):
    """5.5.2."""
    return next((i for i, limit in enumerate(limits, 1) if slenderness <= limit), 4)


def shear_area_rolled_i(A, b, tf, tw, r, hw, eta):
    """6.2.6(3)a."""
    return max(A - 2 * b * tf + (tw + 2 * r) * tf, eta * hw * tw)


def shear_area_welded(hw, tw, eta):
    """6.2.6(3)d, tw of all webs together."""
    return eta * hw * tw


def shear_area_tee(A, b, h, tf, tw, r):
    """6.2.6(3)c as corrected in 2009: rolled with a root radius, else welded."""
    return A - b * tf + (tw + 2 * r) * tf / 2 if r > 0 else tw * (h - tf / 2)


def shear_area_hollow(A, along, across):
    """6.2.6(3)f: of the side along the force and the side across it."""
    return A * along / (along + across)


def shear_area_tube(A):
    """6.2.6(3)g."""
    return 2 * A / pi


def plastic_shear(Av, fy, gamma_m0):
    """6.2.6(2), (6.18)."""
    return Av * fy / sqrt(3) / gamma_m0


def shear_reduction(V, Vpl):
    """6.2.8(2) and (3): rho by which the yield strength of the shear area is reduced. It is at most
    1: a V above Vpl fails by itself."""
    return min((2 * V / Vpl - 1) ** 2, 1.0) if V > 0.5 * Vpl else 0.0


def plastic_modulus_with_shear(Wpl, rho, Aw, tw):
    """6.2.8(5), (6.30): of a section with equal flanges, tw of all webs together."""
    return Wpl - rho * Aw**2 / (4 * tw)


def reduced_moment_solid(Mpl, n):
    """6.2.9.1(3), (6.32)."""
    return Mpl * max(1 - n * n, 0.0)


def flange_free_share(A, flanges):
    """a of 6.2.9.1(5): of the area what is not in the flanges, at most 0.5."""
    return max(min((A - flanges) / A, 0.5), 0.0)


def reduced_moment(Mpl, n, a):
    """6.2.9.1(5), (6.36), (6.39) and (6.40)."""
    return min(Mpl * max(1 - n, 0.0) / (1 - 0.5 * a), Mpl)


def reduced_moment_minor_i(Mpl, n, a):
    """6.2.9.1(5), (6.37) and (6.38)."""
    return Mpl if n <= a else Mpl * max(1 - ((n - a) / (1 - a)) ** 2, 0.0)


def no_reduction_major(N, Npl, hw, tw, fy, gamma_m0):
    """6.2.9.1(4), (6.33) and (6.34): N does not reduce My of an I section."""
    return N <= 0.25 * Npl and N <= 0.5 * hw * tw * fy / gamma_m0


def no_reduction_minor(N, hw, tw, fy, gamma_m0):
    """6.2.9.1(4), (6.35): N does not reduce Mz of an I section."""
    return N <= hw * tw * fy / gamma_m0


def exponents(family, n):
    """6.2.9.1(6), alpha and beta of (6.41)."""
    if family == "I":
        return 2.0, max(5 * n, 1.0)
    grown = 1.66 / (1 - 1.13 * n * n) if 1.13 * n * n < 1 else inf
    return (min(grown, 6.0),) * 2


def biaxial(My, Mz, MNy, MNz, powers):
    """6.2.9.1(6), (6.41)."""
    return sum((M / R) ** power if R > 0 else inf if M > 0 else 0.0
               for M, R, power in zip((My, Mz), (MNy, MNz), powers))


def torsion_constant_rolled_i(h, b, tf, tw, r):
    """It by the formula of the producers' tables (DIN 1025)."""
    D = ((r + tw / 2) ** 2 + (r + tf) ** 2 - r * r) / (2 * r + tf)
    return (2 / 3 * (b - 0.63 * tf) * tf**3 + (h - 2 * tf) * tw**3 / 3
            + 2 * tw / tf * (0.145 + 0.1 * r / tf) * D**4)
