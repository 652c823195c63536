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
    carried = [package / NAME] if (package / NAME).exists() else []
    return [*carried, *installed_beside(package), NAME]


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


class Place(ctypes.Structure):
    """What dladdr says of an address."""

    _fields_ = [("file", ctypes.c_char_p), ("start", ctypes.c_void_p),
                ("name", ctypes.c_char_p), ("address", ctypes.c_void_p)]


def windows_file():
    name = ctypes.create_unicode_buffer(2**15)
    ctypes.windll.kernel32.GetModuleFileNameW(ctypes.c_void_p(LIBRARY._handle), name, len(name))
    return name.value


def file_of(address):
    """The file that memory was loaded from; other systems than Windows know no better."""
    place = Place()
    ctypes.CDLL(None).dladdr(ctypes.c_void_p(address), ctypes.byref(place))
    return os.path.abspath(os.fsdecode(place.file or LIBRARY._name))


def version_and_file():
    """Found while the package is loaded: a relative path is of no use in another folder."""
    try:
        text = ctypes.addressof(ctypes.c_char.in_dll(LIBRARY, "kezlib_version"))
    except ValueError:
        raise ImportError(f"{LIBRARY._name} does not say which version of KezLib it is") from None
    version = ctypes.string_at(text).decode()
    return version, windows_file() if sys.platform == "win32" else file_of(text)


VERSION, FILE = version_and_file()


def library_path():
    """The file of the shared library that was loaded, as an absolute path."""
    return FILE


def check_version(wanted):
    """Refuses a library that is older than the package, or has other routines by the same names."""
    found, needed = ([int(n) for n in v.split(".")[:2]] for v in (VERSION, wanted))
    if found[0] != needed[0] or found < needed:
        raise ImportError(f"{FILE} is KezLib {VERSION}, and this package is for {wanted}")


def function(name):
    try:
        found = LIBRARY[name]
    except AttributeError:
        raise ImportError(f"{FILE} has no {name}: it is of another version") from None
    found.restype = None
    return found
