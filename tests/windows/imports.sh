#!/bin/sh
# SPDX-License-Identifier: MIT
# Usage: imports.sh READOBJ DLL: the DLL needs the system's base library and the C library, and nothing else.
set -eu
found=$("$1" --coff-imports "$2" | sed -n 's/^  Name: //p' | sort)
[ -n "$found" ]
if stray=$(echo "$found" | grep -vxE 'KERNEL32\.dll|msvcrt\.dll|api-ms-win-crt-[a-z0-9-]+\.dll|ucrtbase\.dll'); then
    echo "needed: $stray"
    exit 1
fi
