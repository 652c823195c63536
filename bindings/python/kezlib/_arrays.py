"""Copies of what callers pass as arrays, and what they get back. Arrays are always copied: a call
lets other threads run, and these may write to the caller's."""

import ctypes
import functools
import mmap
import struct
import sys
from array import array
from collections.abc import Sequence

REAL, INTEGER = "f", "i"
KINDS = {REAL: "real", INTEGER: "integer"}

# What outputs hold before a call: no routine writes either.
KEPT_BYTES = {REAL: struct.pack("=I", 0x7FE5A5A5), INTEGER: struct.pack("=i", -2**31)}
KEPT = {code: array(code, pattern) for code, pattern in KEPT_BYTES.items()}

# Behind an array without entries there is no memory, and the library takes no null pointer.
NO_ENTRIES = ctypes.create_string_buffer(4)


# From so many entries on the machine provides memory as it is written: the extent of two lists'
# common entries is the product of their counts.
MANY = 2**18
ON_DEMAND = {}
if sys.platform != "win32":
    ON_DEMAND["flags"] = (mmap.MAP_PRIVATE | mmap.MAP_ANONYMOUS
                          | getattr(mmap, "MAP_NORESERVE", 0))  # Python 3.11


def address(values, nowhere=ctypes.addressof(NO_ENTRIES)):
    if type(values) is memoryview:
        return ctypes.byref(ctypes.c_char.from_buffer(values))
    return ctypes.c_void_p(values.buffer_info()[0] or nowhere)


def made(size, code, is_cut):
    """An output as it is before a call; `is_cut` says that only entries are looked at that are
    written."""
    if not is_cut or size < MANY:
        return KEPT[code] * size
    try:
        return memoryview(mmap.mmap(-1, 4 * size, **ON_DEMAND)).cast(code)
    except (OSError, OverflowError):
        raise MemoryError(f" has {size} entries, for which there is no memory") from None


def first(values, count):
    if type(values) is memoryview:
        return array(values.format, values[:count].tobytes())
    del values[count:]
    return values


def view_of(values):
    """The memory of what has some, as numpy's arrays and those of the standard library."""
    try:
        return memoryview(values)
    except TypeError:
        pass
    return memoryview(values.__array__()) if hasattr(values, "__array__") else None


def native(view):
    """The view's type code, if its entries lie as the machine has them."""
    code = view.format[-1]
    order = view.format[:-1]
    same_order = order in ("", "@", "=", "<" if sys.byteorder == "little" else ">")
    return code if same_order else ""


def entries_of_view(view, values, code, unsigned):
    if view.ndim != 1:
        raise ValueError(f" has {view.ndim} dimensions, not 1")
    same = ("f",) if code == REAL else ("i", "l", "I", "L") if unsigned else ("i", "l")
    if view.format == code or view.itemsize == 4 and native(view) in same:
        return view.tobytes()
    try:
        return view.tolist()
    except NotImplementedError:  # of formats that memoryview does not know
        return list(values)


def entries(values, code, unsigned=False):
    """What an array is made of: a list, or the bytes of entries that are as the library has them.
    With `unsigned` unsigned integers of 32 bits are taken for such."""
    if type(values) is list or type(values) is tuple:
        return values
    view = view_of(values)
    if view is not None:
        return entries_of_view(view, values, code, unsigned)
    if isinstance(values, Sequence) and not isinstance(values, str):
        return list(values)
    raise TypeError(f" is {values!r}, not a list")


def fault(value, code):
    """Exception and words for a scalar or an entry that was refused; none if it is good."""
    try:
        array(code, [value])
    except OverflowError:
        return OverflowError, f"is {value!r}, which a 32-bit {KINDS[code]} cannot hold"
    except TypeError:
        return TypeError, f"is {value!r}, not {'an integer' if code == INTEGER else 'a real'}"
    return None


def copied(values, code, unsigned=False):
    """The values as an array. An exception's text goes behind the argument's name."""
    found = entries(values, code, unsigned)
    try:
        return array(code, found)
    except (TypeError, OverflowError):
        for i, value in enumerate(found):
            if wrong := fault(value, code):
                raise wrong[0](f"[{i}] {wrong[1]}") from None
        raise


def is_real(values):
    """Whether a list of either kind has a real; that it is no list is said when it is copied."""
    if not isinstance(values, (list, tuple)):
        view = view_of(values)
        if view is not None and view.format[-1] != "O":
            return view.format[-1] in "efdg"
    return isinstance(values, Sequence) and not all(hasattr(v, "__index__") for v in values)


def word_code(lists):
    """The form of lists of either kind: real if any entry of them is one."""
    return REAL if any(map(is_real, lists)) else INTEGER


@functools.cache
def returner():
    """What makes an array into numpy's without another copy, or else into a list. Who needs no
    arrays does not wait for numpy."""
    try:
        import numpy
    except ImportError:
        return array.tolist
    return numpy.asarray
