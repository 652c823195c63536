"""Reads sections, one a line."""

import re
from pathlib import Path
from types import SimpleNamespace

from kezsection import profiles
from kezsection.model import Action, Section
from kezsection.shapes import DEFAULTS, KEYS, SHAPES

LENGTHS = {"mm": 1.0, "cm": 10.0, "m": 1e3}  # the first is meant where none is written
MOMENTS = {"kNm": 1e6, "Nm": 1e3, "MNm": 1e9, "kNcm": 1e4, "Nmm": 1.0}
FORCES = {"kN": 1e3, "N": 1.0, "MN": 1e6}
UNITS = {"nw": {"": 1.0}, "tol": {"%": 1.0},
         "fy": {"N/mm2": 1.0, "MPa": 1.0, "kN/cm2": 10.0},
         "N": FORCES, "Vz": FORCES, "M": MOMENTS, "Mz": MOMENTS}
RANGES = {"fy": (100.0, 1000.0), "N": (-1e9, 1e9), "Vz": (-1e9, 1e9), "M": (-1e12, 1e12),
          "Mz": (-1e12, 1e12), "tol": (0.0, 50.0), "nw": (0.0, 2.0), "a": (1.0, 1e6)}
# Beyond 10 m powers could overflow, below 0.1 mm the library's tolerance would begin to show.
LARGEST, SMALLEST = 10000.0, 0.1
NUMBER = re.compile(r"([-+]?(?:\d+\.?\d*|\.\d+)(?:[eE][-+]?\d+)?)([A-Za-z%].*)?")
FORCE_COLUMNS = ("fy", "N", "M")
COMMON_KEYS = ("Mz", "Vz", "a", "end")
# A key that stands in a name, where it would do nothing: Vz =300, Vz:300, beam Vz=300.
LOST_KEY = re.compile(r"(?i)\b(?:[NMV][yz]?|a|end|ri?|coat|tol)\s*(?:=|:\s*[-+.\d])")


def number(name, word, zero, usage):
    """In mm, N and N/mm2. zero: whether a length may be 0."""
    units, parts = UNITS.get(name, LENGTHS), NUMBER.fullmatch(word)
    first = next(iter(units))
    if not parts or (unit := parts[2] or first) not in units:
        raise ValueError(f"{name} '{word}' is not a number, with {' or '.join(units) or 'no unit'} "
                         f"behind it or nothing; write {usage}")
    value = float(parts[1]) * units[unit]
    low, high = RANGES.get(name, (0.0 if zero else SMALLEST, LARGEST))
    if not low <= value <= high:
        low, high = (f"{end / units[first]:g}" for end in (low, high))
        raise ValueError(f"{name} {word} is outside {low} to {high} {first}".rstrip())
    return value


def half(entry):
    """A tee of half the depth of a rolled I."""
    name, shape, d = entry
    if shape != "rolled":
        raise ValueError(f"half stands before a rolled I or H section, and {name} is none")
    return f"half {name}", "tee", {"b": d["b"], "h": d["h"] / 2, "tf": d["tf"], "tw": d["tw"],
                                   "r": d["r"]}


def beginning(words):
    """The shape of a line, its dimensions where a profile has them, and the profile's name."""
    is_half = words[0].lower() == "half" and len(words) > 1
    rest = words[is_half:]
    entry = profiles.take(rest)  # first, since RHS 200x100x8 begins as the shape rhs does
    if entry:
        words[:] = rest
        name, shape, dims = half(entry) if is_half else entry
        return shape, dims, name
    if words[0].lower() in SHAPES:
        return words.pop(0).lower(), None, ""
    known = profiles.near(words[is_half:])
    word = "".join(words[is_half:][:2]).upper() if known else words[0]
    raise ValueError(f"unknown word {word if known else repr(word)}; write " + ", ".join(
        known or [*SHAPES, "or a profile such as IPE 300, HEB 200"]))


def options(words, shape, usage):
    """The words key=value, which are taken, by key."""
    found, allowed = {}, COMMON_KEYS + SHAPES[shape].keys
    while words and re.fullmatch(r"[A-Za-z]+=.*", words[0]):
        key, _, value = words.pop(0).partition("=")
        key = next((k for k in allowed if k.lower() == key.lower()), key)
        if key not in allowed:
            raise ValueError(f"{shape} has no {key}=; write {', '.join(k + '=' for k in allowed)} "
                             f"or leave it out")
        if key in found:
            raise ValueError(f"{key}= stands there twice")
        if key == "end":
            if value not in ("rigid", "plain"):
                raise ValueError(f"end={value}: write end=rigid or end=plain")
            found[key] = value
        else:
            found[key] = number(key, value, True, usage)
    return found


def parse(text, place=1, line=1):
    """The section of a line."""
    words = text.split()
    shape, dims, profile = beginning(words)
    wanted = [] if profile else SHAPES[shape].dims.split()
    columns = [word.rstrip("?") for word in wanted] + list(FORCE_COLUMNS)
    usage = f"{profile or shape} {' '.join(columns)} [key=value ...] [name]"
    if len(words) < len(columns):
        raise ValueError(f"{', '.join(columns[len(words):])} missing; write {usage}")
    zero = {word.rstrip("?"): word.endswith("?") for word in wanted}
    given = {name: number(name, word, zero.get(name, False), usage)
             for name, word in zip(columns, words)}
    del words[:len(columns)]
    found = options(words, shape, usage)
    name = " ".join(words) or profile
    if not name.isprintable():
        raise ValueError("a character in the name cannot be printed; leave it out")
    if lost := LOST_KEY.search(name):
        raise ValueError(f"the name has '{lost[0]}'; write key=value before the name, without "
                         "spaces, such as Vz=120")
    values = dict(dims) if profile else {n: given[n] for n in columns if n not in FORCE_COLUMNS}
    for key in SHAPES[shape].keys:
        values[key] = found.get(key, values.get(key, DEFAULTS.get((shape, key), KEYS[key])))
    d = SimpleNamespace(**values)
    if broken := [rule.text for rule in SHAPES[shape].rules if not rule.holds(d)]:
        raise ValueError(f"the dimensions do not fit; write such that {' and '.join(broken)}")
    action = Action(given["N"], given["M"], found.get("Mz", 0.0), found.get("Vz", 0.0))
    return Section(place, line, shape, d, given["fy"], action, name, profile,
                   found.get("a", 0.0), found.get("end") == "rigid")


def read(path, complain):
    """The sections of a file, numbered by their place among the lines that are not empty.
    `complain` is told of a bad line, and the others are read."""
    place = 0
    for line, raw in enumerate(Path(path).read_bytes().splitlines(), 1):
        try:
            text = raw.decode("utf-8-sig" if line == 1 else "utf-8").partition("#")[0]
            if not text.strip():
                continue
            place += 1
            yield parse(text, place, line)
        except ValueError as fault:
            unread = isinstance(fault, UnicodeDecodeError)
            place += unread
            complain(f"{path}:{line}: {'not in UTF-8; save the file in it' if unread else fault}")
