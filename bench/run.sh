#!/bin/sh
# Builds the benchmarks where needed, runs them all, and writes a report and its plot.
#
#   bench/run.sh [--quick] [--build DIR] [--output FILE]
#
#   --quick    a rough picture in a minute: few and short repetitions, without the slowest contenders
#   --build    the build directory (build)
#   --output   the report (bench/report.md; with --quick, report-quick.md in the build directory)
set -eu

fail() {
    echo "run.sh: $1" >&2
    exit 2
}

bench=$(cd "$(dirname "$0")" && pwd)
root=$(dirname "$bench")
build=$root/build output='' quick=''
while [ $# -gt 0 ]; do
    case $1 in
    --quick) quick=yes ;;
    --build | --output)
        [ $# -ge 2 ] || fail "$1 needs a value"
        if [ "$1" = --build ]; then build=$2; else output=$2; fi
        shift
        ;;
    *) fail "unknown option '$1'" ;;
    esac
    shift
done

# One loader for each kind of surface is enough to choose between stores.
stores_of='(rgb32|rgb24|rgb16-565|yuy2_ajust|yv12_ajust|half_yuy2_ajust)/'
# Many short repetitions find the quiet moments of a busy machine better than a few long ones.
effort='--benchmark_repetitions=25 --benchmark_min_time=0.004'
filter=.
if [ "$quick" ]; then
    effort='--benchmark_repetitions=9 --benchmark_min_time=0.002'
    filter='^(?!.*(scalar|libyuv-sse2|rgb16-6..|rgb16_ajust-6..))'
    stores_of='(rgb32|rgb16-565)/'
    [ "$output" ] || output=$build/report-quick.md
fi
[ "$output" ] || output=$bench/report.md

# The system's interpreter is the one that has the distribution's plotting library.
python=python3
export PYTHONDONTWRITEBYTECODE=1
$python -c 'import matplotlib' 2>/dev/null || python=/usr/bin/python3
$python -c 'import matplotlib' 2>/dev/null || fail 'the plot needs matplotlib (Debian: python3-matplotlib)'

[ -f "$build/CMakeCache.txt" ] || cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release >&2
grep -q '^CMAKE_BUILD_TYPE:[A-Z]*=Release$' "$build/CMakeCache.txt" || fail "$build is not a Release build"
cmake --build "$build" --target vsurf_bench -j"$(nproc)" >&2
program=$build/bench/vsurf_bench

# The effort is a list of options, to be split.
# shellcheck disable=SC2086
"$program" --brief "--benchmark_filter=$filter" $effort "--benchmark_out=$build/bench.json"
# shellcheck disable=SC2086
"$program" --stores "--benchmark_filter=$stores_of" $effort "--benchmark_out=$build/stores.json"
$python "$bench/report.py" "$build/bench.json" --stores "$build/stores.json" --output "$output" \
    --command "bench/run.sh${quick:+ --quick}" \
    --command "vsurf_bench --brief '--benchmark_filter=$filter' $effort" \
    --command "vsurf_bench --stores '--benchmark_filter=$stores_of' $effort"
echo "$output"
