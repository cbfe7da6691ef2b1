#!/bin/sh
# SPDX-License-Identifier: MIT
# Usage: exports.sh NM LIBRARY INDEX [NAME]: the library shows the names of the index, each with the version of the heading
# that it stands under, NAME with the first one, and nothing else.
set -eu
export LC_ALL=C
nm=$1 library=$2 index=$3 name=${4-}
expected=$(awk -F '[(,)]' -v name="$name" '
    /^\/\/ Since / { split($0, word, "[ :]"); version = word[3]; if (name) print name "@@" version; name = "" }
    /^EXPORT\(/ { print $2 "@@" version }' "$index" | sort)
# The linker shows the versions themselves as absolute symbols.
found=$("$nm" -D --defined-only "$library" | awk '$(NF - 1) != "A" { print $NF }' | sort)
[ -n "$found" ] || { echo "$library shows no names"; exit 1; }
if [ "$expected" != "$found" ]; then
    echo "expected names:" && echo "$expected"
    echo "names that $library shows:" && echo "$found"
    exit 1
fi
echo "$(echo "$found" | wc -l) names, all of them expected"
