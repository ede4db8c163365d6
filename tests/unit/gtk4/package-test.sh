#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# package-test.sh BUILD SOURCE INTROSPECTION: the example in C, and with INTROSPECTION=ON a
# program in Vala, can be built with what is installed of the widget.
set -eu
build=$1
source=$2
introspection=$3

tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
cmake --install "$build" --component client --prefix "$tree" >"$tree/log"
PKG_CONFIG_PATH=$(dirname "$(find "$tree" -name lectern-gtk4-1.pc)")
export PKG_CONFIG_PATH
LD_LIBRARY_PATH=$(pkg-config --variable=libdir lectern-gtk4-1)
export LD_LIBRARY_PATH

# In a separate folder, so that the source tree is on no search path.
cd "$tree"
# shellcheck disable=SC2046 # lists of options
cc -std=c11 -Wall -Wextra -Wpedantic -Werror $(pkg-config --cflags lectern-gtk4-1) \
    "$source/client/gtk4/example/lectern-show.c" -o lectern-show $(pkg-config --libs lectern-gtk4-1) ||
    { echo "the example cannot be built" >&2; exit 1; }
[ "$introspection" = ON ] || exit 0

cat >program.vala <<'PROGRAM'
int main() {
    Gtk.init_check();
    Lectern.Document? document = null;
    return new Lectern.View() { night = true, document = document }.night ? 0 : 1;
}
PROGRAM
# Asks pkg-config for the options of the C compiler, which may not complain about its output.
valac --fatal-warnings -X -w --vapidir share/vala/vapi --pkg lectern-gtk4-1 program.vala -o vala-program ||
    { echo "no Vala program can be built" >&2; exit 1; }
