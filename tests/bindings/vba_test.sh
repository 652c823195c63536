#!/bin/sh
# vba_test.sh PACKAGE WORK [BUILDS]
#
# The binding for VBA, of which there is none here: a parser of the language reads the module and
# calls the installed library as it is declared. It runs the examples and the page's programs too.
# BUILDS, where the DLLs would be, is not used.
set -eu
. "$(dirname "$0")/begin.sh"

library=$package/lib/libKezLib.so.1

check() { python3 -B "$tests/vba_calls.py" "$@"; }

# run FILE NAME PRINTS: a procedure of a host.
run() {
    printed=$(check run "$binding/KezLib.bas" "$library" "$1" "$2") || fail "$1 does not run"
    [ "$printed" = "$3" ] || fail "$1 prints something else: $printed"
}

# refused CHECK SAYS SED: a copy of the module that sed changes is refused, and the reason has SAYS.
# The call of a wrong declaration may end the program without a word.
refused() {
    sed "$3" "$binding/KezLib.bas" >changed/KezLib.bas
    cmp -s "$binding/KezLib.bas" changed/KezLib.bas && fail "nothing is changed by $3"
    given=
    [ "$1" = rows ] && given=$library
    # shellcheck disable=SC2086 # no library, no argument
    check "$1" changed/KezLib.bas $given >changed/log 2>&1 && fail "$1 lets pass $3"
    [ -z "$2" ] || grep -q "$2" changed/log ||
        fail "another reason to refuse $3: $(cat changed/log)"
}

echo "The module"
check text "$binding/KezLib.bas"
check header "$binding/KezLib.bas"
check rows "$binding/KezLib.bas" "$library" >calls

echo "The examples and the page"
run "$examples/host.bas" FirstCall '( 0.8660254 , 0.5 ) and ( -0.8660254 , 0.5 )'
# By hand: A = 2 (640 + 576), yc = 41472 / A, Ix = 2181803 - A yc^2, Iy = 2 (1637333 + 49728).
run "$examples/host.bas" SectionValues \
    'area 2432 centroid 0 17.05263 principal moments 1474596 3374123'
! grep '^Attribute' "$binding/README.md" || fail "the page shows what cannot be pasted"
page_programs vba blocks bas
for prints in blocks/*.prints; do
    sed 's/$/\r/' "${prints%.prints}.bas" >page.bas
    run page.bas "$(sed -n 's/^Public Sub \(\w*\).*/\1/p' page.bas)" "$(cat "$prints")"
done

echo "Modules that are wrong"
mkdir -p changed
refused text 'does not end as' 's/\r$//'
refused text 'step is reserved' 's/step_/step/'
refused text 'declared twice' 's/Sub kezpri /Sub KezPDS /'
refused text 'declared twice' 's/ByRef cosa As/ByRef X1 As/'
refused text 'PtrSafe' 's/Declare PtrSafe Sub kezlci/Declare Sub kezlci/'
refused text 'LongPtr' 's/ByVal zof As Long,/ByVal zof As LongPtr,/'
refused text 'continuations' '/PtrSafe Sub kezptp2 /,/)/ s/,/, _\r\n /g'
of_one='/PtrSafe Sub kezlni /,/)/'
wrong_kind="$of_one s/ByRef a1 As Single/ByRef a1 As Long/"
wrong_way="$of_one s/ByRef status As Long/ByVal status As Long/"
wrong_count="$of_one s/, ByRef status As Long//"
for change in "$wrong_kind" "$wrong_way" "$wrong_count"; do
    refused header 'is declared for' "$change"
done
refused rows 'type mismatch at a1' "$wrong_kind"
refused rows '' "$wrong_way"
refused rows 'type mismatch at x' "$wrong_count"
refused rows 'kezinv x:' 's/Alias "kezinv"/Alias "kezmer2"/'
refused header 'is declared for' \
    "$of_one s/ByRef a1 As Single, ByRef b1/ByRef b1 As Single, ByRef a1/"

cat calls
