"""Programs of the calls that pages offer to copy, in each language.

A host takes the copied texts by names of their own and a `Place`, and gives by name what each
output was printed as, its entries in a list; nothing or None of one that was kept.
"""

import ctypes
import json
import os
import pathlib
import re
import subprocess
import sys
from collections import defaultdict
from dataclasses import dataclass

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parent / "bindings"), str(HERE.parents[1] / "tools")]

import vba_calls  # noqa: E402
from vba_module import read_module  # noqa: E402
from vba_run import Run  # noqa: E402
from vba_text import logical_lines, physical_lines  # noqa: E402

RESULT = re.compile(r"^([A-Za-z]\w*)(?:\[\d+\]|\( \d+ \))? =", re.MULTILINE)


@dataclass
class Place:
    """Where the package is, and a folder to work in."""

    package: pathlib.Path
    work: pathlib.Path

    def binding(self, name):
        return self.package / "share/kezlib/bindings" / name

    @property
    def library(self):
        return self.package / "lib/libKezLib.so.1"

    def file(self, name, text):
        (self.work / name).write_text(text)
        return self.work / name

    def run(self, *command, **variables):
        environment = {**os.environ, "LC_ALL": "C.UTF-8",
                       "LD_LIBRARY_PATH": str(self.package / "lib"), **variables}
        done = subprocess.run(list(map(str, command)), cwd=self.work, env=environment,
                              capture_output=True, text=True, check=False)
        if done.returncode:
            sys.exit(f"{command}\n{done.stdout}{done.stderr}")
        return done.stdout


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


def c(texts, place):
    def function(name, text):
        """The routine that is called back stands above."""
        above = (re.match(r"/\*(?:.|\n)*?\n}\n", text) or [""])[0]
        return f"{above}static void call_{name}(void) {{\n{text[len(above):]}\n}}\n"

    calls = "".join(f'puts("@{name}");\ncall_{name}();\n' for name in texts)
    head = "#include <kezlib.h>\n#include <math.h>\n#include <stdio.h>\n"
    source = place.file("copies.c", head + "".join(function(*item) for item in texts.items())
                        + f"int main(void) {{\n{calls}return 0;\n}}\n")
    place.run("cc", "-std=c99", "-Wall", "-Wextra", "-Werror", f"-I{place.package}/include", source,
              place.library, "-lm", "-o", "copies")
    return parts(place.run("./copies"))


def python(texts, place):
    """With plain lists, whose tuples are printed in full."""
    place.file("texts.json", json.dumps(texts))
    place.file("copies.py", """\
import json, math, pathlib, sys
sys.modules["numpy"] = None
found = {}
for name, text in json.loads(pathlib.Path("texts.json").read_text()).items():
    names = {}
    exec(text.replace("print(result)", ""), names)
    found[name] = {key: None if value is None else [str(v) for v in value]
                   if isinstance(value, list) else [str(value)]
                   for key, value in names["result"]._asdict().items()}
print(json.dumps(found))
""")
    return json.loads(place.run("python3", "-B", "copies.py",
                                PYTHONPATH=str(place.binding("python"))))


def fortran(texts, place):
    """The main programs become subroutines of one."""
    calls = "".join(f'print "(a)", "@{name}"\ncall call_{name}()\n' for name in texts)
    routines = "\n".join(text.replace("program worked_call", f"subroutine call_{name}")
                         for name, text in texts.items())
    source = place.file("copies.F90", f"{routines}\nprogram copies\n{calls}end program copies\n")
    place.run("gfortran", "-c", place.binding("fortran") / "kezlib.F90")
    place.run("gfortran", source, "kezlib.o", place.library, "-o", "copies-fortran")
    return parts(place.run("./copies-fortran"))


def csharp(texts, place):
    methods = "\n".join(f"static void Call_{name}()\n{{\n{text}\n}}"
                        for name, text in texts.items())
    calls = "\n".join(f'Console.WriteLine("@{name}"); Call_{name}();' for name in texts)
    source = place.file("copies.cs", "using System;\nusing KezLib;\n\nstatic class Copies\n{\n"
                        f"{methods}\nstatic void Main()\n{{\n{calls}\n}}\n}}\n")
    place.run("mcs", "-out:copies.exe", source, *place.binding("csharp").glob("*.cs"))
    place.file("copies.exe.config", (place.binding("csharp") / "KezLib.config").read_text())
    return parts(place.run("mono", "copies.exe"))


def vba(texts, place):
    """By the parser, as there is no VBA here."""
    declarations = vba_calls.module(place.binding("vba") / "KezLib.bas")
    library = ctypes.CDLL(str(place.library))
    found = {}
    for name, text in texts.items():
        lines = physical_lines((text.replace("\n", "\r\n") + "\r\n").encode())
        run = Run([declarations, read_module(logical_lines(lines))], library)
        run.call(f"Worked_{name.partition('_as_')[0]}")
        found[name] = values("\n".join(run.printed))
    return found


def pascal(texts, place):
    found = {}
    for name, text in texts.items():
        source = place.file("workedcall.pas", text)
        place.run("fpc", f"-Fu{place.binding('pascal')}", "-FU.", f"-Fl{place.package}/lib",
                  "-ocopies-pascal", source)
        found[name] = values(place.run("./copies-pascal"))
    return found


def javascript(texts, place, suffix="mjs"):
    """Results are looked at before they would be printed in short."""
    modules = place.work / "node_modules"
    modules.mkdir(exist_ok=True)
    (modules / "kezlib").unlink(missing_ok=True)
    (modules / "kezlib").symlink_to(place.binding("javascript"))
    for name, text in texts.items():
        place.file(f"{name}.{suffix}", text)
    if suffix == "mts":
        place.run("tsc", "--strict", "--target", "es2022", "--module", "nodenext",
                  "--moduleResolution", "nodenext", "--lib", "es2022,dom",
                  *(f"{name}.mts" for name in texts))
    place.file("copies.mjs", f"""\
const found = {{}}, text = (v) => Array.from(typeof v === "number" ? [v] : v, String);
for (const name of {json.dumps(list(texts))}) {{
  console.log = (results) => (found[name] = Object.fromEntries(
    Object.entries(results).map(([key, v]) => [key, v === undefined ? null : text(v)])));
  await import(`./${{name}}.mjs`);
}}
process.stdout.write(JSON.stringify(found));
""")
    return json.loads(place.run("node", "copies.mjs"))


def typescript(texts, place):
    return javascript(texts, place, "mts")


def kezcall(texts, place):
    """Which compares the results itself."""
    rows = place.file("rows.txt", "".join(f"{text}\n" for text in texts.values()))
    said = place.run(place.package / "bin/kezcall", rows)
    if f"{len(texts)} passed, 0 failed" not in said:
        sys.exit(said)
    return {}


HOSTS = {host.__name__: host for host in (c, python, fortran, csharp, vba, pascal, javascript,
                                          typescript, kezcall)}
