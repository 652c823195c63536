#!/bin/sh
# npm.sh PACKAGE.tgz BUNDLERS
#
# Installs the package for npm in a bare folder, the present one, and uses it in node and in bundles.
# BUNDLERS has the packages of package.json installed.
set -eu
. "$(dirname "$0")/../shell.sh"
here=$(cd "$(dirname "$0")" && pwd)

echo '{"private": true}' >package.json
quietly npm install --offline --no-audit --no-fund "$1"
cp "$here/../../examples/host.mjs" .
expect_answer node host.mjs
cat >required.cjs <<'ENDS'
const { load } = require("kezlib");
load().then((kez) => console.log(kez.kezpds(0, 0, 0, 3, 4, 0).d));
ENDS
[ "$(node required.cjs 2>log)" = 5 ] || { cat log >&2; fail "another distance by require"; }
quietly node "$here/bundles.mjs" "$2"
