"""Finds and loads the shared library."""

import ctypes
import os
import pathlib
import struct
import sys

# Windows' convention for 32-bit libraries differs from C's; on 64-bit ones both are the same.
if sys.platform == "win32":
    LOADER, FUNCTION_TYPE, NAME = ctypes.WinDLL, ctypes.WINFUNCTYPE, "KezLib.dll"
else:
    LOADER, FUNCTION_TYPE, NAME = ctypes.CDLL, ctypes.CFUNCTYPE, "libKezLib.so.1"


def installed_beside(package):
    """Places of the library in the tree that the package was installed with, if it lies in one:
    below bindings on Windows, below share/kezlib/bindings elsewhere. A library for another machine
    may be among them."""
    if package.parts[-3:-1] != ("bindings", "python"):
        return []
    if sys.platform == "win32":
        machine = "x64" if struct.calcsize("P") == 8 else "x86"
        return [package.parents[2] / machine / NAME]
    prefix = package.parents[4]
    return [*sorted(prefix.glob(f"lib*/{NAME}")), *sorted(prefix.glob(f"lib/*/{NAME}"))]


def places(package):
    if named := os.environ.get("KEZLIB_LIBRARY"):
        return [named]
    return [*installed_beside(package), NAME]


def load():
    tried = []
    for place in places(pathlib.Path(__file__).resolve().parent):
        try:
            return LOADER(str(place))
        except OSError as error:
            tried.append(f"{place}: {error}")
    raise ImportError("KezLib was not found (the environment's KEZLIB_LIBRARY names its file): "
                      + "; ".join(tried))


LIBRARY = load()


def function(name):
    try:
        found = LIBRARY[name]
    except AttributeError:
        raise ImportError(f"{LIBRARY._name} has no {name}: it is of another version") from None
    found.restype = None
    return found
