"""The report in words and tables, 80 columns wide."""

import textwrap

from kezsection import __version__, texts
from kezsection.texts import figure

WIDE = 80


def wrapped(text, indent=2, hang=0):
    if indent + len(text) <= WIDE:
        return [" " * indent + text]
    return textwrap.wrap(text, WIDE, initial_indent=" " * indent,
                         subsequent_indent=" " * (indent + hang), break_long_words=True)


def head(path, options):
    lines = [f"kezsection {__version__}, {texts.today()}, {path}",
             *wrapped(texts.STANDARDS + "; E 210000 N/mm2, nu 0.3.", 0),
             *wrapped(texts.option_line(options), 0), ""]
    for rule in texts.RULES:
        lines += wrapped("- " + rule, 0, 2)
    return "\n".join(lines + ["", *wrapped(texts.NOT_COVERED, 0)]) + "\n"


def columns(items):
    """Values, two a line."""
    cells = [f"{symbol:21}{figure(value):>11} {unit:4}" for symbol, value, unit in items]
    return ["  " + "  ".join(cells[i:i + 2]).rstrip() for i in range(0, len(cells), 2)]


def class_lines(sheet, name, found):
    if not found.plates and not found.note:
        return
    clause = "EN 1993-1-1, table 5.2" if not sheet.g.elastic else "table 5.2, class 3 only"
    note = f", {found.note}" if found.note else ""
    yield f"  Class under {name}: {found.number}{note}  ({clause})"
    if found.plates:
        yield (f"    {'plate':21}{'c/t':>7}{'alpha':>8}{'psi':>8}  limits of class 1, 2, 3"
               f"{'class':>7}")
    for name, *values in texts.class_rows(sheet, found):
        yield f"    {name:21}" + "".join(f"{v:>{w}}" for v, w in zip(values, (7, 8, 8, 8, 8, 8, 8)))


def plate_lines(sheet, state):
    clause = "EN 1993-1-3, 5.5" if sheet.g.cold else "EN 1993-1-5, 4.4"
    yield f"  Effective under {state.name} alone  ({clause})"
    yield from columns(texts.effective_items(sheet, state)) if not state.faults else ()
    widths = (7, 7, 6, 9, 6, 7, 7, 7)
    heads = ("b", "psi", "k_sig", "lambda_p", "rho", "bc", "be1", "be2")
    yield f"   {'plate':20}" + "".join(f"{h:>{w}}" for h, w in zip(heads, widths))
    for name, *values in texts.plate_rows(state):
        if len(values) == 3:
            yield f"   {name:20}{values[0]:>7}{values[1]:>7}  {values[2]}"
        else:
            yield f"   {name:20}" + "".join(f"{v:>{w}}" for v, w in zip(values, widths))
    for r in state.reductions:
        if r.lip:
            yield from lip_lines(r)


def lip_lines(r):
    s = r.lip
    other = "" if s.kezchi is None else f", kezchi {s.kezchi:.3f}" if s.kezchi else \
        ", kezchi does not settle"
    yield from wrapped(
        f"{r.plate.name}: be2 {s.be2:.2f}, ceff {s.ceff:.2f} mm, As {s.As:.2f} mm2, Is "
        f"{s.Is:.1f} mm4, b1 {s.b1:.2f} mm, kf {s.kf:.3f}, K {s.K:.4f} N/mm2 (5.10b), sigma_cr,s "
        f"{s.sigma_cr:.1f} "
        f"N/mm2 (5.15), lambda_d {s.lambda_d:.3f}, chi_d {s.chi:.3f} (5.12), t_red "
        f"{s.chi * r.plate.t:.3f} mm{', step ' + str(s.steps) if s.steps > 1 else ''}{other}", 3, 2)


def check_line(c):
    if c.unit == "kN":
        values = f"{c.demand / 1e3:10.4g} {c.resistance / 1e3:10.4g} kN "
    elif c.unit == "kNm":
        values = f"{c.demand / 1e6:10.4g} {c.resistance / 1e6:10.4g} kNm"
    elif c.resistance == 1.0:
        values = f"{c.demand:10.4g} {1:10} -  " if c.demand < 1e4 else " " * 25
    else:
        values = f"{c.demand:10.4g} {c.resistance:10.4g} {c.unit[:3] or '-':3}"
    return f"  {c.what[:30]:30}{values} {texts.utilisation(c.utilisation):>11}"


def report(sheet, path=""):
    """The lines of a section, as one text."""
    s = sheet.section
    place = f"{path}:{s.line}"
    first = f"{s.number}  {texts.title(s)}"
    room = WIDE - len(first) - 2
    lines = ["=" * WIDE]
    lines += [first + f"{place:>{room + 2}}" if len(place) <= room else first]
    lines = lines[:1] + (wrapped(first, 0, 3) if len(first) > WIDE else lines[1:])
    lines += [] if len(place) <= room else wrapped(place, 3)
    what = f"{s.profile}, {s.shape}" if s.profile else s.shape
    lines += wrapped(f"{what}: {texts.dims_line(s)} mm", 3, 2)
    lines += wrapped(texts.action_line(s), 3, 2)
    if sheet.g.cold:
        lines += wrapped(f"core thickness {sheet.g.cold.t:.4g} mm (EN 1993-1-3, 3.2.4), inner "
                         f"radius {sheet.g.cold.r:g} mm{corner_note(sheet)}", 3, 2)
    lines += ["", *wrapped(texts.verdict_line(sheet), 2, 2), "", "  Gross section"]
    lines += columns(texts.value_items(sheet)) + [""]
    for name in texts.shown_states(sheet):
        found = sheet.classes.get(name) or sheet.combined[name]
        lines += class_lines(sheet, name, found)
    for name in sheet.used():
        if name in sheet.effective and (sheet.number == 4 or sheet.classes[name].number == 4):
            lines += ["", *plate_lines(sheet, sheet.effective[name])]
    lines += ["", "  Resistances"]
    for what, clause, how, value, unit in texts.resistance_items(sheet):
        start = f"  {what:12}{figure(value):>9} {unit:4} {clause:13}"
        lines += wrapped(start + how, 0, len(start))
    lines += action_notes(sheet)
    if sheet.checks:
        lines += ["", f"  {'Check':30}{'action':>10} {'limit':>10}{'utilisation':>16}"]
        for c in sheet.checks:
            lines += [check_line(c), *wrapped(f"{c.clause}: {c.follow}", 4, 2)]
    return "\n".join(line.rstrip() for line in lines) + "\n\n"


def corner_note(sheet):
    from kezsection import en1993_1_3 as en3
    if not sheet.g.cold.r:
        return ", sharp corners"
    widths = [p.width for p in sheet.g.plates]
    kept = en3.corners_may_be_neglected(sheet.g.cold.r, sheet.g.cold.t, widths)
    return (f"; r {'<=' if kept else 'not <='} 5 t and 0.10 bp (5.1(3)): exact corners and "
            f"notional widths are used")


def action_notes(sheet):
    ey, ez = sheet.N_eN
    if not (ey or ez):
        return []
    a = sheet.action
    text = (f"N eN (EN 1993-1-5, 4.3(3)): eNy {sheet.shift.real + 0.0:.3f}, eNz "
            f"{sheet.shift.imag + 0.0:.3f} mm; My + N eNz = {a.My / 1e6:g} {ey / 1e6:+.4g} = "
            f"{(a.My + ey) / 1e6:.4g} kNm, Mz + N eNy = {a.Mz / 1e6:g} {ez / 1e6:+.4g} = "
            f"{(a.Mz + ez) / 1e6:.4g} kNm")
    return ["", *wrapped(text, 2, 2)]
