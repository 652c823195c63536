"""Section values: of the outline by the library, of its rounded corners by the closed form."""

from collections import namedtuple
from math import pi, tan

import kezlib

# A line of the file in mm, N and N/mm2: N positive in compression, M where it compresses the top.
Section = namedtuple("Section", "name shape dims fy N M")
Properties = namedtuple("Properties", "A x y Ix Iy Ixy")  # second moments about the centroid
FILLET = (10 - 3 * pi) / (12 - 3 * pi)  # from the tangents to the centroid, of r = 1


def signum(value):
    return (value > 0) - (value < 0)


def combined(parts):
    A = sum(p.A for p in parts)
    x, y = sum(p.A * p.x for p in parts) / A, sum(p.A * p.y for p in parts) / A
    return Properties(A, x, y, sum(p.Ix + p.A * (p.y - y) ** 2 for p in parts),
                      sum(p.Iy + p.A * (p.x - x) ** 2 for p in parts),
                      sum(p.Ixy + p.A * (p.x - x) * (p.y - y) for p in parts))


def polygon(loop):
    """Second moments are taken about its own centroid, to keep their digits."""
    n, closed = len(loop.x), (loop.x + loop.x[:1], loop.y + loop.y[:1])
    A, (*_, Sx, Sy) = kezlib.kezapl(*closed, n).area, kezlib.kezspl(*closed, n)
    *_, Ix, Iy, Ixy = kezlib.kezipl(*kezlib.keztra(*closed, n + 1, Sy / A, Sx / A), n)
    return Properties(loop.sign * A, Sy / A, Sx / A, *(loop.sign * i for i in (Ix, Iy, Ixy)))


def rectangle(p, q, share):
    """Between two corners."""
    b, h = abs(q[0] - p[0]), abs(q[1] - p[1])
    A = share * b * h
    return Properties(A, (p[0] + q[0]) / 2, (p[1] + q[1]) / 2, A * h * h / 12, A * b * b / 12, 0.0)


def corners(loop):
    """Of each vertex: x, y, radius, whether the contour turns left (1) or right (-1) there, and the
    directions back and ahead."""
    ring = list(zip(loop.x, loop.y))
    for (x0, y0), (x, y), (x1, y1), r in zip(ring[-1:] + ring, ring, ring[1:] + ring, loop.r):
        back, ahead = ((signum(u - x), signum(v - y)) for u, v in ((x0, y0), (x1, y1)))
        yield x, y, r, ahead[0] * back[1] - ahead[1] * back[0], back, ahead


def fillets(loop):
    """What lies between an arc and its tangents: material that the contour lacks or has too much."""
    for x, y, r, turn, back, ahead in corners(loop) if any(loop.r) else ():
        across, up = back[0] + ahead[0], back[1] + ahead[1]
        A, fourth = -turn * loop.sign * (1 - pi / 4) * r**2, -turn * loop.sign * r**4
        shift = A * (FILLET * r) ** 2
        own = fourth * (1 - 5 * pi / 16) - shift
        yield Properties(A, x + across * FILLET * r, y + up * FILLET * r, own, own,
                         across * up * (fourth * (19 / 24 - pi / 4) - shift))


def curve(loop):
    """The vertices of a rounded contour, each with the bulge of what follows, as DXF has it."""
    for x, y, r, turn, back, ahead in corners(loop):
        if r:
            yield x + r * back[0], y + r * back[1], turn * tan(pi / 8)
        yield x + r * ahead[0], y + r * ahead[1], 0.0


def whole(outline):
    """Rounding leaves a symmetric section a product moment, and where Ix = Iy even that would turn
    its axes by 45 degrees."""
    p = combined([q for loop in outline.loops for q in (polygon(loop), *fillets(loop))])
    return p._replace(Ixy=0.0) if abs(p.Ixy) < 1e-6 * (p.Ix + p.Iy) else p
