"""The checks of a sheet, each with its clause."""

from math import hypot, inf

from kezsection import en1993_1_1 as en1
from kezsection import en1993_1_3 as en3
from kezsection import en1993_1_5 as en5
from kezsection.geometry import field
from kezsection.model import E, Check

KN, KNM = 1e-3, 1e-6
KEYS = {  # of the columns of the table, in the order of the sheet
    "N": "6.2.4 N", "My": "6.2.5 My", "Mz": "6.2.5 Mz", "V": "6.2.6 V", "Vb": "EN 1993-1-5 5.2 V",
    "Vc": "EN 1993-1-3 6.1.5 V", "FIB": "EN 1993-1-5 8 flange-induced",
    "MV": "6.2.8 My V", "MVb": "EN 1993-1-5 7.1 My V", "MVc": "EN 1993-1-3 6.1.10 My V",
    "NM": "6.2.9 N My Mz", "NMe": "N My Mz N eN"}


def ratio(demand, resistance):
    if not demand:
        return 0.0
    return demand / resistance if resistance > 0 else inf


def add(sheet, key, what, clause, demand, resistance, unit="kN", follow=""):
    """A demand against a resistance; where that is not known, nothing."""
    if resistance is not None:
        sheet.checks.append(Check(key, what, clause, demand, resistance, unit,
                                  ratio(demand, resistance), follow))


def fill(sheet):
    a = sheet.action
    sheet.strength = Strength(sheet)
    if a.N:
        axial(sheet)
    for axis, M in (("y", a.My), ("z", a.Mz)):
        if M:
            m = sheet.moments[f"M{axis}{'+' if M > 0 else '-'}"]
            clause = "EN 1993-1-3, 6.1.4" if sheet.g.cold else "EN 1993-1-1, 6.2.5"
            add(sheet, f"M{axis}", f"M{axis}", clause, abs(M), m.MRd, "kNm",
                f"class {m.number}: {m.kind},{axis} fy / gamma_M0")
    if a.Vz and sheet.shear:
        shear(sheet)
    flange_induced(sheet)
    if a.Vz and sheet.shear:
        moment_and_shear(sheet)
    together(sheet)


def axial(sheet):
    N, o = sheet.action.N, sheet.options
    if N < 0:
        clause = "EN 1993-1-3, 6.1.2" if sheet.g.cold else "EN 1993-1-1, 6.2.3"
        add(sheet, "N", "N, tension", clause, -N, sheet.N_tension, "kN", "A fy / gamma_M0")
        return
    number, A = sheet.classes["N"].number, sheet.A_compression
    clause = "EN 1993-1-3, 6.1.3" if sheet.g.cold else "EN 1993-1-1, 6.2.4"
    add(sheet, "N", "N, compression", clause, N, A and A * sheet.fy / o.gamma_m0, "kN",
        f"class {number}: {'Aeff' if number == 4 else 'A'} fy / gamma_M0")


def shear(sheet):
    V, s = abs(sheet.action.Vz), sheet.shear
    if s.fbv is not None:
        add(sheet, "Vc", "Vz", s.clause, V, s.Vb, "kN", f"hw t fbv / gamma_M0, fbv {s.fbv:.1f}")
        return
    add(sheet, "V", "Vz, plastic", "EN 1993-1-1, 6.2.6", V, s.Vpl, "kN",
        "Av,z (fy / sqrt 3) / gamma_M0")
    if s.slender:
        add(sheet, "Vb", "Vz, shear buckling", "EN 1993-1-5, 5.2", V, s.Vb, "kN",
            f"chi_w {s.chi_w:.3f} fy hw tw / (sqrt 3 gamma_M1)")


class Strength:
    """Of the section when shear takes some of the yield strength of its shear area: EN 1993-1-1,
    6.2.8 and 6.2.10."""
    def __init__(self, sheet):
        self.sheet, self.f, v, s = sheet, sheet.g.flanged, sheet.values, sheet.shear
        self.rho = 0.0
        if s and s.Vpl and not s.slender:
            self.rho = en1.shear_reduction(abs(sheet.action.Vz), s.Vpl)
        f = self.f
        self.Aw = f.hw * f.tw * f.webs if f else v.A  # of (6.30)
        self.A = self.area(v.A)
        self.N = self.A * sheet.fy / sheet.options.gamma_m0

    def area(self, A):
        """6.2.10(3): of A, gross or effective, when shear weakens the shear area: all of A if the
        section has no web."""
        shear = max(self.Aw, self.sheet.values.Av_z) if self.f else A
        return max(A - self.rho * shear, (1 - self.rho) * A)

    def moment(self, axis, number, W, plastic):
        """With a modulus W, of the class."""
        sheet, f, rho = self.sheet, self.f, self.rho
        limit = sheet.fy / sheet.options.gamma_m0
        if W is None:
            return None
        if not rho:
            return W * limit
        if not f:
            return (1 - rho) * W * limit
        if plastic and axis == "y" and not f.equal:
            return (1 - rho) * W * limit
        return max(W - rho * self.web_modulus(axis, plastic), 0.0) * limit

    def web_modulus(self, axis, plastic):
        """What the webs have of a modulus."""
        f, p, g = self.f, self.sheet.g.gross, self.sheet.g
        if axis == "y":
            if plastic:
                return self.Aw**2 / (4 * f.tw * f.webs)
            off = (f.t2 - f.t1) / 2 - p.at.imag
            arm = max(g.top - p.at.imag, p.at.imag - g.bottom)
            return self.Aw * (f.hw**2 / 12 + off**2) / arm
        d = sheet_web_distance(self.sheet)
        if plastic:
            return self.Aw * (d / 2 if d else f.tw / 4)
        return self.Aw * (d**2 / 4 + f.tw**2 / 12) / (g.right - p.at.real)


def sheet_web_distance(sheet):
    """Between the centre lines of two webs, else 0."""
    d = sheet.section.dims
    if sheet.section.shape == "box":
        return d.s + d.tw
    return d.b - d.t if sheet.section.shape in ("rhs", "hollow") else 0.0


def flange_induced(sheet):
    """EN 1993-1-5, 8, of welded and rolled I sections and boxes, for the flange that My or N
    compresses."""
    f, a = sheet.g.flanged, sheet.action
    if not f or sheet.section.shape in ("rhs", "hollow") or (not a.My and a.N <= 0):
        return
    name = ("My+" if a.My > 0 else "My-") if a.My else "N"
    areas = {"top": f.b1 * f.t1, "bottom": f.b2 * f.t2}
    for side in areas:
        areas[side] -= lost_in(sheet, name, side)
    sides = {"My+": ["top"], "My-": ["bottom"]}.get(name, ["top", "bottom"])
    Afc, number = min(areas[side] for side in sides), sheet.classes[name].number
    limit = en5.flange_induced_limit(number, E, sheet.fy, f.hw * f.tw * f.webs, Afc)
    add(sheet, "FIB", "hw/tw, flange-induced", "EN 1993-1-5, 8", f.hw / f.tw, limit, "",
        f"k E / fy sqrt(Aw / Afc), Afc {Afc / 100:.2f} cm2")


def lost_in(sheet, name, side):
    """Of a flange what is not effective in a state."""
    state = sheet.effective.get(name)
    if not state:
        return 0.0
    return sum((s.end - s.begin) * s.share * r.plate.t
               for r in state.reductions if r.plate.name.startswith(side) for s in r.lost)


def moment_and_shear(sheet):
    """With Vz: My, and N where the interaction holds without My too."""
    a, s = sheet.action, sheet.shear
    m = sheet.moments["My+" if a.My > 0 else "My-"]
    if s.fbv is not None:
        if a.N or a.My or a.Mz:
            cold_moment_and_shear(sheet)
    elif m.MRd is None:
        return
    elif s.slender:
        if a.My or a.N > 0:
            buckling_and_moment(sheet, m)
    elif sheet.strength.rho and a.My:
        plastic = m.number < 3
        MV = min(sheet.strength.moment("y", m.number, m.W, plastic), m.MRd)
        add(sheet, "MV", "My with Vz", "EN 1993-1-1, 6.2.8", abs(a.My), MV, "kNm",
            f"rho {sheet.strength.rho:.3f} = (2 V / Vpl - 1)^2")


def cold_moment_and_shear(sheet):
    """EN 1993-1-3, 6.1.10: where V is above half of its resistance. Moments with and without N eN,
    Mz too."""
    a, s, g = sheet.action, sheet.shear, sheet.g
    V = abs(a.Vz)
    if V <= s.VRd / 2:
        return
    sums = []
    for ey, ez in {(0.0, 0.0), sheet.N_eN}:
        states = [f"My{sign}" for sign, M in (("+", 1), ("-", -1)) if (a.My + ey) * M >= 0]
        flanges = 0.0 if g.free else min(flange_share(sheet, state) for state in states)
        axial_and_bending = linear_share(sheet, ey, ez)
        sums.append((en3.shear_and_moment(axial_and_bending, V, s.VRd, flanges), flanges))
    used, flanges = max(sums)
    add(sheet, "MVc", f"{forces(a).replace(' +', ',')} with Vz", "EN 1993-1-3, 6.1.10 (6.27)", used,
        1.0, "", f"Mf / Mpl {flanges:.3f}")


def flange_share(sheet, state):
    """Mf / Mpl: of the effective flanges alone, without lips, over the gross plastic modulus."""
    areas = {p.name: p.width * p.t for p in sheet.g.plates if p.name.endswith("flange")}
    for r in sheet.effective[state].reductions:
        if r.plate.name in areas:
            areas[r.plate.name] -= sum((s.end - s.begin) * s.share * r.plate.t for s in r.lost)
    return min(min(areas.values()) * sheet.shear.hw / sheet.g.wpl("y"), 1.0)


def plastic_of_three(A1, t1, Aw, hw, A2, t2):
    """Plastic modulus of two flanges and a web."""
    parts = ((A1, t1), (Aw, hw), (A2, t2))  # from the top
    half, above, depth = (A1 + Aw + A2) / 2, 0.0, 0.0
    for A, h in parts:
        if above + A >= half:
            depth += h * (half - above) / A
            break
        above, depth = above + A, depth + h
    total, z = 0.0, 0.0
    for A, h in parts:
        low, high = z - depth, z + h - depth
        total += A / h * (abs(low) * low * -1 + abs(high) * high) / 2 if low * high < 0 else \
            A * abs(low + high) / 2
        z += h
    return total


def buckling_and_moment(sheet, m):
    """EN 1993-1-5, 7.1: with the effective flanges and the whole web."""
    a, s, f, o = sheet.action, sheet.shear, sheet.g.flanged, sheet.options
    limit = sheet.fy / o.gamma_m0
    lost = {side: lost_in(sheet, m.state, side) for side in ("top", "bottom")}
    A1, A2 = f.b1 * f.t1 - lost["top"], f.b2 * f.t2 - lost["bottom"]
    Mpl, Aw = sheet.values.Wpl_y * limit, sheet.strength.Aw
    if any(lost.values()):  # the share is that of a section without fillets and rounded corners
        whole = plastic_of_three(f.b1 * f.t1, f.t1, Aw, f.hw, f.b2 * f.t2, f.t2)
        Mpl *= plastic_of_three(A1, f.t1, Aw, f.hw, A2, f.t2) / whole
    Mf = min(A1, A2) * (f.h - (f.t1 + f.t2) / 2) * limit
    A = sheet.values.A - (sum(lost.values()) if a.N > 0 else 0.0)
    n = abs(a.N) / (A * limit)
    if n >= 1:
        return  # which fails by itself
    if a.N:
        Mf *= max(1 - abs(a.N) / ((A1 + A2) * limit), 0.0)
        equal = f.equal and not any(lost.values())
        Mpl = (en1.reduced_moment(Mpl, n, en1.flange_free_share(A, A1 + A2)) if equal
               else (1 - n) * Mpl)
    flanges, eta1 = min(Mf / Mpl, 1.0), abs(a.My) / Mpl
    if a.N > 0 and web_pressed(sheet):
        flanges = 0.0
        eta1 = max(pressed_web_share(sheet, 0.0, 0.0), pressed_web_share(sheet, *sheet.N_eN))
    used = en5.shear_and_moment(eta1, abs(a.Vz) / s.Vb, flanges)
    if used is not None:
        add(sheet, "MVb", f"{'My' if a.My else 'N'} with Vz, shear buckling",
            "EN 1993-1-5, 7.1 (7.1)", used, 1.0, "", f"eta1 {eta1:.3f}, Mf / Mpl {flanges:.3f}")


def pressed_web_share(sheet, ey, ez):
    """EN 1993-1-5, 7.1(5): eta1 of 4.6, with elastic moduli, effective ones in class 4."""
    a, v, W = sheet.action, sheet.values, {}
    My, Mz = a.My + ey, a.Mz + ez
    for axis, M, gross in (("y", My, v.Wel_y), ("z", Mz, v.Wel_z)):
        state = f"M{axis}{'+' if M > 0 else '-'}"
        W[axis] = sheet.state(state).W_min if M and sheet.number == 4 else gross
    return en5.linear_sum(abs(a.N), sheet.A_compression, abs(My), W["y"], abs(Mz), W["z"],
                          sheet.fy, sheet.options.gamma_m0)


def web_pressed(sheet):
    """Whether all of the web is compressed, elastically."""
    a, p, f = sheet.action, sheet.g.gross, sheet.g.flanged
    middle = (f.t2 - f.t1) / 2 - p.at.imag
    return all(a.N / p.A + a.My * z / p.Iy > 0 for z in (middle + f.hw / 2, middle - f.hw / 2))


def together(sheet):
    """N, My and Mz: EN 1993-1-1, 6.2.9, EN 1993-1-5, 4.6."""
    a = sheet.action
    if (sheet.section.shape == "chs" and sheet.number == 4) or sheet.number == 4 and any(
            sheet.effective[n].faults for n in sheet.used() if n in sheet.effective):
        return
    several = sum(1 for force in (a.N, a.My, a.Mz) if force) > 1
    several = several or sheet.strength.rho and (a.N or a.Mz)  # with Vz; My has a check of its own
    if sheet.number < 3 and several:
        plastic_together(sheet)
    elif sheet.number == 3 and several:
        elastic_together(sheet)
    elif sheet.number == 4:
        if several:
            linear_together(sheet, "NM", 0.0, 0.0)
        ey, ez = sheet.N_eN
        if ey or ez:
            linear_together(sheet, "NMe", ey, ez)


def linear_share(sheet, ey, ez):
    """Each action by its own effective section, moduli to the gross edges."""
    a, fy, o, rho = sheet.action, sheet.fy, sheet.options, sheet.strength.rho
    My, Mz = a.My + ey, a.Mz + ez
    A = sheet.effective["N"].left.A if a.N > 0 else sheet.values.A
    W = {}
    for axis, M in (("y", My), ("z", Mz)):
        W[axis] = 1.0
        if M:
            state = sheet.state(f"M{axis}{'+' if M > 0 else '-'}")
            W[axis] = state.W_min
            if rho:
                W[axis] = sheet.strength.moment(axis, 4, W[axis], False) / (fy / o.gamma_m0)
    if rho:
        A = sheet.strength.area(A)
    if min(A, *W.values()) <= 0:
        return inf
    return en5.linear_sum(abs(a.N), A, abs(My), W["y"], abs(Mz), W["z"], fy, o.gamma_m0)


def linear_together(sheet, key, ey, ez):
    """Class 4."""
    My, Mz = sheet.action.My + ey, sheet.action.Mz + ez
    clause = ("EN 1993-1-3, 6.1.9 (6.25)" if sheet.g.cold else
              f"EN 1993-1-5, 4.6 ({'4.15' if My and Mz else '4.14'})")
    add(sheet, key, forces(sheet.action) + (" + N eN" if key == "NMe" else ""), clause,
        linear_share(sheet, ey, ez), 1.0, "",
        "N / Aeff + My / Weff,y + Mz / Weff,z over fy / gamma_M0")


def forces(a):
    return " + ".join(n for n, force in (("N", a.N), ("My", a.My), ("Mz", a.Mz)) if force)


def elastic_together(sheet):
    """Class 3: EN 1993-1-1, 6.2.9.2 (6.42), at every corner; with shear the linear sum (6.2)."""
    a, g, v, limit = sheet.action, sheet.g, sheet.values, sheet.fy / sheet.options.gamma_m0
    if sheet.strength.rho:
        used = ratio(abs(a.N), sheet.strength.N)
        for axis, M, W in (("y", a.My, v.Wel_y), ("z", a.Mz, v.Wel_z)):
            used += ratio(abs(M), sheet.strength.moment(axis, 3, W, False))
        add(sheet, "NM", forces(a), "EN 1993-1-1, 6.2.10, 6.2.1 (6.2)", used, 1.0, "",
            "linear sum with the yield strength of the web reduced")
        return
    p = g.gross
    f = a.My * field(p, "y", g.free) + a.Mz * field(p, "z", g.free)
    stresses = [a.N / p.A + (f.conjugate() * (z - p.at)).real for z in g.vertices]
    if sheet.section.shape in ("chs", "round"):
        stresses = [abs(a.N) / p.A + hypot(a.My, a.Mz) / v.Wel_y]
    largest = max(stresses, key=abs)
    add(sheet, "NM", "N + My + Mz, stress", "EN 1993-1-1, 6.2.9.2 (6.42)", abs(largest), limit,
        "N/mm2", "the largest stress at a corner of the gross section")


def plastic_together(sheet):
    """Class 1 and 2: EN 1993-1-1, 6.2.9.1."""
    a, s, v, st = sheet.action, sheet.section, sheet.values, sheet.strength
    N, My, Mz = abs(a.N), abs(a.My), abs(a.Mz)
    n = ratio(N, st.N)
    MRy = st.moment("y", 1, v.Wpl_y, True)
    MRz = st.moment("z", 1, v.Wpl_z, True)
    f, clause = sheet.g.flanged, "EN 1993-1-1, 6.2.9.1"
    if st.rho:
        clause = "EN 1993-1-1, 6.2.10, 6.2.9.1"
    if s.shape == "chs" and n < 1:
        used, how = n + ratio(hypot(My, Mz), MRy), "n + M / Mpl,Rd (6.2)"
    elif n >= 1 or not (My or Mz) or not ((f and f.equal) or
                                          (s.shape == "flat" and not (My and Mz))):
        used, how = linear(n, My, MRy, Mz, MRz), "n + My / My,Rd + Mz / Mz,Rd (6.2)"
    else:
        MNy, MNz = reduced_by_axial(sheet, N, n, MRy, MRz)
        sheet.MN = MNy, MNz
        used, how = by_reduced(sheet, n, My, Mz, MNy, MNz)
    add(sheet, "NM", forces(a), clause, used, 1.0, "", f"n {n:.3f}: {how}")


def linear(n, My, MRy, Mz, MRz):
    """EN 1993-1-1, 6.2.1(7), (6.2)."""
    return n + ratio(My, MRy) + ratio(Mz, MRz)


def reduced_by_axial(sheet, N, n, MRy, MRz):
    """MN,y and MN,z of EN 1993-1-1, 6.2.9.1."""
    s, f, st, fy, o = sheet.section, sheet.g.flanged, sheet.strength, sheet.fy, sheet.options
    if s.shape == "flat":
        return en1.reduced_moment_solid(MRy, n), en1.reduced_moment_solid(MRz, n)
    d = s.dims
    if f.family == "I":
        a = en1.flange_free_share(st.A, 2 * f.b1 * f.t1)
        tw = f.tw * (1 - st.rho)
        MNy = (MRy if en1.no_reduction_major(N, st.N, f.hw, tw, fy, o.gamma_m0)
               else en1.reduced_moment(MRy, n, a))
        MNz = (MRz if en1.no_reduction_minor(N, f.hw, tw, fy, o.gamma_m0)
               else en1.reduced_moment_minor_i(MRz, n, a))
        return MNy, MNz
    aw = en1.flange_free_share(st.A, 2 * f.b1 * f.t1)
    af = en1.flange_free_share(st.A, 2 * f.h * f.tw * (1 - st.rho))
    return en1.reduced_moment(MRy, n, aw), en1.reduced_moment(MRz, n, af)


def by_reduced(sheet, n, My, Mz, MNy, MNz):
    f = sheet.g.flanged
    if My and Mz:
        powers = en1.exponents(f.family, n)
        used = en1.biaxial(My, Mz, MNy, MNz, powers)
        return used, (f"(My / MN,y)^{powers[0]:.3g} + (Mz / MN,z)^{powers[1]:.3g} (6.41), "
                      f"MN,y {MNy * KNM:.4g}, MN,z {MNz * KNM:.4g} kNm")
    axis, M, MN = ("y", My, MNy) if My else ("z", Mz, MNz)
    return ratio(M, MN), f"M{axis} / MN,{axis} (6.31), MN,{axis} {MN * KNM:.4g} kNm"
