#!/bin/sh
# Whether compilers and their options change a bit:  same_bits.sh FOLDER
#
# The libraries are built in the folder; the programs that load them are those of build/release. On
# one platform all routines must give the same bits. On other platforms, whose presets' builds are
# used, the elementary functions differ: this shows by how much.
set -eu
source=$(cd "$(dirname "$0")/.." && pwd)
presets=$source/build
programs=$presets/release/tests
mkdir -p "$1"
cd "$1"

dump() { # NAME LIBRARY PROGRAM...
    name=$1 library=$2
    shift 2
    "$@" dump "$library" "$name.dump"
}

build() { # NAME COMPILER CXXFLAGS
    [ -e "$1/build.ninja" ] || cmake -S "$source" -B "$1" -G Ninja -DCMAKE_BUILD_TYPE=None \
        -DCMAKE_CXX_COMPILER="$2" -DCMAKE_CXX_FLAGS="$3" -DKEZLIB_TESTS=OFF -DKEZLIB_KEZCALL=OFF \
        -DKEZLIB_BINDINGS=OFF >"$1.log"
    cmake --build "$1" --target KezLib >>"$1.log" ||
        { cat "$1.log"; exit 1; }
    echo "$2 $3"
    "$programs/reference" check "$1/libKezLib.so" "$source/tests/reference.txt" \
        "$source"/tests/cases/*.txt
    # Optimisers may also divide where the source would not.
    "$programs/exceptions_test" "$1/libKezLib.so" "$source"/tests/cases/*.txt >>"$1.log" ||
        { cat "$1.log"; exit 1; }
    dump "$1" "$1/libKezLib.so" "$programs/reference"
    cmp gcc-O3.dump "$1.dump"
}

compare() { # PRESET LIBRARY PROGRAM...
    dump "$@"
    echo "Largest differences from gcc-O3 to $1"
    python3 "$source/tests/compare_dumps.py" gcc-O3.dump "$1.dump"
}

build gcc-O3 g++ -O3
build gcc-O2 g++ -O2
build gcc-O0 g++ -O0
build clang-O3 clang++ -O3
build clang-O0 clang++ -O0
if grep -qw fma /proc/cpuinfo && grep -qw avx2 /proc/cpuinfo; then
    build gcc-v3 g++ '-O3 -march=x86-64-v3'
    build clang-v3 clang++ '-O3 -march=x86-64-v3'
else
    echo "Not run: -march=x86-64-v3, which this processor lacks"
fi

compare x86 "$presets/x86/libKezLib.so" "$presets/x86/tests/reference"
compare aarch64 "$presets/aarch64/libKezLib.so" qemu-aarch64 -L /usr/aarch64-linux-gnu \
    "$presets/aarch64/tests/reference"
for machine in x86 x64; do
    windows=$presets/windows-$machine
    compare windows-$machine "$windows/KezLib.dll" "$source/tools/launchers/wine-$machine" \
        "$windows/tests/reference.exe"
done
