"""Copies of what callers pass as arrays, and what they get back. Arrays are always copied: a call
lets other threads run, and these may write to the caller's."""

import contextlib
import ctypes
import functools
import math
import reprlib
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


# From so many entries on the pairs that an output holds are counted, and it gets room for just
# these: its extent is what they could be, the product of two lists' counts.
MANY = 2**18


def address(values, nowhere=ctypes.addressof(NO_ENTRIES)):
    return ctypes.c_void_p(values.buffer_info()[0] or nowhere)


PLAIN = frozenset({int, float, bool})


def has_complex(values):
    """Whether there are complex numbers of numpy's, which would lose their imaginary part with only
    a warning. One value of each type is looked at."""
    if PLAIN.issuperset(map(type, values)):
        return False
    return any(getattr(getattr(value, "dtype", None), "kind", "") == "c"
               for value in dict(zip(map(type, values), values)).values())


class Refused(Exception):
    """The exception to raise and its words, which go behind the argument's name."""

    def __init__(self, kind, words):
        super().__init__(words)
        self.kind = kind


def made(size, code):
    """An output as it is before a call."""
    try:
        return KEPT[code] * size
    except MemoryError:
        words = f" has {size} entries, for which there is no memory"
        raise Refused(MemoryError, words) from None


def pairs(a, b, tolerance=0):
    """At least as many as there are pairs of the lists' entries within the tolerance: also those
    that only the library's rounding of the difference could take into it."""
    if tolerance == math.inf:
        return len(a) * len(b)
    reach = tolerance + tolerance * 2**-24  # what rounds to the tolerance may be larger by so much
    a, b = sorted(filter(math.isfinite, a)), sorted(filter(math.isfinite, b))
    found = first = end = 0
    for x in a:
        while first < len(b) and x - b[first] > reach:
            first += 1
        while end < len(b) and b[end] - x <= reach:
            end += 1
        found += max(end - first, 0)
    return found


def view_of(values):
    """The memory of what has some, as numpy's arrays and those of the standard library."""
    with contextlib.suppress(TypeError, ValueError):  # numpy's of dates are refused by the latter
        return memoryview(values)
    with contextlib.suppress(TypeError, ValueError, AttributeError):
        return memoryview(values.__array__())
    return None


def native(view):
    """The view's type code, if its entries lie as the machine has them."""
    code = view.format[-1]
    order = view.format[:-1]
    same_order = order in ("", "@", "=", "<" if sys.byteorder == "little" else ">")
    return code if same_order else ""


def entries_of_view(view, values, code, unsigned):
    if view.ndim != 1:
        raise Refused(ValueError, f" has {view.ndim} dimensions, not 1")
    same = ("f",) if code == REAL else ("i", "l", "I", "L") if unsigned else ("i", "l")
    if view.format[:1] == "Z":
        raise Refused(TypeError, " holds complex numbers")
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
    if isinstance(values, (bytes, bytearray)):  # text, as read from a file
        raise Refused(TypeError, f" is {shown(values)}, not a list")
    view = view_of(values)
    if view is not None:
        return entries_of_view(view, values, code, unsigned)
    if isinstance(values, Sequence) and not isinstance(values, str):
        return list(values)
    raise Refused(TypeError, f" is {shown(values)}, not a list")


def shown(value):
    """A value as messages show it, in few words."""
    try:
        return reprlib.repr(value)
    except Exception:  # even an integer's, if it has thousands of digits
        return f"of the type {type(value).__name__}"


def check(value, code, place=""):
    """Refuses a scalar or an entry that cannot be stored."""
    try:
        if has_complex([value]):
            raise TypeError
        array(code, [value])
    except OverflowError:
        words = f"which a 32-bit {KINDS[code]} cannot hold"
        raise Refused(OverflowError, f"{place} is {shown(value)}, {words}") from None
    except (TypeError, ValueError):
        words = f"not {'an integer' if code == INTEGER else 'a real'}"
        raise Refused(TypeError, f"{place} is {shown(value)}, {words}") from None


def copied(values, code, unsigned=False):
    """The values as an array."""
    found = entries(values, code, unsigned)
    try:
        if type(found) is not bytes and has_complex(found):
            raise TypeError
        return array(code, found)
    except (TypeError, ValueError, OverflowError):
        for i, value in enumerate(found):
            check(value, code, f"[{i}]")
        raise


def is_real(values):
    """Whether a list of either kind has a real; that it is no list is said when it is copied."""
    view = None if isinstance(values, (list, tuple)) else view_of(values)
    if view is not None and view.format[-1] != "O":
        return view.format[-1] in "efdg"
    is_list = view is not None and view.ndim == 1 or isinstance(values, Sequence)
    return is_list and not all(hasattr(v, "__index__") for v in values)


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
