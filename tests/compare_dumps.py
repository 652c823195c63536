#!/usr/bin/env python3
"""How far the results of two builds lie apart, by routine:  compare_dumps.py DUMP DUMP

Distances are in units in the last place of the result, and of the largest real of its call: where
large numbers cancel, a small result can have no digit right and the figure none wrong."""
import collections
import math
import struct
import sys


def value(word):
    return struct.unpack('>f', bytes.fromhex(word.lstrip('*r').zfill(8)))[0]


def last_place(magnitude):
    return 2.0 ** (max(math.frexp(magnitude)[1], -125) - 24)


def distances(one, other):
    """Of the reals that differ; None when another integer or a not-a-number is among them."""
    reals = [abs(value(word)) for word in one + other if word.lstrip('*')[0] == 'r']
    largest = max((r for r in reals if math.isfinite(r)), default=0.0)
    found = []
    for a, b in zip(one, other):
        if a == b:
            continue
        if a[1] == 'i' or not math.isfinite(value(a)) or not math.isfinite(value(b)):
            return None
        x, y = value(a), value(b)
        apart = abs(x - y)
        found.append((apart / last_place(max(abs(x), abs(y))), apart / last_place(largest)))
    return found


class Figures:
    calls = differ = otherwise = 0
    worst = (0.0, 0.0)

    def add(self, one, other):
        self.calls += 1
        if one == other:
            return
        self.differ += 1
        found = distances(one, other)
        if found is None:
            self.otherwise += 1
        else:
            self.worst = tuple(map(max, zip(self.worst, *found)))


def main(first, second):
    routines = collections.defaultdict(Figures)
    with open(first) as one, open(second) as other:
        for a, b in zip(one, other, strict=True):
            (name, *results), (same_name, *others) = a.split(), b.split()
            assert name == same_name and len(results) == len(others), 'not of the same calls'
            routines[name].add(results, others)
    print('routine   calls  differ  otherwise  ulp of result  ulp of call')
    for name, f in routines.items():
        if f.differ:
            print(f'{name:9}{f.calls:6}{f.differ:8}{f.otherwise:11}{f.worst[0]:15.1f}'
                  f'{f.worst[1]:13.1f}')
    same = sum(not f.differ for f in routines.values())
    print(same, 'of', len(routines), 'routines do not differ')


main(*sys.argv[1:])
