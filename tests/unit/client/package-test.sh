#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# package-test.sh BUILD SOURCE [compiler options]: a program can be built with the
# installed client library, and the library exports nothing internal.
set -eu
build=$1
source=$2
shift 2

tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
cmake --install "$build" --component client --prefix "$tree" >"$tree/log"
PKG_CONFIG_PATH=$(dirname "$(find "$tree" -name lectern-client.pc)")
export PKG_CONFIG_PATH

# In a separate folder, so that the source tree is on no search path.
cd "$tree"
cp "$source/client/example/Pan.cpp" .
# shellcheck disable=SC2046 # lists of options
c++ -std=c++20 -Wall -Wextra -Werror "$@" $(pkg-config --cflags lectern-client) Pan.cpp -o pan $(pkg-config --libs lectern-client)
LD_LIBRARY_PATH=$(pkg-config --variable=libdir lectern-client)
export LD_LIBRARY_PATH
status=0
./pan || status=$?
[ "$status" = 2 ] || { echo "the program ended with $status" >&2; exit 1; }

for header in include/lectern/*.h; do
    # shellcheck disable=SC2046
    echo "#include <lectern/$(basename "$header")>" | c++ -std=c++20 -fsyntax-only -x c++ $(pkg-config --cflags lectern-client) - \
        || { echo "$header does not stand alone" >&2; exit 1; }
done

library=$LD_LIBRARY_PATH/liblectern-client.so
[ -L "$library" ] || { echo "no $library to link with" >&2; exit 1; }
inner=$(nm -DC --defined-only "$library" | grep -E ' [TWVB] (lectern::(Document::Parts|View::|Painter|Dispatcher|JsonMembers|RecordReader|ServiceWatch|LateReply)|DocAdapter)' || true)
[ -z "$inner" ] || { echo "exported though inner: $inner" >&2; exit 1; }
