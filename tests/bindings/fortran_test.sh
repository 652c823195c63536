#!/bin/sh
# fortran_test.sh PACKAGE WORK [BUILDS]
#
# Calls the library from Fortran by the module of an installed package. BUILDS has the DLLs, in
# windows-x86 and windows-x64; without it they are not tried.
set -eu
. "$(dirname "$0")/../shell.sh"

tests=$(cd "$(dirname "$0")" && pwd)
examples=$tests/../../examples
package=$(cd "$1" && pwd)
work=$(cd "$2" && pwd)
builds=${3:+$(cd "$3" && pwd)}
module=$package/share/kezlib/bindings/fortran/kezlib.F90
warnings="-std=f2008 -Wall -Wextra -pedantic -Werror"
cd "$work"

calls() { python3 -B "$tests/fortran_calls.py" "$@"; }

# changed EXPRESSION: the module with a declaration that sed changes lets the calls not compile.
changed() {
    mkdir -p changed
    sed "$1" "$module" >changed/kezlib.F90
    ! cmp -s "$module" changed/kezlib.F90 || fail "this changes nothing: $1"
    # shellcheck disable=SC2086 # options are words
    (cd changed && quietly gfortran $warnings -c kezlib.F90)
    # shellcheck disable=SC2086
    ! gfortran $warnings -fsyntax-only -Ichanged calls.F90 >changed/log 2>&1 ||
        fail "nobody sees this change of the module: $1"
}

# built PROGRAM SOURCE: for the system that the folder is for.
built() {
    # shellcheck disable=SC2086
    quietly $compile $warnings $system -c "$module"
    # shellcheck disable=SC2086
    quietly $compile $warnings $system "$2" kezlib.o $link -o "$1"
}

# all_on MACHINE COMPILER: every program, in a folder of its own.
all_on() {
    machine=$1 compile=$2
    mkdir -p "$machine"
    cd "$machine"
    [ -z "$run" ] || cp "$builds/$machine/KezLib.dll" .
    built calls.exe "$work/calls.F90"
    $run ./calls.exe >results || fail "the calls ended with an error on $machine"
    said=$(calls --check results) || fail "on $machine: $said"
    echo "$machine: $said"
    built host.exe "$examples/host.f90"
    # shellcheck disable=SC2086
    expect_answer $run ./host.exe
    built shear.exe "$examples/shear.f90"
    $run ./shear.exe | tr -d '\r' >printed
    expect_shear printed
    for source in "$work"/page/*.F90 "$work"/copied/*.F90; do
        built program.exe "$source"
        $run ./program.exe | tr -d '\r' >printed
        case $source in
            */page/*) cmp printed "${source%.F90}.prints" || fail "not as the page says" ;;
            *) calls --check-copied "$source" printed || fail "wrong on $machine: $source" ;;
        esac
    done
    cd "$work"
}

mkdir -p page copied
python3 -B "$tests/page_blocks.py" "$tests/../../bindings/fortran/README.md" fortran page
for block in page/[0-9]; do
    [ -e "$block.prints" ] || fail "the page does not say what its program $block prints"
    mv "$block" "$block.F90"
done
calls calls.F90
calls --copy copied F90
system='' run='' link="-L$package/lib -lKezLib -Wl,-rpath,$package/lib"
all_on linux gfortran
changed '/subroutine kezpds/,/end subroutine/s/real(c_float)\(.*:: d\)/integer(c_int32_t)\1/'
changed '/subroutine kezpds/,/end subroutine/s/intent(out)/intent(in)/'
changed '/subroutine kezphip/,/end subroutine/s/intent(inout) :: fail/intent(out) :: fail/'

if [ -n "$builds" ]; then
    link="-static $builds/windows-x64/libKezLib.dll.a" run=$tests/../../tools/wine-x64
    all_on windows-x64 x86_64-w64-mingw32-gfortran
    link="-static $builds/windows-x86/libKezLib.dll.a" run=$tests/../../tools/wine-x86
    system=-D_WIN32
    all_on windows-x86 i686-w64-mingw32-gfortran
    echo "$said, on Linux and with both DLLs"
else
    echo "$said, on Linux; not run: both DLLs"
fi
