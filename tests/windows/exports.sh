#!/bin/sh
# SPDX-License-Identifier: MIT
# Usage: exports.sh READOBJ DLL DEFINITION: the DLL shows the definition's names and no other, and each decorated name
# leads to the same place as its plain one.
set -eu
readobj=$1 dll=$2 definition=$3
expected=$(sed -nE 's/^    "([^"]+)" = (.*)$/\1 \2/p; s/^    ([A-Za-z0-9_]+)$/\1 \1/p' "$definition" | sort)
found=$("$readobj" --coff-exports "$dll" |
    awk '$1 == "Name:" { name = $2 }
         $1 == "RVA:" { at[name] = $2; if (name !~ /^\?/) plain[$2] = name }
         END { for (name in at) print name, plain[at[name]] }' | sort)
[ -n "$found" ]
if [ "$expected" != "$found" ]; then
    echo "expected names, and what they lead to:" && echo "$expected"
    echo "those of $dll:" && echo "$found"
    exit 1
fi
echo "$(echo "$found" | wc -l) names, all of them expected"
