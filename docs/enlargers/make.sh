#!/bin/sh
# SPDX-License-Identifier: MIT
# Makes the pictures of ../enlargers.md: make.sh [BUILD_DIRECTORY]
set -eu
here=$(cd "$(dirname "$0")" && pwd)
tools=$(cd "${1:-$here/../../build}/tools" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
picture=$work/picture-000001.png

dump() { "$tools/vsurf-play" --size 640x480 --frames 1 --surface yuy2 --dump "$work" "$@"; }

# detail NAME WxH+X+Y [PLAYER_OPTION...]
detail() {
    name=$1 where=$2
    shift 2
    dump "$@"
    "$tools/vsurf-detail" "$picture" "$where" "$here/$name.png"
}

detail source 56x40+80+396
detail 1x2 56x80+80+792 --zoom 1x2
detail 1x2-adjusted 56x80+80+792 --zoom 1x2 --brightness 1
detail 2x2 112x80+160+792 --zoom 2x2
detail 2x2-planes 112x80+160+792 --zoom 2x2 --surface yv12
detail 2x2-packed 112x80+160+792 --zoom 2x2 --pixel-format yuyv422
detail field 56x40+80+396 --field
dump
"$tools/vsurf-detail" --repeat-lines "$picture" 56x40+80+396 "$here/field-lines.png"
