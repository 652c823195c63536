"""What the tests of all languages share.

    <folder>_test.py PACKAGE WORK [BUILDS]

PACKAGE is the installed library, WORK a folder to work in; BUILDS has both DLLs, in windows-x86 and
windows-x64, and without it they are not tried.

A test has a function for each of its languages, named by the language's key. It takes calls as the
manual offers them to be copied, by names of their own, and a Place; and gives by name what each
output was printed as, its entries in a list, or None where nothing was written. Here the functions
get every worked call of tests/cases. The manual's test gives them what its pages show.
"""

import importlib
import math
import os
import pathlib
import re
import shutil
import subprocess
import sys
from collections import defaultdict
from dataclasses import dataclass, field, replace

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parents[1] / "tools")]

import interface  # noqa: E402
from interface import arithmetic, conditions, languages, rows, shapes, writers  # noqa: E402

INTERFACE = interface.read()
ROOT = interface.ROOT
EXAMPLES = ROOT / "examples"
FIRST_CALL = "(0.866025, 0.5) and (-0.866025, 0.5)"  # what the hosts print that are called host
HELD = {"real": "-12345.5", "integer": "-98765"}  # before a call, in what it may keep
UNKNOWN = {"real": "nan", "integer": "-98765"}  # where a row gives no value
RESULT = re.compile(r"^([A-Za-z]\w*)(?:\[\d+\]|\( \d+ \))? =", re.MULTILINE)
RUNNERS = {"linux": (), "windows-x64": ("wine-x64",), "windows-x86": ("wine-x86",)}


@dataclass
class Place:
    """Where the package is, a folder to work in, and which machine programs are made for."""

    package: pathlib.Path
    work: pathlib.Path
    builds: pathlib.Path = None
    machine: str = "linux"

    def on(self, machine):
        """A folder for the programs of a machine, with its DLL."""
        work = self.work / machine
        work.mkdir(exist_ok=True)
        if machine != "linux":
            shutil.copy(self.builds / machine / "KezLib.dll", work)
        return replace(self, work=work, machine=machine)

    def binding(self, name):
        return self.package / "share/kezlib/bindings" / name

    @property
    def library(self):
        return self.package / "lib/libKezLib.so.1"

    def file(self, name, text):
        (self.work / name).write_text(text)
        return self.work / name

    def run(self, *command, **variables):
        environment = {**os.environ, "LC_ALL": "C.UTF-8", "PYTHONDONTWRITEBYTECODE": "1",
                       "LD_LIBRARY_PATH": str(self.package / "lib"), **variables}
        done = subprocess.run(list(map(str, command)), cwd=self.work, env=environment,
                              capture_output=True, text=True, check=False)
        if done.returncode:
            sys.exit(f"{' '.join(map(str, command))[:400]}\n{done.stdout}{done.stderr}"[:4000])
        return done.stdout

    def execute(self, program):
        runner = (ROOT / "tools/launchers" / name for name in RUNNERS[self.machine])
        return self.run(*runner, self.work / program)


def values(printed):
    """By output the values of what says NAME = VALUE ..., entries of an array one by one or not."""
    found = defaultdict(list)
    starts = [*RESULT.finditer(printed)]
    for start, end in zip(starts, [*(s.start() for s in starts[1:]), len(printed)]):
        found[start[1]] += printed[start.end():end].split()
    return found


def parts(printed):
    """By call, whose names stand behind @ in lines of their own."""
    found = (part.partition("\n") for part in printed.split("@")[1:])
    return {name: values("\n".join(map(str.strip, text.splitlines()))) for name, _, text in found}


def integers(row, *sides):
    """The integers of a call by name: those of the sides that are named, later ones first."""
    found = {}
    for side in sides:
        for a in row.routine.arguments:
            if a.kind == "integer" and a.name in side:
                numbers = [0 if text == "." else arithmetic.signed(rows.word(text, "integer"))
                           for text in side[a.name]]
                found[a.name] = numbers if a.extent else numbers[0]
    return found


def size(argument, row):
    """The entries of an array by its extent, and 1 of a scalar."""
    if not argument.extent:
        return 1
    return max(arithmetic.evaluate(argument.extent, integers(row, row.given)), 0)


def least(argument, row, made):
    """The entries below which an array is refused: of pairs of two lists as many as there are, not
    as there could be. Languages that make outputs need no entry that is only written."""
    before = integers(row, row.given)
    if found := shapes.pairs(argument, row.routine):
        after = integers(row, row.given, row.wanted)
        pairs = arithmetic.evaluate(conditions.beyond(argument.kept_when), after)
        return max(arithmetic.evaluate(found.extent, before | {"pairs": pairs}), 0)
    if made and (read := shapes.read_entries(argument)):
        return min(max(arithmetic.evaluate(read, before), 1), size(argument, row))
    return size(argument, row)


@dataclass
class Call:
    """A row, with what its outputs hold before where they may be kept, or with nothing there.
    `fewer` has the entries of arrays that have not all; `short` is one that is to be refused."""

    row: object
    preset: bool
    short: str = ""
    fewer: dict = field(default_factory=dict)

    def __post_init__(self):
        self.held, self.sizes = {}, {}
        for a in self.row.routine.arguments:
            kind, given = self.row.kinds[a.name], self.row.given.get(a.name)
            entries = max(size(a, self.row), len(given or self.row.wanted.get(a.name, [])))
            entries = self.fewer.get(a.name, entries)
            if given is not None:
                known = [UNKNOWN[kind] if text == "." else text for text in given]
                self.held[a.name] = (known + [UNKNOWN[kind]] * entries)[:entries]
            elif self.preset and a.is_kept():
                self.held[a.name] = [HELD[kind]] * entries
            self.sizes[a.name] = entries

    def text(self, writer):
        """As the manual's pages write it, which fill in what arguments hold. Writers know a list of
        reals by a point."""
        style, words = writer.LANGUAGE.literals, {a.name for a in self.row.routine.words()}

        def listed(match):
            texts = [style.of(text, self.row.kinds[match[1]]) for text in self.held[match[1]]]
            lines = (texts[i:i + style.row] for i in range(0, len(texts), style.row))
            return style.row_joint.join(map(style.joint.join, lines)) or style.filler

        holes = {name: f"«{name}.»" if name in words and self.row.kinds[name] == "real" else
                 f"«{name}»" for name in self.held}
        sizes = {name: str(max(n, 1 if style.filler else 0)) for name, n in self.sizes.items()}
        return re.sub(r"«(\w+)\.?»", listed, writer.call(self.row.routine, holes, sizes))

    def faults(self, found, says_kept, padded):
        """What is wrong with the results; says_kept when the language gives only what is written,
        padded when its lists may be longer than they need be."""
        found = {name.strip("_@"): entries for name, entries in found.items()}
        if self.short:
            if self.short not in " ".join(found.get("refused", [])).split():
                yield f"{self.short} may have too few entries: {dict(found)}"
            return
        for a in self.row.routine.outputs():
            wanted, before = self.row.wanted[a.name], self.held.get(a.name)
            got = (found.get(a.name) or [])[:self.sizes[a.name] if padded else None]
            written = [text for text in wanted[:size(a, self.row)] if text != "."]
            if says_kept and before is None and len(got) != self.written(a, len(written)):
                yield f"{a.name} is {got}, not {self.written(a, len(written))} entries"
            elif len(got) < len(written):
                yield f"{a.name} is {got}"
            for i, text in enumerate(got):
                literal = wanted[i] if i < len(wanted) else "."
                if literal == ".":
                    literal = (before or got)[i] if i < len(before or got) else "nothing"
                if literal == "nothing" or not agrees(text, literal, self.row.kinds[a.name]):
                    yield f"{a.name}({i + 1}) is {text} instead of {literal}"

    def written(self, argument, scalars):
        """How many entries are."""
        if not argument.extent:
            return scalars if argument.is_kept() else 1
        if argument.kept_when and (expression := conditions.beyond(argument.kept_when)):
            after = integers(self.row, self.row.given, self.row.wanted)
            return min(max(arithmetic.evaluate(expression, after), 0), size(argument, self.row))
        return self.sizes[argument.name]


def agrees(text, literal, kind):
    """Languages print reals with seven digits or more, and some no sign of a zero."""
    if kind == "integer":
        return int(text) & 0xFFFFFFFF == rows.word(literal, kind)
    bits = rows.single_bits(float(text))
    wanted = rows.single(rows.word(literal.partition("~")[0] or literal[1:], kind))
    return (rows.meets(bits, 0, literal, kind) or math.isnan(wanted) and math.isnan(float(text))
            or math.isclose(rows.single(bits), wanted, rel_tol=1e-6))


def with_reals(row):
    """A row of raw words that are integers with reals instead, where they have the same text."""
    words = {a.name for a in row.routine.words()}
    texts = [t for side in (row.given, row.wanted) for name in words for t in side.get(name, [])]
    if any(row.kinds[name] == "real" for name in words) or not words:
        return []
    if not all(re.fullmatch(r"-?\d{1,6}|\.", text) for text in texts):
        return []
    return [replace(row, kinds=row.kinds | {name: "real" for name in words})]


def worked_calls():
    """Every row, in turn without anything that may be kept and with it."""
    found, count = {}, defaultdict(int)
    for one in rows.read_rows(INTERFACE):
        for row in [one, *with_reals(one)]:
            count[row.routine.name] += 1
            name = f"{row.routine.name}_as_{count[row.routine.name]}"
            found[name] = Call(row, preset=count[row.routine.name] % 2 == 0)
    return found


def short_calls(calls, made):
    """For each array of each routine the first call that it can lack an entry of."""
    found = {}
    for call in calls.values():
        for a in call.row.routine.arguments:
            name = f"{call.row.routine.name}_short_{a.name}"
            passed = languages.is_list(a) and not a.callback and (not made or a.name in call.held)
            if passed and (entries := least(a, call.row, made)):
                found.setdefault(name, Call(call.row, call.preset, a.name, {a.name: entries - 1}))
    return found


def without_last_entries(calls):
    """Every call in which arrays can lack the entry that is only written."""
    found = {}
    for name, call in calls.items():
        fewer = {a.name: least(a, call.row, made=True) for a in call.row.routine.arguments
                 if shapes.read_entries(a)}
        if fewer:
            found[f"{name}_without_last"] = Call(call.row, call.preset, fewer=fewer)
    return found


def first_of_each(calls):
    return {name: call for name, call in calls.items() if name.endswith("_as_1")}


def check(key, host, place, says_kept=False, one_each=False, refuses=False, made=False,
          padded=False):
    """Gives a host its calls. It may refuse arrays that are too short, and outputs may be made for
    it, also longer ones."""
    writer, calls = writers.languages()[key], worked_calls()
    calls = first_of_each(calls) if one_each else calls
    if made:
        calls |= without_last_entries(calls)
    if refuses:
        calls |= short_calls(calls, made)
    found = host({name: call.text(writer) for name, call in calls.items()}, place)
    wrong = [f"{call.row.place}: {name}: {fault}" for name, call in calls.items()
             for fault in call.faults(found[name], says_kept, padded)]
    if wrong:
        sys.exit("\n".join([*wrong[:20], f"{len(wrong)} wrong in {key} on {place.machine}"]))
    return f"{len(calls)} calls in {writer.LANGUAGE.title} on {place.machine}"


def check_directions(declared):
    """Against the header: what declarations, (routine, names) each, say is only read. A call shows
    no difference."""
    read = {r.name: {a.name for a in r.arguments if a.direction == "in" and not a.callback}
            for r in INTERFACE.routines}
    assert read.keys() == {routine for routine, _ in declared}
    for routine, names in declared:
        assert {name.rstrip("_") for name in names} == read[routine], f"{routine} reads {names}"


def programs_in(path, fence):
    """The programs of a page, and what it says behind each: It prints `...`."""
    found = re.findall(rf"(?ms)^```{re.escape(fence)}\n(.*?)^```\n(?:\nIt prints `([^`]+)`)?",
                       path.read_text())
    if not found or not all(prints for _, prints in found):
        sys.exit(f"{path} has a program without what it prints, or none")
    return found


def page_programs(place, folder, fence):
    """Those of a language's page."""
    return programs_in(place.binding(folder) / "README.md", fence)


def plain(text):
    return " ".join(text.split())


def check_programs(program, programs, place):
    for text, prints in programs:
        printed = program(text, place)
        if plain(printed) != plain(prints):
            sys.exit(f"on {place.machine} this prints {printed!r}, not {prints!r}:\n{text}")


def places(machines=()):
    """Those of the command line: Linux, and the machines whose DLLs there are."""
    package, work, *builds = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    whole = Place(package, work, *builds)
    return [whole.on(machine) for machine in ("linux", *(machines if builds else ()))]


def hosts():
    """The function of each language by its key, for the manual's test."""
    return {key: getattr(importlib.import_module(f"{writer.LANGUAGE.folder}_test"), key)
            for key, writer in writers.languages().items()}
