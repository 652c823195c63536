"""The sheet of a section: classes, effective values, resistances and checks."""

from dataclasses import dataclass
from math import inf
from typing import Optional

from kezsection import checks
from kezsection.classes import Classification, classify
from kezsection.effective import effective
from kezsection.gross import Geometry, values
from kezsection.shear import shear_of

STATES = {"N": ("N", 1), "My+": ("y", 1), "My-": ("y", -1), "Mz+": ("z", 1), "Mz-": ("z", -1)}


@dataclass
class Moment:
    """The resistance to a moment about an axis with a sign: W by the class."""
    state: str
    number: int
    kind: str  # Wpl, Wel or Weff
    W: Optional[float]
    MRd: Optional[float]


def state_of(axis, moment):
    return f"M{axis}{'+' if moment >= 0 else '-'}"


class Sheet:
    """Everything about a section that is written."""
    def __init__(self, section, options):
        self.section, self.options, self.fy = section, options, section.fy
        self.action = section.action
        self.g = Geometry(section)
        self.eta = options.eta_of(self.fy)
        self.values = values(self.g, self.eta)
        self.effective, self.faults, self.outside = {}, [], []
        self.classes = {name: self.classify(*state) for name, state in STATES.items()}
        self.combined = self.combine()
        self.shift = 0j
        self.find_effective()
        self.moments = {name: self.moment(name) for name in STATES if name != "N"}
        self.shear = shear_of(self)
        self.checks, self.MN = [], (None, None)
        self.limits()
        checks.fill(self)
        self.judge()

    def classify(self, axis, sign, N=0.0, M=0.0):
        found = classify(self.g, axis, sign, self.fy, N, M, self.options.class_by == "scaled")
        if not self.g.cold:
            return found
        # Cold-formed sections are reduced by their slenderness, whatever the class.
        return Classification(3, found.plates)

    def combine(self):
        """The class under N + My, N + Mz, and the larger one of both."""
        a = self.action
        found = {}
        for axis, M in (("y", a.My), ("z", a.Mz)):
            if M and a.N:
                found[f"N + M{axis}"] = self.classify(axis, 1 if M > 0 else -1, a.N, M)
            elif M:
                found[f"M{axis}"] = self.classes[state_of(axis, M)]
        if not found and a.N > 0:
            found["N"] = self.classes["N"]
        return found

    @property
    def number(self):
        """The class under all actions together."""
        return max((c.number for c in self.combined.values()), default=1)

    def state(self, name):
        """The effective section of a state, made when it is first wanted."""
        if name not in self.effective:
            self.effective[name] = effective(self.g, *STATES[name], self.fy, self.options.lip)
        return self.effective[name]

    def find_effective(self):
        """Of each action alone that makes the section one of class 4, and of those there are if all
        together do; and the shift eN under N."""
        if self.section.shape in ("chs", "flat", "round"):
            return
        for name, found in self.classes.items():
            if self.g.cold:
                state = self.state(name)
                found.number = 4 if state.reduced or state.faults else 3
            elif found.number == 4:
                self.state(name)
        a = self.action
        if self.g.cold:
            for name, found in self.combined.items():
                alone = [state_of(axis, M) for axis, M in (("y", a.My), ("z", a.Mz)) if M]
                found.number = max(self.classes[s].number for s in alone + ["N"] * (a.N > 0))
        if self.number == 4 and a.N > 0:
            self.state("N")
        if self.number == 4 and a.My:
            self.state(state_of("y", a.My))
        if self.number == 4 and a.Mz:
            self.state(state_of("z", a.Mz))
        if "N" in self.effective and not self.effective["N"].faults:
            shift = self.effective["N"].left.at - self.g.gross.at
            size = 1e-5 * (self.g.top - self.g.bottom + self.g.right - self.g.left)
            self.shift = complex(shift.real if abs(shift.real) > size else 0.0,
                                 shift.imag if abs(shift.imag) > size else 0.0)

    @property
    def N_eN(self):
        """The moments of N on the shifted centroid, about y and z: EN 1993-1-5, 4.3(3)."""
        N = self.action.N
        if N <= 0 or not self.shift or self.number < 4:
            return 0.0, 0.0
        return -N * self.shift.imag, -N * self.shift.real

    def moment(self, name):
        """EN 1993-1-1, 6.2.5: by the class under the moment alone."""
        number, v, axis = self.classes[name].number, self.values, name[1]
        if number == 4:
            if self.section.shape == "chs" or self.effective[name].faults:
                return Moment(name, 4, "Weff", None, None)
            kind, W = "Weff", self.effective[name].W_min
        elif number == 3:
            kind, W = "Wel", v.Wel_y if axis == "y" else v.Wel_z
        else:
            kind, W = "Wpl", v.Wpl_y if axis == "y" else v.Wpl_z
        return Moment(name, number, kind, W, W * self.fy / self.options.gamma_m0)

    @property
    def N_tension(self):
        """EN 1993-1-1, 6.2.3, of the gross section."""
        return self.values.A * self.fy / self.options.gamma_m0

    @property
    def A_compression(self):
        """EN 1993-1-1, 6.2.4: by the class under N alone."""
        if self.classes["N"].number < 4:
            return self.values.A
        if self.section.shape == "chs" or self.effective["N"].faults:
            return None
        return self.effective["N"].left.A

    def used(self):
        """The states that the actions ask for."""
        a, extra = self.action, self.N_eN
        names = ["N"] if a.N > 0 else []
        for axis, M, e in (("y", a.My, extra[0]), ("z", a.Mz, extra[1])):
            names += [state_of(axis, m) for m in (M, M + e) if m]
        return list(dict.fromkeys(names))

    def limits(self):
        """What is outside the rules."""
        s = self.section
        if self.g.cold:
            self.outside += self.g.cold.outside(self.fy)
        elif self.fy > 460:
            self.outside.append(f"fy {self.fy:g} > 460 N/mm2 (EN 1993-1-1, 3.1)")
        used = self.used()
        if s.shape == "chs" and any(self.classes[n].number == 4 for n in used):
            self.outside.append("circular hollow section of class 4 (EN 1993-1-1, table 5.2)")
        for name in used:
            state = self.effective.get(name)
            if state and (self.number == 4 or self.classes[name].number == 4):
                self.outside += [f"{state.name}, {reason}" for reason in state.outside]
                self.faults += state.faults

    def judge(self):
        self.outside = list(dict.fromkeys(self.outside))
        self.faults = list(dict.fromkeys(self.faults))
        self.governing = max(self.checks, key=lambda c: c.utilisation, default=None)
        worst = self.governing.utilisation if self.governing else 0.0
        self.verdict = ("incomplete" if self.faults else "outside the rules" if self.outside else
                        "exceeded" if worst > 1 or worst == inf or worst != worst else "satisfied")
