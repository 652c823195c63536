"""A picture of a section, which prints on A4: its dimensions, and what is effective in each state
that the actions ask for."""

from html import escape

from kezsection import drawing, texts

WIDTH, LARGE, SMALL = 720, 340, 300
KEY = (("eff", "compressed, effective"), ("thin", "effective with the thickness χ t"),
       ("lost", "not effective"), ("none", "compressed, no rule"))


def states(sheet):
    """Effective sections that are shown."""
    names = sheet.used() or list(sheet.classes)
    return [sheet.effective[n] for n in names if n in sheet.effective
            and (sheet.number == 4 or sheet.classes[n].number == 4 or not sheet.used())][:5]


def key(x, y, items=KEY):
    out = ""
    for i, (style, words) in enumerate(items):
        out += (f"<rect class='{style}' x='{x}' y='{y + 15 * i - 4}' width='22' height='8'/>"
                f"<text x='{x + 28}' y='{y + 15 * i}' dy='.35em'>{words}</text>")
    return out


def placed(x, y, inside):
    return f"<g transform='translate({x} {y})'>{inside}</g>"


def picture(sheet):
    s, shown = sheet.section, states(sheet)
    rows = [placed(10, 60, drawing.gross(sheet, LARGE, LARGE))]
    spots = [(370, 60)] + [(10 + 360 * (i % 2), 420 + 310 * (i // 2)) for i in range(4)]
    for state, spot in zip(shown, spots):
        rows.append(placed(*spot, drawing.effective(sheet, state, LARGE, SMALL)))
    height = 430 + 310 * ((len(shown)) // 2) if len(shown) > 1 else 430
    thin = any(r.lip for state in shown for r in state.reductions)
    items = [i for i in KEY if {"none": sheet.faults, "thin": thin}.get(i[0], True)]
    if shown:
        rows.append(key(390, 370, items) + f"<text x='390' y='{372 + 15 * len(items)}' dy='.35em'>"
                    "Thin walls are drawn thicker here.</text>")
    for i, line in enumerate((texts.action_line(s), texts.verdict_line(sheet)[:120])):
        rows.append(f"<text x='14' y='{36 + 14 * i}' dy='.35em'>{escape(line)}</text>")
    name = escape(f"{s.number}  {texts.title(s)}"[:80])
    return (f"<svg xmlns='http://www.w3.org/2000/svg' class='kez' width='190mm' "
            f"height='{190 * height / WIDTH:.1f}mm' viewBox='0 0 {WIDTH} {height}'>\n"
            f"<style>\n{drawing.STYLE}\n</style>\n{drawing.DEFS}\n"
            f"<rect width='{WIDTH}' height='{height}' style='fill:#fff;stroke:none'/>\n"
            f"<text x='14' y='18' dy='.35em' style='font-size:16px;font-weight:bold'>{name}"
            "</text>\n"
            + "\n".join(rows) + "\n</svg>\n")
