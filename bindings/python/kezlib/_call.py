"""How a routine is called. Every argument goes by reference: scalars in a block of memory that is
kept from call to call, of which each call that is under way has one of its own, arrays as copies.
"""

import ctypes
import functools
import math
import operator
import struct
from dataclasses import dataclass
from typing import Any, Callable, Optional

from . import _arrays, _library
from ._arrays import INTEGER, KEPT, KEPT_BYTES, REAL

CODES = {"real": REAL, "integer": INTEGER}
POINTERS = {"real": ctypes.POINTER(ctypes.c_float), "integer": ctypes.POINTER(ctypes.c_int32)}


@dataclass(frozen=True)
class Argument:
    name: str
    kind: str  # real, integer, word or callback
    direction: str  # in, out or in,out
    extent: str = ""
    size: Optional[Callable[[dict], int]] = None  # the extent's value over scalars and arrays
    kept: bool = False  # an output that is not always written
    written: Optional[Callable[[dict], int]] = None  # of such an array the number of entries
    takes: tuple = ()  # of a callback: the kinds of what it is passed


def arguments(names, kind, direction, **others):
    return [Argument(name, kind, direction, **others) for name in names.split()]


class Entries(list):
    """An integer array as extents use it, counted from 1 and with zeros around it."""

    def __call__(self, i):
        return self[i - 1] if 1 <= i <= len(self) else 0


def total(values, count):
    """Sum of the first entries, as 32-bit integers wrap."""
    return (sum(values[:max(count, 0)]) + 2**31) % 2**32 - 2**31


class Scalars:
    """The scalars of a routine, and where in its block they lie: inputs before outputs, as one
    format packs and another unpacks them."""

    def __init__(self, arguments):
        scalars = [a for a in arguments if a.kind in CODES and not a.size]
        self.inputs = [a for a in scalars if a.direction != "out"]
        only_out = [a for a in scalars if a.direction == "out"]
        slots = self.inputs + only_out
        self.places = {a.name: 4 * i for i, a in enumerate(slots)}
        self.size = 4 * len(slots)
        self.pack = struct.Struct("".join(CODES[a.kind] for a in self.inputs)).pack_into
        self.unpack_inputs = struct.Struct("".join(CODES[a.kind] for a in self.inputs)).unpack_from
        results = [a for a in slots if a.direction != "in"]
        self.unpack_results = struct.Struct("".join(
            "4x" if a.direction == "in" else CODES[a.kind] for a in slots)).unpack_from
        self.results = [a.name for a in results]
        self.kept = [a for a in scalars if a.kept]
        self.preset = b"".join(KEPT_BYTES[CODES[a.kind]] for a in only_out)
        self.first_output = 4 * len(self.inputs)

    def load(self, routine, block, values):
        try:
            self.pack(block, 0, *values)
        except struct.error:
            for argument, value in zip(self.inputs, values):
                store(f"{routine}: {argument.name}", block, 0, value, CODES[argument.kind])
            raise

    def load_kept(self, routine, block, given):
        """Presets the outputs; `given` has values of some by name."""
        block[self.first_output:] = self.preset
        for argument in self.kept if given else ():
            if given.get(argument.name) is not None:
                store(f"{routine}: {argument.name}", block, self.places[argument.name],
                      given[argument.name], CODES[argument.kind])

    def unwritten(self, block, given):
        """Names of the outputs that hold what they were preset to."""
        for argument in self.kept:
            place, pattern = self.places[argument.name], KEPT_BYTES[CODES[argument.kind]]
            if block[place:place + 4] == pattern and given.get(argument.name) is None:
                yield argument.name


def store(place, block, offset, value, code):
    try:
        struct.pack_into(code, block, offset, value)
    except struct.error:
        kind, reason = _arrays.fault(value, code)
        raise kind(f"{place} {reason}") from None


class Routine:
    """Calls a routine with a tuple of its inputs, and the values that are given for outputs that
    may be kept, if any are."""

    def __init__(self, name, results, *groups):
        self.name, self.results = name, results
        self.arguments = [argument for group in groups for argument in group]
        self.function = _library.function(name)
        self.scalars = Scalars(self.arguments)
        self.kept_names = [a.name for a in self.arguments if a.kept and a.direction == "out"]
        self.blocks = []  # free ones: pop and append are atomic

    def take_block(self):
        try:
            return self.blocks.pop()
        except IndexError:
            return self.new_block()

    def new_block(self):
        """A block, and by argument the references to what lies in it."""
        block = bytearray(self.scalars.size)
        memory = (ctypes.c_char * len(block)).from_buffer(block)
        places = self.scalars.places
        return block, [ctypes.byref(memory, places[a.name]) if a.name in places else None
                       for a in self.arguments]


class ScalarRoutine(Routine):
    """One without arrays: the references never change."""

    def __init__(self, name, results, *groups):
        super().__init__(name, results, *groups)
        self.pack, self.unpack = self.scalars.pack, self.scalars.unpack_results
        order = [self.scalars.results.index(field) for field in results._fields]
        self.order = None if order == sorted(order) else operator.itemgetter(*order)

    def new_block(self):
        block, references = super().new_block()
        return block, functools.partial(self.function, *references)

    def __call__(self, given, kept=()):
        block, call = self.take_block()
        try:
            self.pack(block, 0, *given)
        except struct.error:
            self.scalars.load(self.name, block, given)
        presets = None
        if self.kept_names:
            presets = dict(zip(self.kept_names, kept)) if kept else {}
            self.scalars.load_kept(self.name, block, presets)
        call()
        values = self.unpack(block)
        if self.order:
            values = self.order(values)
        if self.kept_names and (KEPT_BYTES[REAL] in block or KEPT_BYTES[INTEGER] in block):
            unwritten = set(self.scalars.unwritten(block, presets))
            values = [None if name in unwritten else value
                      for name, value in zip(self.results._fields, values)]
        self.blocks.append((block, call))
        return tuple.__new__(self.results, values)


class Callback:
    """A function of the host's, as the library calls it. Nothing may be raised through a routine:
    after an exception it returns not-a-number, and the exception is raised when the routine is
    done."""

    def __init__(self, place, function, takes):
        if not callable(function):
            raise TypeError(f"{place} is {function!r}, which cannot be called")
        self.function, self.raised = function, None
        signature = _library.FUNCTION_TYPE(ctypes.c_float, *(POINTERS[kind] for kind in takes))
        self.pointer = signature(self.called)

    def called(self, *references):
        if self.raised:
            return math.nan
        try:
            return ctypes.c_float(self.function(*(reference[0] for reference in references))).value
        except BaseException as error:
            self.raised = error
            return math.nan


class ArrayRoutine(Routine):
    """One with arrays, whose references are made anew for each call."""

    def __init__(self, name, results, *groups):
        super().__init__(name, results, *groups)
        inputs = [a for a in self.arguments if a.direction != "out"]
        place = {a.name: i for i, a in enumerate(inputs)}
        self.scalar_places = [place[a.name] for a in self.scalars.inputs]
        self.input_arrays = [(a, place[a.name], i) for i, a in enumerate(self.arguments)
                             if a.size and a.direction != "out" and a.kind != "callback"]
        self.output_arrays = [(a, i) for i, a in enumerate(self.arguments)
                              if a.size and a.direction == "out"]
        self.word_places = [place[a.name] for a in inputs if a.kind == "word"]
        self.callbacks = [(a, place[a.name], i) for i, a in enumerate(self.arguments)
                          if a.kind == "callback"]
        self.codes = {a.name: CODES.get(a.kind) for a in self.arguments}

    def __call__(self, given, kept=()):
        presets = dict(zip(self.kept_names, kept)) if kept else {}
        block, references_to_scalars = self.take_block()
        references = references_to_scalars[:]
        scalars = [given[i] for i in self.scalar_places]
        self.scalars.load(self.name, block, scalars)
        self.scalars.load_kept(self.name, block, presets)
        values = dict(zip((a.name for a in self.scalars.inputs), self.scalars.unpack_inputs(block)))
        self.take_arrays(given, values, references)
        self.make_arrays(presets, values, references)
        callbacks = [Callback(f"{self.name}: {a.name}", given[i], a.takes)
                     for a, i, _ in self.callbacks]
        for callback, (_, _, reference) in zip(callbacks, self.callbacks):
            references[reference] = callback.pointer
        self.function(*references)
        for callback in callbacks:
            if callback.raised:
                raise callback.raised
        values.update(zip(self.scalars.results, self.scalars.unpack_results(block)))
        self.finish_arrays(presets, values)
        for name in self.scalars.unwritten(block, presets):
            values[name] = None
        self.blocks.append((block, references_to_scalars))
        return tuple.__new__(self.results, [values[name] for name in self.results._fields])

    def take_arrays(self, given, values, references):
        word_code = _arrays.word_code([given[i] for i in self.word_places])
        values["word code"] = word_code
        for argument, place, reference in self.input_arrays:
            code = self.codes[argument.name] or word_code
            self.take(argument, given[place], code, values)
            references[reference] = _arrays.address(values[argument.name])

    def take(self, argument, given, code, values):
        """Enters a copy of an array."""
        place = f"{self.name}: {argument.name}"
        copy = _arrays.entries(place, given, code, argument.kind == "word")
        size = argument.size(values)
        if len(copy) < size:
            raise ValueError(f"{place} has {len(copy)} entries, [{argument.extent}] asks for {size}")
        values[argument.name] = copy

    def make_arrays(self, presets, values, references):
        for argument, reference in self.output_arrays:
            code = self.codes[argument.name] or values["word code"]
            if presets.get(argument.name) is not None:
                self.take(argument, presets[argument.name], code, values)
            else:
                values[argument.name] = KEPT[code] * argument.size(values)
            references[reference] = _arrays.address(values[argument.name])

    def finish_arrays(self, presets, values):
        for argument, _ in self.output_arrays:
            if argument.written and presets.get(argument.name) is None:
                del values[argument.name][max(argument.written(values), 0):]
        for argument, _, _ in self.input_arrays:
            if argument.direction == "in,out":
                values[argument.name] = _arrays.returned(values[argument.name])
        for argument, _ in self.output_arrays:
            values[argument.name] = _arrays.returned(values[argument.name])


def routine(name, results, *groups):
    with_arrays = any(a.size for group in groups for a in group)
    return (ArrayRoutine if with_arrays else ScalarRoutine)(name, results, *groups)
