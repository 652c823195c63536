"""What is said of every sheet, before its numbers."""

import os
from datetime import datetime, timezone
from math import degrees, inf

STANDARDS = "EN 1993-1-1:2005, EN 1993-1-3:2006, EN 1993-1-5:2006"
RULES = (
    "N is positive in compression, My where it compresses the top, Mz where it compresses the "
    "right; y points to the right, z up.",
    "Effective values are each under one action alone, in two steps (EN 1993-1-5, 4.3, 4.4(3)); "
    "in class 4 every compressed plate has its rho; moduli are taken to the gross edges.",
    "Cold-formed sections are elastic, with notional widths (EN 1993-1-3, 5.1) and edge stiffeners "
    "by (5.12) to (5.17); kezchi is the library's chi, for comparison only.",
    "eN moves the centroid under N; the case without N eN is checked too.",
    "It of rolled I: producers' formula; of hollow sections and boxes Bredt and s t^3/3; else the "
    "sum of b t^3/3. Iw: centre lines with sharp corners.",
    "Shear: web contribution alone. M with N: EN 1993-1-1, (6.32), (6.36) to (6.41), else (6.2).",
    "Z sections are constrained to bend about the axes of the web; angles and channels whose axes "
    "are turned bend freely.",
    "KezLib computes areas in single precision: of six digits the last may be off, the fifth where "
    "walls are very thin.")
NOT_COVERED = (
    "Not covered: buckling of members, lateral torsional buckling, torsion and warping, shear lag, "
    "patch loads and web crippling, flange curling, distortion of flanges beyond the rules, holes "
    "for fasteners, welds and connections, longitudinal stiffeners, fatigue, fire, work hardening "
    "(fya), deflections.")


def today():
    """SOURCE_DATE_EPOCH makes reports that can be made again."""
    fixed = os.environ.get("SOURCE_DATE_EPOCH", "")
    moment = (datetime.fromtimestamp(int(fixed), timezone.utc) if fixed.isdigit() else
              datetime.now())
    return f"{moment:%Y-%m-%d}"


def option_line(options):
    eta = "1.2 up to S460, else 1.0" if options.eta is None else f"{options.eta:g}"
    raised = "both raised" if options.class_by == "scaled" else "N held and M raised"
    return (f"gamma_M0 {options.gamma_m0:g}, gamma_M1 {options.gamma_m1:g}, eta {eta}, lips "
            f"{options.lip}, class under N + M with {raised}.")


def dims_line(section):
    shown = {"coat": 0.0, "tol": 5.0, "r": None, "ri": None}
    return ", ".join(f"{name} {value:g}" for name, value in vars(section.dims).items()
                     if name not in shown or value != shown[name])


def action_line(section):
    a = section.action
    parts = [f"N {a.N / 1e3:g} kN", f"My {a.My / 1e6:g} kNm"]
    parts += [f"Mz {a.Mz / 1e6:g} kNm"] if a.Mz else []
    parts += [f"Vz {a.Vz / 1e3:g} kN"] if a.Vz else []
    parts += [f"stiffeners every {section.a:g} mm"] if section.a else []
    parts += ["rigid end post"] if section.rigid else []
    return f"fy {section.fy:g} N/mm2; " + ", ".join(parts)


def title(section):
    return section.name or section.profile or section.shape


def figure(value, digits=6):
    """Six digits, without an exponent."""
    if value is None:
        return ""
    places = digits - len(str(int(abs(value))))
    return f"{value:.{max(places, 0)}f}" if abs(value) >= 1e-4 else f"{value:.3g}"


def utilisation(value):
    return "above 999 %" if not value < 10 else f"{100 * value:.1f} %"


def verdict_line(sheet):
    g = sheet.governing
    most = (f" Governing: {g.what}, {g.clause}: {utilisation(g.utilisation)}." if g else
            " No action is given." if not any(sheet.action) else "")
    if sheet.faults:
        return f"INCOMPLETE, no rule for {'; '.join(sheet.faults)}."
    if sheet.outside:
        return f"OUTSIDE THE RULES: {'; '.join(sheet.outside)}.{most}"
    if sheet.verdict == "exceeded":
        return f"EXCEEDED.{most}"
    return f"Satisfied.{most}" if g else most.strip()


def value_items(sheet):
    """Symbol, value and unit of the gross values."""
    v = sheet.values
    items = [("A", v.A / 1e2, "cm2"), ("ys from left", v.at.real, "mm"),
             ("zs from bottom", v.at.imag, "mm"), ("Iy", v.Iy / 1e4, "cm4"),
             ("Iz", v.Iz / 1e4, "cm4"), ("Iyz", v.Iyz / 1e4 if v.Iyz else None, "cm4")]
    if v.Iyz:
        items += [("Iu", v.Iu / 1e4, "cm4"), ("Iv", v.Iv / 1e4, "cm4"),
                  ("from y to u", degrees(v.theta), "deg")]
    items += [("Wel,y top", v.W["top"] / 1e3, "cm3"), ("Wel,y bottom", v.W["bottom"] / 1e3, "cm3"),
              ("Wpl,y", v.Wpl_y and v.Wpl_y / 1e3, "cm3"),
              ("Wel,z right", v.W["right"] / 1e3, "cm3"),
              ("Wel,z left", v.W["left"] / 1e3, "cm3"), ("Wpl,z", v.Wpl_z and v.Wpl_z / 1e3, "cm3")]
    if sheet.g.free:
        items += [("Wel,y free", v.Wel_y / 1e3, "cm3"), ("Wel,z free", v.Wel_z / 1e3, "cm3")]
    items += [("It", v.It and v.It / 1e4, "cm4"), ("Iw", v.Iw and v.Iw / 1e6, "cm6"),
              ("Av,z", v.Av_z and v.Av_z / 1e2, "cm2"), ("Av,y", v.Av_y and v.Av_y / 1e2, "cm2")]
    sc = v.shear_centre
    for name, way in (("y", 1), ("z", -1j)):  # from the centroid
        if sc is not None and abs((sc * way).real) > 1e-5 * abs(v.at):
            items.append((f"shear centre {name}", (sc * way).real, "mm"))
    return [item for item in items if item[1] is not None]


def effective_items(sheet, state):
    """Of a state: symbol, value and unit."""
    p = state.left
    items = [("Aeff", p.A / 1e2, "cm2")]
    if state.axis == "N":
        return items + [("eNy", sheet.shift.real + 0.0, "mm"),
                        ("eNz", sheet.shift.imag + 0.0, "mm")]
    I = p.Iy if state.axis == "y" else p.Iz
    return items + [(f"I{state.axis},eff", I / 1e4, "cm4"),
                    ("Weff compressed edge", state.W[0] / 1e3, "cm3"),
                    ("Weff other edge", state.W[1] / 1e3, "cm3")]


def shown_states(sheet):
    """States whose plates are shown: those that the actions ask for, else all."""
    used = sheet.used()
    names = used or list(sheet.classes)
    return names + [k for k in sheet.combined if " + " in k and not sheet.g.cold]


def resistance_items(sheet):
    """What, clause, how, resistance and unit."""
    o, A = sheet.options, sheet.A_compression
    cold, number = sheet.g.cold, sheet.classes["N"].number
    yield ("Nt,Rd", "1-3, 6.1.2" if cold else "1-1, 6.2.3", "A fy / gamma_M0",
           sheet.N_tension / 1e3, "kN")
    if A is not None:
        yield ("Nc,Rd", "1-3, 6.1.3" if cold else "1-1, 6.2.4",
               f"class {number}, {'Aeff' if number == 4 else 'A'} fy / gamma_M0",
               A * sheet.fy / o.gamma_m0 / 1e3, "kN")
    for name, m in sheet.moments.items():
        if m.MRd is not None:
            yield (f"{name[:2]},Rd ({name})", "1-3, 6.1.4" if cold else "1-1, 6.2.5",
                   f"class {m.number}, {m.kind} fy / gamma_M0", m.MRd / 1e6, "kNm")
    s = sheet.shear
    if s and s.Vpl is not None:
        yield "Vpl,z,Rd", "1-1, 6.2.6", "Av,z fy / sqrt 3 / gamma_M0", s.Vpl / 1e3, "kN"
    if s and s.Vb is not None:
        how = (f"lambda_w {s.lambda_w:.3f}, fbv {s.fbv:.1f} N/mm2" if s.fbv is not None else
               f"k_tau {s.k_tau:.3g}, lambda_w {s.lambda_w:.3f}, chi_w {s.chi_w:.3f}")
        yield ("Vb,Rd" if s.fbv is not None else "Vbw,Rd",
               "1-3, 6.1.5" if s.fbv is not None else "1-5, 5.2", how, s.Vb / 1e3, "kN")
    elif s and s.limit is not None:
        yield ("", "1-5, 5.1", f"hw/tw {s.slenderness:.1f} <= {s.limit:.1f}: no shear buckling",
               None, "")


def merged(rows):
    """Rows that begin with names of plates; left and right ones with equal figures are one."""
    found = {}
    for name, *values in rows:
        both = name.replace("left", "l + r").replace("right", "l + r")
        key = (both, *values)
        found[key] = both if key in found else name
    return [[name, *key[1:]] for key, name in found.items()]


def class_rows(sheet, found):
    """Plate, c/t, alpha, psi, limits and class, of what is compressed."""
    return merged([c.plate.name, f"{c.slenderness:.1f}", f"{c.alpha:.3f}",
                   psi(c.psi),
                   *(("-", "-") if sheet.g.elastic else map(limit, c.limits[:2])),
                   limit(c.limits[2]), str(c.number)] for c in found.plates)


def psi(value):
    return f"{value:.3f}" if value > -99 else "-" if value == -inf else "< -99"


def limit(value):
    return f"{value:.1f}" if value < 1e4 else "-"


def plate_rows(state):
    """Plate, b, psi, k, lambda_p, rho, bc, be1 and be2, or what is said instead."""
    rows = []
    for r in state.reductions:
        start = [r.plate.name, f"{r.plate.width:.1f}", psi(r.psi)]
        if r.fault:
            rows.append([*start, f"NOT REDUCED, no rule: {r.fault}"])
        elif not r.k:
            rows.append([*start, "counts as none (EN 1993-1-3, 5.2(2))"])
        else:
            rows.append([*start, f"{r.k:.3g}", f"{r.lambda_p:.3f}", f"{r.rho:.3f}", f"{r.bc:.1f}",
                         f"{r.be1:.1f}", f"{r.be2:.1f}"])
    return merged(rows)
