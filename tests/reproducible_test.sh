#!/bin/sh
# reproducible_test.sh BUILD_DIR SOURCE_DIR LIBRARY...
#
# Builds the library again, from a copy of the sources in another folder, and compares every byte.
set -eu
. "$(dirname "$0")/shell.sh"

build=$1 source=$2
shift 2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

mkdir copy
cp -r "$source/CMakeLists.txt" "$source/cmake" "$source/include" "$source/src" copy
grep -E '^(CMAKE_(TOOLCHAIN_FILE|BUILD_TYPE|C(XX)?_(COMPILER|FLAGS))|BUILD_SHARED_LIBS):' \
    "$build/CMakeCache.txt" | sed 's/^/-D/' >options
(
    IFS='
'
    # shellcheck disable=SC2046 # an option a line
    quietly cmake -S copy -B build -G Ninja -DKEZLIB_TESTS=OFF -DKEZLIB_KEZCALL=OFF \
        -DKEZLIB_BINDINGS=OFF $(cat options)
)
quietly cmake --build build --target KezLib
for library; do
    cmp "$library" "build/${library##*/}"
done
