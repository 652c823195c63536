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

# Without apt-get it says what is needed and goes on, until a command is missing. It calls nobody:
# this would say that it was called.
for tool in sh dirname g++ id sed grep mkdir cat; do
    ln -s "$(command -v $tool)" "$work/$tool"
done
mkdir "$work/project"
cp -r "$1/dev" "$1/tools" "$work/project"
printf '#!/bin/sh\necho "$0 was called"\n' >"$work/sudo"
chmod +x "$work/sudo"
expect 1 "Needed (Debian's names): .* ninja-build" env PATH="$work" "$work/project/dev" build
grep -q 'cmake: not found' "$work/out"
! grep -q 'was called' "$work/out"

# The clean command does the least.
dev=$work/project/dev
rm -rf "$work/project/build"
: >"$work/project/build"
expect 1 "^dev: cannot write to $work/project/build" "$dev" clean
[ "$(wc -l <"$work/out")" = 1 ]
rm "$work/project/build"

flock "$dev" sleep 1 &
until ! flock -n "$dev" true; do :; done
expect 0 "^==> Waiting for another" env -u KEZLIB_DEV_TURN "$dev" clean
wait
[ -z "$(env -u KEZLIB_DEV_TURN "$dev" clean 2>&1)" ]
