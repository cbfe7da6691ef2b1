#!/bin/sh
# SPDX-License-Identifier: MIT
# Usage: needed.sh READELF LIBRARY NAME: the library needs at most libc, and has that name.
set -eu
dynamic=$("$1" -dW "$2")
entry() { echo "$dynamic" | sed -n "s/.*($1).*\[\(.*\)\]/\1/p"; }
needed=$(entry NEEDED)
soname=$(entry SONAME)
[ -z "$needed" ] || [ "$needed" = libc.so.6 ] || { echo "needed: $needed"; exit 1; }
[ "$soname" = "$3" ] || { echo "name: $soname"; exit 1; }
