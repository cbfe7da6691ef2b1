#!/bin/sh
# SPDX-License-Identifier: MIT
# Usage: needed.sh READELF LIBRARY: the library needs at most libc, and has the right name.
set -eu
dynamic=$("$1" -dW "$2")
entry() { echo "$dynamic" | sed -n "s/.*($1).*\[\(.*\)\]/\1/p"; }
needed=$(entry NEEDED)
soname=$(entry SONAME)
[ -z "$needed" ] || [ "$needed" = libc.so.6 ] || { echo "needed: $needed"; exit 1; }
[ "$soname" = libvsurf.so.0 ] || { echo "name: $soname"; exit 1; }
