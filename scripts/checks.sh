# shellcheck shell=bash disable=SC2154
# The checks of test.sh, one function each. They run under 'set -e', with their output in build/log/.

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

check_install()
{
    local prefix=$scratch/prefix
    cmake --install build --prefix "$prefix"

    cmake -S tests/install -B "$scratch/consumer" -DCMAKE_PREFIX_PATH="$prefix"
    cmake --build "$scratch/consumer"
    run_tests "$scratch/consumer"

    local link_options library_path
    PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name vsurf.pc)")
    export PKG_CONFIG_PATH
    read -ra link_options < <(pkg-config --cflags --libs vsurf)
    library_path=$(pkg-config --variable=libdir vsurf)
    gcc -std=c99 -Wall -Wextra -Wpedantic -Werror tests/install/consumer.c -o "$scratch/with_pkg_config" "${link_options[@]}"
    LD_LIBRARY_PATH=$library_path "$scratch/with_pkg_config"

    # The example that README.md shows is compiled as it stands there.
    sed -n '/^```c$/,/^```$/p' README.md | sed '/^```/d' >"$scratch/readme.c"
    [[ -s $scratch/readme.c ]]
    gcc -std=c99 -Wall -Wextra -Wpedantic -Werror "$scratch/readme.c" -o "$scratch/readme" "${link_options[@]}"
    (cd "$scratch" && LD_LIBRARY_PATH=$library_path ./readme)

    local compiler
    for compiler in gcc clang; do
        printf '#include <vsurf.h>\n' | "$compiler" -std=c99 -Wall -Wextra -Wpedantic -Werror -fsyntax-only \
            -I"$prefix/include" -x c -
        printf '#include <vsurf.h>\n' | "$compiler" -std=c++11 -Wall -Wextra -Wpedantic -Werror -fsyntax-only \
            -I"$prefix/include" -x c++ -
    done
}

# The sanitizers' shadow memory and a very random address space do not go together on every kernel.
without_address_randomisation()
{
    if setarch "$(uname -m)" -R true 2>/dev/null; then
        setarch "$(uname -m)" -R "$@"
    else
        "$@"
    fi
}

# Line numbers are all that a report needs; full debugging information takes the compiler minutes on the kernels. Wider
# kernels are the same sources once more, at more time still.
sanitized_tree()
{
    local name=$1
    local flags="-O1 -g1 -fno-omit-frame-pointer $2"
    shift 2
    build_tree "$name" -DCMAKE_BUILD_TYPE=Sanitized -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" "$@"
}

check_asan()
{
    # Null pointers and object sizes are AddressSanitizer's anyway, and cost the compiler half of its time.
    local kinds="-fsanitize=address,undefined -fno-sanitize=null,object-size -fno-sanitize-recover=all"
    sanitized_tree asan "$kinds" -DVSURF_MAX_ISA=sse2 -DVSURF_BUILD_BENCH=OFF
    local window_keys='^player\.Keys'
    export VSURF_TEST_EFFORT=quick
    local status=0
    run_tests build/check/asan -E "$window_keys" || status=1
    # The desktop libraries behind a window keep memory to the end, in modules that are unloaded by then.
    ASAN_OPTIONS=detect_leaks=0 run_tests build/check/asan -R "$window_keys" || status=1
    return "$status"
}

check_tsan()
{
    sanitized_tree tsan -fsanitize=thread -DVSURF_MAX_ISA=sse2 "${with_tests[@]}"
    export -f run_tests
    VSURF_TEST_EFFORT=quick jobs=$jobs without_address_randomisation bash -c 'run_tests build/check/tsan -L concurrency'
}

# limited_build ISA FORBIDDEN-REGISTERS: the build chooses ISA at most and holds no wider code.
limited_build()
{
    local isa=$1 wider=$2 tree=build/check/$1
    build_tree "$isa" -DVSURF_MAX_ISA="$isa" "${library_only[@]}"
    printf '#include "frame/dispatch.h"\n#include <cstdio>\nint main() { std::puts(vsurf::active_isa().name); }\n' |
        g++ -std=c++20 -I. -x c++ - -x none "$tree/libvsurf.a" -o "$tree/active_isa"
    echo "the dispatch chooses: $("$tree/active_isa")"
    [[ $("$tree/active_isa") == "$isa" ]]
    if objdump -d --no-show-raw-insn "$tree/libvsurf.so" | grep -E "$wider" | head -n 5 | grep .; then
        echo "the library limited to $isa holds wider code"
        return 1
    fi
}

check_scalar() { limited_build scalar '%[yz]mm|%k[0-7]'; }
check_sse2() { limited_build sse2 '%[yz]mm|%k[0-7]'; }

# The tests of a cross build bring GoogleTest's own sources, where g++ 12 sees an overlap that is none.
# cross_check NAME TOOLCHAIN CMAKE-ARGUMENT...
cross_check()
{
    local name=$1 toolchain=$root/cmake/$2.cmake
    shift 2
    build_tree "$name" -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_CXX_FLAGS=-Wno-error=restrict \
        "${with_tests[@]}" "$@"
    VSURF_TEST_EFFORT=quick run_tests "build/check/$name"
}

check_neon()
{
    need_or_skip neon
    cross_check neon aarch64-linux-gnu
}

check_i686()
{
    need_or_skip i686
    cross_check i686 i686-linux-gnu -DVSURF_MAX_ISA=sse2
}

check_lint()
{
    scripts/lint.sh
}
