# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
titles[native]="g++: build everything, run every test"
titles[demo]="scripts/demo.sh without a display"
titles[clang]="clang++: build everything without a warning"
titles[lint]="clang-format and clang-tidy on the changed files"

check_native()
{
    cmake -S . -B build -DCMAKE_BUILD_TYPE=Release -DCMAKE_COMPILE_WARNING_AS_ERROR=ON \
        -DVSURF_BUILD_TOOLS=ON -DVSURF_BUILD_TESTS=ON -DVSURF_BUILD_BENCH=ON
    cmake --build build --parallel "$jobs"
    run_tests build
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

# Its warnings do not depend on the optimisation, its time does.
check_clang()
{
    build_tree clang -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_CXX_FLAGS_RELEASE="-O0 -DNDEBUG"
}

check_lint()
{
    scripts/lint.sh
}
