#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# scripts/fuzz.sh SECONDS [TARGET]: builds a fuzz target (show_job) with clang++ and runs it for so long. What it has
# learned stays in build/fuzz/corpus for the next time; an input that fails is left in build/fuzz.
set -euo pipefail
cd "$(dirname "$0")/.."

fail() { echo "fuzz.sh: $*" >&2; exit 1; }

seconds=${1:-} target=${2:-show_job}
[[ $seconds =~ ^[0-9]+$ ]] || fail "usage: scripts/fuzz.sh SECONDS [TARGET]"
[[ -e fuzz/$target.cpp ]] || fail "no target '$target'; there is fuzz/show_job.cpp"
command -v clang++ >/dev/null || fail "clang++ is missing; fuzz targets need it and its libFuzzer (Debian: clang)"

tree=build/fuzz
cmake -S . -B "$tree" -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Sanitized \
    -DVSURF_BUILD_FUZZERS=ON -DVSURF_BUILD_TOOLS=OFF -DVSURF_BUILD_TESTS=OFF -DVSURF_BUILD_BENCH=OFF \
    -DVSURF_MAX_ISA="${VSURF_MAX_ISA:-}" >/dev/null
cmake --build "$tree" --parallel "$(nproc)" --target "fuzz_$target"
mkdir -p "$tree/corpus/$target"
"$tree/fuzz/fuzz_$target" -max_total_time="$seconds" -max_len=512 -len_control=0 -timeout=20 -print_final_stats=1 \
    -artifact_prefix="$tree/$target-" "$tree/corpus/$target"
