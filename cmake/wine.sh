#!/bin/sh
# SPDX-License-Identifier: MIT
# Usage: wine.sh PROGRAM ARGUMENT...: runs a Windows program. A loader outside PATH is where Debian keeps it. Neither a
# screen nor the add-ons that a new prefix would ask for are of use here.
loader=/usr/lib/wine/wine64
[ -x "$loader" ] || loader=wine64
export WINEDEBUG="${WINEDEBUG:--all}" WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=}"
unset DISPLAY
exec "$loader" "$@"
