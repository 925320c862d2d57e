#!/bin/sh
# Installs what is built into a scratch prefix, makes the packages, unpacks them into a scratch root, and builds and runs
# the examples against each by find_package and by pkg-config. Nothing of the build tree or the sources but the examples
# is seen by them.
#
#   install_test.sh BUILD_DIR VERSION
set -eu

[ $# -eq 2 ] || { echo "usage: install_test.sh BUILD_DIR VERSION" >&2; exit 2; }
build=$1
version=$2
compiler=${CXX:-c++}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unset LD_LIBRARY_PATH PKG_CONFIG_PATH CMAKE_PREFIX_PATH DESTDIR 2>/dev/null || true

fail() {
    echo "install_test: $*" >&2
    exit 1
}

# same WHAT EXPECTED ACTUAL: two files are the same.
same() {
    diff -u "$2" "$3" || fail "$1"
}

# examples_of PREFIX: the examples that stand there build and run with what stands there alone.
examples_of() {
    prefix=$1
    libraries=$prefix/$(sed -n 's/^libdir=\${prefix}\///p' "$prefix"/lib*/pkgconfig/corvane-typemanager.pc)
    examples=$prefix/share/doc/corvane-typemanager-dev/examples
    rm -rf "$work/by_cmake" "$work/by_pkg_config"

    cmake -S "$examples" -B "$work/by_cmake" -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_PREFIX_PATH="$prefix" \
        -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF -DCMAKE_CXX_FLAGS=-Werror >"$work/log" 2>&1 ||
        { cat "$work/log"; fail "find_package in $prefix"; }
    cmake --build "$work/by_cmake" >"$work/log" 2>&1 || { cat "$work/log"; fail "examples with $prefix"; }

    mkdir "$work/by_pkg_config"
    PKG_CONFIG_LIBDIR=$libraries/pkgconfig
    export PKG_CONFIG_LIBDIR
    [ "$(pkg-config --modversion corvane-typemanager)" = "$version" ] || fail "version of the pkg-config file"
    for expected in "$examples"/expected/*.txt; do
        name=$(basename "$expected" .txt)
        # As C++17, which is all that the headers ask for.
        # shellcheck disable=SC2046
        "$compiler" -std=c++17 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror "$examples/$name.cpp" \
            -o "$work/by_pkg_config/$name" $(pkg-config --cflags --libs corvane-typemanager) ||
            fail "$name by pkg-config in $prefix"
        for program in "$work/by_cmake/$name" "$work/by_pkg_config/$name"; do
            LD_LIBRARY_PATH=$libraries "$program" >"$work/output" || fail "$program failed"
            same "output of $program" "$expected" "$work/output"
        done
        # It is these libraries that run.
        if LD_LIBRARY_PATH=$libraries ldd "$work/by_pkg_config/$name" | grep CV120V | grep -v "=> $libraries/"; then
            fail "$name uses other libraries"
        fi
    done
}

echo "install_test: cmake --install"
cmake --install "$build" --prefix "$work/prefix" >"$work/log" || { cat "$work/log"; fail "cmake --install"; }
examples_of "$work/prefix"
[ "$("$work/prefix/bin/kytm" --version)" = "kytm $version" ] || fail "kytm does not run where it is installed"
for file in "$work"/prefix/lib*/*.so "$work/prefix/bin/kytm"; do
    ! readelf -d "$file" | grep -E 'R(UN)?PATH' | grep -v -F '[$ORIGIN' || fail "$file looks for libraries elsewhere"
done
! grep -rlF "$build" "$work/prefix" || fail "the files above name the build tree"

echo "install_test: headers"
# A header that includes one that is not installed would be found out by the examples only where they include it.
for header in "$work"/prefix/include/corvane-typemanager/*.h; do
    "$compiler" -std=c++17 -fsyntax-only -I"$work/prefix/include/corvane-typemanager" -x c++ "$header" ||
        fail "$(basename "$header") alone"
done
[ -z "$(find "$work/prefix/include" -mindepth 2 -type d)" ] || fail "headers are not in one folder"

echo "install_test: manual page"
page=$work/prefix/share/man/man1/kytm.1
mandoc -T lint -W warning "$page" || fail "mandoc complains about the manual page"
LC_ALL=C MANWIDTH=120 man --warnings=w -E UTF-8 -l "$page" >"$work/page" 2>"$work/log"
[ ! -s "$work/log" ] || { cat "$work/log"; fail "man complains about the manual page"; }
grep -q '^NAME$' "$work/page" || fail "man does not show the manual page"
mandoc -T ascii -O width=500 "$page" | col -b >"$work/page"
# Each command of the program, and each of its options, by the program's own word.
commands() {
    "$work/prefix/bin/kytm" "$@" --help | sed -n '/^Subcommands:/,/^$/s/^  \([a-z][a-z-]*\) .*/\1/p'
}
options() {
    "$work/prefix/bin/kytm" "$@" --help | grep -o '^  -[-a-z,]*' | grep -o -e '--[a-z-]*'
}
described() {
    awk -v command="$*" '
        /^[A-Z]/ { section = $0 }
        section == "COMMANDS" && /^     [^ ]/ { line = $0; sub(/^ */, "", line); on = (line == command || index(line, command " ") == 1) }
        section == "COMMANDS" && on' "$work/page"
}
check_command() {
    described "$@" >"$work/described"
    [ -s "$work/described" ] || fail "the manual page does not describe kytm $*"
    for option in $(options "$@"); do
        [ "$option" = --help ] || grep -q -e "$option" "$work/described" ||
            fail "the manual page does not describe kytm $* $option"
    done
    for below in $(commands "$@"); do check_command "$@" "$below"; done
}
[ "$(commands | wc -l)" -ge 7 ] || fail "the help of kytm lists no commands"
for command in $(commands); do check_command "$command"; done

echo "install_test: packages"
(cd "$work" && cpack --config "$build/CPackConfig.cmake" -B "$work/packages" >"$work/log" 2>&1) ||
    { cat "$work/log"; fail "cpack"; }
architecture=$(dpkg --print-architecture)
runtime=$work/packages/corvane-typemanager_${version}_$architecture.deb
development=$work/packages/corvane-typemanager-dev_${version}_$architecture.deb
for package in "$runtime" "$development"; do
    [ -f "$package" ] || fail "no $package"
    dpkg-deb --extract "$package" "$work/root"
    dpkg-deb --contents "$package" | awk '{ print $1, $2 }' | sort -u >"$work/owners"
    ! grep -v -E '^(drwxr-xr-x|-rw-r--r--|-rwxr-xr-x) root/root$' "$work/owners" || fail "owner or mode of files in $package"
done
files() {
    dpkg-deb --contents "$1" | sed -n 's/^-.* \.\///p' | sort
}
libdir=$(sed -n 's/^libdir=\${prefix}\///p' "$work"/root/usr/lib*/pkgconfig/corvane-typemanager.pc)

files "$runtime" >"$work/files"
sort >"$work/expected" <<LIST
usr/bin/kytm
usr/$libdir/libCV120Vbs44x64.so
usr/$libdir/libCV120Vin44x64.so
usr/$libdir/libCV120Vtm44x64.so
usr/share/man/man1/kytm.1
LIST
same "files of the runtime package" "$work/expected" "$work/files"

(cd "$work/prefix" && find . -type f) | sed "s,^\./,usr/," | grep -v -x -F -f "$work/expected" | sort >"$work/rest"
files "$development" >"$work/files"
same "the development package has the rest of what is installed" "$work/rest" "$work/files"
for file in include/corvane-typemanager/kytypmgr.h "$libdir/cmake/CorvaneTypeManager/CorvaneTypeManagerConfig.cmake" \
    "$libdir/pkgconfig/corvane-typemanager.pc" share/doc/corvane-typemanager-dev/examples/attribute.cpp; do
    grep -q -x "usr/$file" "$work/files" || fail "no $file in the development package"
done

[ "$(dpkg-deb --field "$development" Depends)" = "corvane-typemanager (= $version)" ] ||
    fail "the development package depends on: $(dpkg-deb --field "$development" Depends)"
depends=$(dpkg-deb --field "$runtime" Depends)
# What the program needs besides is its own.
for package in libc6 libstdc++6; do
    case $depends in *"$package"*) ;; *) fail "the runtime package depends on: $depends" ;; esac
done
case $depends in *corvane*) fail "the runtime package depends on itself: $depends" ;; esac
# The libraries need the language's run time and nothing else.
for library in "$work/root/usr/$libdir"/*.so; do
    needed=$(readelf -d "$library" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')
    for name in $needed; do
        case $name in
            libCV120V??44x64.so | libstdc++.so.6 | libm.so.6 | libgcc_s.so.1 | libc.so.6 | ld-linux-*) ;;
            *) fail "$(basename "$library") needs $name" ;;
        esac
    done
done
examples_of "$work/root/usr"
[ "$("$work/root/usr/bin/kytm" --version)" = "kytm $version" ] || fail "kytm of the package does not run"
echo "install_test: done"
