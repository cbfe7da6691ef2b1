# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
# The checks of test.sh: for each a function check_NAME, a title and, where it needs more than the others, packages. They
# run under 'set -e', with their output in build/log/.

# build_tree NAME CMAKE-ARGUMENT...: configures and builds into build/check/NAME, warnings being errors.
build_tree()
{
    local tree=build/check/$1
    shift
    cmake -S . -B "$tree" -DCMAKE_COMPILE_WARNING_AS_ERROR=ON "$@"
    cmake --build "$tree" --parallel "$jobs"
}

# run_tests TREE CTEST-ARGUMENT...
run_tests()
{
    local tree=$1
    shift
    ctest --test-dir "$tree" --output-on-failure --no-tests=error --parallel "$jobs" --timeout 600 "$@"
}

readonly library_only=(-DVSURF_BUILD_TOOLS=OFF -DVSURF_BUILD_TESTS=OFF -DVSURF_BUILD_BENCH=OFF)
readonly with_tests=(-DVSURF_BUILD_TOOLS=OFF -DVSURF_BUILD_TESTS=ON -DVSURF_BUILD_BENCH=OFF)

for part in scripts/checks/*.sh; do
    source "$part"
done
