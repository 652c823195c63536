#!/bin/sh
# dev_test.sh SOURCE_DIR
#
# Without apt-get, ./dev says what is missing. With commands that say so if they are called.
set -eu

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for tool in sh dirname g++ c++ cmake python3 pkg-config id sed grep mkdir cat; do
    ln -s "$(command -v $tool)" "$work/$tool"
done
printf '#!/bin/sh\necho "$0 was called"\n' >"$work/sudo"
chmod +x "$work/sudo"
status=0
PATH=$work "$1/dev" build >"$work/out" 2>&1 || status=$?
[ $status = 1 ] && grep -q "^dev: nothing is installed without apt-get.* ninja-build" "$work/out" &&
    ! grep -q 'was called' "$work/out" && exit 0
cat "$work/out" >&2
exit 1
