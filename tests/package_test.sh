#!/bin/sh
# package_test.sh BUILD_DIR SOURCE_DIR
#
# Installs the built library, moves the installed tree, and uses it from there as a host does: the
# examples are built against it with CMake and with pkg-config, and run. CFLAGS are the hosts'; when
# not set, they are what of the library's own a host must share with it.
set -eu
. "$(dirname "$0")/shell.sh"

[ $# -eq 2 ] || fail "usage: package_test.sh BUILD_DIR SOURCE_DIR"
build=$(cd "$1" && pwd)
source=$(cd "$2" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

cached() { sed -n "s/^$1:[A-Z]*=//p" "$build/CMakeCache.txt"; }

version=$(cached CMAKE_PROJECT_VERSION)
major=${version%%.*}
libdir=$(cached CMAKE_INSTALL_LIBDIR)
CMAKE_GENERATOR=$(cached CMAKE_GENERATOR)
export CMAKE_GENERATOR
config=$(cached CMAKE_BUILD_TYPE | tr '[:upper:]' '[:lower:]')
[ "${CFLAGS+set}" ] ||
    CFLAGS=$({ cached CMAKE_C_FLAGS; echo "-fsanitize=$(cached KEZLIB_SANITIZERS)"; } |
        tr ' ' '\n' | grep -E '^-(m32|m64|fsanitize=.+)$' | tr '\n' ' ')
export CFLAGS

quietly cmake --install "$build" --prefix "$work/installed"
prefix=$work/moved
mv installed "$prefix"

# What a host gets, and nothing else.
sort >expected <<END
bin/kezcall
include/kezbatch.h
bin/kezsection
include/kezlib.h
$libdir/cmake/KezLib/KezLibConfig.cmake
$libdir/cmake/KezLib/KezLibConfigVersion.cmake
$libdir/cmake/KezLib/KezLibTargets-${config:-noconfig}.cmake
$libdir/cmake/KezLib/KezLibTargets.cmake
$libdir/libKezLib.so
$libdir/libKezLib.so.$major
$libdir/libKezLib.so.$version
$libdir/pkgconfig/kezlib.pc
END
bindings=share/kezlib/bindings
sheet=share/kezlib/kezsection
(cd "$prefix" && find . ! -type d | sed 's,^\./,,' | grep -Ev "^($bindings|$sheet)/" | sort) >found
diff expected found >&2 || fail "the installed files differ from the expected ones (<) as shown"
# The bindings are what is generated and what is written by hand, one in the other's folders.
mkdir -p expected_bindings/javascript
if [ -e "$source/build/wasm/package/kezlib.browser.js" ]; then
    cp -r "$source/build/wasm/package/." expected_bindings/javascript
fi
cp -r "$source/bindings/." "$build/bindings/." expected_bindings
[ -e expected_bindings/javascript/package.json ] || rm -r expected_bindings/javascript
diff -r expected_bindings "$prefix/$bindings" >&2 || fail "the installed bindings differ as shown"
diff -r -x __pycache__ "$source/kezsection/kezsection" "$prefix/$sheet/kezsection" >&2 ||
    fail "the installed kezsection differs as shown"
cmp "$source/include/kezlib.h" "$prefix/include/kezlib.h" || fail "the installed header is another"

library=$prefix/$libdir/libKezLib.so
[ "$(readlink "$library")" = "libKezLib.so.$major" ] ||
    fail "libKezLib.so does not lead to libKezLib.so.$major"
[ "$(readlink "$library.$major")" = "libKezLib.so.$version" ] ||
    fail "libKezLib.so.$major does not lead to .so.$version"
objdump -p "$library" | grep -q "SONAME *libKezLib\.so\.$major\$" ||
    fail "the SONAME is not libKezLib.so.$major"

[ "$("$prefix/bin/kezcall" kezpds 1 2 0  4 6 0)" = 'd  = 5' ] || fail "kezcall does not run"

# A host that uses pkg-config.
export PKG_CONFIG_PATH="$prefix/$libdir/pkgconfig"
[ "$(pkg-config --modversion kezlib)" = "$version" ] || fail "pkg-config knows another version"
# shellcheck disable=SC2046,SC2086  # flags are words
quietly ${CC:-cc} -std=c99 -Wall -Wextra -Werror $CFLAGS "$source/examples/host.c" -o host \
    $(pkg-config --cflags --libs kezlib)
expect_answer env LD_LIBRARY_PATH="$prefix/$libdir" ./host
mv answer out
sed '1,/^```c$/d; /^```$/,$d' "$source/README.md" | cmp - "$source/examples/host.c" ||
    fail "README.md shows another host than examples/host.c"

# Hosts that use the CMake package.
quietly cmake -S "$source/examples" -B hosts -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_COMPILE_WARNING_AS_ERROR=ON
grep -qx "KezLib_DIR:PATH=$prefix/$libdir/cmake/KezLib" hosts/CMakeCache.txt ||
    fail "CMake found KezLib elsewhere: $(grep KezLib_DIR hosts/CMakeCache.txt)"
quietly cmake --build hosts
hosts/host >again || fail "the CMake host failed"
cmp out again || fail "the two hosts differ"

# From a rope in the direction (0.8, 0, 0.6): sqrt((0.6 x - 0.8 level)^2 + y^2), at most 2.
hosts/terrain >table || fail "terrain failed"
[ "$(awk 'NR > 2 { printf "%s %s; ", $1, $5 }' table)" = '1 0.60; 2 2.00; 4 1.28; 5 2.00; ' ] ||
    fail "terrain printed: $(cat table)"

# Of the radius 6000: a chord at the offset 3600 is sqrt(6000^2 - 3600^2) = 4800 above and below the
# centre, and a radial line in the direction (0.8, 0.6) ends 4800 and 3600 from it.
hosts/set_out "$source/examples/set_out.txt" | tr -s ' ' >table
for line in 'Axis B cuts 3600.0 20400.0 22800.0 20400.0 13200.0' 'Axis E misses -7200.0' \
        'Radial beam R1 cuts 0.0 28800.0 21600.0 19200.0 14400.0' \
        'Walkway, inner edge touches 6000.0 19200.0 21600.0'; do
    grep -q " $line\$" table || { cat table >&2; fail "set_out does not print: $line"; }
done
printf 'circle 0 0 500 a\nline 0 0 nan 0 b\n' >bad.txt
status=0
hosts/set_out bad.txt >out 2>err || status=$?
[ "$status $(cat err)" = '2 bad.txt:2: a number is out of range' ] || fail "$status: $(cat err)"

# The section sheet finds the binding, and by it the library, that is installed beside it.
quietly env PYTHONDONTWRITEBYTECODE=1 "$prefix/bin/kezsection" "$source/examples/sections.txt" --svg .
grep -q 'Iy,eff  *695451 cm4' log || fail "kezsection printed: $(cat log)"
[ "$(ls section-*.svg | wc -l)" = 13 ] || fail "kezsection has not drawn 13 sections"
