"""Makes the package for NuGet: the assembly of the binding for C#, and the library for each system.

    python3 tools/nuget BINDING BUILDS OUT

BINDING is the installed folder of the binding, BUILDS has those of RUNTIMES. The same inputs give the
same bytes.
"""

import pathlib
import subprocess
import sys
import tempfile
import zipfile
from xml.sax.saxutils import escape

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))

import interface  # noqa: E402

VERSION = interface.version()
DESCRIPTION = ("Single-precision numeric routines for programs that design steel structures, for"
               " .NET on Windows and Linux.")
# By runtime identifier: the build, and its library's name there and in the package. On Linux .NET
# looks for a name without a version.
RUNTIMES = {
    "win-x86": ("windows-x86", "KezLib.dll", "KezLib.dll"),
    "win-x64": ("windows-x64", "KezLib.dll", "KezLib.dll"),
    "linux-x64": ("debian", "libKezLib.so.1", "libKezLib.so"),
    "linux-arm64": ("aarch64", "libKezLib.so.1", "libKezLib.so"),
}
# The assembly refers to mscorlib only, which each of these has.
FRAMEWORKS = {"net45": ".NETFramework4.5", "netstandard2.0": ".NETStandard2.0"}
PROPERTIES = "package/services/metadata/core-properties/kezlib.psmdcp"
HEAD = '<?xml version="1.0" encoding="utf-8"?>\n'
OPENXML = "http://schemas.openxmlformats.org/package/2006"

ABOUT = f"""\
using System.Reflection;
[assembly: AssemblyTitle("KezLib")]
[assembly: AssemblyVersion("{VERSION.split('.')[0]}.0.0.0")]
[assembly: AssemblyFileVersion("{VERSION}.0")]
[assembly: AssemblyInformationalVersion("{VERSION}")]
"""

NUSPEC = f"""{HEAD}\
<package xmlns="http://schemas.microsoft.com/packaging/2013/05/nuspec.xsd">
  <metadata>
    <id>KezLib</id>
    <version>{VERSION}</version>
    <title>KezLib</title>
    <authors>KezLib developers</authors>
    <requireLicenseAcceptance>false</requireLicenseAcceptance>
    <readme>README.md</readme>
    <description>{escape(DESCRIPTION)}</description>
    <tags>steel geometry sections numeric native</tags>
    <dependencies>
{''.join(f'      <group targetFramework="{name}" />{chr(10)}' for name in FRAMEWORKS.values())}\
    </dependencies>
  </metadata>
</package>
"""

RELATIONS = f"""{HEAD}\
<Relationships xmlns="{OPENXML}/relationships">
  <Relationship Type="http://schemas.microsoft.com/packaging/2010/07/manifest"
    Target="/KezLib.nuspec" Id="R1" />
  <Relationship Type="{OPENXML}/relationships/metadata/core-properties"
    Target="/{PROPERTIES}" Id="R2" />
</Relationships>
"""

CORE = f"""{HEAD}\
<coreProperties xmlns="{OPENXML}/metadata/core-properties"
  xmlns:dc="http://purl.org/dc/elements/1.1/">
  <dc:creator>KezLib developers</dc:creator>
  <dc:description>{escape(DESCRIPTION)}</dc:description>
  <dc:identifier>KezLib</dc:identifier>
  <version>{VERSION}</version>
</coreProperties>
"""


def content_types(names):
    kinds = {"rels": "application/vnd.openxmlformats-package.relationships+xml",
             "psmdcp": "application/vnd.openxmlformats-package.core-properties+xml"}
    found = sorted({name.rpartition(".")[2] for name in names})
    lines = "".join(f'  <Default Extension="{kind}" '
                    f'ContentType="{kinds.get(kind, "application/octet")}" />\n' for kind in found)
    return f'{HEAD}<Types xmlns="{OPENXML}/content-types">\n{lines}</Types>\n'


def compiled(binding):
    """The assembly and its documentation. Its name is not that of the library on Windows."""
    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder)
        (work / "about.cs").write_text(ABOUT)
        subprocess.run(["mcs", "-nologo", "-langversion:5", "-warnaserror", "-deterministic",
                        "-optimize", "-target:library", "-doc:KezLib.Net.xml",
                        "-out:KezLib.Net.dll", "about.cs", binding / "KezLib.cs",
                        binding / "KezLibSupport.cs"], cwd=work, check=True)
        return {name: (work / name).read_bytes() for name in ("KezLib.Net.dll", "KezLib.Net.xml")}


def contents(binding, builds):
    files = {"_rels/.rels": RELATIONS.encode(), "KezLib.nuspec": NUSPEC.encode(),
             "README.md": (binding / "README.md").read_bytes()}
    assembly = compiled(binding)
    for framework in FRAMEWORKS:
        files |= {f"lib/{framework}/{name}": data for name, data in assembly.items()}
    for runtime, (build, made, name) in RUNTIMES.items():
        files[f"runtimes/{runtime}/native/{name}"] = (builds / build / made).read_bytes()
    files[PROPERTIES] = CORE.encode()
    return {"[Content_Types].xml": content_types(files).encode(), **files}


def main():
    binding, builds, out = (pathlib.Path(word).resolve() for word in sys.argv[1:])
    with zipfile.ZipFile(out / f"KezLib.{VERSION}.nupkg", "w", zipfile.ZIP_DEFLATED) as package:
        for name, data in contents(binding, builds).items():
            entry = zipfile.ZipInfo(name)  # of 1980: the same bytes at any time
            entry.external_attr = 0o644 << 16
            package.writestr(entry, data, zipfile.ZIP_DEFLATED, 9)


if __name__ == "__main__":
    main()
