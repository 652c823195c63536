"""Makes calls with the inputs of all rows of tests/cases through kezlib.arrays, in batches of
random leading shapes, and compares each item with a single call, to the bit.

Each operand takes its values from rows of its own, so that most items are calls that no row makes.
Lists are as long as the longest row's, and counts are given; in further calls they are found.
"""

import pathlib
import random
import sys

import numpy as np

sys.path.append(str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
import interface  # noqa: E402
import kezlib  # noqa: E402
from interface import arithmetic, bulk, rows  # noqa: E402
from interface.writers import python  # noqa: E402
from kezlib import _batch, _strided, arrays  # noqa: E402

DTYPES = {"real": np.float32, "integer": np.int32}
KEPT = {"real": 0x7FE5A5A5, "integer": 0x80000000}  # what single calls show of an unwritten entry
MANY = 10_000
LEADS = (), (3,), (1,), (4, 3), (2, 1, 5), (0, 2), (3, 2, 3, 2)
rng = random.Random(1)


def values_of(argument, row):
    bits = [rows.word(text, row.kinds[argument.name]) for text in row.given[argument.name]]
    return np.array(bits, np.uint32).view(DTYPES[row.kinds[argument.name]])


def integer_inputs(row):
    found = {a.name: values_of(a, row).astype(int).tolist() for a in row.routine.inputs()
             if a.kind == "integer"}
    return {a.name: found[a.name] if a.extent else found[a.name][0]
            for a in row.routine.inputs() if a.name in found}


def stacked(operand, row):
    """The operand's value in a row: axes of a list, then those inside it."""
    members = [values_of(a, row) for a in operand.arguments]
    whole = np.stack(members, -1) if operand.inner else members[0]
    whole = whole.reshape((whole.shape[0], *operand.inner))
    return whole if operand.extent else whole[0]


def padded(values, length):
    rest = np.zeros((length - len(values), *values.shape[1:]), values.dtype)
    return np.concatenate([values, rest + 7])


def drawn(operand, chosen, lead):
    """Values of the operand from rows, for some of the leading axes."""
    pool = [stacked(operand, row) for row in chosen]
    if operand.extent and not operand.extent.isdigit():
        longest = max(map(len, pool)) + (16 if "(" in operand.taken else 1)
        pool = [padded(values, longest) for values in pool]
    own = [n if rng.random() < .7 else 1 for n in lead][rng.choice([0, 0, 0, 1]):]
    picked = [rng.choice(pool) for _ in range(int(np.prod(own)))]
    return np.array(picked, pool[0].dtype).reshape((*own, *pool[0].shape))


def disguised(array):
    """The same numbers as something else."""
    kind = rng.randrange(6)
    if kind == 0 and not (array.dtype == np.float32 and np.isnan(array).any()):
        return array.astype(np.float64 if array.dtype == np.float32 else np.int64)
    if kind == 1 and array.size and not np.isnan(array).any():
        return array.tolist()
    if kind == 2:
        return np.array(array, order="F")
    if kind == 3:
        return np.flip(np.flip(array).copy())
    if kind == 4:
        return array.astype(array.dtype.newbyteorder())
    return array


def scalar(value):
    return value.item() if value.ndim == 0 else value


def heights_of(values):
    return lambda i: float(values[i - 1])


def flattened(value, operand):
    """With one axis for those inside the operand: of its arguments."""
    outer = value.shape[:value.ndim - len(operand.inner)]
    return value.reshape((*outer, len(operand.arguments)))


def single(routine, operands, given, item, lead, presets):
    """A single call with an item's values."""
    inputs, kept = {}, {}
    for operand in operands:
        source = given if operand.role != "out" else presets
        if operand.name not in source:
            continue
        array = source[operand.name]
        core = array.shape[array.ndim - len(operand.inner) - bool(operand.extent):]
        value = np.broadcast_to(array, (*lead, *core))[item]
        parts = flattened(value, operand)
        for k, argument in enumerate(operand.arguments):
            part = parts[..., k]
            goes = kept if argument.direction == "out" else inputs
            is_list = argument.extent == "1"
            goes[argument.name] = (heights_of(part) if argument.callback else
                                   part.reshape(1) if is_list else scalar(part))
    for argument in routine.inputs():  # ignored ones, and those that are results with a preset
        if argument.name not in inputs:
            inputs[argument.name] = float("nan") if argument.kind == "real" else 0
            if argument.text == "ignored":
                inputs[argument.name] = 0
    return getattr(kezlib, routine.name)(**{python.LANGUAGE.name(name): value for name, value in
                                            (inputs | kept).items()})


def bits(value):
    value = np.asarray(value)
    return value.astype(np.float32 if value.dtype.kind == "f" else np.int32).view(np.uint32)


def same(got, wanted, unwritten):
    """By bits; what a single call leaves out is what arrays have there; Python's floats, through
    which single calls return, have lost whether a not-a-number is quiet."""
    got_bits, wanted_bits = bits(got), bits(wanted)
    kind = "real" if got.dtype == np.float32 else "integer"
    fine = got_bits == wanted_bits
    if kind == "real":
        fine |= np.isnan(got) & np.isnan(np.asarray(wanted, np.float32))
    elif unwritten is not None:
        fine |= np.isin(wanted_bits, [KEPT[kind], rows.POISON]) & (got == unwritten)
    return bool(np.all(fine))


def fault(operand, got, wanted, is_preset):
    """What is wrong with an item's value of an operand."""
    unwritten = None if is_preset else (np.nan if got.dtype == np.float32 else 0)
    flat = flattened(got, operand)
    for k, argument in enumerate(operand.arguments):
        value = flat[..., k]
        expected = getattr(wanted, python.LANGUAGE.name(argument.name), None)
        if expected is None and hasattr(wanted, argument.name):
            expected = unwritten
        elif expected is None:
            continue  # an input that goes along
        if operand.extent:
            length = min(len(expected), len(value))
            if operand.is_kept() and not is_preset and not same(
                    value[length:], np.full(len(value) - length, unwritten), unwritten):
                return f"{argument.name} is written behind its end"
            if len(expected) > length and operand.role == "out" and not operand.written():
                return f"{argument.name} has too few entries"
            value, expected = value[:length], expected[:length]
        if not same(value, expected, unwritten):
            return f"{argument.name} is {value}, not {expected}"
    return ""


def faults(routine, function, operands, given, lead, presets, settle):
    works = [o for o in operands if o.role == "work" and rng.random() < .5]
    results = [o for o in operands if o.role.endswith("out") or o in works]
    by_keyword = {o.name: disguised(given[o.name]) for o in operands
                  if o.role.startswith("count")}
    by_keyword |= {name: disguised(value) for name, value in presets.items()}
    if works:
        by_keyword["changed"] = True
    passed = [disguised(given[o.name]) for o in operands if o.is_given()]
    before = [np.array(value, copy=True) for value in passed]
    items = list(np.ndindex(*lead))
    settle()
    expected = [single(routine, operands, given, item, lead, presets) for item in items]
    settle()
    found = function(*passed, **by_keyword)
    found = found if len(results) > 1 else (found,)
    for value, old in zip(passed, before):
        if np.asarray(value).tobytes() != old.tobytes():
            yield "changes what the caller has"
    for operand, whole in zip(results, found):
        core = whole.ndim - len(operand.inner) - bool(operand.extent)
        if whole.shape[:core] != lead:
            yield f"{operand.name} has shape {whole.shape} for items {lead}"
            continue
        for item, wanted in zip(items, expected):
            if text := fault(operand, whole[item], wanted, operand.name in presets):
                yield f"item {item} of {lead}: {text}"


def presets_of(operands, kind, lead):
    """For results that may not be written, except for lists, which would need a certain length."""
    dtypes = DTYPES | {"word": DTYPES[kind]}
    return {o.name: np.full((*lead[1:], *o.inner), -98765, dtypes[o.kind]) for o in operands
            if o.is_kept() and not o.extent and all(a.direction == "out" for a in o.arguments)}


def lengths_are_counts(row, operands):
    """Whether its counts could be found: not where a figure has points beyond them."""
    integers = integer_inputs(row)
    return all(integers[o.name] > 0 for o in operands if o.role.startswith("count")) and (
        integers.get("kind", 2) == 2 or not any(o.extent.startswith("max") for o in operands))


def cut(operand, row):
    values = stacked(operand, row)
    return values[:arithmetic.evaluate(operand.taken, integer_inputs(row))] if (
        operand.taken) else values


def walk_otherwise():
    """Many items are parted, lists copied, operands walked along and pairs counted as few are
    not."""
    _batch.MANY_ITEMS = _batch.HOST_ITEMS = rng.choice([2, 64])
    _batch.BUFFER = rng.choice([150, 2**18])
    _strided.MANY_WALKS = rng.choice([3.5, 256])
    _batch.MANY_ENTRIES = rng.choice([-1, 2**28])


def check(routine, found_rows, kind):
    function, operands = getattr(arrays, routine.name), bulk.operands(routine)
    taken = [o for o in operands if o.is_given() or o.role.startswith("count")]

    def settle():
        """Whatever was kept, the same is kept now."""
        for row in found_rows if routine.kept else []:
            single(routine, operands, {o.name: stacked(o, row) for o in taken}, (), (), {})

    # Together with others, long blocks would be the length of all results.
    mixed = [row for row in found_rows if max(integer_inputs(row).get("counts", [0])) < MANY]
    for lead in LEADS:
        given = {o.name: drawn(o, mixed, lead) for o in taken}
        own = [v.shape[:v.ndim - len(o.inner) - bool(o.extent)] for o, v in
               ((o, given[o.name]) for o in taken)]
        for presets in {}, presets_of(operands, kind, lead):
            walk_otherwise()
            whole = np.broadcast_shapes(*own, *([lead[1:]] if presets else []))
            yield from faults(routine, function, operands, given, whole, presets, settle)
    for row in found_rows:
        given = {o.name: stacked(o, row) for o in taken}
        found = list(faults(routine, function, operands, given, (), {}, settle))
        if lengths_are_counts(row, operands):
            found_given = {o.name: cut(o, row) for o in taken}
            found += faults_of_found(routine, function, operands, found_given, given, settle)
        yield from (f"{row.place}: {text}" for text in found)


def faults_of_found(routine, function, operands, given, single_given, settle):
    """Where counts are not given the list is cut, while a single call has its extent."""
    passed = [given[o.name] for o in operands if o.is_given()]
    changed = {"changed": True} if any(o.role == "work" for o in operands) else {}
    settle()
    wanted = single(routine, operands, single_given, (), (), {})
    settle()
    found = function(*passed, **changed)
    results = [o for o in operands if o.role.endswith("out") or o.role == "work"]
    for operand, whole in zip(results, found if len(results) > 1 else (found,)):
        if text := fault(operand, whole, wanted, False):
            yield text


def main():
    by_routine, failed, routines = {}, 0, 0
    for row in rows.read_rows(interface.read()):
        words = [row.kinds[a.name] for a in row.routine.words()]
        by_routine.setdefault((row.routine.name, (words or ["real"])[0]), []).append(row)
    for (name, kind), found_rows in by_routine.items():
        for text in check(found_rows[0].routine, found_rows, kind):
            failed += 1
            print(f"{name}: {text}"[:400])
        routines += 1
    print(f"arrays: {sum(map(len, by_routine.values()))} rows, alone and in "
          f"{routines * 2 * len(LEADS)} batches, {failed} failed")
    sys.exit(failed > 0 or routines < 138)


if __name__ == "__main__":
    main()
