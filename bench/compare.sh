#!/bin/sh
# SPDX-License-Identifier: MIT
# Compares the speed of two builds of the shared library, calls in turns, and their bytes.
#
#   bench/compare.sh [--seconds S] [--ring MIB] [--all] OLD.so NEW.so [REGEX...]
#
# Without options and expressions it takes about five minutes; compare.cpp explains both.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
build=$root/build/compare
[ -f "$build/CMakeCache.txt" ] || cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DVSURF_BUILD_TOOLS=OFF \
    -DVSURF_BUILD_TESTS=OFF -DVSURF_BUILD_BENCH=ON >&2
cmake --build "$build" --target vsurf_compare -j2 >"$build/compare.log" || {
    cat "$build/compare.log" >&2
    exit 2
}
exec "$build/bench/vsurf_compare" "$@"
