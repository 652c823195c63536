"""Measures kezlib.arrays beside numpy, shapely, a loop in C and one over single calls, and adds the
rows to table.md: arrays.py [--once] BUILD, with the package in the path of Python.

With --once nothing is timed: it checks that what is measured side by side gives the same answers.
"""

import ctypes
import math
import pathlib
import random
import sys
import time
from typing import Callable, NamedTuple, Optional

import kezlib
import numpy as np
from kezlib import arrays as kz
from report import line

ITEMS = 1_000_000
SINGLES = 10_000  # of single calls, as a million take long
TURNS = 9


class Row(NamedTuple):
    work: str
    ours: Callable
    peer: Callable
    goal: Optional[float] = None
    peer_items: int = ITEMS


def star():
    """An outline of 12 vertices with six notches."""
    at = np.linspace(0, 2 * math.pi, 12, endpoint=False)
    r = np.where(np.arange(12) % 2, 1.3, 0.8)
    return np.stack([r * np.cos(at), r * np.sin(at)], -1).astype(np.float32)


def by_shapely(outline, points):
    import shapely.geometry
    polygon = shapely.geometry.Polygon(outline)
    if hasattr(shapely, "contains_xy"):  # from 2.0 on
        return lambda: shapely.contains_xy(polygon, points[:, 0], points[:, 1])
    from shapely.vectorized import contains
    return lambda: contains(polygon, points[:, 0], points[:, 1])


def in_c(library, outline, points):
    """Of the same outline for all points, and of one for each."""
    status = np.empty(len(points), np.int32)
    X, Y = np.ascontiguousarray(outline.T)
    each = np.broadcast_to(outline, (len(points), *outline.shape)).copy()
    loops = ctypes.CDLL(str(library))

    def address(array):
        return ctypes.c_void_p(array.ctypes.data)

    def same():
        loops.loop_kezppp(len(X), address(X), address(Y), address(points), len(points),
                          address(status))
        return status

    def own():
        loops.loop_kezppp_each(len(X), address(each), address(points), len(points),
                               address(status))
        return status

    return same, own, each


def rows(library):
    rng = np.random.default_rng(1)
    p, q = rng.random((2, ITEMS, 3), np.float32)
    points = (3 * rng.random((ITEMS, 2), np.float32) - 1.5).astype(np.float32)
    outline = star()
    same, own, each = in_c(library, outline, points)
    pairs = [(*a, *b) for a, b in zip(p[:SINGLES].tolist(), q[:SINGLES].tolist())]
    X, Y = ([*column, 0.0] for column in outline.T.tolist())
    places = points[:SINGLES].tolist()

    def inside():
        return kz.point_in_polygon(outline, points)

    return [
        Row("`kz.distance` / numpy", lambda: kz.distance(p, q),
            lambda: np.sqrt(((q - p) ** 2).sum(-1)), 1.0),
        Row("`kz.distance` / a loop of `kezlib.kezpds`", lambda: kz.distance(p, q),
            lambda: [kezlib.kezpds(*pair).d for pair in pairs], 0.01, SINGLES),
        Row("`kz.point_in_polygon`, 12 vertices / a loop in C", inside, same, 1.5),
        Row("`kz.point_in_polygon`, 12 vertices for each point / a loop in C",
            lambda: kz.point_in_polygon(each, points), own),
        Row("`kz.point_in_polygon`, 12 vertices / a loop of `kezlib.kezppp`", inside,
            lambda: [kezlib.kezppp(12, X, Y, *place).status for place in places], 0.01, SINGLES),
        Row("`kz.point_in_polygon`, 12 vertices / shapely", inside, by_shapely(outline, points)),
    ]


def check(row):
    ours = row.ours()[:row.peer_items]
    peer = np.asarray(row.peer())
    if peer.dtype == bool:  # the boundary counts as outside
        ours = ours == 0
    if ours.dtype == np.float32:
        equal = np.allclose(ours, peer, rtol=1e-6)
    else:
        equal = np.mean(ours != peer) < 1e-3  # points near an edge differ
    if not equal:
        sys.exit(f"{row.work}: different answers")


def least_times(found):
    """In ns an item, of ours and of the peer's, taken in random order."""
    least = {}
    for _ in range(TURNS):
        calls = [(i, which) for i in range(len(found)) for which in (0, 1)]
        random.shuffle(calls)
        for i, which in calls:
            row = found[i]
            call, items = ((row.ours, ITEMS), (row.peer, row.peer_items))[which]
            begin = time.process_time()
            call()
            took = (time.process_time() - begin) / items * 1e9
            least[i, which] = min(took, least.get((i, which), math.inf))
    return least


def main(arguments):
    build = pathlib.Path(arguments[-1]).resolve()
    found = rows(build / "libloop.so")
    for row in found:
        check(row)
    if "--once" in arguments:
        print(f"{len(found)} rows of arrays ran; the answers agree")
        return
    least = least_times(found)
    text = ("\n| arrays in Python, time / time beside it | items | ours, ns an item | measured | goal | "
            "met |\n"
            "|---|---|---|---|---|---|\n")
    text += "".join(line(row.work, (ITEMS,), [least[i, 0] / least[i, 1]], row.goal, [least[i, 0]])
                    for i, row in enumerate(found))
    with (build / "table.md").open("a") as table:
        table.write(text)
    print(text, end="")


if __name__ == "__main__":
    main(sys.argv[1:])
