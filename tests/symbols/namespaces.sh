#!/bin/sh
# SPDX-License-Identifier: MIT
# Usage: namespaces.sh NM ISA OBJECT...: what the objects of an instruction set show to the linker is in its own
# namespace. A shared inline function would be merged across instruction sets, and might then be the wrong one. The
# thunks that 32-bit position-independent code asks the compiler for are the same for all. Templates come with their
# result's type.
set -eu
nm=$1 isa=$2
shift 2
symbols=$("$nm" -C --defined-only --extern-only "$@" | sed -n 's/^[0-9a-f]* [A-Za-z] //p')
[ -n "$symbols" ]
if stray=$(echo "$symbols" | grep -v -e "^\([^(<]* \)\?vsurf::$isa::" -e '^__x86\.get_pc_thunk\.'); then
    echo "outside vsurf::$isa:" && echo "$stray"
    exit 1
fi
echo "$(echo "$symbols" | wc -l) symbols, all in vsurf::$isa"
