"""The resistance to shear along the web."""

from dataclasses import dataclass
from typing import Optional

from kezsection import en1993_1_1 as en1
from kezsection import en1993_1_3 as en3
from kezsection import en1993_1_5 as en5


@dataclass
class Shear:
    """VRd is the smaller one of Vpl and, where the web is slender, Vb."""
    VRd: float
    clause: str
    Vpl: Optional[float] = None
    Vb: Optional[float] = None
    hw: Optional[float] = None
    tw: Optional[float] = None  # of each web
    slenderness: Optional[float] = None  # hw/tw
    limit: Optional[float] = None
    k_tau: Optional[float] = None
    lambda_w: Optional[float] = None
    chi_w: Optional[float] = None
    fbv: Optional[float] = None

    @property
    def slender(self):
        return self.Vb is not None and self.fbv is None


def web_of(g):
    """Clear height, thickness of each, number."""
    f, d = g.flanged, g.section.dims
    if f:
        return f.hw, f.tw, f.webs
    if g.section.shape == "tee":
        return d.h - d.tf, d.tw, 1
    return None


def shear_of(sheet):
    """EN 1993-1-1, 6.2.6 and EN 1993-1-5, 5; of cold-formed sections EN 1993-1-3, 6.1.5."""
    g, s, fy, o = sheet.g, sheet.section, sheet.fy, sheet.options
    if g.cold:
        if getattr(s.dims, "nw", 0):
            if sheet.action.Vz:
                sheet.faults.append("web: it has slots")
            return None
        t, hw = g.cold.t, g.cold.h
        slenderness, fbv = en3.shear_strength(hw, t, fy)
        V = hw * t * fbv / o.gamma_m0
        return Shear(V, "EN 1993-1-3, 6.1.5", None, V, hw, t, hw / t, None, None, slenderness,
                     None, fbv)
    Vpl = en1.plastic_shear(sheet.values.Av_z, fy, o.gamma_m0)
    found, web = Shear(Vpl, "EN 1993-1-1, 6.2.6", Vpl), web_of(g)
    if not web:
        return found
    found.hw, found.tw, webs = web
    eps = en1.epsilon(fy)
    found.slenderness = found.hw / found.tw
    k = en5.k_tau(found.hw, s.a)
    found.limit = en5.shear_buckling_limit(eps, sheet.eta, k, s.a)
    if found.slenderness > found.limit:
        if s.shape == "tee":
            if sheet.action.Vz:
                sheet.outside.append(f"stem: hw/tw {found.slenderness:.1f} > {found.limit:.1f}, "
                                     f"shear of a plate with a free edge (EN 1993-1-5, 5.1)")
            return found
        found.k_tau = k
        found.lambda_w = en5.shear_slenderness(found.hw, found.tw, eps, k)
        found.chi_w = en5.chi_w(found.lambda_w, sheet.eta, s.rigid)
        found.Vb = en5.shear_resistance(found.chi_w, fy, found.hw, found.tw * webs, o.gamma_m1)
        if found.Vb < Vpl:
            found.VRd, found.clause = found.Vb, "EN 1993-1-5, 5.2"
    return found
