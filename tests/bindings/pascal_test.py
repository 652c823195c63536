#!/usr/bin/env python3
"""The unit for Pascal, in both modes, on Linux and with both DLLs.

Needs: fpc lazarus-src lcl-utils
Needs for Windows: fpc-source
"""

import re
import shutil

import harness
from fortran_test import SHEAR

# Warnings, notes and hints are shown, and end the compilation.
STRICT = ["-vewnh", "-Sewnh"]
NO_HINTS = ["-vewn", "-Sewn"]  # for 32 bits, where sums of lengths cause some
UNIT = "{$MODE OBJFPC}{$IFDEF MSWINDOWS}{$APPTYPE CONSOLE}{$ENDIF}\nuses Math, SysUtils, KezLib;\n"
MODES = {"linux": ["OBJFPC", "DELPHI"], "windows-x64": ["DELPHI"], "windows-x86": ["OBJFPC"]}


def compiler(place):
    if place.machine == "linux":
        return "fpc"
    made = place.work.parent / "compilers"
    if not made.exists():
        place.run(harness.ROOT / "tools/launchers/fpc-windows", made)
    return made / f"fpc-{place.machine}"


def program(text, place, unit=None):
    prints = []
    for mode in MODES[place.machine]:
        source = place.file("program.pas", text.replace("{$MODE OBJFPC}", f"{{$MODE {mode}}}"))
        strict = NO_HINTS if place.machine == "windows-x86" else STRICT
        place.run(compiler(place), *strict, f"-Fu{unit or place.binding('pascal')}", "-FU.",
                  f"-Fl{place.package}/lib", "-oprogram.exe", source)
        prints.append(place.execute("program.exe"))
    assert len(set(prints)) == 1, prints
    return prints[0]


def procedure(name, text):
    """The main program, without what all have."""
    body = text.partition("KezLib;\n")[2].removesuffix("end.\n")
    return f"procedure Call_{name};\n{body}end;\n"


def pascal(texts, place):
    """Those with a routine that is called back stand alone: it can be in no procedure."""
    alone = {name: text for name, text in texts.items() if "\nfunction " in text}
    together = {name: text for name, text in texts.items() if name not in alone}
    procedures = "\n".join(procedure(*item) for item in together.items())
    calls = "".join(f"  WriteLn('@{name}'); Call_{name};\n" for name in together)
    found = {name: harness.values(program(text, place)) for name, text in alone.items()}
    return found | harness.parts(program(f"program Calls;\n{UNIT}{procedures}begin\n{calls}end.\n",
                                         place))


def check_checked(place):
    """Arrays that know their length: every call that has one, and what is refused."""
    def whole(texts, here):
        return pascal({name: re.sub(r"(\w)\[0\]", r"\1", text)
                       for name, text in texts.items()}, here)

    print(harness.check("pascal", whole, place))
    said = program((harness.HERE / "pascal_checked.pas").read_text(), place)
    assert said.strip() == "as it should be", said


def delphi_unit(place):
    """What Delphi reads, of which Free Pascal knows all but [Ref]."""
    text = (place.binding("pascal") / "kezlib.pas").read_text().replace("const [Ref]", "constref")
    (place.work / "delphi").mkdir(exist_ok=True)
    place.file("delphi/kezlib.pas", re.sub(r"(?m)^(?!.*\$MODE)(.*)\{\$IFDEF FPC\}",
                                           r"\1{$IFDEF NEVER}", text))
    return place.work / "delphi"


def check_lazarus(place):
    """A project that requires the package, which Lazarus compiles in its own folder."""
    work = place.work / "lazarus"
    shutil.copytree(place.binding("pascal"), work / "package")
    shutil.copy(harness.HERE / "pascal_project.lpi", work)
    shutil.copy(harness.EXAMPLES / "host.pas", work)
    build = ["lazbuild", f"--pcp={work}/config"]
    place.run(*build, "--add-package-link", work / "package/kezlib_package.lpk")
    place.run(*build, work / "pascal_project.lpi", KEZLIB_FOLDER=str(place.package / "lib"))
    assert place.run(work / "program.exe").strip() == harness.FIRST_CALL


def declared(place):
    """By declaration of the library's the routine and what is constref, or const for Delphi."""
    text = (place.binding("pascal") / "kezlib.pas").read_text()
    for routine, passed in re.findall(r"procedure (kez\w+)\(([^)]*)\);", " ".join(text.split())):
        if "array of" in passed:
            continue
        groups = re.findall(r"(?:constref|const \[Ref\]) ([^:]*):", passed)
        yield routine, [name for group in groups for name in group.split(", ")]


def main():
    examples = [((harness.EXAMPLES / "host.pas").read_text(), harness.FIRST_CALL),
                ((harness.EXAMPLES / "shear.pas").read_text(), SHEAR)]
    for place in harness.places(["windows-x64", "windows-x86"]):
        harness.check_directions(list(declared(place)))
        print(harness.check("pascal", pascal, place))
        harness.check_programs(program, examples + harness.page_programs(place, "pascal", "pascal"),
                               place)
        if place.machine == "linux":
            check_checked(place)
            program(examples[1][0], place, delphi_unit(place))
            check_lazarus(place)


if __name__ == "__main__":
    main()
