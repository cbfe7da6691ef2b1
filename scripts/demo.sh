#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# scripts/demo.sh [FILE] [PLAYER OPTION...]: installs what is missing, builds the player, and plays FILE or a built-in
# clip; in a window where there is a display, into PNG files under out/ where there is none.
invoked_from=$PWD
source "$(dirname "$0")/common.sh"

build_player()
{
    cmake -S . -B build -DCMAKE_BUILD_TYPE=Release -DVSURF_BUILD_TOOLS=ON -DVSURF_BUILD_TESTS=OFF -DVSURF_BUILD_BENCH=OFF
    cmake --build build --parallel "$jobs" --target vsurf-play
}

# DISPLAY may name a display that is out of reach.
can_open_a_window() { "$player" --quiet --size 64x64 --frames 1 >"$scratch/probe" 2>&1; }

must packages "install what is missing" need build player
must player "build the library and the player" build_player

player=$root/build/tools/vsurf-play
cd "$invoked_from" || exit
if [[ -n ${DISPLAY:-}${WAYLAND_DISPLAY:-} ]] && can_open_a_window; then
    echo "play       in a window: space pauses, q quits, README.md lists the other keys"
    "$player" --stats "$@"
else
    echo "play       without a display: 48 pictures as PNG files"
    "$player" --dump "$root/out" --frames 48 --stats "$@"
    echo "The pictures are in $root/out ($(find "$root/out" -name '*.png' | wc -l) files)."
fi
