#!/bin/sh
# SPDX-License-Identifier: MIT
# Makes the pictures of ../subpictures.md: make.sh [BUILD_DIRECTORY]
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$here/../..
build=$(cd "${1:-$root/build}" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
${CC:-cc} -std=c99 -Wall -Wextra -Wpedantic -I"$root/frame" "$here/subpictures.c" "$build/libvsurf.a" -lpng \
    -o "$work/subpictures"
"$work/subpictures" "$here"
