# What the tests that are shell scripts share.

fail() { echo "$(basename "$0" .sh): $*" >&2; exit 1; }

quietly() {
    "$@" >log 2>&1 || { cat log >&2; fail "this failed: $*"; }
}

# expect_answer COMMAND...: that of examples/host.c, with either line end. The file answer keeps it.
expect_answer() {
    "$@" >answer || fail "this failed: $*"
    answer=$(tr -d '\r' <answer)
    [ "$answer" = '(0.866025, 0.5) and (-0.866025, 0.5)' ] || fail "another answer from $*: $answer"
}

# expect_shear FILE: what examples/shear prints. By hand, of a flange of 4000 mm2 at 190 mm and a
# web of 1800 mm2 at 90 mm; above their centroid the flange at 31.034 mm, and 21.034 mm of the web.
expect_shear() {
    printf '%s\n' 'area 5800.0 mm2, centroid 159.0 mm above the foot' \
        'above it 4210.3 mm2 with a first moment of 126350 mm3, where it is 10.0 mm wide' |
        cmp - "$1" || fail "another answer from shear: $(cat "$1")"
}
