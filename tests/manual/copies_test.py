#!/usr/bin/env python3
"""What a page offers to copy in C compiles without a warning, and prints what the page shows.

    copies_test.py WORK INCLUDE LIBRARY

WORK is the folder in which the manual was made.
"""

import json
import math
import pathlib
import re
import subprocess
import sys
from collections import defaultdict

PRINTED = re.compile(r"(\w+)(?:\[\d+\])? = (\S+)")
HEAD = "#include <kezlib.h>\n#include <math.h>\n#include <stdio.h>\n"
ROOM = "."  # what was not written


def function(name, text):
    """The statements in one, below the routine to be called back, which stands above them."""
    callback = re.match(r"/\*(?:.|\n)*?\n}\n", text)
    above = callback[0] if callback else ""
    return f"{above}static void call_{name}(void) {{\n{text[len(above):]}\n}}\n"


def program(texts):
    calls = "".join(f'puts("@{name}");\ncall_{name}();\n' for name in texts)
    functions = "\n".join(function(*item) for item in texts.items())
    return f"{HEAD}{functions}\nint main(void) {{\n{calls}return 0;\n}}\n"


def printed(texts, work, include, library):
    """By routine and output the values."""
    source, binary = work / "copies.c", work / "copies"
    source.write_text(program(texts))
    subprocess.run(["cc", "-std=c99", "-Wall", "-Wextra", "-Werror", f"-I{include}", str(source),
                    str(library), f"-Wl,-rpath,{library.parent}", "-lm", "-o", str(binary)],
                   check=True)
    answer = subprocess.run([str(binary)], check=True, capture_output=True, text=True).stdout
    found = {}
    for part in answer.split("@")[1:]:
        name, _, lines = part.partition("\n")
        found[name] = defaultdict(list)
        for output, value in PRINTED.findall(lines):
            found[name][output].append(value)
    return found


def agree(one, other):
    a, b = float(one), float(other)
    return a == b or (math.isnan(a) and math.isnan(b)) or math.isclose(a, b, rel_tol=2e-6)


def differing(found, shown):
    """Outputs that are printed otherwise. Entries that the call leaves alone hold anything."""
    for output, text in shown.items():
        values = [] if text is None else text.split()
        pairs = [(ours, theirs) for ours, theirs in zip(found[output], values) if theirs != ROOM]
        written = [value for value in values if value != ROOM]
        if len(pairs) < len(written) or not all(agree(*pair) for pair in pairs):
            yield f"{output} is {found[output]}, the page has {text}"


def main():
    work, include, library = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    answers = json.loads((work / "answers.json").read_text())["routines"]
    texts = {name: answer["copies"]["c"] for name, answer in answers.items()}
    found = printed(texts, work, include, library)
    faults = [f"{name}: {fault}" for name, answer in answers.items()
              for fault in differing(found[name], answer["calls"][0])]
    print("\n".join(faults) or f"{len(texts)} calls in C print what their pages show")
    sys.exit(bool(faults))


if __name__ == "__main__":
    main()
