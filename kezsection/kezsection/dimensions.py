"""Which dimensions a drawing of a shape shows, and where."""

from typing import NamedTuple

from kezsection.shapes import inner_radius


class Size(NamedTuple):
    """Between two points, on a side of the outline; level: how many lines are nearer to it."""
    p: complex
    q: complex
    side: str
    words: str
    level: int = 0


def label(name, value):
    return f"{name} {value:g}"


def of(sheet):
    """Sizes, and leaders: points with words."""
    g, d = sheet.g, sheet.section.dims
    return SHAPES[sheet.section.shape](g, d)


def box(g, width, height, side="top"):
    """The overall ones."""
    z = g.top if side == "top" else g.bottom
    return [Size(complex(g.left, z), complex(g.right, z), side, width),
            Size(complex(g.left, g.top), complex(g.left, g.bottom), "left", height)]


def across(b, z, side, words, level=0):
    return Size(complex(-b / 2, z), complex(b / 2, z), side, words, level)


def girder(g, d):
    return ([across(d.b1, g.top, "top", label("b1", d.b1)),
             across(d.b2, g.bottom, "bottom", label("b2", d.b2)),
             box(g, "", label("d", d.d))[1]],
            [(complex(d.b1 / 2, g.top - d.t1 / 2), label("t1", d.t1)),
             (complex(d.tw / 2, d.d / 6), label("tw", d.tw)),
             (complex(d.b2 / 2, g.bottom + d.t2 / 2), label("t2", d.t2))])


def rolled(g, d):
    return (box(g, label("b", d.b), label("h", d.h)),
            [(complex(d.b / 2, g.top - d.tf / 2), label("tf", d.tf)),
             (complex(d.tw / 2 + 0.3 * d.r, g.top - d.tf - 0.3 * d.r), label("r", d.r)),
             (complex(d.tw / 2, d.h / 8), label("tw", d.tw))])


def tee(g, d):
    leaders = [(complex(d.b / 2, g.top - d.tf / 2), label("tf", d.tf)),
               (complex(d.tw / 2, -d.h / 8), label("tw", d.tw))]
    if d.r:
        leaders.insert(1, (complex(d.tw / 2 + 0.3 * d.r, g.top - d.tf - 0.3 * d.r),
                           label("r", d.r)))
    return box(g, label("b", d.b), label("h", d.h)), leaders


def box_girder(g, d):
    return ([across(d.bt, g.top, "top", label("bt", d.bt)),
             across(d.s, g.bottom, "bottom", label("s", d.s)),
             across(d.bb, g.bottom, "bottom", label("bb", d.bb), 1),
             box(g, "", label("h", d.h))[1]],
            [(complex(d.bt / 2, g.top - d.tt / 2), label("tt", d.tt)),
             (complex(d.s / 2 + d.tw, d.h / 6), label("tw", d.tw)),
             (complex(d.bb / 2, g.bottom + d.tb / 2), label("tb", d.tb))])


def hollow(g, d):
    leaders = [(complex(d.b / 2, d.h / 6), label("t", d.t))]
    if getattr(d, "r", 0):
        off = 0.29 * d.r
        leaders.insert(0, (complex(g.right - off, g.top - off), label("ro", d.r)))
        leaders.append((complex(g.right - d.t, g.bottom + d.t + inner_radius(d)),
                        label("ri", round(inner_radius(d), 3))))
    return box(g, label("b", d.b), label("h", d.h)), leaders


def tube(g, d):
    return ([Size(complex(g.left, g.bottom), complex(g.right, g.bottom), "bottom",
                  label("d", d.d))], [(complex(g.right - d.t / 2, 0), label("t", d.t))])


def angles(g, d):
    sizes = [Size(complex(g.left, g.top), complex(-d.s / 2, g.top), "top", label("a", d.a)),
             box(g, "", label("h", d.h))[1]]
    if d.s:
        sizes.append(across(d.s, g.bottom, "bottom", label("s", d.s)))
    return sizes, [(complex(g.right, g.top - d.th / 2), label("th", d.th)),
                   (complex(d.s / 2 + d.tv, -d.h / 8), label("tv", d.tv))]


def angle(g, d):
    leaders = [(complex(g.left + d.t, d.h / 4), label("t", d.t))]
    if d.r1:
        leaders.append((complex(g.left + d.t + 0.3 * d.r1, g.bottom + d.t + 0.3 * d.r1),
                        label("r1", d.r1)))
    if d.r2:
        leaders.append((complex(g.right - 0.3 * d.r2, g.bottom + d.t - 0.3 * d.r2),
                        label("r2", d.r2)))
    return box(g, label("b", d.b), label("h", d.h), "bottom"), leaders


def cold(g, d):
    """Overall dimensions, of the nominal thickness."""
    c, sizes = g.cold, []
    for name, side, z in (("top", "top", g.top), ("bottom", "bottom", g.bottom)):
        (corner, flange, tip), (b, lip) = c.points[name], c.overall[name]
        n = "" if hasattr(d, "b") else {"top": "1", "bottom": "2"}[name]
        way = 1 if flange.real > corner.real else -1
        web = corner.real - way * c.t / 2
        far = flange.real + way * (c.t / 2 if tip else 0.0)
        if n or name == "top":
            sizes.append(Size(complex(min(web, far), z), complex(max(web, far), z), side,
                              label("b" + n, b)))
        if tip and (n or name == "top"):
            sizes.append(Size(complex(far, z), complex(far, tip.imag),
                              "right" if way > 0 else "left", label("c" + n, lip)))
    level = max((s.level + 1 for s in sizes if s.side == "left"), default=0)
    sizes.append(Size(complex(g.left, g.top), complex(g.left, g.bottom), "left",
                      label("h", d.h), level))
    middle = c.points["top"][0].real
    leaders = [(complex(middle + c.t / 2, d.h / 8), label("t", d.t))]
    if c.r:
        z = c.points["top"][0]
        way = 1 if c.points["top"][1].real > z.real else -1
        inside = c.t / 2 + 0.3 * c.r
        leaders.insert(0, (z + complex(way * inside, -inside), label("r", round(c.r, 3))))
    for y in (-d.yw, d.yw)[:int(getattr(d, "nw", 0))] if getattr(d, "nw", 0) else ():
        sizes.append(Size(complex(middle, y - d.sw / 2), complex(middle, y + d.sw / 2), "left",
                          label("sw", d.sw)))
        leaders.append((complex(middle, y), f"yw {y:g}"))
    if getattr(d, "nw", 0):
        sizes = [s._replace(level=1) if s.words.startswith("h ") else s for s in sizes]
    return sizes, leaders


def flat(g, d):
    return box(g, label("b", d.b), label("h", d.h)), []


def disc(g, d):
    return [Size(complex(g.left, g.bottom), complex(g.right, g.bottom), "bottom",
                 label("d", d.d))], []


SHAPES = {"girder": girder, "rolled": rolled, "tee": tee, "box": box_girder, "rhs": hollow,
          "hollow": hollow, "chs": tube, "angles": angles, "angle": angle, "channel": cold,
          "cee": cold, "zed": cold, "flat": flat, "round": disc}
