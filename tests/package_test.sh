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
if [ -e "$source/build/wasm/package" ]; then
    cp -r "$source/build/wasm/package/." expected_bindings/javascript
fi
cp -r "$source/bindings/." "$build/bindings/." expected_bindings
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

hosts/set_out "$source/examples/set_out.txt" picture.svg | sed 's/  */ /g; s/^ //; s/ $//' >table
prints() { grep -qxF -e "$1" table || { cat table >&2; fail "set_out does not print: $1"; }; }

# Of a chord at the offset d from the centre, r = 6000: length 2 sqrt(r^2 - d^2), angle 2 acos(d/r).
prints '1 Axis B cuts 3600.0 R 9600.0 106.26'
prints '2 Axis C, through the centre cuts 0.0 12000.0 180.00'
prints '4 Axis E misses 7200.0 L 1200.0'
prints '5 Axis 2 cuts 4200.0 L 8569.7 91.15'
prints '7 Hoist beam cuts 1264.9 L 11730.3 155.66' # d = 4000 / sqrt(10)
prints '9 Walkway, inner edge touches 6000.0 R'
prints '10 Walkway, outer edge misses 7200.0 R 1200.0'

# From the centre: 6000 (-0.6, -0.8), 6000 (-0.8, -0.6), 6000 (0.8, 0.6) and 6000 (-0.8, 0.6). The
# bracket points along (-3, 1) from (-3200, 1600): (-11200 + sqrt(357440000)) / sqrt(10) = 2436.88.
prints '1a 20400.0 13200.0 233.13 3600.0 between ends'
prints '6a 19200.0 14400.0 216.87 -6000.0 before start'
prints '6b 28800.0 21600.0 36.87 6000.0 at end'
prints '8b 18488.2 20370.6 156.73 2436.9 beyond end'
prints '9a 19200.0 21600.0 143.13 5120.0 between ends'

# A slope of 1 in 10000 moves the crossings of y = 3000 with a circle of radius 5000 by -0.3 in x.
cat >level.txt <<END
circle 0 0  0 5000  Tank & <pump>
line -10000 2999  10000 3001  a
line 10000 -3000  -10000 -3000  b
END
hosts/set_out level.txt level.svg | sed 's/  */ /g; s/^ //; s/ $//' >table
prints '1 a cuts 3000.0 R 8000.0 106.26'
prints '1a -4000.3 2999.6 143.14 5999.7 between ends'
prints '1b 3999.7 3000.4 36.88 13999.7 between ends'
prints '2a 4000.0 -3000.0 323.13 6000.0 between ends'

for picture in picture.svg level.svg; do
    quietly python3 -c 'import sys, xml.dom.minidom as x; x.parse(sys.argv[1])' $picture
done
grep -q '>Tank &amp; &lt;pump><' level.svg || fail "the picture has lost the outline's name"
for label in 1a 1b 5b 8b 9a 10; do
    grep -q "<text class='number[^>]*>$label</text>" picture.svg || fail "no $label in the picture"
done

# faulty MESSAGE ARGUMENT...: what the host says of these arguments.
host=set_out
faulty() {
    message=$1
    shift
    status=0
    "hosts/$host" "$@" >out 2>err || status=$?
    [ $status -eq 2 ] || fail "status $status, not 2, where to be said was: $message"
    [ "$(cat err)" = "$message" ] || fail "expected '$message', got: $(cat err)"
}

# refuses REASON LINE...: the last line of such a file is what is wrong with it.
refuses() {
    reason=$1
    shift
    printf '%s\n' "$@" >bad.txt
    faulty "bad.txt:$#: $reason" bad.txt
    [ ! -s out ] || fail "a table in spite of: $reason"
}

circle='circle 0 0 500 0'
refuses "unknown word 'arc'" "$circle" '# a comment' 'arc 0 0 1 1'
refuses '4 numbers needed, 3 given' 'circle 0 0 5'
refuses "'5mm' is not a number (4 are needed)" 'circle 0 0 5mm 0'
refuses "'nan' is outside +-500000" 'circle 0 0 nan 0'
refuses "'500001' is outside +-500000" "$circle" 'line 0 0 500001 0'
refuses 'radius less than 10 mm' 'circle 3 4 3 4'
refuses 'second circle' "$circle" 'line 0 0 10 10 a' "$circle"
refuses 'points closer together than a hundredth of the radius' "$circle" 'line 3 4 3 4 a'
refuses 'name longer than 31 characters' "$circle" 'line 0 0 10 10 12345678901234567890123456789012'

refuses 'line before the circle' 'line 0 0 10 10 a'

printf '# nothing\n' >bad.txt
faulty 'bad.txt: no circle' bad.txt
faulty 'missing.txt: No such file or directory' missing.txt
faulty '.: Is a directory' .
faulty 'missing/picture.svg: No such file or directory' level.txt missing/picture.svg
faulty 'usage: set_out FILE [PICTURE.svg]'

# The section sheet finds the binding, and by it the library, that is installed beside it.
quietly env PYTHONDONTWRITEBYTECODE=1 "$prefix/bin/kezsection" "$source/examples/sections.txt" --svg .
grep -q 'Iy,eff  *695451 cm4' log || fail "kezsection printed: $(cat log)"
[ "$(ls section-*.svg | wc -l)" = 13 ] || fail "kezsection has not drawn 13 sections"
