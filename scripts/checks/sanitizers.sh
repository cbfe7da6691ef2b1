# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
titles[asan]="AddressSanitizer and UBSan"
titles[asan_player]="AddressSanitizer and UBSan, the player"
titles[tsan]="ThreadSanitizer"

# The sanitizers' shadow memory and a very random address space do not go together on every kernel.
without_address_randomisation()
{
    if setarch "$(uname -m)" -R true 2>/dev/null; then
        setarch "$(uname -m)" -R "$@"
    else
        "$@"
    fi
}

# sanitized_tree NAME PRESET TARGET CMAKE-ARGUMENT...: the flags are those of the preset. Line numbers are all that a
# report needs; full debugging information takes the compiler minutes on the kernels. Null pointers and object sizes are
# AddressSanitizer's business anyway, and cost the compiler half of its time.
sanitized_tree()
{
    local tree=build/check/$1 preset=$2 target=$3
    shift 3
    cmake --preset "$preset" -B "$tree" -DCMAKE_COMPILE_WARNING_AS_ERROR=ON "$@"
    cmake --build "$tree" --parallel "$jobs" --target "$target"
}

check_asan()
{
    sanitized_tree asan asan all -DVSURF_MAX_ISA=avx2 "${with_tests[@]}"
    VSURF_TEST_EFFORT=quick run_tests build/check/asan
    not_done "AVX-512; cases beyond the quick part"
}

# The desktop libraries behind a window keep memory to the end, in modules that are unloaded by then.
check_asan_player()
{
    local window_keys='^player\.Keys' status=0
    sanitized_tree asan_player asan player_test -DVSURF_MAX_ISA=sse2
    run_tests build/check/asan_player -R '^player\.' -E "$window_keys" || status=1
    ASAN_OPTIONS=detect_leaks=0 run_tests build/check/asan_player -R "$window_keys" || status=1
    not_done "kernels above SSE2; leaks in the tests of a window's keys"
    return "$status"
}

check_tsan()
{
    sanitized_tree tsan tsan test_concurrency -DVSURF_MAX_ISA=sse2 "${with_tests[@]}"
    export -f run_tests
    VSURF_TEST_EFFORT=quick jobs=$jobs without_address_randomisation bash -c 'run_tests build/check/tsan -L concurrency'
    not_done "kernels above SSE2; tests other than those of concurrency"
}
