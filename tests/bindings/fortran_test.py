#!/usr/bin/env python3
"""The module for Fortran, on Linux and with both DLLs.

Needs: gfortran
Needs for Windows: gfortran-mingw-w64-i686-win32 gfortran-mingw-w64-x86-64-win32
"""

import re
import subprocess
import tomllib

import harness

STRICT = "-std=f2008 -Wall -Wextra -pedantic -Werror".split()
COMPILERS = {"linux": "gfortran", "windows-x64": "x86_64-w64-mingw32-gfortran",
             "windows-x86": "i686-w64-mingw32-gfortran"}
# By hand, of a flange of 4000 mm2 at 190 mm and a web of 1800 mm2 at 90 mm; above their centroid
# the flange at 31.034 mm, and 21.034 mm of the web.
SHEAR = """area 5800.0 mm2, centroid 159.0 mm above the foot
above it 4210.3 mm2 with a first moment of 126350 mm3, where it is 10.0 mm wide"""


def compiled(place, *arguments):
    system = ["-D_WIN32"] if place.machine == "windows-x86" else []
    place.run(COMPILERS[place.machine], *STRICT, *system, *arguments)


def program(text, place):
    """Optimised: a wrong intent changes then what a host sees."""
    if not (place.work / "kezlib.o").exists():
        compiled(place, "-c", place.binding("fortran") / "kezlib.F90")
    source, library = place.file("program.F90", text), [place.library]
    if place.machine != "linux":
        library = ["-static", place.builds / place.machine / "libKezLib.dll.a"]
    compiled(place, "-O1", source, "kezlib.o", *library, "-o", "program.exe")
    return place.execute("program.exe")


def units(name, text):
    """The module with what is called back, by a name of its own, and the main program as a
    subroutine, which uses what all use: compilers read a module anew for each use."""
    if called := re.search(r"function (\w+)\(.*bind\(c\)", text):
        text = re.sub(rf"\b{called[1]}\b", f"{called[1]}_{name}", text)
    text = re.sub(r"\bhost_of_\w+", f"host_{name}", text)
    module, _, main = text.replace("end program worked_call", f"end subroutine call_{name}"
                                   ).partition("program worked_call\n")
    main = re.sub(r"(?m)^ *use(, intrinsic ::)? (ieee_arithmetic|kezlib)\n", "", main)
    return module, f"subroutine call_{name}\n{main}"


def fortran(texts, place, module="kezlib"):
    calls = "".join(f'print "(a)", "@{name}"\ncall call_{name}()\n' for name in texts)
    modules, subroutines = zip(*(units(*item) for item in texts.items()))
    routines = "\n".join([*modules, "module calls", "use, intrinsic :: ieee_arithmetic",
                          "use kezlib", "contains", *subroutines, "end module calls"])
    routines = routines.replace("use kezlib\n", f"use {module}\n")
    return harness.parts(program(f"{routines}\nprogram copies\nuse calls\n{calls}end program copies\n",
                                 place))


def check_checked(place):
    """Arrays that know their length: every call, and one that is too short ends the program."""
    print(harness.check("fortran", lambda texts, here: fortran(texts, here, "kezlib_checked"),
                        place))
    source = (harness.HERE / "fortran_checked.F90").read_text()
    assert program(source, place).strip() == "as it should be"
    for short, says in (("outline", "kezapl: X has 4 entries, too few: 5"),
                        ("pairs", "kezmer4: com has 1 entries, too few: 2")):
        done = subprocess.run([place.work / "program.exe", short], capture_output=True, text=True,
                              env={"LD_LIBRARY_PATH": str(place.library.parent)}, check=False)
        assert done.returncode == 1 and says in done.stderr, done


def check_manifest(place):
    """As fpm would, which Debian does not have: compiles the sources of the library's folder, without
    implicit types, and links what the manifest says."""
    folder = place.binding("fortran")
    manifest = tomllib.loads((folder / "fpm.toml").read_text())
    assert manifest["version"] == harness.interface.version()
    sources = [*(folder / manifest["library"]["source-dir"]).rglob("*.[fF]90")]
    place.run("gfortran", "-fimplicit-none", "-Werror=implicit-interface", *sources,
              harness.EXAMPLES / "host.f90", f"-L{place.package}/lib",
              f"-l{manifest['build']['link']}", "-o", "program.exe")
    assert place.execute("program.exe").strip() == harness.FIRST_CALL


def declared(place):
    """By declaration, in one line each, the routine and what is intent(in)."""
    text = (place.binding("fortran") / "kezlib.F90").read_text()
    lines = re.sub(r" &\n\s*", " ", text)
    for routine, body in re.findall(r'(?s)name="(\w+)"\)\n(.*?)end subroutine', lines):
        names = ", ".join(re.findall(r"intent\(in\) :: (.*)", body))
        yield routine, re.findall(r"(\w+)(?:\([^)]*\))?(?:, |$)", names)


def main():
    examples = [((harness.EXAMPLES / "host.f90").read_text(), harness.FIRST_CALL),
                ((harness.EXAMPLES / "shear.f90").read_text(), SHEAR)]
    for place in harness.places(["windows-x64", "windows-x86"]):
        harness.check_directions(list(declared(place)))
        print(harness.check("fortran", fortran, place))
        pages = harness.page_programs(place, "fortran", "fortran")
        harness.check_programs(program, examples + pages, place)
        if place.machine == "linux":
            check_checked(place)
            check_manifest(place)


if __name__ == "__main__":
    main()
