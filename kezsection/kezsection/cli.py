"""kezsection FILE: the section sheet by EN 1993-1-1, EN 1993-1-3 and EN 1993-1-5."""

import argparse
import contextlib
import importlib
import os
import shutil
import signal
import sys
import tempfile
from concurrent.futures import BrokenExecutor, ProcessPoolExecutor
from pathlib import Path

from kezsection import __version__
from kezsection.outputs import Outputs, Refused, make_folder, refuse_overlaps

CHUNK = 50  # sections that a worker is given at once


def positive(text):
    value = float(text)
    if not 0 < value < 10:
        raise argparse.ArgumentTypeError(f"{text} is not above 0 and below 10")
    return value


def factor_of_web(text):
    value = float(text)
    if not 1 <= value <= 1.2:
        raise argparse.ArgumentTypeError(f"{text} is not in 1.0 to 1.2")
    return value


def parser():
    p = argparse.ArgumentParser(
        "kezsection", description="Section sheets by EN 1993-1-1, EN 1993-1-3 and EN 1993-1-5.",
        epilog="Status: 0 all sections are computed, 1 some line is bad or some section "
               "incomplete, 2 nothing useful is made.")
    p.add_argument("file", help="one section a line, such as: IPE 300 235 50 90 Vz=120 Floor beam")
    p.add_argument("--html", metavar="FILE", help="write an A4 page a section")
    p.add_argument("--csv", metavar="FILE", help="write a table of the sections")
    p.add_argument("--csv-plates", metavar="FILE", help="write a table of their plates")
    p.add_argument("--csv-excel", action="store_true",
                   help="write tables with semicolons and a byte order mark")
    p.add_argument("--dxf", metavar="FILE", help="write the outlines (needs ezdxf)")
    p.add_argument("--svg", metavar="DIR", help="write pictures: DIR/section-1.svg, ...")
    p.add_argument("--quiet", action="store_true", help="print no report")
    p.add_argument("--gamma-m0", type=positive, default=1.0, metavar="G", help="default 1.0")
    p.add_argument("--gamma-m1", type=positive, default=1.0, metavar="G", help="default 1.0")
    p.add_argument("--eta", type=factor_of_web, metavar="ETA",
                   help="of EN 1993-1-5, 5.1, 1.0 to 1.2 (default 1.2 up to S460, else 1.0)")
    p.add_argument("--lip", choices=("once", "held", "iterated"), default="once",
                   help="chi of lips: once through (default), or iterated with the spring of the "
                        "first step held or renewed")
    p.add_argument("--class", dest="class_by", choices=("held", "scaled"), default="held",
                   help="class under N + M: N held and M raised (default), or both raised")
    p.add_argument("--jobs", type=int, default=1, metavar="N", choices=range(1, 61),
                   help="compute in N processes (1 to 60)")
    p.add_argument("--dask", metavar="ADDRESS", help="compute on a Dask cluster, HOST:PORT")
    p.add_argument("--version", action="version", version=f"kezsection {__version__}")
    return p


def mapping(given, stack):
    """In processes, or on a cluster whose workers have the binding and are given this package."""
    if given.dask:
        client = stack.enter_context(importlib.import_module("distributed").Client(given.dask))
        folder = stack.enter_context(tempfile.TemporaryDirectory())
        package = Path(__file__).resolve().parent
        client.upload_file(shutil.make_archive(f"{folder}/kezsection", "zip", package.parent,
                                               package.name))
        return client.get_executor(pure=False).map
    if given.jobs > 1:
        return stack.enter_context(ProcessPoolExecutor(given.jobs, initializer=in_worker)).map
    return map


def in_worker():
    """What ends this process ends its workers, without words of their own."""
    signal.signal(signal.SIGTERM, signal.SIG_DFL)
    signal.signal(signal.SIGINT, signal.SIG_IGN)


def made(sections, options, wanted, given, stack):
    """The products in order, with a bar where there are a terminal for it and tqdm."""
    from kezsection.products import products
    chunks = [sections[i:i + CHUNK] for i in range(0, len(sections), CHUNK)]
    n = len(chunks)
    found = (p for some in mapping(given, stack)(products, chunks, [options] * n, [wanted] * n)
             for p in some)
    if sys.stderr.isatty() and (given.quiet or not sys.stdout.isatty()):
        with contextlib.suppress(ImportError):
            found = importlib.import_module("tqdm").tqdm(found, total=len(sections))
    return found


class Printer:
    """Prints until nobody reads any more."""
    def __init__(self, on):
        self.on = on

    def __call__(self, text):
        if not self.on:
            return
        try:
            sys.stdout.write(text)
            sys.stdout.flush()
        except BrokenPipeError:
            self.on = False
            os.dup2(os.open(os.devnull, os.O_WRONLY), sys.stdout.fileno())


def complain(text):
    print(text, file=sys.stderr)


def run(given, stack):
    """The status of a run."""
    from kezsection import dxf, html, reading, report, table
    from kezsection.model import Options
    from kezsection.products import Wanted

    files = [("--csv", given.csv), ("--csv-plates", given.csv_plates), ("--html", given.html),
             ("--dxf", given.dxf)]
    refuse_overlaps(given.file, files, given.svg)
    drawing = dxf.Drawing() if given.dxf else None
    faults = []
    sections = list(reading.read(given.file, faults.append))
    if not sections and not faults:
        raise Refused(f"{given.file}: no section; write one a line, such as: IPE 300 235 0 90")
    for fault in faults:
        complain(fault)
    if not sections:
        raise Refused(f"{given.file}: every line is bad; no file was written")
    outputs = stack.enter_context(Outputs())
    if given.svg:
        make_folder("--svg", given.svg)
    encoding = "utf-8-sig" if given.csv_excel else "utf-8"
    csv, plates = (outputs.add(option, path, encoding) if path else None
                   for option, path in files[:2])
    pages, outlines = (outputs.add(option, path) if path else None for option, path in files[2:])

    options = Options(given.gamma_m0, given.gamma_m1, given.eta, given.lip, given.class_by)
    wanted = Wanted(given.file, not given.quiet, bool(csv), bool(plates), given.csv_excel,
                    bool(pages), bool(given.svg), bool(drawing))
    print_out, bad = Printer(not given.quiet), bool(faults)
    print_out(report.head(given.file, options) + "\n")
    for output, headings in ((csv, table.SECTION_HEADINGS), (plates, table.PLATE_HEADINGS)):
        if output:
            output.write(table.text_of([headings], given.csv_excel))
    if pages:
        pages.write(html.head(given.file))
    for p in made(sections, options, wanted, given, stack):
        if p.fault:
            bad = True
            complain(f"{given.file}:{p.line}: section {p.number} {p.fault}")
        print_out(p.report)
        for output, text in ((csv, p.csv), (plates, p.plates), (pages, p.html)):
            if output:
                output.write(text)
        if p.svg:
            outputs.whole("--svg", os.path.join(given.svg, f"section-{p.number}.svg"), p.svg)
        if p.block:
            drawing.add(p.block)
        if not print_out.on and not given.quiet and not outputs.files:
            break  # nobody reads the report, and nothing else is wanted
    if pages:
        pages.write(html.TAIL)
    if outlines:
        outlines.write(drawing.text())
    outputs.complete()
    return 1 if bad else 0


def stopped(*_):
    raise KeyboardInterrupt


def reason_of(fault):
    if isinstance(fault, ImportError):
        if fault.name == "kezlib" or "KezLib" in str(fault):
            return f"{fault}; install the package kezlib (python3-kezlib on Debian)"
        return f"{fault}; Debian has it in python3-{fault.name}"
    if isinstance(fault, BrokenExecutor):
        return "a worker process died; no file was written"
    if isinstance(fault, KeyboardInterrupt):
        return "interrupted; no file was written"
    if isinstance(fault, OSError) and fault.filename:
        return f"{fault.filename}: {fault.strerror}"
    return " ".join(str(fault).split()) or type(fault).__name__


def main(arguments=None):
    given = parser().parse_args(arguments)
    sys.stdout.reconfigure(encoding="utf-8")
    with contextlib.suppress(ValueError):  # where it is not the main thread
        signal.signal(signal.SIGTERM, stopped)
    try:
        with contextlib.ExitStack() as stack:
            return run(given, stack)
    except (ImportError, OSError, ValueError, Refused, BrokenExecutor, KeyboardInterrupt) as fault:
        complain(f"kezsection: {reason_of(fault)}")
        return 2
    except Exception as fault:  # of a cluster, whose packages have exceptions of their own
        if not given.dask or not type(fault).__module__.startswith(("distributed", "tornado",
                                                                    "dask", "concurrent")):
            raise
        complain(f"kezsection: the cluster {given.dask}: {reason_of(fault)}")
        return 2
