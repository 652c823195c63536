"""Copies of what callers pass as arrays, and what they get back. Arrays are always copied: a call
lets other threads run, and these may write to the caller's."""

import ctypes
import functools
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


def address(values, nowhere=ctypes.addressof(NO_ENTRIES)):
    return ctypes.c_void_p(values.buffer_info()[0] or nowhere)


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


def from_view(view, values, code, with_unsigned):
    if view.ndim != 1:
        raise ValueError(f"has {view.ndim} dimensions, not 1")
    same = ("f",) if code == REAL else ("i", "l", "I", "L") if with_unsigned else ("i", "l")
    if view.format == code or view.itemsize == 4 and native(view) in same:
        return array(code, view.tobytes())
    try:
        return array(code, view.tolist())
    except NotImplementedError:  # of formats that memoryview does not know
        return array(code, list(values))


def copied(values, code, with_unsigned=False):
    """The values as an array. Raises TypeError, ValueError or OverflowError."""
    if type(values) is list or type(values) is tuple:
        return array(code, values)
    view = view_of(values)
    if view is not None:
        return from_view(view, values, code, with_unsigned)
    if isinstance(values, Sequence) and not isinstance(values, str):
        return array(code, list(values))
    raise TypeError(f"is no array but {type(values).__name__}")


def fault(value, code):
    """Exception and words for a scalar or an entry that was refused; none if it is good."""
    try:
        array(code, [value])
    except OverflowError:
        return OverflowError, f"is {value!r}, which a 32-bit {KINDS[code]} cannot hold"
    except TypeError:
        return TypeError, f"is {value!r}, not {'an integer' if code == INTEGER else 'a real'}"
    return None


def fault_of_entry(values, code, error):
    """As `fault`, for a list that was refused with an error."""
    if isinstance(values, Sequence) and not isinstance(values, str):
        for i, value in enumerate(values):
            if found := fault(value, code):
                return found[0], f"[{i}] {found[1]}"
    return type(error), f" {error}"


def word_code(lists):
    """The form of lists of either kind: real if any entry of them is one."""
    for values in lists:
        view = None if isinstance(values, (list, tuple)) else view_of(values)
        if view is not None and view.format[-1] in "efdg":
            return REAL
        try:
            copied(values, INTEGER, with_unsigned=True)
        except TypeError:
            return REAL
        except (ValueError, OverflowError):
            pass  # said with the argument's name when it is taken
    return INTEGER


@functools.cache
def numpy():
    """Imported when the first array is returned: who needs none does not wait for it."""
    try:
        import numpy
    except ImportError:
        return None
    return numpy


def returned(values):
    """A numpy array without another copy, or else a list."""
    module = numpy()
    return module.asarray(values) if module else values.tolist()
