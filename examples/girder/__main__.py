"""Section values of steel girders and members, and what of their compressed plates is effective."""

import argparse
import contextlib
import csv
import importlib
import shutil
import sys
import tempfile
from concurrent.futures import ProcessPoolExecutor
from pathlib import Path

EXAMPLES = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(EXAMPLES))
PARSER = argparse.ArgumentParser("girder", description=__doc__)
try:
    from girder import picture, read, report, section
except ImportError as missing:
    PARSER.exit(2, f"girder: {missing}; does PYTHONPATH name share/kezlib/bindings/python?\n")


def mapping(given, stack):
    """In processes, or on a cluster whose workers have the binding, and are given this package."""
    if given.dask:
        client = stack.enter_context(importlib.import_module("distributed").Client(given.dask))
        folder = stack.enter_context(tempfile.TemporaryDirectory())
        client.upload_file(shutil.make_archive(f"{folder}/girder", "zip", EXAMPLES, "girder"))
        return client.get_executor(pure=False).map
    return stack.enter_context(ProcessPoolExecutor(given.jobs)).map if given.jobs > 1 else map


def computed(sections, given, stack):
    """With a bar where there are a terminal for it and tqdm."""
    chunks = [sections[i:i + 100] for i in range(0, len(sections), 100)]
    found = (r for some in mapping(given, stack)(section.results, chunks) for r in some)
    if sys.stderr.isatty() and (given.quiet or not sys.stdout.isatty()):
        with contextlib.suppress(ImportError):
            found = importlib.import_module("tqdm").tqdm(found, total=len(sections))
    return found


def main(stack):
    PARSER.add_argument("file", help="one section a line, as in examples/sections.txt")
    PARSER.add_argument("--csv", metavar="FILE", help="write one line a section")
    PARSER.add_argument("--svg", metavar="DIR", help="write pictures: DIR/section-1.svg, ...")
    PARSER.add_argument("--dxf", metavar="FILE", help="write the outlines (needs ezdxf)")
    PARSER.add_argument("--quiet", action="store_true", help="print no report")
    PARSER.add_argument("--jobs", type=int, default=1, metavar="N", choices=range(1, 61),
                        help="compute in N processes (1 to 60)")
    PARSER.add_argument("--dask", metavar="ADDRESS", help="compute on a Dask cluster, HOST:PORT")
    given, faults, middle = PARSER.parse_args(), [], 0.0
    sys.stdout.reconfigure(encoding="utf-8")
    sections = list(read.read(given.file, faults.append))
    if not sections and not faults:
        faults.append(f"{given.file}: no section; write one a line, such as: IPE 300 235 0 90")
    print("".join(f"{fault}\n" for fault in faults), end="", file=sys.stderr)
    table = given.csv and csv.writer(stack.enter_context(
        open(given.csv, "w", newline="", encoding="utf-8")))
    drawing = given.dxf and importlib.import_module("ezdxf").new(units=4)  # mm
    for number, r in enumerate(computed(sections, given, stack), 1):
        if not given.quiet:
            print(*report.report(number, r), sep="\n")
        if table:
            table.writerows(list(zip(*report.row(number, r)))[number > 1:])
        if given.svg:
            Path(given.svg, f"section-{number}.svg").write_text(picture.draw(number, r), "utf-8")
        for loop in r.loops if drawing else ():
            points = [(z.real + middle, z.imag, bulge) for z, bulge in loop.curve()]
            drawing.modelspace().add_lwpolyline(points, "xyb", close=True)
        middle += 1.5 * (r.edges[section.LEFT] + r.edges[section.RIGHT])
    if drawing:
        drawing.saveas(given.dxf)
    print("" if given.quiet else report.NOTES, end="")
    return 1 if faults else 0


if __name__ == "__main__":
    try:
        with contextlib.ExitStack() as opened:
            sys.exit(main(opened))
    except ImportError as missing:
        PARSER.exit(2, f"girder: {missing}; Debian has it in python3-{missing.name}\n")
    except (OSError, ValueError, KeyboardInterrupt) as reason:
        PARSER.exit(2, f"girder: {str(reason) or 'interrupted'}\n")
