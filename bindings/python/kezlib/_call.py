"""How a routine is called. Every argument goes by reference: scalars in a block of memory that is
kept from call to call, of which each call that is under way has one of its own, arrays as copies.
"""

import ctypes
import functools
import operator
import struct
from array import array
from dataclasses import dataclass
from typing import Callable, Dict, Optional

from . import _arrays, _library
from ._arrays import INTEGER, KEPT, KEPT_BYTES, PLAIN, REAL, Refused

NO_REAL = KEPT_BYTES[REAL]
NOTHING: Dict[str, object] = {}
UNSTORABLE = struct.error, TypeError, ValueError, OverflowError  # others by what converts itself
CODES = {"real": REAL, "integer": INTEGER}
HOST_FUNCTION = _library.FUNCTION_TYPE(ctypes.c_float, ctypes.c_void_p)


@dataclass(frozen=True)
class Argument:
    name: str
    kind: str  # real, integer, word or callback
    direction: str  # in, out or in,out
    extent: str = ""
    size: Optional[Callable[[dict], int]] = None  # the extent's value over scalars and arrays
    read: Optional[Callable[[dict], int]] = None  # as many entries if the last is only written
    kept: bool = False  # an output that is not always written
    written: Optional[Callable[[dict], int]] = None  # of such an array the number of entries
    pairs: tuple = ()  # what _arrays.pairs counts, where the extent is the most they could be
    paired: Optional[Callable[[dict], int]] = None  # the extent with their number in place of that

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

    def pack_given(self, block, values):
        """Stores the scalars that are read."""
        try:
            if not PLAIN.issuperset(map(type, values)) and _arrays.has_complex(values):
                raise TypeError
            self.pack(block, 0, *values)
        except UNSTORABLE:
            for argument, value in zip(self.scalars, values):
                self.store(block, argument, value)
            raise

    def refused(self, argument, error):
        return error.kind(f"{self.name}: {argument.name}{error}")

    def store(self, block, argument, value):
        try:
            _arrays.check(value, argument.code)
        except Refused as error:
            raise self.refused(argument, error) from None
        struct.pack_into(argument.code, block, self.places[argument.name], value)

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
        self.pack_given(block, given)
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
        grown = self.take_arrays(given, presets, values, references)
        answers = [self.answers(argument, given[place], values)
                   for argument, place, _ in self.callbacks]
        self.call(answers, references)
        values.update(zip(self.unpacked, self.unpack(block)))
        self.return_arrays(values, presets, grown)
        for name in self.unwritten(block, presets) if self.kept else ():
            values[name] = None
        self.blocks.append((block, scalars))
        return tuple.__new__(self.results, [values[name] for name in self.fields])

    def take_scalars(self, block, given, presets):
        self.pack_given(block, given)
        block[self.first_output:] = self.preset
        if presets:
            self.store_kept(block, presets)
        return dict(zip(self.places, self.unpack_given(block)))

    def take_arrays(self, given, presets, values, references):
        """Returns the names of those that got an entry more than was given."""
        word = _arrays.word_code([given[i] for i in self.words]) if self.words else None
        grown = []
        for argument, place, reference in self.taken:
            if self.take(argument, given[place], argument.code or word, values):
                grown.append(argument.name)
            references[reference] = _arrays.address(values[argument.name])
        for argument, reference in self.made:
            preset = presets.get(argument.name) if presets else None
            if preset is None:
                self.make(argument, argument.code or word, values)
            else:
                self.take(argument, preset, argument.code or word, values)
            references[reference] = _arrays.address(values[argument.name])
        return grown

    def take(self, argument, given, code, values):
        """Whether the array lacked the entry that is only written."""
        try:
            copy = _arrays.copied(given, code, not argument.code)
        except Refused as error:
            raise self.refused(argument, error) from None
        values[argument.name] = copy
        size = argument.size(values)
        if len(copy) >= size:
            return False
        least = size
        if argument.read:
            least = max(argument.read(values), 1)
        elif argument.pairs:
            least = self.size_of_pairs(argument, values)
        if len(copy) < least:
            raise ValueError(f"{self.name}: {argument.name} has {len(copy)} entries, "
                             f"[{argument.extent}] asks for {size}")
        copy.extend(KEPT[code] * (size - len(copy) if argument.read else 0))
        return bool(argument.read)

    def make(self, argument, code, values):
        size = argument.size(values)
        if argument.pairs and size > _arrays.MANY:
            size = self.size_of_pairs(argument, values)
        try:
            values[argument.name] = _arrays.made(size, code)
        except Refused as error:
            raise self.refused(argument, error) from None

    def size_of_pairs(self, argument, values):
        """The extent of an output that holds pairs, of which there are not more."""
        if "pairs" not in values:  # of another such output
            a, n, b, m, *tolerance = (values[name] for name in argument.pairs)
            values["pairs"] = _arrays.pairs(a[:max(n, 0)], b[:max(m, 0)], *tolerance)
        return argument.paired(values)

    def answers(self, argument, function, values):
        """What the host's function returns for the positions, each of which the library wants once,
        in their order. It is called before the routine, so that exceptions are raised from here.
        ctypes would drop Ctrl-C between the library and a function of Python."""
        place = f"{self.name}: {argument.name}"
        if not callable(function):
            raise TypeError(f"{place} is {_arrays.shown(function)}, which cannot be called")
        answers = array(REAL)
        for position in range(1, argument.size(values) + 1):
            answer = function(position)
            try:
                _arrays.check(answer, REAL, "'s result")
            except Refused as error:
                raise error.kind(f"{place}{error}") from None
            answers.append(answer)
        return iter(answers)

    def call(self, answers, references):
        """The library calls `next`, in which no signal is looked at."""
        functions = [HOST_FUNCTION(functools.partial(next, found)) for found in answers]
        for (_, _, reference), function in zip(self.callbacks, functions):
            references[reference] = function
        self.function(*references)
        if any(True for found in answers for _ in found):
            raise RuntimeError(f"{self.name} did not call the host for all positions")

    def return_arrays(self, values, presets, grown):
        for argument, _ in self.made:
            if argument.written and presets.get(argument.name) is None:
                del values[argument.name][max(argument.written(values), 0):]
        for name in grown:
            last = values[name][-1:]
            if last.tobytes() == KEPT_BYTES[last.typecode]:  # it is not written
                values[name].pop()
        returned = _arrays.returner() if self.returned_arrays else None
        for name in self.returned_arrays:
            values[name] = returned(values[name])


def routine(name, results, *groups):
    arguments = [argument for group in groups for argument in group]
    form = ArrayRoutine if any(a.size for a in arguments) else ScalarRoutine
    return form(name, results, arguments)
