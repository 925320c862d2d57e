#!/bin/sh
# Runs a program and compares what it prints with a file.
#
#   example_test.sh EXPECTED PROGRAM [ARGUMENT...]
set -eu
[ $# -ge 2 ] || { echo "usage: example_test.sh EXPECTED PROGRAM [ARGUMENT...]" >&2; exit 2; }
expected=$1
shift
output=$(mktemp)
trap 'rm -f "$output"' EXIT
status=0
"$@" >"$output" || status=$?
diff -u "$expected" "$output" || status=1
exit $status
