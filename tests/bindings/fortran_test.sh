#!/bin/sh
# fortran_test.sh PACKAGE WORK [BUILDS]
#
# Calls the library from Fortran by the module of an installed package. BUILDS has the DLLs, in
# windows-x86 and windows-x64; without it they are not tried.
set -eu
. "$(dirname "$0")/programs.sh"

module=$binding/kezlib.F90
warnings="-std=f2008 -Wall -Wextra -pedantic -Werror"

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
    grep -q 'Interface mismatch' changed/log || fail "this fails for another reason: $1"
}

# all_on MACHINE COMPILER: every program, in a folder of its own.
all_on() {
    compile=$2
    mkdir -p "$1"
    cd "$1"
    [ -z "$run" ] || cp "$builds/$1/KezLib.dll" .
    # shellcheck disable=SC2086
    quietly $compile $warnings $system -c "$module"
    for program in $programs; do
        # shellcheck disable=SC2086
        quietly $compile $warnings $system "$program" kezlib.o $link -o program.exe
        # shellcheck disable=SC2086 # $run is empty or one word
        expect_run "$program" "$1" $run ./program.exe
    done
    cd "$work"
}

write_programs F90 "$examples/host.f90" "$examples/shear.f90"
every=$programs
system='' run='' link="-L$package/lib -lKezLib -Wl,-rpath,$package/lib"
all_on linux gfortran

# Arrays that know their length: every row, and what is too short ends the program.
sed 's/use kezlib, only/use kezlib_checked, only/' calls.F90 >calls.checked.F90
programs="$PWD/calls.checked.F90"
all_on linux gfortran
cd linux
# shellcheck disable=SC2086
quietly gfortran $warnings "$tests/fortran_checked.F90" kezlib.o $link -o checked.exe
[ "$(./checked.exe)" = 'as it should be' ] || fail "lists of the checked module are wrong"
for short in 'outline kezapl: X has 4 entries, too few: 5' \
        'pairs kezmer4: com has 1 entries, too few: 2'; do
    ./checked.exe "${short%% *}" >log 2>&1 && fail "the program goes on with: $short"
    grep -q "${short#* }" log || { cat log >&2; fail "another message for: $short"; }
done
cd "$work"
programs=$every

changed '/subroutine kezpds/,/end subroutine/s/real(c_float)\(.*:: d\)/integer(c_int32_t)\1/'
changed '/subroutine kezpds/,/end subroutine/s/intent(out)/intent(in)/'
changed '/subroutine kezphip/,/end subroutine/s/intent(inout) :: fail/intent(out) :: fail/'

if [ -n "$builds" ]; then
    link="-static $builds/windows-x64/libKezLib.dll.a" run=$source/tools/wine-x64
    all_on windows-x64 x86_64-w64-mingw32-gfortran
    link="-static $builds/windows-x86/libKezLib.dll.a" run=$source/tools/wine-x86
    system=-D_WIN32
    all_on windows-x86 i686-w64-mingw32-gfortran
fi
finish
