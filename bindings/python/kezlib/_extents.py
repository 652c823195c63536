"""What extents are computed with: the integers of all items of a call, in numpy's arrays."""

import numpy as np

from . import _arrays


class Integers(dict):
    """Those of a call by the routine's arguments, for extents."""

    def __getattr__(self, name):
        return self[name]


def entry(counts, i):
    """Entries of integer lists, whose positions are counted from 1; there are zeros around them."""
    lead = np.broadcast_shapes(counts.shape[:-1], i.shape)
    whole = np.broadcast_to(counts, (*lead, counts.shape[-1]))
    found = np.zeros(lead, np.int64)
    inside = np.broadcast_to((i >= 1) & (i <= counts.shape[-1]), lead)
    places = np.broadcast_to(i, lead)[inside] - 1
    found[inside] = np.take_along_axis(whole[inside], places[:, None], -1)[:, 0]
    return found


def total(counts, n):
    """Sums of the first n entries, as 32-bit integers wrap."""
    first = np.arange(counts.shape[-1]) < np.asarray(n)[..., None]
    return (np.where(first, counts, 0).sum(-1) + 2**31) % 2**32 - 2**31


def largest(values):
    return max(int(np.max(values, initial=0)), 0)


def most_pairs(arrays):
    """By item at least as many as there are pairs of two lists, which come with their counts, and
    perhaps a tolerance. The product of the counts is only what they could be at most."""
    leads = [array.shape[:array.ndim - (i in (0, 2))] for i, array in enumerate(arrays)]
    lead = np.broadcast_shapes(*leads)
    a, n, b, m, *tolerance = (np.broadcast_to(array, lead + array.shape[len(own):])
                              for own, array in zip(leads, arrays))
    pairs = np.zeros(lead, np.int64)
    for item in np.ndindex(*lead):
        pairs[item] = _arrays.pairs(a[item][:max(n[item], 0)].tolist(),
                                    b[item][:max(m[item], 0)].tolist(),
                                    *(t[item].item() for t in tolerance))
    return pairs
