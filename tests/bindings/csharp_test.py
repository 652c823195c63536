#!/usr/bin/env python3
"""The binding for C#, by mono. In Debian is neither .NET nor a mono that Wine could run.

Needs: mono-mcs mono-runtime
"""

import harness

STRICT = "-langversion:5 -warn:4 -warnaserror".split()
# By hand: A = 2 (640 + 576), yc = 41472 / A, Ix = 2181803 - A yc^2, Iy = 2 (1637333 + 49728).
SECTION = "area 2432, centroid (0.00, 17.05), principal moments 1.475e+06 and 3.374e+06"


def sources(place):
    return [place.binding("csharp") / name for name in ("KezLib.cs", "KezLibSupport.cs")]


def program(text, place):
    source = place.file("program.cs", text)
    if not (place.work / "KezLib.Net.dll").exists():
        place.run("mcs", *STRICT, "-target:library", "-doc:KezLib.xml", "-out:KezLib.Net.dll",
                  *sources(place))
    place.run("mcs", *STRICT[1:], "-nowarn:219", "-r:KezLib.Net.dll", "-out:program.exe", source)
    return place.run("mono", "program.exe")


def csharp(texts, place):
    methods = "\n".join(f"static void Call_{name}()\n{{\n{text}\n}}"
                        for name, text in texts.items())
    calls = "\n".join(f'Try("{name}", Call_{name});' for name in texts)
    return harness.parts(program(f"""\
using System;
using KezLib;

static class Copies
{{
{methods}
static void Try(string name, Action call)
{{
    Console.WriteLine("@" + name);
    try {{ call(); }}
    catch (ArgumentException refusal) {{ Console.WriteLine("refused = " + refusal.ParamName); }}
}}
static void Main()
{{
{calls}
}}
}}
""", place))


def check_lists(place):
    """Long lists; which library is loaded, and that one of another version is refused."""
    version, library = harness.interface.version(), place.library.with_name("libKezLib.so")
    said = program((harness.HERE / "csharp_lists.cs").read_text(), place)
    assert said.strip() == f"{version} {library}", said
    other = place.work / "other/libKezLib.so"
    other.parent.mkdir(exist_ok=True)
    for changed in "0.9.0", "2.0.0":
        text = library.read_bytes()
        assert text.count(f"{version}\0".encode()) == 1
        other.write_bytes(text.replace(f"{version}\0".encode(), f"{changed}\0".encode()))
        said = place.run("mono", "program.exe", LD_LIBRARY_PATH=str(other.parent)).strip()
        assert said == f"{other} is KezLib {changed}, and this assembly is for {version}", said


def check_loading(place):
    """Where there is no libKezLib.so: by the map of mono's, and by .NET's own loader."""
    config = (place.binding("csharp") / "KezLib.config").read_text()
    place.file("KezLib.Net.dll.config", config)
    place.file("loader.exe.config", config)
    runtime = place.work / "runtime"
    runtime.mkdir(exist_ok=True)
    place.run("cp", "-P", *place.library.parent.glob("libKezLib.so.1*"), runtime)
    found = {"LD_LIBRARY_PATH": str(runtime)}
    place.run("mcs", *STRICT, "-r:KezLib.Net.dll", "-out:program.exe",
              harness.EXAMPLES / "host.cs")
    assert place.run("mono", "program.exe", **found).strip() == harness.FIRST_CALL
    place.run("mcs", *STRICT, "-d:NETCOREAPP3_0_OR_GREATER", "-out:loader.exe", *sources(place),
              harness.HERE / "csharp_loader.cs", harness.EXAMPLES / "host.cs")
    said = harness.plain(place.run("mono", "loader.exe", **found))
    assert said == f"0 libKezLib.so.1 {harness.FIRST_CALL}", said


def main():
    (place,) = harness.places()
    print(harness.check("csharp", csharp, place, refuses=True))
    programs = [((harness.EXAMPLES / "host.cs").read_text(), harness.FIRST_CALL),
                ((harness.EXAMPLES / "section.cs").read_text(), SECTION),
                ((harness.HERE / "csharp_misuse.cs").read_text(), "refused")]
    harness.check_programs(program, programs + harness.page_programs(place, "csharp", "csharp"),
                           place)
    check_lists(place)
    check_loading(place)


if __name__ == "__main__":
    main()
