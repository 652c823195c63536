"""Outlines for CAD: a block a section, named by its number, on layers."""

import importlib
import io
from dataclasses import dataclass
from typing import List, Tuple

LAYERS = {"KEZ_OUTLINE": 7, "KEZ_LOST": 1, "KEZ_THINNED": 5, "KEZ_CENTROID": 6, "KEZ_TEXT": 8}


@dataclass
class Block:
    number: int
    name: str
    what: str
    loops: List[List[Tuple[float, float, float]]]  # y, z and bulge of the vertices
    lost: List[Tuple[bool, List[complex]]]  # whether it is thinned only, and its corners
    centroid: complex
    width: float
    height: float


def corners(plate, strip):
    across = 1j * plate.along * plate.t / 2
    a, b = plate.at(strip.begin), plate.at(strip.end)
    return [a + across, b + across, b - across, a - across]


def block(sheet):
    """With what is lost under the first action that makes the section one of class 4."""
    g = sheet.g
    loops = [[(z.real, z.imag, bulge) for z, bulge in loop.curve()] for loop in g.loops]
    state = next((sheet.effective[n] for n in sheet.used() if n in sheet.effective), None)
    lost = [(s.share < 1, corners(r.plate, s)) for r in state.reductions for s in r.lost] \
        if state and not state.faults else []
    s = sheet.section
    name = s.name or s.profile or s.shape
    what = f"{s.shape} {s.profile}".strip() + (f", lost under {state.name}" if lost else "")
    return Block(s.number, name, what, loops, lost, g.gross.at, g.right - g.left, g.top - g.bottom)


class Drawing:
    """In millimetres, sections in a row."""
    def __init__(self):
        ezdxf = importlib.import_module("ezdxf")
        self.drawing, self.x, self.widest = ezdxf.new(units=4), 0.0, 0.0
        for name, colour in LAYERS.items():
            self.drawing.layers.add(name, color=colour)

    def add(self, b):
        made = self.drawing.blocks.new(f"SECTION_{b.number}")
        for loop in b.loops:
            made.add_lwpolyline(loop, "xyb", close=True, dxfattribs={"layer": "KEZ_OUTLINE"})
        for thinned, points in b.lost:
            layer = "KEZ_THINNED" if thinned else "KEZ_LOST"
            made.add_lwpolyline([(z.real, z.imag) for z in points], close=True,
                                dxfattribs={"layer": layer})
        made.add_point((b.centroid.real, b.centroid.imag), dxfattribs={"layer": "KEZ_CENTROID"})
        size = max(b.height, b.width) / 20
        for i, text in enumerate((f"{b.number}  {b.name}", b.what)):
            made.add_text(text, height=size, dxfattribs={
                "layer": "KEZ_TEXT",
                "insert": (-b.width / 2, -b.height / 2 - (2 + 1.6 * i) * size)})
        self.drawing.modelspace().add_blockref(made.name, (self.x + b.width / 2, 0))
        self.x += b.width + max(0.5 * b.width, 0.25 * b.height)

    def text(self):
        out = io.StringIO()
        self.drawing.write(out)
        return out.getvalue()
