#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# package-test.sh BUILD SOURCE INTROSPECTION [compiler options]: programs can be built with
# what is installed of the GObject library: in C, and with INTROSPECTION=ON in Vala; and
# Python finds its description.
set -eu
build=$1
source=$2
introspection=$3
shift 3

tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
cmake --install "$build" --component client --prefix "$tree" >"$tree/log"
PKG_CONFIG_PATH=$(dirname "$(find "$tree" -name lectern-glib-1.pc)")
export PKG_CONFIG_PATH
LD_LIBRARY_PATH=$(pkg-config --variable=libdir lectern-glib-1)
export LD_LIBRARY_PATH

# In a separate folder, so that the source tree is on no search path.
cd "$tree"
fail() {
    echo "$*" >&2
    exit 1
}

cat >program.c <<'PROGRAM'
#include <lectern-glib/lectern-glib.h>
int main(void) { return LECTERN_IS_DOCUMENT(NULL) || LECTERN_DOCUMENT_ERROR == 0; }
PROGRAM
# shellcheck disable=SC2046 # lists of options
cc -std=c11 -Wall -Wextra -Wpedantic -Werror "$@" $(pkg-config --cflags lectern-glib-1) program.c -o program \
    $(pkg-config --libs lectern-glib-1) || fail "no program can be built"
./program || fail "the program does not run"

for header in include/lectern-glib/*.h; do
    for language in c c++; do
        # shellcheck disable=SC2046
        echo "#include <lectern-glib/$(basename "$header")>" | cc -fsyntax-only -Wall -Werror -x $language \
            $(pkg-config --cflags lectern-glib-1) - || fail "$header does not stand alone in $language"
    done
done
[ "$introspection" = ON ] || exit 0

# Asks pkg-config for the options of the C compiler, which may not complain about its output.
valac --fatal-warnings -X -w --vapidir share/vala/vapi --pkg lectern-glib-1 -o vala-program \
    "$source/client/glib/example/first-page.vala" || fail "no Vala program can be built"
GI_TYPELIB_PATH=$(dirname "$(find "$tree" -name Lectern-1.typelib)") /usr/bin/python3 -B -c '
import gi
gi.require_version("Lectern", "1")
from gi.repository import Lectern
assert Lectern.Document.new
' || fail "Python does not find the library"
