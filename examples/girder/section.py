"""Section values: of the outline by the library, of its rounded corners by the closed form.

Points are complex numbers x + iy."""

from collections import namedtuple
from math import pi, tan

import kezlib

# A line of the file in mm, N and N/mm2: N positive in compression, M where it compresses the top.
Section = namedtuple("Section", "name shape dims fy N M")
Properties = namedtuple("Properties", "A at Ix Iy Ixy")  # at: the centroid, that the rest is about
FILLET = (10 - 3 * pi) / (12 - 3 * pi)  # from the tangents to the centroid, of r = 1


class Loop(namedtuple("Loop", "sign z r")):
    """A contour whose vertices are rounded by the radii r; sign: -1 of a hole."""

    def polygon(self):
        """Second moments are taken about its own centroid, to keep their digits."""
        n, ring = len(self.z), self.z + self.z[:1]
        x, y = [z.real for z in ring], [z.imag for z in ring]
        A, (*_, Sx, Sy) = kezlib.kezapl(x, y, n).area, kezlib.kezspl(x, y, n)
        *_, Ix, Iy, Ixy = kezlib.kezipl(*kezlib.keztra(x, y, n + 1, Sy / A, Sx / A), n)
        return Properties(self.sign * A, complex(Sy, Sx) / A,
                          *(self.sign * i for i in (Ix, Iy, Ixy)))

    def corners(self):
        """Of each vertex: the point, its radius, the directions back and ahead, and whether the
        contour turns left (1) or right (-1) there."""
        for i, (z, r) in enumerate(zip(self.z, self.r)):
            back, ahead = self.z[i - 1] - z, self.z[(i + 1) % len(self.z)] - z
            back, ahead = back / (abs(back) or 1), ahead / (abs(ahead) or 1)
            yield z, r, back, ahead, round((ahead.conjugate() * back).imag)

    def fillets(self):
        """Between an arc and its tangents: material that the contour lacks or has too much."""
        for z, r, back, ahead, turn in self.corners() if any(self.r) else ():
            sign, inward = -turn * self.sign, back + ahead
            A, shift = sign * (1 - pi / 4) * r**2, sign * (1 - pi / 4) * FILLET**2 * r**4
            own = sign * (1 - 5 * pi / 16) * r**4 - shift
            yield Properties(A, z + FILLET * r * inward, own, own, inward.real * inward.imag * (
                sign * (19 / 24 - pi / 4) * r**4 - shift))

    def curve(self):
        """The rounded contour's vertices, each with the bulge of what follows, as DXF has it."""
        for z, r, back, ahead, turn in self.corners():
            yield from [(z + r * back, turn * tan(pi / 8))] * (r > 0) + [(z + r * ahead, 0.0)]


def rectangle(p, q, share):
    """Between two corners."""
    b, h = abs((q - p).real), abs((q - p).imag)
    return Properties(share * b * h, (p + q) / 2, share * b * h**3 / 12, share * b**3 * h / 12, 0.0)


def combined(parts):
    A = sum(p.A for p in parts)
    at = sum(p.A * p.at for p in parts) / A
    return Properties(A, at, sum(p.Ix + p.A * (p.at - at).imag ** 2 for p in parts),
                      sum(p.Iy + p.A * (p.at - at).real ** 2 for p in parts),
                      sum(p.Ixy + p.A * ((p.at - at) ** 2).imag / 2 for p in parts))
