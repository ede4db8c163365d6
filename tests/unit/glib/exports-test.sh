#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# exports-test.sh LIBRARY MAP HEADERS: the library exports the symbols that its list of
# versions names and its headers declare, with these versions, and nothing else.
set -eu
library=$1
map=$2
headers=$3

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
awk '/^LECTERN_/ { version = $1 } /^    lectern_/ { sub(";", "", $1); print $1 "@@" version }' "$map" | sort >"$folder/listed"
nm -D --defined-only --with-symbol-versions "$library" | awk '$2 != "A" { print $3 }' | sort >"$folder/exported"
diff "$folder/listed" "$folder/exported" || { echo "the list and the library differ" >&2; exit 1; }

cat "$headers"/*.h | tr '\n' ' ' | grep -o '\(G_DECLARE_FINAL_TYPE([A-Za-z]*, \|\b\)lectern_[a-z_]*[(,]' \
    | sed 's/^G_DECLARE_FINAL_TYPE([A-Za-z]*, \(.*\),$/\1_get_type/; s/($//; s/,$//' | sort -u >"$folder/declared"
sed 's/@@.*//' "$folder/listed" | sort >"$folder/names"
diff "$folder/names" "$folder/declared" || { echo "the list and the headers differ" >&2; exit 1; }
