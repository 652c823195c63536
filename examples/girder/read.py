"""Reads sections, one a line."""

import csv
import re
from pathlib import Path
from types import SimpleNamespace

from girder.shapes import LIMITS, SHAPES, Section

LENGTHS = {"mm": 1.0, "cm": 10.0, "m": 1e3}  # the first is meant where none is written
UNITS = {"nw": {"": 1.0}, "fy": {"N/mm2": 1.0, "MPa": 1.0, "kN/cm2": 10.0},
         "N": {"kN": 1e3, "N": 1.0, "MN": 1e6},
         "M": {"kNm": 1e6, "Nm": 1e3, "MNm": 1e9, "kNcm": 1e4, "Nmm": 1.0}}
FORCES = {"fy": (100.0, 1000.0), "N": (-1e9, 1e9), "M": (-1e12, 1e12)}
NUMBER = re.compile(r"([-+]?(?:\d+\.?\d*|\.\d+)(?:[eE][-+]?\d+)?)([A-Za-z].*)?")
TABLE = Path(__file__).with_name("rolled_i.csv").read_text(encoding="utf-8").splitlines()
PROFILES = {row.pop("name"): {key: float(value) for key, value in row.items()}
            for row in csv.DictReader(line for line in TABLE if not line.startswith("#"))}


def number(name, word, ends, usage):
    units, parts = UNITS.get(name, LENGTHS), NUMBER.fullmatch(word)
    first = next(iter(units))
    if not parts or (unit := parts[2] or first) not in units:
        raise ValueError(f"{name} '{word}' is not a number, with {' or '.join(units) or 'no unit'} "
                         f"behind it or nothing; write {usage}")
    value = float(parts[1]) * units[unit]
    if not ends[0] <= value <= ends[1]:
        low, high = (f"{end / units[first]:g}" for end in ends)
        raise ValueError(f"{name} {word} is outside {low} to {high} {first}".rstrip())
    return value


def profile(words):
    """The name of IPE300 or IPE 300, which is taken from the words."""
    word = words.pop(0)
    series = word.upper().rstrip("0123456789")
    name = word.upper() + (words.pop(0) if word.upper() == series and words else "")
    if name not in PROFILES:
        sizes = [other for other in PROFILES if other.rstrip("0123456789") == series]
        known = sizes or [*SHAPES, "or a profile such as IPE 300, HEB 200"]
        raise ValueError(f"unknown word {name if sizes else word!r}; write {', '.join(known)}")
    return name


def parse(text):
    """The section of a line, None of an empty one."""
    words = text.partition("#")[0].split()
    if not words:
        return None
    word = words.pop(0).lower() if words[0].lower() in SHAPES else profile(words)
    kind, wanted = ("rolled", FORCES) if word in PROFILES else (word, {**LIMITS[word], **FORCES})
    usage = f"{word} {' '.join(wanted)} [name]"
    if len(words) < len(wanted):
        raise ValueError(f"{', '.join(list(wanted)[len(words):])} missing; write {usage}")
    given = {name: number(name, w, wanted[name], usage) for name, w in zip(wanted, words)}
    given.update(PROFILES.get(word, {}))
    name = " ".join(words[len(wanted):]) or word * (word in PROFILES)
    if not name.isprintable():
        raise ValueError("a character in the name cannot be printed; leave it out")
    if broken := [rule for rule in SHAPES[kind].rules if not eval(rule, {}, given)]:
        raise ValueError(f"the dimensions do not fit; write such that {' and '.join(broken)}")
    return Section(name, kind, SimpleNamespace(**{key: given[key] for key in LIMITS[kind]}),
                   *(given[key] for key in FORCES))


def read(path, complain):
    """The sections of a file. `complain` is told of a bad line, and the others are read."""
    for line, raw in enumerate(Path(path).read_bytes().splitlines(), 1):
        try:
            if section := parse(raw.decode("utf-8-sig" if line == 1 else "utf-8")):
                yield section
        except ValueError as fault:
            unread = isinstance(fault, UnicodeDecodeError)
            complain(f"{path}:{line}: {'not in UTF-8; save the file in it' if unread else fault}")
