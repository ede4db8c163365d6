#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# pages-test.sh GI_DOCGEN GIR CONFIGURATION FOLDER: everything in the description of a
# library is documented, every link leads somewhere, and the pages can be built.
set -eu
docgen=$1
gir=$2
configuration=$3
folder=$4

log=$(mktemp)
trap 'rm -f "$log"' EXIT
rm -rf "$folder"
include="--add-include-path=$(dirname "$gir")"
"$docgen" check --quiet --fatal-warnings "$include" --config "$configuration" "$gir" >"$log" 2>&1 || { cat "$log"; exit 1; }
"$docgen" generate --quiet --fatal-warnings "$include" --config "$configuration" --no-namespace-dir --output-dir "$folder" \
    "$gir" >>"$log" 2>&1 || { cat "$log"; exit 1; }
! grep -q WARNING "$log" || { cat "$log"; exit 1; }
[ -s "$folder/index.html" ]
