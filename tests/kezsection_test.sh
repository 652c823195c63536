#!/bin/sh
# kezsection_test.sh PACKAGE WORK: the section sheet that is installed in PACKAGE, with what it can
# use, and as pip installs it.
set -eu
. "$(dirname "$0")/shell.sh"

source=$(cd "$(dirname "$0")/.." && pwd)
package=$(cd "$1" && pwd)
cd "$2"
find_python distributed ezdxf tqdm setuptools wheel pip
unset KEZLIB_LIBRARY
export PYTHONDONTWRITEBYTECODE=1 PYTHON="$python" KEZSECTION="$package/bin/kezsection"

# Without any PYTHONPATH: the program finds the binding and the library by its own place.
quietly env -u PYTHONPATH "$python" "$KEZSECTION" "$source/examples/sections.txt"
binding=$package/share/kezlib/bindings/python
export PYTHONPATH="$package/share/kezlib/kezsection:$binding"
quietly "$python" -m unittest discover -v -s "$source/tests/kezsection" -p '*_test.py'
passed=$(sed -n 's/^Ran \([0-9]* tests\) .*/\1/p' log)

# As pip installs it, of a copy: setuptools writes beside the sources.
unset PYTHONPATH
cp -r "$source/kezsection" "$binding" .
for name in python kezsection; do
    quietly "$python" -m pip wheel --no-deps --no-build-isolation --no-index "./$name"
done
quietly "$python" -m pip install --no-deps --no-index --target site ./*.whl
quietly env PYTHONPATH=site KEZLIB_LIBRARY="$(ls "$package"/lib*/libKezLib.so)" \
    "$python" site/bin/kezsection "$source/examples/sections.txt"
for name in kezlib kezsection; do
    "$python" -c "import sys; sys.path.insert(0, 'site'); import importlib.metadata as m
print(m.version('$name'))"
done | uniq | wc -l | grep -qx 1 || fail "kezsection has another version than kezlib"
echo "$passed of the section sheet passed"
