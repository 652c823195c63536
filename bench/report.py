"""Makes table.md and plot.svg of what the benchmarks measured: report.py [--once] BUILD LIBRARY

With --once nothing is timed: it checks that each row was run, and that what is measured side by
side gave the same answers.
"""

import html
import json
import math
import pathlib
import statistics
import subprocess
import sys

from rows import GROWTH, LOAD_GOAL, ROWS, SIZE_GOAL

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
    wanted |= {name for row in GROWTH for name in names(row.ours, row.sizes)}
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


def line(work, sizes, values, goal):
    met = "" if goal is None else "yes" if max(values) <= goal else "no"
    limit = "" if goal is None else f"<= {goal:g}"
    cells = work, ", ".join(map(str, sizes)), ", ".join(map(rounded, values)), limit, met
    return f"| {' | '.join(cells)} |\n"


def measured(row, times):
    pairs = [(times[ours], times[peer])
             for ours, peer in zip(names(row.ours, row.sizes), names(row.peer, row.sizes))]
    return [ours - peer if row.over else ours / peer for ours, peer in pairs]


def growth(row, times):
    first, second = (times[name] / n for name, n in zip(names(row.ours, row.sizes), row.sizes))
    return [second / first]


def table(times, load, size):
    head = "| {} | entries | measured | goal | met |\n|---|---|---|---|---|\n"
    text = head.format("time / time beside it")
    text += "".join(line(r.work, r.sizes, measured(r, times), r.goal) for r in ROWS)
    text += line("first load of the library, us", (), [load], LOAD_GOAL)
    text += line("the library, stripped, kB", (), [size], SIZE_GOAL)
    text += "\n" + head.format("time per entry, long / short")
    return text + "".join(line(r.work, r.sizes, growth(r, times), r.goal) for r in GROWTH)


def points(times):
    """Label, size, our ns and the peer's ns per call or entry, for the plot."""
    for row in ROWS:
        for n, ours, peer in zip(row.sizes or (1,), names(row.ours, row.sizes),
                                 names(row.peer, row.sizes)):
            yield row.work.replace("`", ""), n, times[ours] / n, times[peer] / n


def plot(times):
    shown = list(points(times))
    low = math.floor(math.log10(min(min(p[2:]) for p in shown)))
    high = math.ceil(math.log10(max(max(p[2:]) for p in shown)))
    left, right, step, top = 470, 880, 16, 50
    height = top + step * len(shown) + 10

    def at(ns):
        return left + (right - left) * (math.log10(ns) - low) / (high - low)

    out = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{right + 20}" height="{height}" '
           'font-family="sans-serif" font-size="11">',
           '<rect width="100%" height="100%" fill="white"/>',
           f'<text x="{left}" y="16">ns per call or entry: <tspan fill="#06c">&#9679; KezLib'
           '</tspan> &#9675; beside it</text>']
    for power in range(low, high + 1):
        x = at(10.0 ** power)
        out.append(f'<path d="M{x:.1f} {top - 12}V{height - 8}" stroke="#ccc"/>'
                   f'<text x="{x:.1f}" y="{top - 16}" text-anchor="middle">{10.0 ** power:g}'
                   '</text>')
    before = None
    for i, (work, n, ours, peer) in enumerate(shown):
        y = top + step * i
        label = html.escape(work) if work != before else ""
        before = work
        out.append(
            f'<text x="8" y="{y + 4}">{label}</text>'
            f'<text x="{left - 15}" y="{y + 4}" text-anchor="end">{n if n > 1 else ""}</text>'
            f'<path d="M{at(ours):.1f} {y}H{at(peer):.1f}" stroke="#999"/>'
            f'<circle cx="{at(peer):.1f}" cy="{y}" r="4" fill="white" stroke="black"/>'
            f'<circle cx="{at(ours):.1f}" cy="{y}" r="4" fill="#06c"/>')
    return "\n".join(out + ["</svg>\n"])


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
    (build / "plot.svg").write_text(plot(times))
    print(text, end="")


if __name__ == "__main__":
    main(sys.argv[1:])
