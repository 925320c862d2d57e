#!/bin/sh
# run_all.sh BUILD_DIR SECONDS: runs each fuzz target for so long, in turn, beginning with the inputs in seeds/. Inputs
# that bring new coverage gather in BUILD_DIR/corpus; one that stops a target is left in BUILD_DIR/crashes, and the exit
# status is 1. Once its cause is mended it moves to the target's seeds as crash-<what it was>, and so is run every time.
set -eu
seeds=$(dirname "$0")/seeds
build=$1
seconds=$2
status=0
mkdir -p "$build/crashes"
for target in "$build"/fuzz/fuzz_*; do
    [ -x "$target" ] && [ -f "$target" ] || continue
    name=$(basename "$target")
    corpus=$build/corpus/$name
    [ -d "$seeds/${name#fuzz_}" ] || { echo "fuzz: $name has no seeds" >&2; exit 2; }
    mkdir -p "$corpus"
    echo "fuzz: $name for $seconds s"
    if "$target" -max_total_time="$seconds" -max_len=1024 -artifact_prefix="$build/crashes/$name-" \
        "$corpus" "$seeds/${name#fuzz_}" >"$build/$name.log" 2>&1; then
        tail -n 1 "$build/$name.log"
    else
        tail -n 30 "$build/$name.log"
        status=1
    fi
done
exit $status
