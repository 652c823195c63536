#!/bin/sh
# girder_test.sh PACKAGE WORK: the section host in Python on the library that is installed in
# PACKAGE, with the packages that it can use.
#
# Needs: python3-distributed python3-ezdxf python3-numpy python3-tqdm
set -eu
. "$(dirname "$0")/../shell.sh"

source=$(cd "$(dirname "$0")/../.." && pwd)
find_python distributed ezdxf tqdm
unset KEZLIB_LIBRARY
export PYTHONPATH="$1/share/kezlib/bindings/python"
cd "$2"
quietly "$python" -B "$source/tests/girder_test.py"
echo "$(sed -n 's/^Ran \([0-9]* tests\) .*/\1/p' log) of the section host passed"
