"""Makes table.md of what the benchmarks measured: report.py [--once] BUILD LIBRARY

With --once nothing is timed: it checks that each row was run, and that what is measured side by
side gave the same answers.
"""

import json
import math
import pathlib
import statistics
import subprocess
import sys

from rows import LOAD_GOAL, ROWS, SIZE_GOAL

LOADS = 51


def read(text):
    """For each benchmark the least time in ns, and the answer."""
    times, answers = {}, {}
    for run in json.loads(text)["benchmarks"]:
        if run["run_type"] == "iteration":
            name = run["name"]
            times[name] = min(run["cpu_time"], times.get(name, math.inf))
            answers[name] = run["answer"]
    return times, answers


def names(benchmark, sizes):
    return [f"{benchmark}/{n}" for n in sizes] or [benchmark]


def check(answers):
    """What is wrong: rows without measurements, measurements without a row, unequal answers."""
    wanted = {name for row in ROWS for one in (row.ours, row.peer)
              for name in names(one, row.sizes)}
    faults = [f"not run: {name}" for name in sorted(wanted - answers.keys())]
    faults += [f"in no row: {name}" for name in sorted(answers.keys() - wanted)]
    for row in ROWS:
        for ours, peer in zip(names(row.ours, row.sizes), names(row.peer, row.sizes)):
            a, b = answers.get(ours, 0), answers.get(peer, 0)
            if not row.peer.startswith("empty") and not math.isclose(a, b, rel_tol=row.within):
                faults.append(f"{ours} gives {a}, {peer} {b}")
    return faults


def rounded(value):
    return f"{value:.0f}" if value >= 100 else f"{value:.3g}"


def line(work, sizes, values, goal, ours=()):
    met = "" if goal is None else "yes" if max(values) <= goal else "no"
    limit = "" if goal is None else f"<= {goal:g}"
    cells = work, *(", ".join(map(*column)) for column in
                    ((str, sizes), (rounded, ours), (rounded, values))), limit, met
    return f"| {' | '.join(cells)} |\n"


def measured(row, times):
    pairs = [(times[ours], times[peer])
             for ours, peer in zip(names(row.ours, row.sizes), names(row.peer, row.sizes))]
    return [ours - peer if row.over else ours / peer for ours, peer in pairs]


def table(times, load, size):
    text = ("| time / time beside it | entries | ours, ns | measured | goal | met |\n"
            "|---|---|---|---|---|---|\n")
    text += "".join(line(r.work, r.sizes, measured(r, times), r.goal,
                         [times[name] for name in names(r.ours, r.sizes)]) for r in ROWS)
    text += line("first load of the library, us", (), [load], LOAD_GOAL)
    return text + line("the library, stripped, kB", (), [size], SIZE_GOAL)


def load_time(build, library, loads):
    runs = [subprocess.run([build / "load", library], check=True, capture_output=True).stdout
            for _ in range(loads)]
    return statistics.median(map(int, runs)) / 1000


def stripped_size(build, library):
    stripped = build / "stripped.so"
    subprocess.run(["strip", "-o", stripped, library], check=True)
    return stripped.stat().st_size / 1000


def main(arguments):
    once = "--once" in arguments
    build, library = (pathlib.Path(a).resolve() for a in arguments if a != "--once")
    times, answers = read((build / "results.json").read_text())
    faults = check(answers)
    if faults:
        sys.exit("\n".join(faults))
    load = load_time(build, library, 1 if once else LOADS)
    size = stripped_size(build, library)
    if once:
        print(f"{len(times)} benchmarks ran; the answers agree")
        return
    text = table(times, load, size)
    (build / "table.md").write_text(text)
    print(text, end="")


if __name__ == "__main__":
    main(sys.argv[1:])
