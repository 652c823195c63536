#!/bin/sh
# consumers_test.sh SOURCE_DIR
#
# Projects in C that take the library with them: as a subdirectory, fetched, and as a static library
# from CMake and from the compiler alone. package_test.sh tests the shared library, installed.
set -eu
. "$(dirname "$0")/shell.sh"

source=$(cd "$1" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

needs() { objdump -p "$1" | sed -n 's/^ *NEEDED *//p'; }

# project NAME LINE...: a project whose host is linked with the KezLib that the lines provide.
project() {
    name=$1
    shift
    mkdir "$name"
    cp "$source/examples/host.c" "$name"
    {
        printf '%s\n' 'cmake_minimum_required(VERSION 3.25)' "project($name LANGUAGES C)" "$@"
        echo 'add_executable(host host.c)'
        echo 'target_link_libraries(host PRIVATE KezLib::KezLib)'
        echo 'install(TARGETS host)'
    } >"$name/CMakeLists.txt"
    quietly cmake -S "$name" -B "$name/build" -G Ninja -DCMAKE_PREFIX_PATH="$work/static"
    quietly cmake --build "$name/build"
    expect_answer "$name/build/host"
    quietly cmake --install "$name/build" --prefix "$work/$name-installed"
    [ "$(find "$name-installed" ! -type d)" = "$name-installed/bin/host" ] ||
        fail "$name installs more than its host: $(find "$name-installed" ! -type d)"
}

project subdirectory "add_subdirectory($source KezLib)" \
    'if(BUILD_SHARED_LIBS)' 'message(FATAL_ERROR "a choice for all libraries")' 'endif()'
needs subdirectory/build/host | grep -q '^libKezLib\.so\.1$' || fail "no shared library"

project fetched 'set(BUILD_SHARED_LIBS OFF)' 'include(FetchContent)' \
    "FetchContent_Declare(KezLib SOURCE_DIR $source)" 'FetchContent_MakeAvailable(KezLib)'
[ -z "$(needs fetched/build/host | grep -v '^lib[cm]\.so')" ] ||
    fail "the host needs: $(needs fetched/build/host)"

quietly cmake -S "$source" -B build -G Ninja -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF \
    -DKEZLIB_KEZCALL=OFF -DKEZLIB_TESTS=OFF -DKEZLIB_BINDINGS=OFF -DCMAKE_INSTALL_LIBDIR=lib
quietly cmake --build build
quietly cmake --install build --prefix "$work/static"
quietly "${CC:-cc}" fetched/host.c -Istatic/include static/lib/libKezLib.a -lm -o alone
expect_answer ./alone
# shellcheck disable=SC2046 # flags are words
quietly "${CC:-cc}" fetched/host.c -o described \
    $(PKG_CONFIG_PATH=static/lib/pkgconfig pkg-config --cflags --libs kezlib)
expect_answer ./described
project found 'find_package(KezLib 1.0 REQUIRED)'
