#!/bin/sh
# SPDX-License-Identifier: MIT
# Usage: exports.sh NM LIBRARY INDEX MAP: the library's visible names are those of the map, each with its version, and the
# map's are those of the index and `get_contrast_data`.
set -eu
export LC_ALL=C
nm=$1 library=$2 index=$3 map=$4
same() { # WHAT EXPECTED FOUND
    [ -n "$3" ] || { echo "no names: $1"; exit 1; }
    [ "$2" = "$3" ] && return
    echo "expected names:" && echo "$2"
    echo "$1:" && echo "$3"
    exit 1
}
indexed=$({ sed -n 's/^EXPORT(\([A-Za-z0-9_]*\),.*/\1/p' "$index"; echo get_contrast_data; } | sort)
mapped=$(awk '/^[A-Za-z0-9_.]+ *{/ { node = $1 } /^ +[A-Za-z0-9_]+;/ { sub(";", "", $1); print $1 "@@" node }' "$map" | sort)
# The linker shows the versions themselves as absolute symbols.
found=$("$nm" -D --defined-only "$library" | awk '$(NF - 1) != "A" { print $NF }' | sort)
same "names in $map" "$indexed" "$(echo "$mapped" | sed "s/@@.*//" | sort)"
same "names that $library shows" "$mapped" "$found"
echo "$(echo "$found" | wc -l) names, all of them expected"
