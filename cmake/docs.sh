#!/bin/sh
# The documentation of the public headers as HTML. Ends with an error when doxygen warns.
#
#   docs.sh OUTPUT_DIRECTORY
set -eu
cd "$(dirname "$0")/.."
[ $# -eq 1 ] || { echo "usage: docs.sh OUTPUT_DIRECTORY" >&2; exit 2; }
mkdir -p "$1"
headers=$(for header in $(sh cmake/public_headers.sh); do git ls-files "*/$header"; done)
{
    cat docs/Doxyfile
    echo "OUTPUT_DIRECTORY = $1"
    # shellcheck disable=SC2086
    echo INPUT = docs/examples.md $headers
} | doxygen -
echo "docs: $1/html/index.html"
