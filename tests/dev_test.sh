#!/bin/sh
# dev_test.sh SOURCE_DIR
#
# Without apt-get, ./dev says what is needed and goes on, until a command is missing. With commands
# that say so if they are called.
set -eu

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for tool in sh dirname g++ id sed grep mkdir cat; do
    ln -s "$(command -v $tool)" "$work/$tool"
done
mkdir "$work/project"
cp -r "$1/dev" "$1/tools" "$work/project"
printf '#!/bin/sh\necho "$0 was called"\n' >"$work/sudo"
chmod +x "$work/sudo"
status=0
PATH=$work "$work/project/dev" build >"$work/out" 2>&1 || status=$?
[ $status = 1 ] && grep -q "Needed (Debian's names): .* ninja-build" "$work/out" &&
    grep -q 'cmake: not found' "$work/out" && ! grep -q 'was called' "$work/out" && exit 0
cat "$work/out" >&2
exit 1
