"""Calls of a routine for numpy's arrays: operands are broadcast as numpy's are, and the library
makes one call for each item of the result. Other threads run meanwhile."""

import ctypes
from dataclasses import dataclass
from typing import Callable, Optional

import numpy as np

from . import _arrays, _library, _strided
from ._extents import Integers, largest, most_pairs
from ._heights import Heights
from ._strided import KINDS, UNWRITTEN

MANY_ITEMS = 2**18  # a walk is cut here: between two calls Python may be interrupted
HOST_ITEMS = 64  # the same where each asks the host
MANY_ENTRIES = 2**28  # of a list of pairs: these are counted before memory is taken for them
BUFFER = 2**18  # bytes of lists that are copied for a call, which a cache should hold

kezbatch = _library.function("kezbatch")
_zero = np.zeros(1, np.int32)


@dataclass(frozen=True)
class Operand:
    """One of a function of arrays: some arguments of the routine. `size`, `taken` and `written`
    count the entries of a list, those needed of one that is given, and those that are written if
    the rest is cut off; they are functions of the call's integers."""

    name: str
    kind: str  # real, integer, word or callback
    role: str  # in; in,out; out; work, which is written and no result unless asked for; count or
    # count,out, of the entries of lists; or ignored
    members: str  # the arguments
    inner: tuple = ()  # lengths of the axes that they have
    extent: str = ""
    counted: str = ""  # the count of such a list that is given
    size: Optional[Callable] = None
    taken: Optional[Callable] = None
    written: Optional[Callable] = None
    pairs: tuple = ()  # of a list that holds pairs: two lists, each with its count; the tolerance
    paired: Optional[Callable] = None  # its entries by the number of pairs
    kept: bool = False  # a result that is not always written

    @property
    def axes(self):
        return len(self.inner) + bool(self.size)

    def shape(self):
        return ", ".join(["...", *filter(None, [self.extent]), *map(str, self.inner)])


class Batch:
    """A routine; `results` is None where one result stands alone. Those of a routine that keeps a
    value, or asks the host, are made in the order of the items."""

    def __init__(self, name, routine, results, operands, changed=None, ordered=False):
        self.name, self.results, self.changed, self.ordered = name, results, changed, ordered
        self.routine = routine.encode()
        self.operands = operands
        members = [m for o in operands for m in o.members.split()]
        self.places = {m: i for i, m in enumerate(members)}
        self.given = [o for o in operands if o.role in ("in", "in,out", "work")]
        self.counts = [o for o in operands if o.role.startswith("count")]
        self.kept = [o for o in operands if o.kept]
        extents = [e for o in operands for e in (o.size, o.taken) if e]
        self.sizing = {name for e in extents for name in e.__code__.co_names}

    def __call__(self, given, counts=(), presets=(), changed=False):
        return Call(self, given, counts, presets, changed).made()


class Call:
    def __init__(self, batch, given, counts, presets, changed):
        self.batch, self.changed = batch, changed
        self.kinds = {"word": "real"}
        self.arrays, self.heights = {}, None
        self.take(given)
        self.presets = {o.name: self.taken(o, value) for o, value in zip(batch.kept, presets)
                        if value is not None}
        self.take_counts(counts)
        self.find_integers()
        self.check_entries()
        taken = [(o, self.arrays[o.name]) for o in batch.given + batch.counts
                 if o.name in self.arrays]
        taken += [(o, self.presets[o.name]) for o in batch.kept if o.name in self.presets]
        self.lead = self.broadcast(taken)
        self.keep_walks_long(taken)

    def place(self, operand):
        return f"{self.batch.name}: {operand.name}"

    def take(self, given):
        pairs = list(zip(self.batch.given, given))
        words = [_strided.array_of(self.place(o), value) for o, value in pairs if o.kind == "word"]
        if words:
            self.kinds["word"] = _strided.kind_of_words(words)
        for operand, value in pairs:
            if operand.kind == "callback":
                self.heights = Heights(operand.name, self.place(operand), value)
                value = None if callable(value) else value
            if value is not None:
                self.arrays[operand.name] = self.taken(operand, value)

    def taken(self, operand, value):
        place, kind = self.place(operand), self.kinds.get(operand.kind, operand.kind)
        if operand.kind == "word":
            array = _strided.words(place, value, kind)
        else:
            array = _strided.converted(place, value, "real" if kind == "callback" else kind)
        inner = len(operand.inner)
        if array.ndim < operand.axes or array.shape[array.ndim - inner:] != operand.inner:
            raise ValueError(f"{place} has shape {array.shape}, not ({operand.shape()})")
        if self.batch.sizing.intersection(operand.members.split()):
            array = array.copy()  # the caller's other threads could have lists overrun
        return _strided.laid_out(array, inner) if operand.size else array

    def take_counts(self, counts):
        """Those that are not given are the lengths of lists."""
        for operand, value in zip(self.batch.counts, counts):
            if value is not None:
                self.arrays[operand.name] = self.taken(operand, value)

    def length(self, operand):
        return self.arrays[operand.name].shape[-1 - len(operand.inner)]

    def lists(self):
        return [o for o in self.batch.given if o.taken and o.name in self.arrays]

    def find_integers(self):
        """Counts by the longest list; those of single items are checked against it."""
        self.integers = Integers()
        for operand in self.batch.given:
            if operand.kind == "integer":
                array = self.arrays[operand.name].astype(np.int64)
                for i, member in enumerate(operand.members.split()):
                    self.integers[member] = array[..., i] if operand.inner else array
        for count in self.batch.counts:
            lengths = {self.length(o) for o in self.lists() if o.counted == count.name}
            if len(lengths) != 1 and count.name not in self.arrays:
                raise ValueError(f"{self.place(count)} must be given: the lists have different "
                                 "lengths")
            self.integers[count.name] = np.int64(max(lengths))
            if count.name not in self.arrays:
                self.arrays[count.name] = np.array(max(lengths), np.int32)

    def check_entries(self):
        self.counts = Integers(self.integers)
        for count in self.batch.counts:
            self.counts[count.name] = self.arrays[count.name].astype(np.int64)
        for operand in self.lists():
            needed, length = largest(operand.taken(self.counts)), self.length(operand)
            is_fixed = operand.extent.isdigit()
            if length < needed or is_fixed and length != needed:
                raise ValueError(f"{self.place(operand)} has {length} entries, ({operand.shape()}) "
                                 f"asks for {needed}")

    def broadcast(self, taken):
        leads = [array.shape[:array.ndim - o.axes] for o, array in taken]
        try:
            return np.broadcast_shapes(*leads)
        except ValueError:
            shapes = ", ".join(f"{o.name} {array.shape}" for o, array in taken)
            text = f"{self.batch.name}: the leading axes do not agree: {shapes}"
            raise ValueError(text) from None

    def keep_walks_long(self, taken):
        """Copies operands if the library would be called too often."""
        if len(self.lead) < 2:
            return
        steps = [_strided.lead_strides(array, o.axes, self.lead) for o, array in taken]
        if 0 in self.lead or not _strided.are_walks_short(self.lead, steps, self.batch.ordered):
            return
        for (operand, array), own in zip(taken, steps):
            if operand.name in self.arrays and len(_strided.joined_axes(self.lead, [own])) > 1:
                core = array.shape[array.ndim - operand.axes:]
                whole = np.broadcast_to(array, (*self.lead, *core)).copy()
                self.arrays[operand.name] = (
                    _strided.laid_out(whole, len(operand.inner)) if operand.size else whole)

    def made(self):
        self.steps = [[0] * len(self.lead) for _ in self.batch.places]
        self.bases = [_strided.address(_zero)] * len(self.steps)
        self.results, self.works = {}, []
        for operand in self.batch.operands:
            self.lay(operand)
        if self.heights:
            self.heights.begin(self.arrays, self.lead)
        if 0 not in self.lead:
            self.walk()
        if self.heights:
            self.heights.check_all_were_asked()
        return self.returned()

    def lay(self, operand):
        """Lets the library find the operand's arguments."""
        is_result = operand.role.endswith("out") or operand.role == "work" and self.changed
        if operand.kind == "callback":
            self.bases[self.batch.places[operand.members]] = self.heights.address
        elif is_result:
            self.results[operand.name] = result = self.new_result(operand)
            self.connect(operand, result)
        elif operand.role == "work":
            self.works.append(Work(self, operand))
        elif operand.role != "ignored":
            self.connect(operand, self.arrays[operand.name])

    def connect(self, operand, array):
        steps = _strided.lead_strides(array, operand.axes, self.lead)
        base = _strided.address(array)
        offsets = _strided.offsets(array, len(operand.inner))
        for member, offset in zip(operand.members.split(), offsets):
            place = self.batch.places[member]
            self.bases[place], self.steps[place] = base + offset, steps

    def new_result(self, operand):
        """What no routine writes is there from the beginning."""
        kind = self.kinds.get(operand.kind, operand.kind)
        before = self.presets.get(operand.name, self.arrays.get(operand.name))
        is_open = operand.kept or operand.size and not operand.extent.isdigit()
        new = np.empty if before is not None or not is_open else np.zeros  # takes no time
        if operand.size:
            result = self.new_list(operand, new, self.size(operand, before), kind)
        else:
            result = new((*self.lead, *operand.inner), KINDS[kind])
        if before is None:
            if is_open and kind == "real":
                result[...] = UNWRITTEN[kind]
        elif operand.size:
            fill(result, before, len(operand.inner), kind)
        else:
            result[...] = before
        return result

    def size(self, operand, before):
        size = largest(operand.size(self.integers))
        is_preset = operand.name in self.presets
        if operand.pairs and (is_preset or size > _arrays.MANY
                              or self.items() * size > MANY_ENTRIES):
            size = self.size_of_pairs(operand, self.integers)
        if before is None:
            return size
        length = before.shape[-1 - len(operand.inner)]
        if is_preset and length < (needed := self.needed(operand)):
            raise ValueError(f"{self.place(operand)} has {length} entries, ({operand.shape()}) "
                             f"asks for {needed}")
        return max(length, size)

    def needed(self, operand):
        """The entries that the library may write, by the counts that are given."""
        if operand.pairs:
            return self.size_of_pairs(operand, self.counts)
        return largest(operand.size(self.counts))

    def size_of_pairs(self, operand, integers):
        pairs = most_pairs([self.arrays[name] for name in operand.pairs])
        return largest(operand.paired(Integers(integers, pairs=pairs)))

    def new_list(self, operand, new, size, kind):
        try:
            return _strided.new_list(new, self.lead, operand.inner, size, kind)
        except (MemoryError, ValueError):
            raise MemoryError(f"{self.place(operand)} has {size} entries in each of "
                              f"{self.items()} items, for which there is no memory") from None

    def items(self):
        return int(np.prod(self.lead, dtype=object))

    def walk(self):
        works = [work.steps for work in self.works]
        axes = _strided.joined_axes(self.lead, self.steps + works)
        lengths = [n for n, _ in axes]
        inner = len(axes) - 1
        if not self.batch.ordered:
            inner = lengths.index(max(lengths))
        inner_steps = axes[inner][1]
        outer = [(n, steps) for i, (n, steps) in enumerate(axes) if i != inner]
        for place in np.ndindex(*(n for n, _ in outer)):
            starts = [sum(i * steps[k] for i, (_, steps) in zip(place, outer))
                      for k in range(len(inner_steps))]
            self.walk_along(lengths[inner], inner_steps, starts)

    def walk_along(self, count, steps, starts):
        size = min([HOST_ITEMS if self.heights else MANY_ITEMS, *(w.items for w in self.works)])
        arguments = len(self.bases)
        addresses = [base + start for base, start in zip(self.bases, starts)]
        between = list(steps[:arguments])  # from a walk's beginning to that of the next one
        within = (ctypes.c_ssize_t * arguments)(*between)
        for work in self.works:
            for place, address in work.addresses:
                addresses[place], between[place], within[place] = address, 0, work.row
        for first in range(0, count, size):
            items = min(size, count - first)
            for work, start, step in zip(self.works, starts[arguments:], steps[arguments:]):
                work.refill(start + first * step, step, items)
            self.call(items, [a + first * step for a, step in zip(addresses, between)], within)

    def call(self, items, addresses, steps):
        status, arguments = ctypes.c_int32(), len(addresses)
        kezbatch(self.batch.routine, ctypes.byref(ctypes.c_int32(arguments)),
                 ctypes.byref(ctypes.c_int32(items)), (ctypes.c_void_p * arguments)(*addresses),
                 steps, ctypes.byref(status))
        if status.value:
            raise ImportError(f"{self.batch.name}: the library has another {self.batch.routine}")
        if self.heights:
            self.heights.check()

    def returned(self):
        for operand in self.batch.operands:
            if operand.written and operand.name not in self.presets:
                self.cut(operand)
        wanted = self.batch.changed if self.changed else self.batch.results
        found = list(self.results.values())
        return wanted(*found) if wanted else found[0]

    def cut(self, operand):
        """A list whose extent is a product is not returned with as many entries."""
        written = Integers(self.integers)
        written.update((name, result.astype(np.int64)) for name, result in self.results.items()
                       if result.dtype == KINDS["integer"])
        axis = len(self.lead)
        first = (slice(None),) * axis + (slice(largest(operand.written(written))),)
        self.results[operand.name] = self.results[operand.name][first].copy()


def fill(result, given, inner_axes, kind):
    """Entries of a list that were given, and behind them none."""
    axis = result.ndim - inner_axes - 1
    length = given.shape[given.ndim - inner_axes - 1]
    before = (slice(None),) * axis
    result[(*before, slice(length))] = given
    if length < result.shape[axis]:
        result[(*before, slice(length, None))] = UNWRITTEN[kind]


class Work:
    """A list that calls write: for some items at a time a copy."""

    def __init__(self, call, operand):
        self.array = call.arrays[operand.name]
        self.inner = len(operand.inner)
        self.steps = _strided.lead_strides(self.array, operand.axes, call.lead)
        size = call.size(operand, self.array)
        self.row = 4 * size * int(np.prod(operand.inner))
        most = min(max(BUFFER // max(self.row, 1), 1), MANY_ITEMS, call.items())
        self.items = most
        self.buffer = _strided.new_list(np.empty, (most,), operand.inner, size, "real")
        self.repeated, self.repeats = None, None  # an item that all calls get, and its beginning
        base = _strided.address(self.buffer)
        self.addresses = [
            (call.batch.places[member], base + offset) for member, offset in
            zip(operand.members.split(), _strided.offsets(self.buffer, self.inner))]

    def refill(self, start, step, items):
        if step:
            self.fill(start, step, items)
        elif self.repeats == start:
            self.buffer.base[:items] = self.repeated[:items]
        else:
            self.fill(start, 0, len(self.buffer))
            self.repeated, self.repeats = self.buffer.base.copy(), start

    def fill(self, start, step, items):
        core = self.array.ndim - 1 - self.inner
        given = _strided.view(self.array, start, (items, *self.array.shape[core:]),
                              (step, *self.array.strides[core:]))
        fill(self.buffer[:items], given, self.inner, "real")
