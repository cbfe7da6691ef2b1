#!/bin/sh
# SPDX-License-Identifier: MIT
# Usage: environment.sh PROGRAM...: PROGRAM, which prints the instruction set in use, uses the one that VSURF_ISA names
# where that runs here, and the best one where the variable is unset, empty or names anything else. That it has no effect
# on programs that run with more rights than their caller is not tested: to make such a program takes root's rights.
set -eu
unset VSURF_ISA
all=$("$@" all | tr -d '\r' | tr '\n' ' ')
best=${all%% *}
[ -n "$best" ]
expect() { # EXPECTED FOUND
    echo "VSURF_ISA '${VSURF_ISA-}': $2"
    [ "$1" = "$2" ] || { echo "expected: $1"; exit 1; }
}
expect "$best" "$("$@" | tr -d '\r')"
export VSURF_ISA
for VSURF_ISA in sse2 avx2 avx512 neon scalar '' nonsense SSE2 sse sse22 ' sse2' 'sse2,avx2'; do
    case " $all" in
        *" $VSURF_ISA "*) expected=$VSURF_ISA ;;
        *) expected=$best ;;
    esac
    expect "$expected" "$("$@" | tr -d '\r')"
done
