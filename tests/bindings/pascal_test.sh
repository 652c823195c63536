#!/bin/sh
# pascal_test.sh PACKAGE WORK [BUILDS]
#
# Calls the library from Free Pascal by the unit of an installed package. BUILDS has the DLLs, in
# windows-x86 and windows-x64; without it they are not tried.
set -eu
. "$(dirname "$0")/programs.sh"

tools=$source/tools
unit=$binding/kezlib.pas
# Warnings, notes and hints are shown, and end the compilation.
warnings="-vewnh -Sewnh"
export LD_LIBRARY_PATH="$package/lib${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH}"

# built PROGRAM SOURCE: in the mode that the program itself does not set.
built() {
    # shellcheck disable=SC2086 # options are words
    quietly $compile $warnings "-Fu$(dirname "$unit")" -FU. "-Fl$package/lib" "-o$1" "$2"
}

# changed EXPRESSION: the unit with a declaration that sed changes lets the calls not compile.
changed() {
    mkdir -p changed
    sed "$1" "$unit" >changed/kezlib.pas
    ! cmp -s "$unit" changed/kezlib.pas || fail "this changes nothing: $1"
    # shellcheck disable=SC2086
    (cd changed && quietly fpc $warnings kezlib.pas)
    # shellcheck disable=SC2086
    ! fpc $warnings -Fuchanged -FEchanged "-Fl$package/lib" calls.pas >changed/log 2>&1 ||
        fail "nobody sees this change of the unit: $1"
    grep -q 'calls.pas.*Error' changed/log || fail "this fails for another reason: $1"
}

# What Delphi reads has at least the types of what Free Pascal reads, which knows no [Ref].
delphi_half() {
    mkdir -p delphi
    sed -e 's/const \[Ref\]/constref/g' -e '/\$MODE/!s/{\$IFDEF FPC}/{\$IFDEF NEVER}/' "$unit" \
        >delphi/kezlib.pas
    # shellcheck disable=SC2086
    quietly fpc $warnings -Fudelphi -FEdelphi "-Fl$package/lib" calls.pas
}

# all_on MACHINE MODE: every program, in a folder of its own.
all_on() {
    mkdir -p "$1-$2"
    cd "$1-$2"
    [ -z "$run" ] || cp "$builds/$1/KezLib.dll" .
    for program in $programs; do
        sed "s/{\$MODE OBJFPC}/{\$MODE $2}/" "$program" >program.pas
        built program.exe program.pas
        # shellcheck disable=SC2086 # $run is empty or one word
        expect_run "$program" "$1, mode $2" $run ./program.exe
    done
    cd "$work"
}

write_programs pas "$examples/host.pas" "$examples/shear.pas"
run='' compile=fpc
all_on linux objfpc
all_on linux delphi
delphi_half

# Arrays that know their length: every row, and what is too short is refused.
every=$programs
sed '/^Answer/!s/\(\w\)\[0\]/\1/g' calls.pas >calls.checked.pas
! cmp -s calls.pas calls.checked.pas || fail "no call passes a first entry"
programs="$PWD/calls.checked.pas"
all_on linux objfpc
all_on linux delphi
programs=$every
for mode in OBJFPC DELPHI; do
    sed "s/{\$MODE OBJFPC}/{\$MODE $mode}/" "$tests/pascal_checked.pas" >checked.pas
    built checked.exe checked.pas
    [ "$(./checked.exe)" = 'as it should be' ] || fail "open arrays in mode $mode: $(./checked.exe)"
done

changed '/^procedure kezpds/s/out d: Single/out d: Integer/'
changed '/^procedure kezpds/s/out d/constref d/'
changed '/^procedure kezpds/s/constref x1/var x1/'
changed '/^procedure kezphip/,/winapi/s/fail: Integer/fail: Single/'

if [ -n "$builds" ]; then
    "$tools/fpc-windows" compilers
    run=$tools/wine-x64 compile=$work/compilers/fpc-windows-x64
    all_on windows-x64 delphi
    run=$tools/wine-x86 compile=$work/compilers/fpc-windows-x86
    all_on windows-x86 objfpc
fi
finish
