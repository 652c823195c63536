#!/bin/sh
# nuget.sh PACKAGE.nupkg BINDING BUILDS
#
# Installs the package for NuGet in the present folder and calls its library from its assembly, by
# mono. BINDING and BUILDS are what it was made of, by tools/nuget.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
. "$here/../shell.sh"

version=$(basename "$1" .nupkg)
version=${version#KezLib.}
quietly nuget install KezLib -Version "$version" -Source "$(dirname "$1")" -NoCache \
    -OutputDirectory installed -NonInteractive
package=$PWD/installed/KezLib.$version
for machine in x86 x64; do
    cmp "$3/windows-$machine/KezLib.dll" "$package/runtimes/win-$machine/native/KezLib.dll"
done
for machine in x64:X86-64 arm64:AArch64; do
    library=$package/runtimes/linux-${machine%:*}/native/libKezLib.so
    readelf -h "$library" | grep -q "Machine: .*${machine#*:}" || fail "$library is for another machine"
done
cmp "$package/lib/net45/KezLib.Net.dll" "$package/lib/netstandard2.0/KezLib.Net.dll"

# Beside a program is its assembly, as .NET's build copies it.
cp "$package"/lib/netstandard2.0/KezLib.Net.* .
runtime=$package/runtimes/linux-$(uname -m | sed 's/x86_64/x64/; s/aarch64/arm64/')/native
for program in "$here/../../examples/host.cs" "$here/nuget.cs"; do
    quietly mcs -warnaserror -r:KezLib.Net.dll "$program" -out:"$(basename "$program" .cs).exe"
done
expect_answer env LD_LIBRARY_PATH="$runtime" mono host.exe
found=$(LD_LIBRARY_PATH=$runtime mono nuget.exe)
[ "$found" = "mscorlib
5 5 10
$version $runtime/libKezLib.so" ] || fail "the package's assembly says: $found"

mkdir again
python3 -B "$here/../../tools/nuget" "$2" "$3" again
cmp "$1" "again/$(basename "$1")"
