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
