"""Reads include/kezlib.h, the only source of the interface, and writes what follows from it.

    python3 tools/interface                 write again the products that are committed
    python3 tools/interface --check         say which of them are stale; exit status 1 if any is
    python3 tools/interface --names         print the names of the routines
    python3 tools/interface PRODUCT FILE    write one product to a file
    python3 tools/interface --bindings DIR  write the products for other languages below a folder
"""

import argparse
import pathlib
import sys

sys.path[0] = str(pathlib.Path(__file__).resolve().parent.parent)
from interface import HEADER, ROOT, FormError, read  # noqa: E402
from interface.writers import all_writers  # noqa: E402

WRITERS = {name: found for name, found in all_writers().items() if hasattr(found, "write")}


def parse_command():
    products = "\n".join(f"    {name:20}{writer.__doc__.splitlines()[0]}"
                         for name, writer in WRITERS.items())
    parser = argparse.ArgumentParser(description=f"{__doc__}\nProducts:\n{products}",
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--names", action="store_true")
    parser.add_argument("--bindings", type=pathlib.Path, metavar="DIR")
    parser.add_argument("product", nargs="?", choices=WRITERS, metavar="PRODUCT")
    parser.add_argument("file", nargs="?", type=pathlib.Path, metavar="FILE")
    command = parser.parse_args()
    if command.product and not command.file:
        parser.error("PRODUCT wants a FILE")
    return command


def stale_products(interface):
    """Path and fresh text of what is committed and no longer follows from the header."""
    for writer in WRITERS.values():
        if path := getattr(writer, "COMMITTED", None):
            text = writer.write(interface)
            if not (ROOT / path).exists() or (ROOT / path).read_text() != text:
                yield path, text


def renew(interface, only_check):
    stale = dict(stale_products(interface))
    if stale and only_check:
        sys.exit(f"stale: {', '.join(stale)}; run ./dev interface")
    for path, text in stale.items():
        (ROOT / path).write_text(text)
    print(f"{len(interface.routines)} routines; "
          + (f"written: {', '.join(stale)}" if stale else "up to date"))


def write_bindings(interface, folder):
    for writer in WRITERS.values():
        language = getattr(writer, "LANGUAGE", None)
        if path := language.file if language else getattr(writer, "FILE", None):
            file = folder / path
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_bytes(writer.write(interface).encode())  # with its own line ends


def main():
    command = parse_command()
    try:
        interface = read()
        if command.names:
            print("\n".join(routine.name for routine in interface.routines))
        elif command.bindings:
            write_bindings(interface, command.bindings)
        elif command.product:
            command.file.write_text(WRITERS[command.product].write(interface))
        else:
            renew(interface, command.check)
    except FormError as error:
        sys.exit(f"{HEADER.relative_to(ROOT)}: {error}")


if __name__ == "__main__":
    main()
