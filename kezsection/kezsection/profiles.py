"""Profiles by name, as people write it: HE 200 B, HEB200, UB 305x165x40, SHS 100x5, L 80x8."""

import csv
import re
from functools import lru_cache

from kezsection import data

SERIES = ("IPE", "HEA", "HEB", "HEM", "HE", "HL", "HD", "UB", "UC", "RHS", "SHS", "CHS", "L")
WIDE = re.compile(r"HE(\d+)([ABM])")  # HE 200 B is HEB200
DOUBLE = re.compile(r"(SHS|L)([\d.]+)X\2X([\d.]+)")  # SHS 100x100x5 is SHS100x5


def rows(file):
    text = data(file).splitlines()
    for row in csv.DictReader(line for line in text if not line.startswith("#")):
        yield row.pop("name").strip(), {key: float(value) for key, value in row.items()}


@lru_cache(maxsize=None)
def table():
    """By the name in capitals: the name, the shape and its dimensions."""
    found = {}
    for name, d in rows("rolled_i.csv"):
        found[name.upper()] = name, "rolled", d
    for name, d in rows("angles.csv"):
        found[name.upper()] = name, "angle", d
    for name, d in rows("hollow.csv"):
        dims = ({"d": d["h"], "t": d["t"]} if d["b"] == 0 else
                {"b": d["b"], "h": d["h"], "t": d["t"], "r": d["ro"], "ri": d["ri"]})
        entry = name, "chs" if d["b"] == 0 else "hollow", dims
        found[name.upper()] = entry
        found.setdefault(name.upper().partition("/")[0], entry)
    return found


def plain(word):
    """A name in the table's form."""
    word = word.upper().replace("\u00d7", "X").replace("*", "X").replace(",", ".")
    word = WIDE.sub(r"HE\2\1", word)
    return DOUBLE.sub(r"\1\2X\3", word)


def take(words):
    """The entry of the name that the words begin with, which is taken from them; or None."""
    for count in range(1, min(4, len(words)) + 1):
        key = plain("".join(words[:count]))
        entry = table().get(key)
        if entry:
            del words[:count]
            if words and words[0].lower() in ("hot", "cold") and "/" in entry[0]:
                if not entry[0].endswith("/" + words[0].lower()):
                    raise ValueError(f"{entry[0].replace('/', ' is ')}-formed in the table; write "
                                     f"its dimensions as hollow or chs")
                del words[0]
            return entry
    return None


def near(words):
    """Names that begin as the words do."""
    key = plain("".join(words[:3 if words[2:] and words[2].upper() in ("A", "B", "M") else 2]))
    series = next((s for s in sorted(SERIES, key=len, reverse=True) if key.startswith(s)), None)
    if not series:
        return []
    number = float(re.match(r"[\d.]*", key[len(series):])[0].rstrip(".") or 0)
    def away(name):
        size = re.match(r"\D+([\d.]+)", name)
        return abs(float(size[1]) - number)
    of_series = [entry[0] for name, entry in table().items()
                 if name.startswith(series) and name[len(series):][:1].isdigit()]
    return sorted(dict.fromkeys(of_series), key=away)[:6]
