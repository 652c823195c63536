#!/bin/sh
# javascript_test.sh PACKAGE WORK
#
# The package for JavaScript: packed, installed in an empty folder and called from there by node,
# and from pages by Chromium if there is one. Needs the programs of build/release.
set -eu
. "$(dirname "$0")/begin.sh"

[ -e "$binding/kezlib.wasm" ] || fail "no $binding/kezlib.wasm: it comes from the preset wasm"

typescript() {
    tsc --noEmit --strict --target es2022 --module nodenext --moduleResolution nodenext \
        --lib es2022,dom "$@"
}

echo "The package, from its own file"
quietly npm pack --offline "$binding"
echo '{"private": true}' >package.json
quietly npm install --offline --no-audit --no-fund "$PWD"/kezlib-*.tgz

echo "Every row, in three ways"
python3 -B "$tests/javascript_calls.py" write .
node "$tests/javascript_rows.mjs" .
python3 -B "$tests/javascript_calls.py" check . >rows ||
    { cat rows >&2; fail "a call gives another result"; }
[ ! -e OUTPUT.TXT ] || fail "a file has been written"

echo "The hashes of all builds"
reference=$source/build/release/tests/reference
"$reference" calls seeded
"$reference" calls worked "$source"/tests/cases/*.txt
node "$tests/javascript_reference.mjs" node_modules/kezlib "$source/tests/reference.txt" \
    seeded worked >hashes || { cat hashes >&2; fail "another result than elsewhere"; }

echo "Wrong calls, and types"
quietly node --test "$tests/javascript_misuse.mjs" "$tests/javascript_lists.mjs"
cp "$tests/javascript_types.mts" .
quietly typescript uses.mts javascript_types.mts

echo "Bindings that differ from the header"
changed=node_modules/kezlib/routines.js
# refused CHANGE: the rows fail with the data of the routines changed so.
refused() {
    cp "$binding/routines.js" $changed
    sed -i "/name: \"kezlci\"/,/\] },/$1" $changed
    if cmp -s "$binding/routines.js" $changed; then fail "nothing to change: $1"; fi
    if node "$tests/javascript_rows.mjs" . >log 2>&1 &&
        python3 -B "$tests/javascript_calls.py" check . >log 2>&1; then
        fail "a changed binding passes: $1"
    fi
}
refused 's/"real", direction: "in"/"integer", direction: "in"/'
refused 's/"integer", direction: "out"/"real", direction: "out"/'
refused 's/"out", kept: true/"in,out"/'
refused 's/, kept: true//'
refused 's/\["x1", "y1"/["y1", "x1"/'
cp "$binding/routines.js" $changed

echo "The examples and the page"
cp "$examples"/*.mjs .
expect_answer node host.mjs
node section.mjs >section
# By hand: A = 600 + 900, Ix = 3350000 - A 35^2, Iy = 750000 - A 15^2, Ixy = 337500 - A 15 35.
cat >expected <<END
area      15.0 cm^2
centroid  (15.0, 35.0) mm
moments   Ix 151.3 cm^4, Iy 41.3 cm^4, Ixy -45.0 cm^4
principal 167.3 cm^4 and 25.2 cm^4, at 19.6 degrees
END
cmp section expected
page_programs js blocks mjs
for prints in blocks/*.prints; do
    cp "${prints%.prints}.mjs" block.mjs
    node block.mjs | cmp - "$prints" || fail "the page's program ${prints%.prints}"
done

browser="; Not run: the pages, without chromium"
# shown URL: what a page says is what it computes.
shown() {
    chromium --headless --no-sandbox --disable-gpu --user-data-dir="$PWD/profile" \
        --virtual-time-budget=10000 --dump-dom "$1" >dom 2>log
    grep -q '<p>2 0.866025, 1,2,3, no z, X has 1 entry</p>' dom || fail "$1: $(cat dom)"
}
if command -v chromium >/dev/null; then
    echo "A page that is opened from a file"
    cp "$binding/kezlib.browser.js" .
    cp "$tests/javascript_page.html" page.html
    shown "file://$PWD/page.html"
    echo "A page that is sent by a server"
    import='import * as kezlib from "./node_modules/kezlib/kezlib.js";'
    sed "/<script src=/d; s,<script>,<script type=\"module\">$import," page.html >module.html
    python3 -u -m http.server --bind 127.0.0.1 0 >server 2>&1 &
    trap "kill $!" EXIT
    for _ in 1 2 3 4 5 6 7 8 9 10; do grep -q ' port ' server && break || sleep 1; done
    shown "http://127.0.0.1:$(sed -n 's/.* port \([0-9]*\).*/\1/p' server)/module.html"
    browser=
fi
echo "$(cat rows), $(cat hashes)$browser"
