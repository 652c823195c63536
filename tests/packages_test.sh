#!/bin/sh
# packages_test.sh PACKAGES_DIR
#
# Uses the packages as their users do: those for Debian in a bare Debian of its own, made at first
# use and kept in KEZLIB_BARE_ROOT (default ~/.cache/kezlib/bare), the one for Windows with
# MinGW, clang and Wine, those of languages with pip and npm, and the sources without a network. As
# root: debootstrap and chroot need it.
set -eu
. "$(dirname "$0")/shell.sh"

packages=$(cd "$1" && pwd)
source=$(cd "$(dirname "$0")/.." && pwd)
root=${KEZLIB_BARE_ROOT:-${XDG_CACHE_HOME:-$HOME/.cache}/kezlib/bare}
# Below the project's folder, which Wine sees.
work=$packages/test
rm -rf "$work"
mkdir -p "$work" "$root"
cd "$work"

expect_distance() { # KEZCALL...
    [ "$("$@" kezpds 1 2 0 4 6 0 | tr -d '\r')" = 'd  = 5' ] || fail "another distance from $*"
}
[ "$(id -u)" = 0 ] || fail "must run as root (debootstrap and chroot do)"

echo "The packages for Debian"
quietly lintian --allow-root --fail-on error "$packages"/*.deb
exec 9>"$root.lock"
flock 9
basis=gcc,libc6-dev,pkg-config,python3
[ "$(cat "$root/.complete" 2>/dev/null)" = "$basis" ] || {
    rm -rf "$root"
    release=$(. /etc/os-release && echo "${VERSION_CODENAME:-bookworm}")
    quietly debootstrap --variant=minbase --include=$basis "$release" "$root"
    echo "$basis" >"$root/.complete"
}
# Without a network: what they depend on beyond this root would be missing.
inside() {
    unshare -n chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin \
        DEBIAN_FRONTEND=noninteractive "$@"
}
# Recommended ones would come from the network.
add() { quietly inside sh -c "apt-get install -qq -y --no-install-recommends $*"; }
# Unlike apt-get, which does nothing if it does not know one of them, purges those that are there.
remove() { inside dpkg --purge kezsection kezlib-tools python3-kezlib libkezlib-dev libkezlib1; }
remove >/dev/null 2>&1 || true # of a test that was broken off
rm -rf "$root/packages"
mkdir "$root/packages"
cp "$packages"/*.deb "$source"/examples/host.c "$source"/examples/host.py \
    "$source"/examples/sections.txt "$root/packages"
add '/packages/libkezlib1_*.deb'
add '/packages/python3-kezlib_*.deb'
expect_answer inside python3 /packages/host.py
version=$(inside python3 -c 'import importlib.metadata as m; print(m.version("kezlib"))')
[ -e "$packages/python3-kezlib_$version-1_all.deb" ] || fail "Python has the version '$version'"
add '/packages/*.deb'
quietly inside sh -c 'cd /packages && cc host.c $(pkg-config --cflags --libs kezlib) -o host'
expect_answer inside /packages/host
expect_distance inside kezcall
quietly inside kezsection /packages/sections.txt --html /packages/sections.html
quietly remove
rm -rf "$root/packages"
left=$(find "$root/usr" "$root/etc" "$root/var" -iname '*kez*' ! -path '*/var/log/*')
[ -z "$left" ] || fail "left behind: $left"

echo "The wheels"
quietly /usr/bin/python3 -B "$source/tests/packages/wheels_test.py" "$packages" "$work"
wheel=$(ls "$packages"/without-library/kezlib-*.whl)

echo "The packages for pip"
for package in "$packages"/libkezlib*.deb; do dpkg-deb -x "$package" debian; done
quietly /usr/bin/python3 -m pip install --no-deps --no-index --target site "$wheel"
expect_answer env PYTHONPATH=site KEZLIB_LIBRARY="$(ls debian/usr/lib/*/libKezLib.so.1)" \
    /usr/bin/python3 "$source/examples/host.py"
quietly /usr/bin/python3 -m pip install --no-deps --no-index --target site "$packages"/kezsection-*.whl
quietly env PYTHONPATH=site KEZLIB_LIBRARY="$(ls debian/usr/lib/*/libKezLib.so.1)" \
    site/bin/kezsection "$source/examples/sections.txt"

echo "The package for npm in bundles"
mkdir npm
(cd npm && "$source/tests/packages/npm.sh" "$packages"/kezlib-*.tgz "$source/build/bundlers")

echo "The package for NuGet"
mkdir nuget
(cd nuget && "$source/tests/packages/nuget.sh" "$packages"/KezLib.*.nupkg \
    "$source/build/packed/share/kezlib/bindings/csharp" "$source/build")

echo "The package for Windows"
quietly cmake -E tar xf "$packages"/kezlib-*-windows.zip
windows=$work/$(ls -d kezlib-*-windows)
bindings=debian/usr/share/kezlib/bindings
quietly diff -r $bindings "$windows/bindings"
for machine in x86 x64; do
    cmp "$source/build/windows-$machine/KezLib.dll" "$windows/$machine/KezLib.dll"
    run=$source/tools/launchers/wine-$machine
    quietly cmake -S "$source/examples" -B "$machine" -G Ninja -DCMAKE_PREFIX_PATH="$windows" \
        -DCMAKE_FIND_ROOT_PATH_MODE_PACKAGE=BOTH \
        -DCMAKE_TOOLCHAIN_FILE="$source/cmake/windows-$machine.cmake"
    quietly cmake --build "$machine" --target host
    cp "$windows/$machine/KezLib.dll" "$machine"
    expect_answer "$run" "$machine/host.exe"
    expect_distance "$run" "$windows/$machine/kezcall.exe"
done

# As Microsoft's compiler and linker would, but for their C library.
cat >bare_host.c <<'END'
#include <kezlib.h>
int _fltused;
int start(void) {
  const float x1 = 1, y1 = 2, x2 = 4, y2 = 6, zero = 0;
  float d = 0;
  kezpds(&x1, &y1, &zero, &x2, &y2, &zero, &d);
  return d == 5 ? 42 : 1;
}
END
for machine in x86:i686 x64:x86_64; do
    folder=${machine%:*}
    quietly clang --target="${machine#*:}-pc-windows-msvc" -O1 -ffreestanding -c bare_host.c \
        -I"$windows/include" -o "$folder/bare_host.obj"
    quietly lld-link "$folder/bare_host.obj" "$windows/$folder/KezLib.lib" -nodefaultlib \
        -entry:start -subsystem:console -safeseh:no -out:"$folder/bare_host.exe"
    status=0
    "$source/tools/launchers/wine-$folder" "$folder/bare_host.exe" || status=$?
    [ $status = 42 ] ||
        fail "the host of the library for Microsoft's linker gave $status on $folder"
done

echo "The sources"
quietly cmake -E tar xf "$(ls "$packages"/kezlib-*.tar.xz)"
sources=$(ls -d kezlib-*[0-9])
quietly unshare -n sh -c 'cmake -S "$1" -B sources -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DKEZLIB_TESTS=OFF && cmake --build sources' sh "$sources"
quietly sources/kezcall --library sources/libKezLib.so "$sources"/tests/cases/*.txt
quietly cmake --install sources --prefix "$work/installed"
quietly diff -r -x javascript installed/share/kezlib/bindings $bindings
quietly diff -r -x build -x .git -x __pycache__ -x OUTPUT.TXT "$source" "$sources"
rm -rf "$work"
