#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# scripts/test.sh [CHECK...]: installs what is missing, builds, and runs the named checks; 'all', the default, stands for
# every check but lint. Ends with a line 'N passed, N failed' and a non-zero status where something failed.
source "$(dirname "$0")/common.sh"
declare -A titles=()
source scripts/checks.sh

all=(native processors demo install package abi docs licence reproducible clang asan asan_player tsan scalar sse2 neon i686
    windows win32 win32_run)

checks=()
for name in "${@:-all}"; do
    if [[ $name == all ]]; then
        checks+=("${all[@]}")
    elif [[ -n ${titles[$name]:-} ]]; then
        checks+=("$name")
    else
        echo "scripts/test.sh: no check '$name'; there are: all ${!titles[*]}" >&2
        exit 2
    fi
done

must packages "install what is missing" need build player tests bench clang

passed=0 failed=0 failures=()
count()
{
    local name=$1 log=$root/build/log/$1.log good bad
    # Every test that ctest ran counts, and so does the check itself.
    bad=$(sed -nE 's/^[0-9]+% tests passed, ([0-9]+) tests? failed out of [0-9]+$/\1/p' "$log" | paste -sd+)
    good=$(sed -nE 's/^[0-9]+% tests passed, ([0-9]+) tests? failed out of ([0-9]+)$/\2 - \1/p' "$log" | paste -sd+)
    passed=$((passed + ${good:-0}))
    failed=$((failed + ${bad:-0}))
    if ((step_status == 0)); then
        passed=$((passed + 1))
    elif ((step_status != skipped)); then
        failed=$((failed + 1))
        failures+=("$name")
    fi
}

for name in "${checks[@]}"; do
    step "$name" "${titles[$name]}" "check_$name"
    count "$name"
done

echo "$SECONDS s in all${failures:+; failed: ${failures[*]}}"
echo "$passed passed, $failed failed"
((failed == 0))
