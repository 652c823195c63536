"""The tables: a line a section, and a line a plate in each state. One value a cell, six significant
digits, nothing where a value does not apply."""

import csv
import io
from math import degrees, inf

from kezsection.checks import KEYS
from kezsection.en1993_1_1 import epsilon
from kezsection.shapes import names

MOMENTS = ("My+", "My-", "Mz+", "Mz-")
STATES = ("N", *MOMENTS)

SECTION_HEADINGS = [
    "number", "line", "name", "shape", "profile",
    *(f"dim {i} [mm]" for i in range(1, 7)), "dim 7 [mm or number]", "r [mm]", "ri [mm]",
    "coat [mm]", "tol [%]", "t_cor [mm]", "fy [N/mm2]", "N [kN]", "My [kNm]", "Mz [kNm]",
    "Vz [kN]", "a [mm]",
    "end post",
    "A [cm2]", "ys [mm]", "zs [mm]", "Iy [cm4]", "Iz [cm4]", "Iyz [cm4]", "Iu [cm4]", "Iv [cm4]",
    "theta [deg]", "Wel,y top [cm3]", "Wel,y bottom [cm3]", "Wel,z right [cm3]",
    "Wel,z left [cm3]", "Wel,y min [cm3]", "Wel,z min [cm3]", "Wpl,y [cm3]", "Wpl,z [cm3]",
    "It [cm4]", "Iw [cm6]", "y_sc [mm]", "z_sc [mm]", "Av,z [cm2]", "Av,y [cm2]",
    "epsilon [-]", *(f"class {s}" for s in STATES), "class N + My", "class N + Mz",
    "class all actions",
    "Aeff N [cm2]", "eNy [mm]", "eNz [mm]",
    *(f"{what} {s} [{unit}]" for s in MOMENTS
      for what, unit in (("Aeff", "cm2"), ("Ieff", "cm4"), ("Weff compression", "cm3"),
                         ("Weff tension", "cm3"), ("Weff min", "cm3"))),
    "N eNz [kNm]", "N eNy [kNm]", "My + N eNz [kNm]", "Mz + N eNy [kNm]",
    "Nt,Rd [kN]", "Nc,Rd [kN]", *(f"{s[:2]},Rd {s[2]} [kNm]" for s in MOMENTS),
    "Vpl,Rd [kN]", "hw [mm]", "hw/tw [-]", "limit hw/tw [-]", "k_tau [-]", "lambda_w [-]",
    "chi_w [-]", "fbv [N/mm2]", "Vb,Rd [kN]", "rho 6.2.8 [-]", "My,V,Rd [kNm]", "MN,y,Rd [kNm]",
    "MN,z,Rd [kNm]",
    *(f"utilisation {name} [-]" for name in KEYS.values()),
    "governing check", "governing utilisation [-]", "verdict", "outside the rules", "incomplete",
    "gamma_M0 [-]", "gamma_M1 [-]", "eta [-]", "lip", "class by"]

PLATE_HEADINGS = [
    "number", "line", "name", "state", "plate", "kind", "b [mm]", "t [mm]", "c/t [-]", "alpha [-]",
    "psi class [-]", "limit class 1 [-]", "limit class 2 [-]", "limit class 3 [-]", "class",
    "psi [-]", "k_sigma [-]", "lambda_p [-]", "rho [-]", "bc [mm]", "be1 [mm]", "be2 [mm]",
    "larger compression at", "lip be2 [mm]", "lip ceff [mm]", "As [mm2]", "Is [mm4]", "b1 [mm]",
    "b2 [mm]", "kf [-]", "K [N/mm2]", "sigma_cr [N/mm2]", "lambda_d [-]", "chi_d [-]", "steps",
    "kezchi [-]", "note"]


def cell(value):
    if value.__class__ is float:
        return "%.6g" % (value + 0.0) if -inf < value < inf else ""
    return harmless(value) if value.__class__ is str else "%.6g" % value


def harmless(text):
    """No name becomes a formula in a spreadsheet."""
    return "'" + text if text.startswith(("=", "+", "-", "@", "\t", "\r")) else text


def section_row(sheet):
    s, v, a, o = sheet.section, sheet.values, sheet.action, sheet.options
    d = vars(s.dims)
    dims = [d[n] for n in names(s.shape) if n in d]
    row = [s.number, s.line, s.name, s.shape, s.profile, *(dims + [None] * 7)[:7]]
    cold = sheet.g.cold
    row += [cold.r if cold else d.get("r") if s.shape in ("tee",) else None, d.get("ri"),
            d.get("coat"), d.get("tol"), cold.t if cold else None]
    row += [s.fy, a.N / 1e3, a.My / 1e6, a.Mz / 1e6, a.Vz / 1e3, s.a or None,
            "rigid" if s.rigid else "plain"]
    sc = v.shear_centre
    row += [v.A / 1e2, v.at.real, v.at.imag, v.Iy / 1e4, v.Iz / 1e4, v.Iyz / 1e4, v.Iu / 1e4,
            v.Iv / 1e4, degrees(v.theta), *(v.W[k] / 1e3 for k in v.W), v.Wel_y / 1e3,
            v.Wel_z / 1e3, scaled(v.Wpl_y, 1e3), scaled(v.Wpl_z, 1e3), scaled(v.It, 1e4),
            scaled(v.Iw, 1e6), None if sc is None else sc.real, None if sc is None else sc.imag,
            scaled(v.Av_z, 1e2), scaled(v.Av_y, 1e2)]
    row += [epsilon(s.fy), *(sheet.classes[k].number for k in STATES)]
    row += [sheet.combined[k].number if k in sheet.combined else None
            for k in ("N + My", "N + Mz")] + [sheet.number]
    row += effective_cells(sheet)
    row += resistance_cells(sheet)
    found = {c.key: finite(c.utilisation) for c in sheet.checks}
    row += [found.get(key) for key in KEYS]
    g = sheet.governing
    row += [f"{g.what} ({g.clause})" if g else "", finite(g.utilisation) if g else None, sheet.verdict,
            "; ".join(sheet.outside), "; ".join(sheet.faults), o.gamma_m0, o.gamma_m1, sheet.eta,
            o.lip, o.class_by]
    return ["" if value is None else cell(value) for value in row]


def finite(utilisation):
    """Where nothing of the resistance is left, it is not."""
    return "inf" if utilisation == inf else utilisation


def scaled(value, scale):
    return None if value is None else value / scale


def effective_cells(sheet):
    a, extra = sheet.action, sheet.N_eN
    state = sheet.effective.get("N")
    row = [None, None, None]
    if state and not state.faults:
        row = [state.left.A / 1e2, sheet.shift.real, sheet.shift.imag]
    for name in MOMENTS:
        state = sheet.effective.get(name)
        if state and not state.faults:
            I = state.left.Iy if name[1] == "y" else state.left.Iz
            row += [state.left.A / 1e2, I / 1e4, *(W / 1e3 for W in state.W), state.W_min / 1e3]
        else:
            row += [None] * 5
    if extra == (0.0, 0.0):
        return row + [None] * 4
    return row + [extra[0] / 1e6, extra[1] / 1e6, (a.My + extra[0]) / 1e6, (a.Mz + extra[1]) / 1e6]


def resistance_cells(sheet):
    A = sheet.A_compression
    row = [sheet.N_tension / 1e3,
           None if A is None else A * sheet.fy / sheet.options.gamma_m0 / 1e3]
    row += [scaled(sheet.moments[name].MRd, 1e6) for name in MOMENTS]
    s = sheet.shear
    row += ([scaled(s.Vpl, 1e3), s.hw, s.slenderness, s.limit, s.k_tau, s.lambda_w, s.chi_w, s.fbv,
             scaled(s.Vb, 1e3)] if s else [None] * 9)
    MV = next((c.resistance for c in sheet.checks if c.key == "MV"), None)
    return row + [sheet.strength.rho if sheet.action.Vz and s and s.Vpl and not s.slender else None,
                  scaled(MV, 1e6), *(scaled(M, 1e6) for M in sheet.MN)]


def plate_rows(sheet):
    s = sheet.section
    states = dict(sheet.classes)
    states.update({k: c for k, c in sheet.combined.items() if " + " in k})
    for state, found in states.items():
        effective = sheet.effective.get(state)
        by_name = {r.plate.name: r for r in effective.reductions} if effective else {}
        classes = {c.plate.name: c for c in found.plates}
        for name in dict.fromkeys([*classes, *by_name]):
            c, r = classes.get(name), by_name.get(name)
            p = (c or r).plate
            row = [s.number, s.line, s.name, state, p.name, p.kind, p.width, p.t, p.width / p.t]
            row += [c.alpha, c.psi, *c.limits, c.number] if c else [None] * 6
            row += reduction_cells(r) if r else [None] * 22
            yield ["" if value is None else cell(value) for value in row]


def reduction_cells(r):
    row = [r.psi, r.k or None, r.lambda_p or None, None if r.fault else r.rho, r.bc,
           None if r.fault else r.be1, None if r.fault else r.be2,
           "start" if r.at_start else "end"]
    lip = r.lip
    row += ([lip.be2, lip.ceff, lip.As, lip.Is, lip.b1, lip.b2, lip.kf, lip.K, lip.sigma_cr,
             lip.lambda_d, lip.chi, lip.steps, lip.kezchi] if lip else [None] * 13)
    return row + [r.fault or r.outside]


def text_of(rows, excel=False):
    """Lines of a table. excel: semicolons between the cells."""
    out = io.StringIO()
    csv.writer(out, delimiter=";" if excel else ",", lineterminator="\n").writerows(rows)
    return out.getvalue()
