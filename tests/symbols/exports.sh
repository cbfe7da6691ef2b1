#!/bin/sh
# SPDX-License-Identifier: MIT
# Usage: exports.sh NM LIBRARY INDEX: the library's visible names are those of the index and `get_contrast_data`.
set -eu
nm=$1 library=$2 index=$3
expected=$({ sed -n 's/^EXPORT(\([A-Za-z0-9_]*\),.*/\1/p' "$index"; echo get_contrast_data; } | sort)
found=$("$nm" -D --defined-only "$library" | awk '{ print $NF }' | sort)
[ -n "$found" ]
if [ "$expected" != "$found" ]; then
    echo "expected names:" && echo "$expected"
    echo "names that $library shows:" && echo "$found"
    exit 1
fi
echo "$(echo "$found" | wc -l) names, all of them expected"
