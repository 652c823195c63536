# What the tests of all bindings begin with: where things are, and a folder to work in.

. "$(dirname "$0")/../shell.sh"

language=$(basename "$0" _test.sh)
tests=$(cd "$(dirname "$0")" && pwd)
source=$(cd "$tests/../.." && pwd)
examples=$source/examples
package=$(cd "$1" && pwd)
work=$(cd "$2" && pwd)
builds=${3:+$(cd "$3" && pwd)}
binding=$package/share/kezlib/bindings/$language
cd "$work"

# page_programs TITLE FOLDER SUFFIX: those of the binding's page, each beside what it prints.
page_programs() { python3 -B "$tests/page_blocks.py" "$binding/README.md" "$@"; }
