"""The sheet as a page of A4, for the screen and for printing."""

from html import escape

from kezsection import __version__, data, drawing, svg, texts
from kezsection.texts import figure

CSS = data("page.css")


def head(path):
    return ("<!DOCTYPE html>\n<html lang='en'>\n<meta charset='utf-8'>\n"
            "<meta name='viewport' content='width=device-width'>\n"
            f"<title>Section sheets: {escape(path)}</title>\n<style>{CSS}{drawing.STYLE}</style>\n"
            f"<svg width='0' height='0' style='position:absolute'>{drawing.DEFS}</svg>\n")


TAIL = "</html>\n"


def cells(values, tag="td"):
    return "".join(f"<{tag}>{escape(v)}</{tag}>" for v in values)


def table(headings, rows):
    wide = len(headings)
    body = "".join(f"<tr>{cells(row)}</tr>" if len(row) == wide else
                   f"<tr>{cells(row[:-1])}<td class='l' colspan='{wide - len(row) + 1}'>"
                   f"{escape(row[-1])}</td></tr>" for row in rows)
    return f"<table><tr>{cells(headings, 'th')}</tr>{body}</table>"


def values(items):
    return "<div class='values'>" + "".join(
        f"<div><span>{escape(symbol)}</span><span>{figure(value)}</span><span>{unit}</span></div>"
        for symbol, value, unit in items) + "</div>"


def bar(utilisation):
    """The mark is at 100 %, the end at 125 %."""
    share = min(utilisation, 1.25) / 1.25 * 100 if utilisation == utilisation else 100
    over = " over" if not utilisation <= 1 else ""
    return f"<span class='bar{over}'><i style='width:{share:.1f}%'></i></span>"


def amount(c, value):
    if c.unit == "kN":
        return f"{value / 1e3:.4g}"
    return f"{value / 1e6:.4g}" if c.unit == "kNm" else f"{value:.4g}"


def checks(sheet):
    rows = []
    for c in sheet.checks:
        demand, limit = amount(c, c.demand), amount(c, c.resistance)
        style = " class='gov'" if c is sheet.governing else ""
        rows.append(f"<tr{style}><td>{escape(c.what)}</td><td class='l n'>{escape(c.clause)}</td>"
                    f"<td class='l how'>{escape(c.follow)}</td><td>{demand}</td><td>{limit}</td>"
                    f"<td class='l'>{escape(c.unit)}</td>"
                    f"<td>{texts.utilisation(c.utilisation)}</td>"
                    f"<td>{bar(c.utilisation)}</td></tr>")
    if not rows:
        return ""
    return ("<div><h2>Checks</h2><table><tr><th>Check<th class='l'>Clause<th class='l'>How<th>"
            "Action<th>Limit<th><th>Utilisation<th></tr>" + "".join(rows) + "</table></div>")


def classes(sheet):
    out = []
    for name in texts.shown_states(sheet):
        found = sheet.classes.get(name) or sheet.combined[name]
        title = f"<h2>Class under {escape(name)}: {found.number}</h2>"
        rows = texts.class_rows(sheet, found)
        if rows:
            out.append(f"<div>{title}" + table(("EN 1993-1-1, table 5.2", "c/t", "α", "ψ", "1", "2",
                                                "3", "class"), rows) + "</div>")
        elif found.note:
            out.append(f"<div>{title}<p class='note'>{escape(found.note)}</p></div>")
    return out


def plates(sheet):
    out = []
    for state in svg.states(sheet):
        clause = "EN 1993-1-3, 5.5" if sheet.g.cold else "EN 1993-1-5, 4.4"
        what = "" if state.faults else "<p class='note'>" + ", ".join(
            f"{a} {figure(v, 5)} {u}" for a, v, u in texts.effective_items(sheet, state)) + "</p>"
        lips = "".join(f"<p class='note'>{escape(lip_note(r))}</p>" for r in state.reductions
                       if r.lip)
        out.append(f"<div><h2>Effective under {state.name} alone</h2>{what}"
                   + table((clause, "b", "ψ", "kσ", "λp", "ρ", "bc", "be1", "be2"),
                           texts.plate_rows(state)) + lips + "</div>")
    return out


def lip_note(r):
    s = r.lip
    compare = f"; kezchi {s.kezchi:.3f}" if s.kezchi else ""
    return (f"{r.plate.name}: ceff {s.ceff:.2f}, be2 {s.be2:.2f} mm, As {s.As:.1f} mm², Is "
            f"{s.Is:.0f} mm⁴, b1 {s.b1:.1f} mm, kf {s.kf:.2f}, K {s.K:.4f} N/mm², σcr,s "
            f"{s.sigma_cr:.1f} N/mm², λd {s.lambda_d:.3f}, χd {s.chi:.3f}{compare}")


def resistances(sheet):
    rows = [[what, figure(value, 5), unit, clause, how]
            for what, clause, how, value, unit in texts.resistance_items(sheet)]
    body = "".join(f"<tr><td>{escape(r[0])}</td><td>{r[1]}</td><td class='l'>{r[2]}</td>"
                   f"<td class='l n'>{r[3]}</td><td class='l how'>{escape(r[4])}</td></tr>"
                   for r in rows)
    return f"<h2>Resistances</h2><table>{body}</table>"


def size_of(sheet, blocks, shown):
    """Of the letters, so that a section keeps to its page."""
    below = [block.count("<tr") + 1.5 * block.count("<h2") + 1.7 * block.count("<p")
             for block in blocks]
    beside = (len(texts.value_items(sheet)) / 2 + len(list(texts.resistance_items(sheet))) + 6)
    panels = PANEL[min(len(shown), 4)]
    for tenths in range(80, 40, -2):
        row = tenths / 10 * 0.353 * 1.28 + 0.5  # mm
        need = (26 + max(drawing_width(shown) + 2, beside * row) + (len(sheet.checks) + 3) * row
                + panels + sum(below) / 2 * row + max(below, default=0) / 2 * row)
        if need < 264 - 4 * len(sheet.faults):
            break
    return tenths / 10


PANEL = (0, 52, 52, 46, 40)  # mm, the height of the row of small drawings by their number


def drawing_width(shown):
    return 62 if shown else 84


def notes(sheet):
    """Moments of the shifted centroid, and cold-formed corners."""
    a, (ey, ez) = sheet.action, sheet.N_eN
    if not (ey or ez):
        return ""
    return (f"<p class='note'>N eN (EN 1993-1-5, 4.3(3)): eNy {sheet.shift.real + 0.0:.3f}, eNz "
            f"{sheet.shift.imag + 0.0:.3f} mm; My + N eNz = {(a.My + ey) / 1e6:.4g} kNm, Mz + "
            f"N eNy = {(a.Mz + ez) / 1e6:.4g} kNm</p>")


def page(sheet, options, path):
    s = sheet.section
    shown = svg.states(sheet)
    main = (f"<svg class='kez' viewBox='0 0 {svg.LARGE} {svg.LARGE}'>"
            f"{drawing.gross(sheet, svg.LARGE, svg.LARGE)}</svg>")
    small = "".join(f"<svg class='kez' viewBox='0 0 300 250'>"
                    f"{drawing.effective(sheet, state, 300, 250)}</svg>"
                    for state in shown)
    tone = {"satisfied": "", "outside the rules": " warn"}.get(sheet.verdict, " bad")
    tone = "" if not sheet.checks and not sheet.faults and not sheet.outside else tone
    core = (f"; t_cor {sheet.g.cold.t:.4g}, r {sheet.g.cold.r:g} mm" if sheet.g.cold else "")
    blocks = classes(sheet) + plates(sheet)
    return (f"<section class='page' style='font-size:{size_of(sheet, blocks, shown):.1f}pt'>"
            f"<header><div><h1>{s.number}&ensp;{escape(texts.title(s))}</h1>"
            f"<p>{escape(f'{s.shape} {s.profile}'.strip())}: {escape(texts.dims_line(s))} mm{core}"
            f"</p><p>{escape(texts.action_line(s))}</p></div><div class='right'><p>kezsection "
            f"{__version__}</p><p>{texts.today()}</p><p>{escape(path)[-60:]}:{s.line}</p></div>"
            f"</header><div class='verdict{tone}'>{escape(texts.verdict_line(sheet))}</div>"
            f"<div class='top' style='grid-template-columns:{drawing_width(shown)}mm 1fr'>"
            f"<div>{main}</div><div><h2>Gross section</h2>"
            f"{values(texts.value_items(sheet))}{resistances(sheet)}{notes(sheet)}</div></div>"
            + checks(sheet)
            + (f"<div class='small' style='height:{PANEL[min(len(shown), 4)]}mm'>{small}</div>"
               if small else "")
            + f"<div class='two'>{''.join(blocks)}</div>"
            f"<footer>{escape(texts.STANDARDS)}. {escape(texts.option_line(options))} "
            f"{escape(' '.join(texts.RULES[:7]))} {escape(texts.NOT_COVERED)}</footer></section>\n")
