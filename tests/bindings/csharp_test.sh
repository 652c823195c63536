#!/bin/sh
# csharp_test.sh PACKAGE WORK [BUILDS]
#
# The binding for C#: compiled by mono's compiler, and run with the installed library by mono. In
# Debian is no mono that Wine could run, so BUILDS, where the DLLs would be, is not used.
set -eu
. "$(dirname "$0")/begin.sh"

sources="$binding/KezLib.cs $binding/KezLibSupport.cs"
export LD_LIBRARY_PATH="$package/lib" LC_ALL=C.UTF-8

calls() { python3 -B "$tests/csharp_calls.py" "$@"; }
compile() { mcs -warn:4 -warnaserror "$@"; }

# refused ERROR SOURCE...: the calls are an error with these sources in place of the binding.
refused() {
    error=$1
    shift
    compile -out:changed.exe "$@" Rows.cs "$tests/csharp_host.cs" >changed.log 2>&1 &&
        fail "a changed binding compiles: $*"
    grep -q "^Rows.cs.*error $error" changed.log || { cat changed.log >&2; fail "another error"; }
}

echo "Every row, and arrays that are too short"
# shellcheck disable=SC2086 # file names are words
quietly compile -langversion:5 -target:library -doc:KezLib.xml -out:KezLib.Net.dll $sources
calls Rows.cs
quietly compile -out:rows.exe -r:KezLib.Net.dll Rows.cs "$tests/csharp_host.cs"
mono rows.exe >results || fail "arrays or callbacks are not as they should be"
said=$(calls --check results) || fail "$said"

echo "Bindings that differ from the header"
for change in 'kind CS1503' 'direction CS1615' 'count CS1501'; do
    calls --changed "${change% *}" changed.cs
    refused "${change#* }" changed.cs "$binding/KezLibSupport.cs"
done
sed 's/Native\.kezln3(ref x1, ref y1,/Native.kezln3(ref y1, ref x1,/' \
    "$binding/KezLib.cs" >changed.cs
quietly compile -out:changed.exe changed.cs "$binding/KezLibSupport.cs" Rows.cs \
    "$tests/csharp_host.cs"
mono changed.exe >results
calls --check results >changed.log 2>&1 && fail "a binding with exchanged arguments passes"
grep -q '^frame.txt:[0-9]*: kezln3 a:' changed.log || { cat changed.log; fail "another failure"; }

echo "The examples and the page"
quietly compile -r:KezLib.Net.dll -out:host.exe "$examples/host.cs"
expect_answer mono host.exe
quietly compile -r:KezLib.Net.dll -out:section.exe "$examples/section.cs"
mono section.exe >section
# By hand: A = 2 (640 + 576), yc = 41472 / A, Ix = 2181803 - A yc^2, Iy = 2 (1637333 + 49728).
expected='area 2432, centroid (0.00, 17.05), principal moments 1.475e+06 and 3.374e+06'
[ "$(cat section)" = "$expected" ] || fail "another section: $(cat section)"
page_programs csharp blocks cs
for prints in blocks/*.prints; do
    program=${prints%.prints}.cs
    quietly compile -r:KezLib.Net.dll -out:page.exe "$program"
    mono page.exe | paste -s -d ' ' | cmp - "$prints" || fail "the page's program $program"
done

echo "Long lists, and the library's version"
quietly compile -r:KezLib.Net.dll -out:lists.exe "$tests/csharp_lists.cs"
version=$(basename "$package"/lib/libKezLib.so.*.*.*)
version=${version#libKezLib.so.}
[ "$(mono lists.exe)" = "$version $package/lib/libKezLib.so" ] ||
    fail "another library, or wrong lists: $(mono lists.exe 2>&1)"
mkdir -p other
for other in 0.9.0 2.0.0; do
    sed "s/$version\x00/$other\x00/" "$package/lib/libKezLib.so" >other/libKezLib.so
    printed=$(LD_LIBRARY_PATH="$PWD/other" mono lists.exe)
    refusal="KezLib $other, and this assembly is for $version"
    [ "$printed" = "$PWD/other/libKezLib.so is $refusal" ] ||
        fail "version $other is taken: $printed"
done

echo "A machine without libKezLib.so"
mkdir -p runtime
cp -P "$package"/lib/libKezLib.so.1* runtime
export LD_LIBRARY_PATH="$PWD/runtime"
cp "$binding/KezLib.config" KezLib.Net.dll.config
expect_answer mono host.exe
# shellcheck disable=SC2086 # file names are words
quietly compile -d:NETCOREAPP3_0_OR_GREATER -out:loader.exe $sources \
    "$tests/csharp_loader.cs" "$examples/host.cs"
cp "$binding/KezLib.config" loader.exe.config
[ "$(mono loader.exe | paste -s -d ' ')" = "0 libKezLib.so.1 $(cat answer)" ] ||
    fail "the loader is asked for something else: $(mono loader.exe)"

echo "$said; not run: .NET, and mono on Windows, which are not in Debian"
