"""Variables of Visual Basic for Applications, in memory that a library can be given."""

import ctypes

from vba_text import Refused

TYPES = {"Single": ctypes.c_float, "Long": ctypes.c_int32}
GUARD = 0x5A5A5A5A
GUARDS = 4


class Scalar:
    """A Variant has no memory that could be passed."""

    def __init__(self, type_name, memory=None):
        self.type, self.value = type_name, None
        self.memory = TYPES[type_name](0) if memory is None and type_name in TYPES else memory

    def get(self):
        return self.value if self.memory is None else self.memory.value

    def put(self, value):
        if self.memory is None:
            self.value = value
        else:
            self.memory.value = coerced(value, self.type)

    def address(self):
        return ctypes.addressof(self.memory)


class Array:
    """Guards stand behind the last entry."""

    def __init__(self, type_name, lower, upper):
        if upper < lower:
            raise Refused(f"an array from {lower} to {upper}")
        self.type, self.lower, self.size = type_name, lower, upper - lower + 1
        self.memory = (TYPES[type_name] * (self.size + GUARDS))()
        self.guards = (ctypes.c_uint32 * GUARDS).from_buffer(self.memory, 4 * self.size)
        self.guards[:] = [GUARD] * GUARDS

    def entry(self, index):
        if not self.lower <= index < self.lower + self.size:
            raise Refused(f"subscript {index} is out of range")
        at = 4 * (index - self.lower)
        return Scalar(self.type, TYPES[self.type].from_buffer(self.memory, at))

    def is_intact(self):
        return list(self.guards) == [GUARD] * GUARDS


def coerced(value, type_name):
    """A Long rounds, and holds 32 bits."""
    if type_name == "Single":
        return float(value)
    if not -2**31 <= value < 2**31:
        raise Refused(f"{value} overflows a Long")
    return round(value)


def bits(scalar):
    return ctypes.c_uint32.from_buffer(scalar.memory).value
