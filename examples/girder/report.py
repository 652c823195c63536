"""The report of a section in words and tables, and its line of a table."""

from pathlib import Path

NOTES = Path(__file__).with_name("notes.txt").read_text(encoding="utf-8")
HEAD = """
  Plates under {:13}     b     t    b/t      s1      s2    psi    rho    be1    be2   lost
                              [mm]  [mm]             [N/mm2]                  [mm]   [mm]   [mm]"""


def figure(value, digits=6):
    return "" if value is None else f"{value:.{max(digits - len(str(int(abs(value)))), 0)}f}"


def dims(s):
    return ", ".join(f"{name} {value:g}" for name, value in vars(s.dims).items())


def values(r):
    shown = r.faults or any(plate.lost for state in r.states for plate in state.plates)
    yield f"{'Gross':>47} {('INCOMPLETE' if r.faults else 'Effective') if shown else '':>11}"
    for what, symbol, unit, gross, effective in r.quantities():
        if gross is not None and (symbol != "Ixy" or gross):
            second = ("?" if r.faults else figure(effective)) if shown else ""
            yield f"  {what:24} {symbol:3} {unit:5} {figure(gross):>11} {second:>11}"


def plates(state):
    yield from HEAD.format(state.name + " alone").split("\n")
    for number, r in enumerate(state.plates, 1):
        p, rho = r.plate, 1 - r.gone() / (r.end - r.begin)
        s1, s2 = (state.stress(p.at(p.width * (end == r.at_start))) for end in (False, True))
        line = (f"  {number} {p.name:22} {p.width:7.1f} {p.t:5.1f} {p.width / p.t:6.1f} {s1:7.1f} "
                f"{s2:7.1f} {r.psi:6.3f} ")
        yield line + (f"     ?  NOT REDUCED, no rule: {r.fault}" if r.fault else
                      f"{rho:6.3f} {r.ends[0]:6.1f} {r.ends[1]:6.1f} {r.gone():6.1f}  {r.rule}")


def report(number, r):
    s, pressed = r.section, [state for state in r.states if state.plates]
    verdict = (f"INCOMPLETE, no rule for {', '.join(r.faults)}. Nothing effective is known."
               if r.faults else
               f"The largest stress, {r.largest:.1f} N/mm2 at the {r.where}, is {r.verdict}: "
               f"{100 * abs(r.largest) / s.fy:.1f} % of it.")
    lines = [f"{number}  {s.name or 'Section'}", f"   {s.shape}: {dims(s)} mm",
             f"   fy {s.fy:g} N/mm2, N {s.N / 1e3:g} kN, M {s.M / 1e6:g} kNm", "", *values(r),
             *(line for state in pressed for line in plates(state)),
             *(() if pressed else ("", "  No plate is in compression.")), "", f"  {verdict}", ""]
    return [line.rstrip() for line in lines]


def row(number, r):
    s = r.section
    yield from (("number", number), ("name", s.name), ("shape", s.shape), ("dims [mm]", dims(s)),
                ("fy [N/mm2]", s.fy), ("N [kN]", s.N / 1e3), ("M [kNm]", s.M / 1e6),
                ("largest [N/mm2]", "" if r.faults else r.largest), ("verdict", r.verdict))
    for what, symbol, unit, gross, effective in r.quantities():
        yield f"{symbol or what} [{unit}]", gross
        yield f"{symbol or what} effective [{unit}]", effective
