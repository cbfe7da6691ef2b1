#!/bin/sh
# SPDX-License-Identifier: MIT
# Usage: wine.sh TREE PROGRAM ARGUMENT...: runs a Windows program that the build tree has made, with the DLL at its top
# (or one in WINEPATH) and Wine's settings in its folder `wine` (or in WINEPREFIX). Neither a screen nor the add-ons that a
# new prefix would ask for are of use here.
tree=$1
shift
export WINEPREFIX="${WINEPREFIX:-$tree/wine}" WINEPATH="${WINEPATH:-Z:$tree}"
export WINEDEBUG="${WINEDEBUG:--all}" WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=}"
unset DISPLAY
exec wine "$@"
