# What the tests of languages share whose programs are compiled, one for each source: the calls, the
# examples, what the page says and what a manual offers to copy.

. "$(dirname "$0")/../shell.sh"

language=$(basename "$0" _test.sh)
tests=$(cd "$(dirname "$0")" && pwd)
examples=$tests/../../examples
package=$(cd "$1" && pwd)
work=$(cd "$2" && pwd)
builds=${3:+$(cd "$3" && pwd)}
binding=$package/share/kezlib/bindings/$language
cd "$work"

calls() { python3 -B "$tests/${language}_calls.py" "$@"; }

# write_programs SUFFIX EXAMPLE...: `programs` are all there are then.
write_programs() {
    python3 -B "$tests/page_blocks.py" "$binding/README.md" "$language" page "$1"
    calls "calls.$1"
    mkdir -p copied
    calls --copy copied "$1"
    programs=$(ls "$PWD/calls.$1" "$PWD"/page/*."$1" "$PWD"/copied/*."$1")
    shift
    programs="$programs $*"
}

# expect_printed SOURCE FILE MACHINE: what the program of a source prints.
expect_printed() {
    case $1 in
        */calls.*) said=$(calls --check "$2") || fail "on $3: $said"; echo "$3: $said" ;;
        */host.*) expect_answer cat "$2" ;;
        */shear.*) expect_shear "$2" ;;
        */page/*) cmp "$2" "${1%.*}.prints" || fail "not as the page says on $3: $1" ;;
        *) calls --check-copied "$1" "$2" || fail "wrong on $3: $1" ;;
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
