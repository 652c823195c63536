"""The routine of the host's that is asked for the z of each point: a function, or an array."""

import ctypes
import math
import numbers

import numpy as np

from . import _library

FUNCTION = _library.FUNCTION_TYPE(ctypes.c_float, ctypes.POINTER(ctypes.c_int32))


class Heights:
    """Nothing may be raised through a routine: from an exception on it gets not-a-number, and when
    it is done the exception is raised."""

    def __init__(self, name, place, given):
        self.name, self.place, self.raised, self.answers = name, place, None, 0
        self.function = given if callable(given) else None
        self.pointer = FUNCTION(self.answer if callable(given) else self.stored)
        self.address = ctypes.cast(self.pointer, ctypes.c_void_p).value

    def begin(self, arrays, lead):
        """Items without points are not asked for."""
        counts = np.broadcast_to(arrays["n"], lead)
        self.wanted = int(np.maximum(counts, 0).sum(dtype=np.int64))
        if self.function is None:
            heights = arrays[self.name]
            rows = np.broadcast_to(heights, (*lead, heights.shape[-1]))
            self.rows = (rows[item] for item in np.ndindex(*lead) if counts[item] > 0)

    def stored(self, position):
        self.answers += 1
        if position[0] == 1:
            self.row = next(self.rows)
        return self.row[position[0] - 1]

    def answer(self, position):
        if self.raised:
            return math.nan
        try:
            value = self.function(position[0])
            if not isinstance(value, numbers.Real):
                raise TypeError(f"{self.place}'s result is {value!r:.60}, not a real")
            value = float(value)
            self.answers += 1
            return value
        except BaseException as error:
            self.raised = error
        return math.nan

    def check(self):
        if self.raised:
            raise self.raised

    def check_all_were_asked(self):
        """Ctrl-C may come before an answer begins, or when it is done, and then is lost."""
        if self.answers != self.wanted:
            raise KeyboardInterrupt(f"{self.place} was interrupted")
