"""Checks the header's figures of accuracy against what the program measures, and writes the tables
of the manual's page: report.py PROGRAM HEADER OUT
"""

import pathlib
import platform
import subprocess
import sys

from claims import check

PLACES = {"origin": "origin in its middle", "site": "within 100 m", "moved": "the same, moved",
          "far": "1 km away"}

# What each cure is for: the measurement, what goes wrong or is off, its unit, and the cure.
GAINS = [
    ("parallel", "`kezlni`: parallel lines by `kezln3` count as crossing", None,
     "divide each line by the length of its normal"),
    ("ordered", "`kezpor`: parallel lines by `kezln3` are not ordered", None,
     "divide each line by the length of its normal"),
    ("tangent", "`kezlci`: a tangent does not count as touching", None,
     "scale to a size of 1, divide the line by the length of its normal"),
    ("skew", "`kezdirl`: lines that meet count as skew", None, "scale to a size of 1"),
    ("plane", "`kezptp1`: points of a plane count as off it", None, "scale to a size of 1"),
    ("level", "`kezlci`: a line that rises 1 in 100, points off the circle", "mm",
     "swap x and y: pass b, a, c, E, D, F"),
    ("small", "`kezphi`: angles from 0.001 to 0.01", "rad", "atan2(sina, cosa) from `keztrg`"),
]

# What is measured for every routine shows the first cure at its best here.
MOVED = ["kezlni", "kezlci", "kezcer2", "kezapl", "kezspl", "kezipl", "kez3lds", "kezpl1"]


def read(text):
    """The ordinary calls by routine, the other measurements by key, and the rows of the example."""
    ordinary, others, example = {}, {}, []
    for line in text.splitlines():
        kind, *fields = line.split("\t")
        if kind == "ordinary":
            routine, what, unit, place, *figures = fields
            calls = ordinary.setdefault(routine, {"what": what, "unit": unit})
            calls[place] = list(map(float, figures))
        elif kind == "example":
            example.append(fields)
        elif kind == "errors":
            others[fields[0]] = tuple(map(float, fields[1:]))
        else:
            others[fields[0]] = float(fields[1])
    return ordinary, others, example


def shown(figure):
    """Two digits, without an exponent while that stays short."""
    if figure == 0:
        return "0"
    digits, _, exponent = f"{figure:.1e}".partition("e")
    if not -6 <= int(exponent) < 6:
        return f"{digits}e{int(exponent)}"
    return f"{float(f'{digits}e{exponent}'):.{max(1 - int(exponent), 0)}f}"


def percent(share):
    return f"{100 * share:.0f} %" if share == 0 or share >= 0.01 else "under 1 %"


def pair(typical, worst):
    return f"{shown(typical)} / {shown(worst)}"


def table(head, rows):
    widths = [max(map(len, column)) for column in zip(head, *rows)]
    lines = [head, ["-" * width for width in widths], *rows]
    return "".join(f"| {' | '.join(cell.ljust(width) for cell, width in zip(row, widths))} |\n"
                   for row in lines)


def result(routine, calls):
    return f"`{routine}`: {calls['what']}"


def ordinary_table(ordinary, first, with_unit):
    rows = []
    for routine, calls in ordinary.items():
        cells = [result(routine, calls)] + ([calls["unit"]] if with_unit else [])
        for place in PLACES:
            figures, without = calls[place][first:first + 2], calls[place][4]
            none = f" ({percent(without)} none)" if with_unit and without else ""
            cells.append(pair(*figures) + none)
        rows.append(cells)
    head = ["result"] + (["unit"] if with_unit else []) + list(PLACES.values())
    return table(head, rows)


def moved_table(ordinary):
    rows = [[result(name, ordinary[name]), ordinary[name]["unit"],
             pair(*ordinary[name]["site"][:2]), pair(*ordinary[name]["moved"][:2])]
            for name in MOVED]
    return table(["result", "unit", "before", "after"], rows)


def gains_table(others):
    rows = []
    for key, what, unit, cure in GAINS:
        before, after = others[f"{key} before"], others[f"{key} after"]
        cells = [percent(f) if unit is None else f"{pair(*f[:2])} {unit}" for f in (before, after)]
        rows.append([what, *cells, cure])
    return table(["what goes wrong, or is off", "before", "after", "cure"], rows)


def claims_table(rows):
    kinds = {"t": "typically", "b": "typically below", "w": "at worst", "m": "at worst"}
    texts = []
    for name, key, kind, words, found in rows:
        if isinstance(found, tuple):
            found = shown(found[1] if kind == "w" else found[0])
        else:
            found = percent(found)
        texts.append([f"`{name}`", key, f"{kinds.get(kind, '')} {words}".strip(), found])
    return table(["entry", "measurement", "it says", "measured"], texts)


def main(program, header, out):
    output = subprocess.run([program], check=True, capture_output=True, text=True).stdout
    ordinary, others, example = read(output)
    gains = {key: others.pop(key) for key in list(others) if key.endswith((" before", " after"))}
    faults, rows = check(header.read_text(), others)
    tables = {"ordinary": ordinary_table(ordinary, 0, True),
              "last_places": ordinary_table(ordinary, 2, False),
              "moved": moved_table(ordinary), "gains": gains_table(gains),
              "example": table(["crossing", "x (mm)", "y (mm)"], example),
              "claims": claims_table(rows), "machine": f"{platform.machine()}\n"}
    for name, text in tables.items():
        (out / f"{name}.md").write_text(text)
        print(f"{name}\n{text}")
    if faults:
        sys.exit("\n".join(["The header's figures and the measurements disagree:", *faults]))
    print(f"{len(rows)} figures of the header hold")


if __name__ == "__main__":
    main(*map(pathlib.Path, sys.argv[1:]))
