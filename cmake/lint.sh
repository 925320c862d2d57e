#!/bin/sh
# Formatting, documentation, each public header alone, a clean build with clang, exported names and layouts, static
# analysis. Stops at the first kind of finding; prints what it found.
set -eu
cd "$(dirname "$0")/.."

include_dirs="platform/base platform/i18n typemgr types/numeric types/string types/datetime types/identity types/blob"
include_flags=""
for dir in $include_dirs; do include_flags="$include_flags -I$dir"; done

echo "lint: formatting"
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror

echo "lint: documentation"
./dev docs

echo "lint: each public header alone, as C++17 and C++20"
for header in $(sh cmake/public_headers.sh); do
    for compiler in g++ clang++; do
        for standard in c++17 c++20; do
            # shellcheck disable=SC2086
            $compiler -std=$standard -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -fsyntax-only \
                $include_flags -include "$header" -x c++ /dev/null
        done
    done
done

echo "lint: clean build with clang"
./dev build --werror --preset clang

echo "lint: exported names and layouts"
cmake --preset debug >build/debug.configure.log
cmake --build --preset debug --target kytypemgr
sh cmake/interface.sh names build/clang
sh cmake/interface.sh check build/debug

echo "lint: static analysis"
git ls-files 'platform/*.cpp' 'typemgr/*.cpp' 'types/*.cpp' 'engine/*.cpp' 'tools/*.cpp' |
    xargs -n 1 -P "$(nproc)" clang-tidy --quiet -p build/clang

echo "lint: clean"
