# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
titles[native]="g++: build everything, run every test"
titles[demo]="scripts/demo.sh without a display"
titles[clang]="clang++: no warning anywhere"
titles[lint]="clang-format and clang-tidy on the changed files"

check_native()
{
    cmake -S . -B build -DCMAKE_BUILD_TYPE=Release -DCMAKE_COMPILE_WARNING_AS_ERROR=ON \
        -DVSURF_BUILD_TOOLS=ON -DVSURF_BUILD_TESTS=ON -DVSURF_BUILD_BENCH=ON
    cmake --build build --parallel "$jobs"
    run_tests build
    if [[ $(uname -m) == x86_64 && $(build/tests/dispatch/isa_in_use all) != *avx512* ]]; then
        not_done "AVX-512 on a processor that has it; its kernels ran with their intrinsics translated to AVX2"
    fi
}

check_demo()
{
    local pictures
    rm -rf out
    env -u DISPLAY -u WAYLAND_DISPLAY scripts/demo.sh
    pictures=$(find out -name '*.png' | wc -l)
    ((pictures > 1)) || { echo "the demo left $pictures pictures"; return 1; }
    # A moving picture: no two neighbours are alike.
    [[ $(find out -name '*.png' -exec cksum {} + | cut -d' ' -f1 | sort -u | wc -l) == "$pictures" ]]
}

# Its warnings do not depend on the optimisation, its time does. Its front end sees all there is to see; one set of kernels
# shows that code is generated, too.
check_clang()
{
    local tree=build/check/clang
    cmake -S . -B "$tree" -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_CXX_FLAGS_RELEASE="-O0 -DNDEBUG" \
        -DCMAKE_COMPILE_WARNING_AS_ERROR=ON -DCMAKE_EXPORT_COMPILE_COMMANDS=ON
    cmake --build "$tree" --parallel "$jobs" --target vsurf_sse2
    python3 - "$tree" >"$scratch/commands" <<'COMMANDS'
import json, os, sys
tree = os.path.realpath(sys.argv[1])
for entry in json.load(open(os.path.join(tree, "compile_commands.json"), encoding="utf-8")):
    if "vsurf_sse2" not in entry["command"] and "avx512_simde" not in entry["command"]:
        precompiled = "cmake_pch" in os.path.basename(entry["file"])
        print("cd", entry["directory"], "&&", entry["command"], "" if precompiled else "-fsyntax-only")
COMMANDS
    echo "$(wc -l <"$scratch/commands") more files"
    [[ -s $scratch/commands ]]
    grep -F cmake_pch.hxx.cxx "$scratch/commands" | sh -e
    grep -vF cmake_pch.hxx.cxx "$scratch/commands" | xargs -P "$jobs" -d '\n' -n 1 sh -c
    not_done "code of clang++ for other kernels than those of SSE2, and tests with its code"
}

check_lint()
{
    scripts/lint.sh
}
