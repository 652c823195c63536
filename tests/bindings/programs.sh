# What the tests of languages share whose programs are compiled, one for each source: the calls, the
# examples, what the page says and what a manual offers to copy.

. "$(dirname "$0")/begin.sh"

calls() { python3 -B "$tests/${language}_calls.py" "$@"; }

# write_programs SUFFIX EXAMPLE...: `programs` are all there are then.
write_programs() {
    page_programs "$language" page "$1"
    calls "calls.$1"
    mkdir -p copied
    calls --copy copied "$1"
    programs=$(ls "$PWD/calls.$1" "$PWD"/page/*."$1" "$PWD"/copied/*."$1")
    shift
    programs="$programs $*"
}

# expect_run SOURCE MACHINE COMMAND...: what the program of a source prints there.
expect_run() {
    program=$1 machine=$2
    shift 2
    "$@" >results || fail "this ends with an error on $machine: $program"
    tr -d '\r' <results >printed
    case $program in
        */calls.*) said=$(calls --check printed) || fail "on $machine: $said"
                   echo "$machine: $said" ;;
        */host.*) expect_answer cat printed ;;
        */shear.*) expect_shear printed ;;
        */page/*) cmp printed "${program%.*}.prints" ||
                      fail "not as the page says on $machine: $program" ;;
        *) calls --check-copied "$program" printed || fail "wrong on $machine: $program" ;;
    esac
}

# expect_shear FILE: what examples/shear prints. By hand, of a flange of 4000 mm2 at 190 mm and a
# web of 1800 mm2 at 90 mm; above their centroid the flange at 31.034 mm, and 21.034 mm of the web.
expect_shear() {
    printf '%s\n' 'area 5800.0 mm2, centroid 159.0 mm above the foot' \
        'above it 4210.3 mm2 with a first moment of 126350 mm3, where it is 10.0 mm wide' |
        cmp - "$1" || fail "another answer from shear: $(cat "$1")"
}

# finish: the last line.
finish() {
    where='on Linux; not run: both DLLs'
    [ -z "$builds" ] || where='on Linux and with both DLLs'
    echo "$said, $where"
}
