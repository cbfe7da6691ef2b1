#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the benchmarks where needed, runs them all, and writes a report and, into the same folder, its pictures.
#
#   bench/run.sh [--quick] [--build DIR] [--output FILE] [--filter REGEX] [--plots DIR] [--again]
#
#   --quick    a rough report in three minutes: few and short repetitions
#   --build    the build directory (build/speed)
#   --output   the report (bench/report.md; with --quick or --filter, report-part.md in the build directory)
#   --filter   only the exports whose names match, such as 'strech_pic_', and no choice of stores
#   --plots    a folder for large pictures of every cell
#   --again    measures nothing, but reports what the last run in the build directory measured
set -eu

fail() {
    echo "run.sh: $1" >&2
    exit 2
}

bench=$(cd "$(dirname "$0")" && pwd)
root=$(dirname "$bench")
build=$root/build/speed output='' quick='' only='' plots='' again=''
while [ $# -gt 0 ]; do
    case $1 in
    --quick) quick=yes ;;
    --again) again=yes ;;
    --build | --output | --filter | --plots)
        [ $# -ge 2 ] || fail "$1 needs a value"
        case $1 in
        --build) build=$2 ;;
        --output) output=$2 ;;
        --plots) plots=$2 ;;
        --filter) only=$2 ;;
        esac
        shift
        ;;
    *) fail "unknown option '$1'" ;;
    esac
    shift
done

# One export for each kind of surface is enough to choose between stores.
stores_of='/(loadimage_(rgb32|rgb24|rgb16-565|yuy2_ajust|yv12_ajust|half_yuy2_ajust|half_yv12_ajust)|LoadYUY2_RGB32'
stores_of="$stores_of|strech_pic_2X2|strech_picture_2X2_yuy2|mix_ayuy2_rgb32_p_ajust-subtitle|LoadColorKeyRgb32)/"
# Many short repetitions find the quiet moments of a busy machine better than a few long ones.
effort='--benchmark_repetitions=5 --benchmark_min_time=0.002'
filter=.
if [ "$quick" ]; then
    effort='--benchmark_repetitions=2 --benchmark_min_time=0.0005'
    stores_of='/(loadimage_rgb32|loadimage_rgb16-565|strech_picture_2X2_yuy2)/'
fi
[ -z "$only" ] || filter="/[^/]*($only)[^/]*/"
[ "$output" ] || if [ "$quick$only" ]; then output=$build/report-part.md; else output=$bench/report.md; fi

# The system's interpreter is the one that has the distribution's plotting library.
python=python3
export PYTHONDONTWRITEBYTECODE=1
has_plots() { $python -c 'import matplotlib' 2>/dev/null; }
has_plots || python=/usr/bin/python3
if ! has_plots && [ "$(id -u)" = 0 ]; then
    apt-get install -y --no-install-recommends python3-matplotlib >&2 || true
fi
has_plots || fail 'the pictures need matplotlib (Debian: python3-matplotlib)'

program=$build/bench/vsurf_bench
measure() {
    cmake -S "$root" -B "$build" -DVSURF_WITH_SCALAR=ON -DVSURF_BUILD_BENCH=ON >&2
    grep -q '^CMAKE_BUILD_TYPE:[A-Z]*=Release$' "$build/CMakeCache.txt" || fail "$build is not a Release build"
    cmake --build "$build" --target vsurf_bench -j"$(nproc)" >&2
    "$program" --check "--benchmark_filter=$filter" >"$build/check.txt" || {
        cat "$build/check.txt" >&2
        fail 'a peer or a roof does not do its work (lines marked WRONG)'
    }
    # The effort is a list of options, to be split.
    # shellcheck disable=SC2086
    "$program" --brief "--benchmark_filter=$filter" $effort "--benchmark_out=$build/bench.json"
    # shellcheck disable=SC2086
    [ "$only" ] ||
        "$program" --stores "--benchmark_filter=$stores_of" $effort "--benchmark_out=$build/stores.json"
}
[ "$again" ] || measure

set -- --command "bench/run.sh${quick:+ --quick}${only:+ --filter '$only'}" \
    --command "vsurf_bench --brief '--benchmark_filter=$filter' $effort"
[ "$only" ] || set -- "$@" --stores "$build/stores.json" \
    --command "vsurf_bench --stores '--benchmark_filter=$stores_of' $effort"
[ -z "$plots" ] || set -- "$@" --plots "$plots"
$python "$bench/report.py" "$build/bench.json" --output "$output" "$@"
echo "$output"
