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

# find_python MODULE...: sets python to one that has them, which PYTHON may name.
find_python() {
    modules=$(echo "$@" | sed 's/ /, /g')
    for python in ${PYTHON:-/usr/bin/python3 python3} none; do
        "$python" -c "import $modules" 2>/dev/null && return
    done
    fail "no Python has $modules; PYTHON may name another"
}
