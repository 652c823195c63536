#!/bin/sh
# reproducible_test.sh BUILD_DIR SOURCE_DIR LIBRARY...
#
# Builds the library again, from a copy of the sources in another folder, and compares every byte.
set -eu

build=$1 source=$2
shift 2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

quietly() {
    "$@" >"$work/log" 2>&1 || { cat "$work/log" >&2; echo "this failed: $*" >&2; exit 1; }
}

mkdir "$work/copy"
cp -r "$source/CMakeLists.txt" "$source/cmake" "$source/include" "$source/src" "$work/copy"
grep -E '^(CMAKE_(TOOLCHAIN_FILE|BUILD_TYPE|C(XX)?_(COMPILER|FLAGS))|BUILD_SHARED_LIBS):' \
    "$build/CMakeCache.txt" | sed 's/^/-D/' >"$work/options"
(
    IFS='
'
    # shellcheck disable=SC2046 # an option a line
    quietly cmake -S "$work/copy" -B "$work/build" -G Ninja -DKEZLIB_TESTS=OFF \
        -DKEZLIB_KEZCALL=OFF $(cat "$work/options")
)
quietly cmake --build "$work/build" --target KezLib
for library; do
    cmp "$library" "$work/build/${library##*/}"
done
