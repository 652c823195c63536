"""How a routine is called. Every argument goes by reference: scalars in a block of memory that is
kept from call to call, of which each call that is under way has one of its own, arrays as copies.
"""

import ctypes
import functools
import math
import operator
import struct
from dataclasses import dataclass
from typing import Callable, Dict, Optional

from . import _arrays, _library
from ._arrays import INTEGER, KEPT_BYTES, REAL, Refused

NO_REAL = KEPT_BYTES[REAL]
NOTHING: Dict[str, object] = {}
UNSTORABLE = struct.error, TypeError, ValueError, OverflowError  # others by what converts itself
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

    @functools.cached_property
    def code(self):
        """None of a word, whose kind each call chooses."""
        return CODES.get(self.kind)


def arguments(names, kind, direction, **others):
    return [Argument(name, kind, direction, **others) for name in names.split()]


class Entries(list):
    """An integer array as extents use it, counted from 1 and with zeros around it."""

    def __call__(self, i):
        return self[i - 1] if 1 <= i <= len(self) else 0


def total(values, count):
    """Sum of the first entries, as 32-bit integers wrap."""
    return (sum(values[:max(count, 0)]) + 2**31) % 2**32 - 2**31


class Routine:
    """Calls a routine with a tuple of its inputs and, unless all are None, one of the values that
    outputs are to have where they are not written. Its scalars lie in a block, inputs first."""

    def __init__(self, name, results, arguments):
        self.name, self.results, self.arguments = name, results, arguments
        self.function = _library.function(name)
        self.optional = [a.name for a in arguments if a.kept]
        scalars = [a for a in arguments if a.code and not a.size]
        self.scalars = [a for a in scalars if a.direction != "out"]
        outputs = [a for a in scalars if a.direction == "out"]
        self.kept = [a for a in outputs if a.kept]
        self.set_layout(self.scalars + outputs, len(self.scalars))
        self.preset = b"".join(KEPT_BYTES[a.code] for a in outputs)
        self.marks = [(a.name, self.places[a.name], KEPT_BYTES[a.code]) for a in self.kept]
        self.blocks = []  # those that no call uses; pop and append are atomic

    def set_layout(self, slots, inputs):
        self.places = {a.name: 4 * i for i, a in enumerate(slots)}
        self.first_output = 4 * inputs
        given = struct.Struct("".join(a.code for a in slots[:inputs]))
        self.pack, self.unpack_given = given.pack_into, given.unpack_from
        self.unpack = struct.Struct("".join("4x" if a.direction == "in" else a.code
                                            for a in slots)).unpack_from
        self.unpacked = [a.name for a in slots if a.direction != "in"]

    def new_block(self):
        """A block, and by argument the references to what lies in it."""
        block = bytearray(4 * len(self.places))
        memory = (ctypes.c_char * len(block)).from_buffer(block)
        return block, [ctypes.byref(memory, self.places[a.name]) if a.name in self.places else None
                       for a in self.arguments]

    def refused(self, argument, error):
        return error.kind(f"{self.name}: {argument.name}{error}")

    def refuse(self, block, values):
        """To be called where scalars raised an exception: raises one that says more."""
        for argument, value in zip(self.scalars, values):
            self.store(block, argument, value)
        raise

    def store(self, block, argument, value):
        try:
            struct.pack_into(argument.code, block, self.places[argument.name], value)
        except UNSTORABLE:
            try:
                _arrays.check(value, argument.code)
            except Refused as error:
                raise self.refused(argument, error) from None
            raise

    def store_kept(self, block, presets):
        for argument in self.kept:
            if presets.get(argument.name) is not None:
                self.store(block, argument, presets[argument.name])

    def unwritten(self, block, presets):
        """Names of the scalars that hold what no routine writes."""
        return [name for name, place, pattern in self.marks
                if block[place:place + 4] == pattern and presets.get(name) is None]


class ScalarRoutine(Routine):
    """One without arrays: the references are always the same."""

    def __init__(self, name, results, arguments):
        super().__init__(name, results, arguments)
        self.fields = [a.name for a in arguments if a.direction != "in"]
        order = [self.unpacked.index(name) for name in self.fields]
        self.order = None if order == sorted(order) else operator.itemgetter(*order)
        # A quick look tells that all is written; the integer's pattern is found across neighbours.
        self.may_be_unwritten = NO_REAL if all(a.code == REAL for a in self.kept) else b""

    def new_block(self):
        block, references = super().new_block()
        return block, functools.partial(self.function, *references)

    def __call__(self, given, kept=()):
        try:
            block, call = self.blocks.pop()
        except IndexError:
            block, call = self.new_block()
        try:
            self.pack(block, 0, *given)
        except UNSTORABLE:
            self.refuse(block, given)
        presets = NOTHING
        if self.kept:
            block[self.first_output:] = self.preset
            if kept:
                presets = dict(zip(self.optional, kept))
                self.store_kept(block, presets)
        call()
        values = self.unpack(block)
        if self.order:
            values = self.order(values)
        if self.kept and self.may_be_unwritten in block:
            values = self.with_none(values, self.unwritten(block, presets))
        self.blocks.append((block, call))
        return tuple.__new__(self.results, values)

    def with_none(self, values, unwritten):
        values = list(values)
        for name in unwritten:
            values[self.fields.index(name)] = None
        return values


class Callback:
    """A function of the host's as the library calls it. Nothing may be raised through a routine:
    from an exception on it returns not-a-number, and when the routine is done the exception is
    raised."""

    def __init__(self, place, function, takes):
        if not callable(function):
            raise TypeError(f"{place} is {_arrays.shown(function)}, which cannot be called")
        self.place, self.function, self.raised = place, function, None
        signature = _library.FUNCTION_TYPE(ctypes.c_float, *(POINTERS[kind] for kind in takes))
        self.pointer = signature(self.called)

    def called(self, *references):
        if self.raised:
            return math.nan
        try:
            value = self.function(*(reference[0] for reference in references))
            _arrays.check(value, REAL, f"{self.place}'s result")
            return value
        except Refused as error:
            self.raised = error.kind(str(error))
        except BaseException as error:
            self.raised = error
        return math.nan


class ArrayRoutine(Routine):
    """One with arrays, whose references are made anew for each call."""

    def __init__(self, name, results, arguments):
        super().__init__(name, results, arguments)
        inputs = [a.name for a in arguments if a.direction != "out"]
        taken = [(a, inputs.index(a.name), i) for i, a in enumerate(arguments)
                 if a.size and a.direction != "out"]
        self.scalar_places = [inputs.index(a.name) for a in self.scalars]
        self.callbacks = [entry for entry in taken if entry[0].kind == "callback"]
        self.taken = [entry for entry in taken if entry[0].kind != "callback"]
        self.words = [place for argument, place, _ in taken if argument.kind == "word"]
        self.made = [(a, i) for i, a in enumerate(arguments) if a.size and a.direction == "out"]
        self.fields = [a.name for a in arguments if a.direction != "in"]
        self.returned_arrays = [a.name for a in arguments if a.size and a.direction != "in"]

    def __call__(self, given, kept=()):
        presets = dict(zip(self.optional, kept)) if kept else NOTHING
        try:
            block, scalars = self.blocks.pop()
        except IndexError:
            block, scalars = self.new_block()
        values = self.take_scalars(block, [given[i] for i in self.scalar_places], presets)
        references = scalars[:]
        self.take_arrays(given, presets, values, references)
        self.call(given, references)
        values.update(zip(self.unpacked, self.unpack(block)))
        self.return_arrays(values, presets)
        for name in self.unwritten(block, presets) if self.kept else ():
            values[name] = None
        self.blocks.append((block, scalars))
        return tuple.__new__(self.results, [values[name] for name in self.fields])

    def take_scalars(self, block, given, presets):
        try:
            self.pack(block, 0, *given)
        except UNSTORABLE:
            self.refuse(block, given)
        block[self.first_output:] = self.preset
        if presets:
            self.store_kept(block, presets)
        return dict(zip(self.places, self.unpack_given(block)))

    def take_arrays(self, given, presets, values, references):
        word = _arrays.word_code([given[i] for i in self.words]) if self.words else None
        for argument, place, reference in self.taken:
            array = self.take(argument, given[place], argument.code or word, values)
            references[reference] = _arrays.address(array)
        for argument, reference in self.made:
            preset = presets.get(argument.name) if presets else None
            if preset is None:
                array = self.make(argument, argument.code or word, values)
            else:
                array = self.take(argument, preset, argument.code or word, values)
            references[reference] = _arrays.address(array)

    def take(self, argument, given, code, values):
        try:
            copy = _arrays.copied(given, code, not argument.code)
        except Refused as error:
            raise self.refused(argument, error) from None
        size = argument.size(values)
        if len(copy) < size:
            raise ValueError(f"{self.name}: {argument.name} has {len(copy)} entries, "
                             f"[{argument.extent}] asks for {size}")
        values[argument.name] = copy
        return copy

    def make(self, argument, code, values):
        try:
            made = _arrays.made(argument.size(values), code, bool(argument.written))
        except Refused as error:
            raise self.refused(argument, error) from None
        values[argument.name] = made
        return made

    def call(self, given, references):
        callbacks = []
        for argument, place, reference in self.callbacks:
            callback = Callback(f"{self.name}: {argument.name}", given[place], argument.takes)
            references[reference] = callback.pointer
            callbacks.append(callback)
        self.function(*references)
        for callback in callbacks:
            if callback.raised:
                raise callback.raised

    def return_arrays(self, values, presets):
        for argument, _ in self.made:
            if argument.written and presets.get(argument.name) is None:
                values[argument.name] = _arrays.first(values[argument.name],
                                                      max(argument.written(values), 0))
        returned = _arrays.returner() if self.returned_arrays else None
        for name in self.returned_arrays:
            values[name] = returned(values[name])


def routine(name, results, *groups):
    arguments = [argument for group in groups for argument in group]
    form = ArrayRoutine if any(a.size for a in arguments) else ScalarRoutine
    return form(name, results, arguments)
