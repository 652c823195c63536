#!/bin/sh
# python_test.sh PACKAGE WORK: calls the library that is installed in PACKAGE by the binding for
# Python that is installed with it, with numpy and as where there is none.
set -eu
. "$(dirname "$0")/begin.sh"

find_python setuptools wheel numpy pip  # pip would spoil setuptools, were it first
unset KEZLIB_LIBRARY
export PYTHONDONTWRITEBYTECODE=1
export PYTHONPATH="$binding"

for world in numpy plain; do
    quietly "$python" "$tests/python_test.py" $world
    quietly "$python" "$tests/python_lists_test.py" $world
    quietly "$python" -c '
import doctest, sys
sys.modules.update({"numpy": None} if sys.argv[1] == "plain" else {})
found = doctest.testfile(sys.argv[2], module_relative=False)
sys.exit(found.failed > 0 or found.attempted < 10)' $world "$binding/README.md"
    for outputs in preset none; do
        quietly "$python" "$tests/python_calls.py" $world $outputs
        tail -n 1 log >>passed
    done
done

# A declaration that is not the header's makes the calls fail.
mutate() {
    rm -rf mutant
    mkdir -p mutant/share/kezlib/bindings
    cp -r "$binding" mutant/share/kezlib/bindings/python
    sed "$1" "$binding/kezlib/routines.py" >mutant/share/kezlib/bindings/python/kezlib/routines.py
    cmp -s "$binding/kezlib/routines.py" mutant/share/kezlib/bindings/python/kezlib/routines.py &&
        fail "nothing to change by $1"
    PYTHONPATH=mutant/share/kezlib/bindings/python KEZLIB_LIBRARY=$library \
        "$python" "$tests/python_calls.py" numpy none >log 2>&1 && fail "not seen: $1"
    grep -q "$2" log || { cat log >&2; fail "seen for another reason: $1"; }
}
library=$("$python" -c 'import kezlib; print(kezlib.library_path())')
mutate '/"kezlci", /,/^$/s/"n", "integer"/"n", "real"/' ': kezlci: n = '
mutate '/"kezpds", /,/^$/s/"d", "real", "out"/"d", "real", "in"/' ': kezpds: '
mutate '/"kezcer4", /,/^$/s/"in,out"/"in"/' ': kezcer4: '
mutate '/"kezapl", /,/^$/{s/extent="n + 1"/extent="n"/;s/v\["n"\] + 1/v["n"]/}' \
    ': kezapl: X may have too few'
mutate '/"kezphip", /,/^$/s/, kept=True//' ': kezphip: fail = .* is not None'

# What is installed may belong to the system; the wheel is made of a copy, by the page's commands,
# and finds a library that is named, or the loader's.
unset PYTHONPATH
sed -n 's,^    cp -r /usr/local,cp -r "$package",p; s,^    pip wheel,"$python" -m pip wheel,p' \
    "$binding/README.md" >commands
[ "$(wc -l <commands)" = 2 ] || fail "the page has other commands that make a wheel"
quietly env python="$python" package="$package" sh -eu commands
quietly "$python" -m pip install --no-deps --no-index --target site kezlib-*.whl
header=$package/include/kezlib.h
version=$(sed -n 's/^#define KEZ_VERSION_M[A-Z]* //p; s/^#define KEZ_VERSION_PATCH //p' "$header" |
    paste -sd .)
[ -e "kezlib-$version-py3-none-any.whl" ] || fail "the wheel is not kezlib-$version: $(ls ./*.whl)"
[ -e site/kezlib/py.typed ] || fail "types are not marked in the wheel"
export PYTHONPATH="$PWD/site"
(export KEZLIB_LIBRARY="$library" && expect_answer "$python" "$examples/host.py")
(export LD_LIBRARY_PATH="${library%/*}" && expect_answer "$python" "$examples/host.py")

# Areas, centroids and Ix of the channel by hand.
export PYTHONPATH="$binding"
"$python" "$examples/outlines.py" >table
for line in '100 x 10 +38.00 +0.00 +21.32 ' '240 x 360 +137.60 +0.00 +27.05 ' \
        '20 +7.64 +-15.29 +0.00 +476.8 '; do
    grep -Eq -- "$line" table || { cat table >&2; fail "not in the table: $line"; }
done

# Types, as those who use the package see them.
types='types were not checked, there is no mypy'
if command -v mypy >/dev/null; then
    cp -r "$binding" typed
    cat >typed/use.py <<'END'
import kezlib

root: float = kezlib.kezpds(0, 0, 0, 1, 2, 3).d
kezlib.kezapl([0, 1, 1, 0], (0.5, 1, 1, 0), 3)
END
    (cd typed && quietly mypy --no-incremental --cache-dir /dev/null kezlib use.py)
    echo 'kezlib.kezpds(0, 0, 0, 1, 2, "3")' >>typed/use.py
    (cd typed && mypy --no-incremental --cache-dir /dev/null kezlib use.py) >log 2>&1 &&
        fail "types accept a string for a real"
    types='types checked'
fi
echo "$(sed 's/$/;/' passed | tr '\n' ' ')$types"
