"""The picture of a section sheet, drawn by the program that the manual describes."""

import subprocess

from interface import ROOT
from markupsafe import Markup as Safe

PROGRAM = ROOT / "build/package/bin/kezsection"
LINE = "girder 1200 320 400 25 25 8  355  0 2400  Vz=900 a=2400 end=rigid  Main span"
FILE = "section.svg"


def draw(assets, work):
    """Writes the picture of LINE beside the scripts."""
    sections = work / "sections.txt"
    sections.write_text(f"{LINE}\n")
    subprocess.run([PROGRAM, sections, "--quiet", "--svg", work / "sheet"], check=True)
    (assets / FILE).write_text((work / "sheet/section-1.svg").read_text())


def figure():
    return Safe('<figure><a href="assets/{0}"><img src="assets/{0}" alt="A welded girder with its '
                'dimensions, and its effective section with what buckling takes from the web"></a>'
                "<figcaption>The picture of <code>{1}</code></figcaption></figure>").format(
                    FILE, LINE)
