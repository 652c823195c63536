"""Section values of steel girders and members, and what of their compressed plates is effective."""

import argparse
import contextlib
import csv
import importlib.util
import shutil
import sys
import tempfile
from concurrent.futures import ProcessPoolExecutor
from itertools import chain
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent))
from girder.check import Result, results  # noqa: E402
from girder.picture import draw  # noqa: E402
from girder.read import read  # noqa: E402
from girder.report import NOTES, dims, report  # noqa: E402
from girder.section import curve  # noqa: E402

CHUNK = 100  # sections that a process takes at a time


def options():
    parser = argparse.ArgumentParser(prog="girder", description=__doc__)
    parser.add_argument("file", help="one section a line, as in examples/sections.txt")
    parser.add_argument("--csv", metavar="FILE", help="write one line a section")
    parser.add_argument("--svg", metavar="DIR", help="write pictures: DIR/section-1.svg, ...")
    parser.add_argument("--dxf", metavar="FILE", help="write the outlines (needs ezdxf)")
    parser.add_argument("--quiet", action="store_true", help="print no report")
    parser.add_argument("--jobs", type=int, default=1, metavar="N", help="compute in N processes")
    parser.add_argument("--dask", metavar="ADDRESS", help="compute on a cluster (needs distributed)")
    return parser.parse_args()


def on_cluster(address, chunks):
    """Its workers have KezLib and its binding, and are given this package."""
    from distributed import Client
    with Client(address) as client, tempfile.TemporaryDirectory() as folder:
        client.upload_file(shutil.make_archive(f"{folder}/girder", "zip", HERE.parent, "girder"))
        for future in client.map(results, chunks, pure=False):
            yield future.result()


def computed(sections, jobs, address):
    """In the order of the sections."""
    chunks = [sections[i:i + CHUNK] for i in range(0, len(sections), CHUNK)]
    if address:
        yield from chain.from_iterable(on_cluster(address, chunks))
    elif jobs > 1:
        with ProcessPoolExecutor(jobs) as pool:
            yield from chain.from_iterable(pool.map(results, chunks))
    else:
        yield from map(Result, sections)


def progress(found, total, wanted):
    """A bar where there is a terminal and tqdm."""
    tqdm = wanted and importlib.util.find_spec("tqdm") and importlib.import_module("tqdm").tqdm
    return tqdm(found, total=total, unit=" sections", leave=False) if tqdm else found


def csv_rows(number, r):
    s = r.given
    head = ["number", "name", "shape", "dimensions [mm]", "fy [N/mm2]", "N [kN]", "M [kNm]"]
    row = [number, s.name, s.shape, dims(s), s.fy, s.N / 1e3, s.M / 1e6]
    for what, symbol, unit, gross, effective in r.quantities():
        head += [f"{symbol or what}{kind} [{unit}]" for kind in ("", " effective")]
        row += [gross, effective]
    return head + ["largest stress [N/mm2]", "verdict"], row + [
        None if r.faults else r.stresses[r.worst], r.verdict]


def add_outline(drawing, r, x0):
    """Side by side in mm, on a layer for each section."""
    for loop in r.outline.loops:
        drawing.modelspace().add_lwpolyline([(x + x0, y, b) for x, y, b in curve(loop)], "xyb",
                                            close=True)
    return x0 + 1.5 * (r.edges["right"] - r.edges["left"])


def main():
    given, faults, x0 = options(), [], 0.0
    sys.stdout.reconfigure(encoding="utf-8")
    sections = list(read(given.file, faults.append))
    if not sections and not faults:
        faults.append(f"{given.file}: no section; write one a line, such as: IPE 300 235 0 90")
    for fault in faults:
        print(fault, file=sys.stderr)
    with contextlib.ExitStack() as stack:
        table = given.csv and csv.writer(stack.enter_context(
            open(given.csv, "w", newline="", encoding="utf-8")))
        drawing = given.dxf and importlib.import_module("ezdxf").new(units=4)  # mm
        wanted = sys.stderr.isatty() and (given.quiet or not sys.stdout.isatty())
        found = progress(computed(sections, given.jobs, given.dask), len(sections), wanted)
        for number, r in enumerate(found, 1):
            if not given.quiet:
                print("\n".join(report(number, r)))
            if table:
                table.writerows(csv_rows(number, r)[number > 1:])
            if given.svg:
                Path(given.svg, f"section-{number}.svg").write_text(draw(number, r), "utf-8")
            if drawing:
                x0 = add_outline(drawing, r, x0)
        if drawing:
            drawing.saveas(given.dxf)
    if not given.quiet:
        print(NOTES, end="")
    return 1 if faults else 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except (OSError, ImportError) as reason:
        sys.exit(f"girder: {reason}")
