"""What the modules hand to each other: small records without any rules."""

from dataclasses import dataclass, field
from types import SimpleNamespace
from typing import Dict, List, NamedTuple, Optional, Tuple

E, NU = 210000.0, 0.3  # EN 1993-1-1, 3.2.6

# Kinds of plates. A lip stiffens its flange; a lip that counts as none is lost where it is pressed.
INTERNAL, SLOTTED, OUTSTAND, LEG = "internal", "slotted", "outstand", "leg"
LIP, NO_LIP = "lip", "no lip"


class Action(NamedTuple):
    """Forces in N and N mm: N positive in compression, My where it compresses the top, Mz where it
    compresses the right."""
    N: float = 0.0
    My: float = 0.0
    Mz: float = 0.0
    Vz: float = 0.0


@dataclass(frozen=True)
class Options:
    """What holds for all sections of a run."""
    gamma_m0: float = 1.0
    gamma_m1: float = 1.0
    eta: Optional[float] = None  # 1.2 up to S460, else 1.0
    lip: str = "once"
    class_by: str = "held"

    def eta_of(self, fy):
        """EN 1993-1-5, 5.1(2), note 2."""
        return self.eta if self.eta is not None else 1.2 if fy <= 460 else 1.0


@dataclass
class Section:
    """A line of the input, in mm, N and N/mm2."""
    number: int
    line: int
    shape: str
    dims: SimpleNamespace  # the dimensions, and of the keys those that belong to the shape
    fy: float
    action: Action
    name: str = ""
    profile: str = ""
    a: float = 0.0  # distance of transverse stiffeners, 0 for none
    rigid: bool = False  # the end post


class Plate(NamedTuple):
    """A flat plate along its centre line. An outstand or a lip begins at its supported end."""
    name: str
    kind: str
    start: complex
    end: complex
    t: float
    to_corner: float = 0.0  # from the end of the notional width to where the flat part ends

    @property
    def width(self):
        return abs(self.end - self.start)

    @property
    def along(self):
        return (self.end - self.start) / abs(self.end - self.start)

    def at(self, u):
        return self.start + u * self.along

    @property
    def tip(self):
        """Whether the end is free."""
        return self.kind in (OUTSTAND, LEG, LIP, NO_LIP)


class Strip(NamedTuple):
    """From and to on a plate, what share of the thickness is not effective."""
    begin: float
    end: float
    share: float = 1.0


@dataclass
class LipResult:
    """An edge stiffener, EN 1993-1-3, 5.5.3.2, and by it the thickness chi t."""
    be2: float
    ceff: float
    As: float
    Is: float
    b1: float
    b2: float
    kf: float
    K: float
    sigma_cr: float
    lambda_d: float
    chi: float
    rho_c: float = 1.0
    steps: int = 1
    kezchi: Optional[float] = None


@dataclass
class Reduction:
    """A plate that is compressed somewhere. be1 is effective at the larger compression, be2 at the
    other end or at zero stress, of the compressed width bc that begins at `begin`."""
    plate: Plate
    psi: float
    at_start: bool  # whether the larger compression is there
    begin: float
    bc: float
    k: float = 0.0
    lambda_p: float = 0.0
    rho: float = 1.0
    be1: float = 0.0
    be2: float = 0.0
    lost: List[Strip] = field(default_factory=list)
    lip: Optional[LipResult] = None
    fault: str = ""
    outside: str = ""


@dataclass
class PlateClass:
    """EN 1993-1-1, table 5.2. limits: of c/t for class 1, 2 and 3."""
    plate: Plate
    slenderness: float
    alpha: float
    psi: float
    limits: Tuple[float, float, float]
    number: int


@dataclass
class Check:
    """key: of its column in the table; demand and resistance in N or N mm, or as the unit says."""
    key: str
    what: str
    clause: str
    demand: Optional[float]
    resistance: Optional[float]
    unit: str
    utilisation: float
    follow: str = ""  # how it is calculated


@dataclass
class Values:
    """Gross values, in mm. Moduli of edges: top, bottom, right, left."""
    A: float
    at: complex
    Iy: float
    Iz: float
    Iyz: float
    Iu: float
    Iv: float
    theta: float
    W: Dict[str, float]
    Wel_y: float
    Wel_z: float
    Wpl_y: Optional[float] = None
    Wpl_z: Optional[float] = None
    It: Optional[float] = None
    Iw: Optional[float] = None
    shear_centre: Optional[complex] = None  # from the centroid
    Av_z: Optional[float] = None
    Av_y: Optional[float] = None
