#!/bin/sh
# SPDX-License-Identifier: MIT
# Usage: stack_moves.sh OBJDUMP DLL: no move of more than 16 bytes that faults on an unaligned address goes to or from the
# stack, which is aligned to 16 bytes only. The stack is what rsp, rbp or a copy of them addresses; since only the first
# two can be distinguished, such moves are not welcome anywhere.
set -eu
moves=$("$1" -d --no-show-raw-insn "$2" | grep -E '%[yz]mm[0-9]')
[ -n "$moves" ]
if bad=$(echo "$moves" | grep -E 'vmov(aps|apd|dqa|dqa32|dqa64) .*\('); then
    echo "$(echo "$bad" | wc -l) aligned moves of wide vectors, the first of them:"
    echo "$bad" | head -n 5
    exit 1
fi
echo "$(echo "$moves" | wc -l) lines with wide vectors, none of them an aligned move"
