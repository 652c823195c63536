#!/usr/bin/env python3
"""What pages offer to copy compiles, and gives what the page shows: in C for every page as it is
made, in all languages for calls whose numbers were changed.

    copies_test.py MADE PACKAGE WORK

MADE is the folder in which the manual was made, PACKAGE the installed library, WORK a folder to
work in.
"""

import json
import math
import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "bindings"))
from harness import Place, hosts, rows  # noqa: E402

ROOM = "."  # what was not written
LONG = [str((i * 37) % 101 - 50 + i / 8) for i in range(300)]

# Routines of every kind, and what is typed over their examples.
CHANGED = [
    ("kezlci", {"a": "-0", "c": "-1.25e-1", "F": "-1E2"}),
    ("kezlci", {"c": "1e6"}),  # nothing is written but the count
    ("kezpre", {"x1": "nan", "y1": "-INF", "z1": "+infinity", "x2": "1e39", "y2": "-nan"}),
    ("kezphip", {"ux": "0", "uy": "-0", "uz": "0"}),
    ("kezpas", {"step": "-2.5e-1"}),
    ("kezord", {"n": "300", "x": ", ".join(LONG)}),
    ("kezord1", {"n": "+6", "ia": "-2147483648 2147483647 0 -0 007 -1"}),
    ("kezapl", {"X": "1e3 5e3 5e3 3e3 3e3 1e3 nan"}),
    ("kezapl", {"n": "0", "X": "-7", "Y": "."}),
    ("kezcer4", {"theta": "-1e-3", "x2": "-2"}),
    ("kezmer1", {"a": "1 2 3", "b": "1.5 -0"}),
    ("kezmer1", {"n1": "0", "a": "", "b": "-5 2147483647"}),
    ("kezmer1", {"n1": "9", "a": "nan -INF +infinity 1e39 3.4e38 1e-40 +.5 7. -1e-5"}),
    ("kezmer16", {"pos": "9"}),  # the list is kept
    ("kezmer16", {"a": "1e3 -2.5e-7 3 4 .", "value": "-1e-5"}),
    ("kezmer12", {"n": "2", "a": "-1e30 inf", "tol": "1e-3"}),
    ("kezadr", {"a": "10", "counts": "4 -3 5"}),
    ("kezpnl", {"n": "3", "zof": "-1e0 .5 2e-1 9", "x": "1 3 -5e0", "y": "1 4 -1"}),
    ("kezptrl", {"n": "0", "x": "", "y": "", "z": ""}),
    ("kezsec_c", {"c": "0", "nf": "0", "value": "-2"}),
    ("kezmer19", {"tol": "nan"}),
]


def changed_questions(made):
    """By a name of its own each call, asked as the manual was."""
    asked = {q["routine"]["name"]: q["routine"]
             for q in json.loads((made / "questions.json").read_text())}
    for number, (name, texts) in enumerate(CHANGED):
        example = asked[name]["example"]
        assert set(texts) <= set(example), f"{name} has other inputs"
        yield f"{name}_as_{number}", {"routine": asked[name], "calls": [example | texts]}


def answers(made, work, question):
    asked, answered = work / "questions.json", work / "answers.json"
    asked.write_text(json.dumps([question]))
    subprocess.run(["node", made / "pictures.mjs", asked, answered], check=True)
    (answer,) = json.loads(answered.read_text())["routines"].values()
    return answer


def agree(one, other):
    a, b = (rows.single(rows.single_bits(float(text))) for text in (one, other))
    return a == b or (math.isnan(a) and math.isnan(b)) or math.isclose(a, b, rel_tol=2e-6)


def differing(found, shown):
    """Outputs that come otherwise. What the call leaves alone holds anything."""
    for output, text in shown.items():
        wanted = [] if text is None else text.split()
        got = found.get(output) or []
        pairs = [(ours, theirs) for ours, theirs in zip(got, wanted) if theirs != ROOM]
        written = [value for value in wanted if value != ROOM]
        if len(pairs) < len(written) or not all(agree(*pair) for pair in pairs):
            yield f"{output} is {found.get(output)}, the page has {text}"


def faults_of_rows(answered, place):
    """Those for kezcall, which compares the results itself."""
    text = "".join(f'{a["copies"]["kezcall"]}\n' for a in answered.values())
    said = place.run(place.package / "bin/kezcall", place.file("rows.txt", text))
    if f"{len(answered)} passed, 0 failed" not in said:
        yield said


def faults(language, host, answered, place):
    """Names that a language escapes are compared without."""
    found = host({name: a["copies"][language] for name, a in answered.items()}, place)
    for name, answer in answered.items():
        results = {output.strip("_@"): values for output, values in found[name].items()}
        for fault in differing(results, answer["calls"][0]):
            yield f"{language}: {name}: {fault}"


def main():
    made, package, work = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    known = hosts()
    pages = json.loads((made / "answers.json").read_text())["routines"]
    changed = {name: answers(made, work, q) for name, q in changed_questions(made)}
    found = list(faults_of_rows(changed, Place(package, work)))
    for language, host in known.items():
        place = Place(package, work / language)
        place.work.mkdir(exist_ok=True)
        found += faults(language, host, (pages if language == "c" else {}) | changed, place)
    print("\n".join(found) or f"{len(pages)} calls in C give what their pages show, and "
          f"{len(changed)} that are changed in {len(known)} languages")
    sys.exit(bool(found))


if __name__ == "__main__":
    main()
