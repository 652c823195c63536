"""Makes wheels of the Python package that carry the library, one for each machine.

    python3 tools/wheels PACKAGE FOLDER LIBRARY...

PACKAGE is the folder of the package, the wheels go to FOLDER. The machine of each library is
read from its file, and on Linux whether it runs with C libraries as old as the wheel's name says.
"""

import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
ELF_MACHINES = {3: "i686", 62: "x86_64", 183: "aarch64"}
PE_PLATFORMS = {0x14C: "win32", 0x8664: "win_amd64"}
# The oldest of the names of Linux platforms that stand for no less than the library promises: the
# newest version of the GNU C library's symbols that it allows, and its second name, which is all
# that the installers of Python 3.9 know.
ALLOWED, SECOND_NAME = (2, 17), "manylinux2014"


def readelf(option, library):
    return subprocess.run(["readelf", "--wide", option, library], check=True, capture_output=True,
                          text=True, env={**os.environ, "LC_ALL": "C"}).stdout


def manylinux(machine, needed, versions):
    """The platform of a library for Linux that needs these libraries and versions of their symbols,
    which all systems of that name have."""
    for name in needed:
        if not re.fullmatch(r"(libc|libm|ld-linux[-\w]*)\.so\.\d", name):
            raise SystemExit(f"not every Linux has the library {name}")
    for version in versions:
        numbers = re.fullmatch(r"GLIBC_(\d+)\.(\d+)(\.\d+)?", version)
        if not numbers or (int(numbers[1]), int(numbers[2])) > ALLOWED:
            raise SystemExit(f"{SECOND_NAME} has no symbols of {version}")
    allowed = "_".join(map(str, ALLOWED))
    return f"manylinux_{allowed}_{machine}.{SECOND_NAME}_{machine}"


def platform(library):
    start = library.read_bytes()[:4096]
    if start[:4] == b"\x7fELF":
        machine, = struct.unpack_from("<H", start, 18)
        return manylinux(ELF_MACHINES[machine],
                         re.findall(r"\(NEEDED\).*\[(.*)\]", readelf("--dynamic", library)),
                         re.findall(r" Name: (\S+) +Flags:", readelf("--version-info", library)))
    header, = struct.unpack_from("<I", start, 0x3C)
    machine, = struct.unpack_from("<4xH", start, header)
    return PE_PLATFORMS[machine]


def make(package, folder, library):
    """Of a copy, as setuptools writes beside the sources."""
    with tempfile.TemporaryDirectory() as work:
        copy = pathlib.Path(work) / "package"
        shutil.copytree(package, copy, copy_function=shutil.copyfile,
                        ignore=shutil.ignore_patterns("build", "*.egg-info"))
        shutil.copyfile(library, copy / "kezlib" / library.name)
        shutil.copyfile(HERE / "setup.py", copy / "setup.py")
        (copy / "setup.cfg").write_text(f"[bdist_wheel]\nplat_name = {platform(library)}\n")
        subprocess.run([sys.executable, "-m", "pip", "wheel", "--no-deps", "--no-build-isolation",
                        "--no-index", "--wheel-dir", folder, copy], check=True)


def main(package, folder, *libraries):
    # The same bytes at any time, whoever makes them: zip's first day, and files that all may read.
    os.environ["SOURCE_DATE_EPOCH"] = "315532800"
    os.umask(0o022)
    for library in libraries:
        make(package, folder, pathlib.Path(library))


if __name__ == "__main__":
    main(*sys.argv[1:])
