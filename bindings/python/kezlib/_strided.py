"""Memory of numpy's arrays as the library walks through it: what is given as numbers of 32 bits,
and for all arrays of a call the fewest axes to walk along."""

import decimal
import itertools
import numbers

import numpy as np

KINDS = {"real": np.dtype(np.float32), "integer": np.dtype(np.int32)}
UNWRITTEN = {"real": np.float32("nan"), "integer": np.int32(0)}
LEAST, LARGEST = -2**31, 2**31 - 1
ENTRY = 4  # bytes

# From so many walks on, if they are shorter than this, arrays are rather copied.
MANY_WALKS = 256


def array_of(place, given):
    try:
        return np.asarray(given)
    except ValueError:
        raise ValueError(f"{place}: its entries make no array, for they have different "
                         "lengths") from None


def check_objects(place, array, types, what):
    for value in array.flat:
        if not isinstance(value, types):
            raise TypeError(f"{place} has {value!r:.60}, not {what}")


def integers(place, array):
    if array.dtype.kind == "O":
        check_objects(place, array, numbers.Integral, "an integer")
    elif array.dtype.kind not in "biu" and array.size:
        raise TypeError(f"{place} has entries of type {array.dtype}, not integers")
    if array.dtype.kind in "iuO" and array.dtype.itemsize >= ENTRY and array.size and (
            array.min() < LEAST or array.max() > LARGEST):
        raise OverflowError(f"{place} has an entry beyond 32-bit integers")
    return array.astype(KINDS["integer"])


def reals(place, array):
    """Wide integers by way of doubles, as those of single calls."""
    if array.dtype.kind == "O":
        check_objects(place, array, (numbers.Real, decimal.Decimal), "a real")
    elif array.dtype.kind not in "biuf":
        raise TypeError(f"{place} has entries of type {array.dtype}, not reals")
    with np.errstate(over="ignore", invalid="ignore"):
        if array.dtype.kind in "iuO" and array.dtype.itemsize > ENTRY:
            array = array.astype(np.float64)
        return array.astype(KINDS["real"])


def converted(place, given, kind):
    """An array of that kind; the one that is given if it is."""
    array = array_of(place, given)
    if array.dtype == KINDS[kind]:
        return array if array.flags.aligned else array.copy()
    return (reals if kind == "real" else integers)(place, array)


def kind_of_words(arrays):
    """Integers if all entries are."""
    return "integer" if all(a.dtype.kind in "biu" or not a.size or a.dtype.kind == "O" and all(
        isinstance(v, numbers.Integral) for v in a.flat) for a in arrays) else "real"


def words(place, given, kind):
    array = array_of(place, given)
    if kind == "integer" and array.dtype == np.uint32:
        return array.view(KINDS["integer"]) if array.flags.aligned else array.copy().view("i4")
    return converted(place, array, kind)


def new_list(new, lead, inner, size, kind):
    """By numpy's empty or zeros a list's axis in front of those inside it, where each of these has
    its entries in a row."""
    return np.moveaxis(new((*lead, *inner, size), KINDS[kind]), -1, len(lead))


def laid_out(array, inner_axes):
    """A list in which a step along its axis is one entry; a copy if it is not."""
    axis = array.ndim - 1 - inner_axes
    if array.strides[axis] == ENTRY or array.shape[axis] <= 1:
        return array
    kind = "real" if array.dtype == KINDS["real"] else "integer"
    copy = new_list(np.empty, array.shape[:axis], array.shape[axis + 1:], array.shape[axis], kind)
    copy[...] = array
    return copy


def address(array):
    return array.__array_interface__["data"][0]


def offsets(array, inner_axes):
    """Bytes from the array's beginning to those of what its last axes hold."""
    last = array.ndim - inner_axes
    return [sum(i * step for i, step in zip(place, array.strides[last:]))
            for place in itertools.product(*map(range, array.shape[last:]))]


def lead_strides(array, core_axes, lead):
    """Steps along the axes that the array is broadcast to."""
    own = array.ndim - core_axes
    steps = [0 if length == 1 else step
             for length, step in zip(array.shape[:own], array.strides[:own])]
    return [0] * (len(lead) - own) + steps


def joined_axes(lead, strides):
    """Lengths and, by array, steps of the fewest axes that are the same walk."""
    axes = [(n, steps) for n, steps in zip(lead, zip(*strides)) if n != 1]
    joined = axes[:1]
    for n, steps in axes[1:]:
        length, wider = joined[-1]
        if all(wide == n * step for wide, step in zip(wider, steps)):
            joined[-1] = length * n, steps
        else:
            joined.append((n, steps))
    return joined or [(1, (0,) * len(strides))]


def are_walks_short(lead, strides, is_ordered):
    lengths = [n for n, _ in joined_axes(lead, strides)]
    longest = lengths[-1] if is_ordered else max(lengths)
    return np.prod(lengths, dtype=float) / longest > MANY_WALKS > longest


class Memory:
    """What numpy makes an array of that stands elsewhere in another's memory, which it keeps."""

    def __init__(self, array, start, shape, strides):
        self.array = array
        self.__array_interface__ = {
            "version": 3, "typestr": array.dtype.str, "shape": shape, "strides": strides,
            "data": (address(array) + start, True)}


def view(array, start, shape, strides):
    """That begins `start` bytes from the beginning of the array."""
    return np.asarray(Memory(array, start, shape, strides))
