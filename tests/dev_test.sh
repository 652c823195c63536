#!/bin/sh
# dev_test.sh SOURCE_DIR
#
# What ./dev says where it cannot go on, and that two of it take turns.
set -eu

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# expect STATUS PATTERN COMMAND...: how a command ends, and a line of what it prints.
expect() {
    wanted=$1
    pattern=$2
    shift 2
    status=0
    "$@" >"$work/out" 2>&1 || status=$?
    [ $status = "$wanted" ] && grep -q "$pattern" "$work/out" && return
    echo "$*: status $status, wanted $wanted and '$pattern':" >&2
    cat "$work/out" >&2
    exit 1
}

# Without apt-get it says what is missing, and calls nobody: these would say that they were called.
for tool in sh dirname g++ c++ cmake python3 pkg-config id sed grep mkdir cat; do
    ln -s "$(command -v $tool)" "$work/$tool"
done
printf '#!/bin/sh\necho "$0 was called"\n' >"$work/sudo"
chmod +x "$work/sudo"
expect 1 "^dev: nothing is installed without apt-get.* ninja-build" env PATH="$work" "$1/dev" build
! grep -q 'was called' "$work/out"

# A checkout of its own, whose clean command does the least.
mkdir -p "$work/checkout/tools"
cp "$1/dev" "$work/checkout"
cp -r "$1/tools/"*.sh "$work/checkout/tools"
dev=$work/checkout/dev
: >"$work/checkout/build"
expect 1 "^dev: cannot write to $work/checkout/build" "$dev" clean
[ "$(wc -l <"$work/out")" = 1 ]
rm "$work/checkout/build"

flock "$dev" sleep 1 &
until ! flock -n "$dev" true; do :; done
expect 0 "^==> Waiting for another" env -u KEZLIB_DEV_TURN "$dev" clean
wait
[ -z "$(env -u KEZLIB_DEV_TURN "$dev" clean 2>&1)" ]
