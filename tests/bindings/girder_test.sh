#!/bin/sh
# girder_test.sh PACKAGE WORK: the section host in Python on the library that is installed in
# PACKAGE, with the packages that it can use.
set -eu
. "$(dirname "$0")/begin.sh"

find_python distributed ezdxf tqdm
unset KEZLIB_LIBRARY
export PYTHONPATH="$package/share/kezlib/bindings/python"
quietly "$python" -B "$source/tests/girder_test.py"
echo "$(sed -n 's/^Ran \([0-9]* tests\) .*/\1/p' log) of the section host passed"
