#!/bin/sh
# Names of the headers that are installed.
set -eu
cd "$(dirname "$0")/.."
{
    sed -n '/folder_headers/,/)/p' typemgr/sources.cmake types/*/sources.cmake
    sed -n '/^ *HEADERS$/,/HEADER_DIRS/p' platform/*/CMakeLists.txt
} | grep -o '[a-zA-Z0-9_]*\.h'
