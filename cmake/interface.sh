#!/bin/sh
# Holds what the three libraries export against what is checked in under tests/library/interface/: NAME.names, the
# exported names, and NAME.abi.xz, the types, layouts and signatures that they stand for, as abidw of Debian's
# abigail-tools writes them.
#
#   interface.sh names BUILD_DIR    compares the exported names alone, of any build without sanitizers
#   interface.sh check BUILD_DIR    compares both; the build is one with debugging information by g++
#   interface.sh renew BUILD_DIR    replaces what is checked in
set -eu
cd "$(dirname "$0")/.."

usage="usage: interface.sh names|check|renew BUILD_DIR"
[ $# -eq 2 ] || { echo "$usage" >&2; exit 2; }
command=$1
build=$2
baseline=tests/library/interface
libraries="platform/base/libCV120Vbs44x64.so platform/i18n/libCV120Vin44x64.so typemgr/libCV120Vtm44x64.so"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
LC_ALL=C
export LC_ALL

# The name as the linker has it, and as the source has it. Constructors have several of the first kind.
names() {
    nm -D --defined-only "$1" | awk '{ print $3 }' | sort >"$work/linker"
    c++filt <"$work/linker" | paste -d ' ' "$work/linker" - |
        awk '{ name = $1; sub(/^[^ ]+ /, ""); print name == $0 ? name : name "  " $0 }'
}

# Only what the installed headers tell counts.
layouts() {
    [ -d "$work/headers" ] ||
        cmake --install "$build" --prefix "$work/headers" --component development >/dev/null
    abidw --no-show-locs --no-corpus-path --no-comp-dir-path --no-elf-needed --exported-interfaces-only \
        --drop-private-types --drop-undefined-syms --headers-dir "$work/headers/include/corvane-typemanager" "$1"
}

different=0
for library in $libraries; do
    stem=$(basename "$library" .so)
    [ -f "$build/$library" ] || { echo "interface: no $build/$library; build first" >&2; exit 2; }
    names "$build/$library" >"$work/$stem.names"
    case $command in
        names | check)
            diff -u "$baseline/$stem.names" "$work/$stem.names" || different=1
            ;;
        renew)
            mkdir -p "$baseline"
            cp "$work/$stem.names" "$baseline/$stem.names"
            ;;
        *) echo "$usage" >&2; exit 2 ;;
    esac
    case $command in
        check)
            layouts "$build/$library" >"$work/$stem.abi"
            xz -dc "$baseline/$stem.abi.xz" >"$work/$stem.baseline"
            abidiff "$work/$stem.baseline" "$work/$stem.abi" || different=1
            ;;
        renew)
            layouts "$build/$library" >"$work/$stem.abi"
            # An equal interface keeps its file, whatever order it is written in.
            if [ -f "$baseline/$stem.abi.xz" ] && xz -dc "$baseline/$stem.abi.xz" >"$work/$stem.baseline" &&
                abidiff "$work/$stem.baseline" "$work/$stem.abi" >/dev/null; then
                continue
            fi
            xz -9 -c "$work/$stem.abi" >"$baseline/$stem.abi.xz"
            ;;
    esac
done
[ $different -eq 0 ] || {
    echo "interface: the libraries export something else than $baseline has; see CONTRIBUTING.md" >&2
    exit 1
}
