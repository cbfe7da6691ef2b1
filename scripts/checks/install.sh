# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
titles[install]="install, move, uninstall; C and C++ programs with the result, or with the source; presets"
packages[install]="python3"

# Sets `tree` to what is installed and packed: the tree of check `native`, brought up to date, where that is there; else
# one up to SSE2.
shipped_tree()
{
    tree=build
    local wanted='^(VSURF_BUILD_TOOLS:BOOL=ON|CMAKE_BUILD_TYPE:STRING=Release)$'
    if [[ $(grep -csE "$wanted" build/CMakeCache.txt) == 2 ]]; then
        cmake --build build --parallel "$jobs"
        return
    fi
    tree=build/check/shipped
    build_tree shipped -DVSURF_MAX_ISA=sse2 -DVSURF_BUILD_TESTS=OFF -DVSURF_BUILD_BENCH=OFF
}

# use_cmake PREFIX LANGUAGES: the project in tests/install, shared and static.
use_cmake()
{
    local consumer
    consumer=$(mktemp -d -p "$scratch")
    cmake -G "Unix Makefiles" -S tests/install -B "$consumer" -DCMAKE_PREFIX_PATH="$1" -DLANGUAGES="$2" \
        -DCMAKE_BUILD_TYPE=Release
    cmake --build "$consumer"
    run_tests "$consumer"
    # A C program is not linked as C++, whatever else the project holds.
    if [[ $2 == *C\;* ]] && grep '^[^ ]*++' "$consumer"/CMakeFiles/C_with_*/link.txt; then
        return 1
    fi
}

# run_linked PROGRAM LIBRARY: runs it; LIBRARY is the one of ours that it needs, or nothing.
run_linked()
{
    if [[ $(readelf -dW "$1" | sed -nE 's/.*NEEDED.*\[lib(vsurf.*)\.so\.0\]/\1/p') != "$2" ]]; then
        echo "linked the wrong way: $1"
        return 1
    fi
    "$1"
}

# use_pkg_config COMPILER SOURCE [LIBRARY]: once with the shared library, twice with the static one: only vsurf static, or everything.
use_pkg_config()
{
    local compile=("$1" -Wall -Wextra -Wpedantic -Werror "$2" -o "$scratch/program") library=${3:-vsurf}
    local flags libraries all_libraries
    read -ra flags < <(pkg-config --cflags "$library")
    read -ra libraries < <(pkg-config --libs "$library")
    read -ra all_libraries < <(pkg-config --static --libs "$library")
    "${compile[@]}" "${flags[@]}" "${libraries[@]}"
    run_linked "$scratch/program" "$library"
    "${compile[@]}" "${flags[@]}" -Wl,-Bstatic "${all_libraries[@]}" -Wl,-Bdynamic
    run_linked "$scratch/program" ""
    "${compile[@]}" "${flags[@]}" -static "${all_libraries[@]}"
    run_linked "$scratch/program" ""
}

# find_here PREFIX: pkg-config and programs shall find vsurf there.
find_here()
{
    PKG_CONFIG_PATH=$(dirname "$(find "$1" -name vsurf.pc)")
    export PKG_CONFIG_PATH
    LD_LIBRARY_PATH=$(pkg-config --variable=libdir vsurf)
    export LD_LIBRARY_PATH
}

# use_vsurf PREFIX: C and C++ programs, through CMake and pkg-config, shared and static.
use_vsurf()
{
    use_cmake "$1" "C;CXX"
    use_pkg_config gcc tests/install/consumer.c
    use_pkg_config g++ tests/install/consumer.cpp
    use_pkg_config gcc tests/install/consumer_show.c vsurf-show
    use_pkg_config g++ tests/install/consumer_show.cpp vsurf-show
}

# The same where there is no other language or another compiler.
use_otherwise()
{
    local libraries
    use_cmake "$1" C
    use_cmake "$1" CXX
    use_pkg_config clang tests/install/consumer.c
    use_pkg_config clang++ tests/install/consumer.cpp
    # What pkg-config names is all that is needed apart from the C library.
    read -ra libraries < <(pkg-config --static --cflags --libs vsurf)
    gcc -nodefaultlibs tests/install/consumer.c -o "$scratch/program" -Wl,-Bstatic "${libraries[@]}" -Wl,-Bdynamic -lc
}

# use_example DOCUMENT [COUNT]: the C programs in it, one unless a count is given, compiled as they stand there.
use_example()
{
    local flags number library
    rm -f "$scratch"/example-*
    awk -v name="$scratch/example-" '/^```c$/ {n++; on = 1; next} /^```$/ {on = 0} on {print > (name n ".c")}' "$1"
    [[ $(find "$scratch" -name 'example-*.c' | wc -l) == "${2:-1}" ]]
    for ((number = 1; number <= ${2:-1}; number++)); do
        library=vsurf
        ! grep -q '<vsurf_show.h>' "$scratch/example-$number.c" || library=vsurf-show
        read -ra flags < <(pkg-config --cflags --libs "$library")
        gcc -std=c99 -Wall -Wextra -Wpedantic -Werror "$scratch/example-$number.c" -o "$scratch/example-$number" "${flags[@]}"
        (cd "$scratch" && "./example-$number") | tee "$scratch/example-$number.txt"
    done
}

# use_readme: its two programs print what it says they do.
use_readme()
{
    local number
    use_example README.md 2
    for number in 1 2; do
        [[ -s $scratch/example-$number.txt ]]
        grep -F "It prints \`$(cat "$scratch/example-$number.txt")\`" README.md
    done
}

# Only the headers, in the oldest languages that it supports.
use_header()
{
    local compiler language
    for compiler in gcc clang; do
        for language in "c -std=c99" "c++ -std=c++11"; do
            printf '#include <%s>\n' vsurf.h vsurf_show.h |
                "$compiler" -x "${language% *}" "${language#* }" -Wall -Wextra -Wpedantic -Werror -fsyntax-only -I"$1" -
        done
    done
}

# A project that builds vsurf along with itself gets the libraries and nothing else.
use_source()
{
    local tree=build/check/embedding
    cmake -S tests/install/embedding -B "$tree" -DVSURF_SOURCE="$root" -DVSURF_MAX_ISA=sse2 -DCMAKE_CXX_FLAGS=-O0
    cmake --build "$tree" --parallel "$jobs"
    run_tests "$tree"
}

# Each preset can be configured. Those for other machines take compilers that other checks install.
use_presets()
{
    local preset compiler
    for preset in $(cmake --list-presets | sed -nE 's/^ +"([a-z0-9]+)".*/\1/p'); do
        compiler=g++
        [[ $preset != aarch64 ]] || compiler=aarch64-linux-gnu-g++
        [[ $preset != mingw ]] || compiler=x86_64-w64-mingw32-g++-posix
        if command -v "$compiler" >/dev/null; then
            cmake --preset "$preset" -B "$scratch/preset/$preset"
        else
            not_done "preset $preset: there is no $compiler"
        fi
    done
}

# names FOLDER: the files and links below it.
names() { (cd "$1" && find . ! -type d | LC_ALL=C sort); }

# What somebody installed from the tree before can still be uninstalled afterwards.
# set_record_aside FOLDER
set_record_aside()
{
    record=$1
    mkdir -p "$record"
    find "$tree" -maxdepth 1 -name 'installed_*.txt' -exec mv {} "$record" \;
}

restore_record()
{
    rm -f "$tree"/installed_*.txt
    find "$record" -type f -exec mv {} "$tree" \;
}

# check_uninstall PREFIX NAMES: installs there, under DESTDIR if that is set, finds NAMES, and removes them again.
check_uninstall()
{
    local place=${DESTDIR:-}$1 left
    cmake --install "$tree" --prefix "$1" >"$scratch/install/installed"
    diff "$2" <(names "$place")
    touch "$place/lib/of-somebody-else"
    cmake --build "$tree" --target uninstall >"$scratch/install/uninstalled"
    left=$(names "$place"; find "$place" -path '*/vsurf' -type d)
    [[ $left == ./lib/of-somebody-else ]] || { echo "left by uninstall: $left"; return 1; }
    cmake --build "$tree" --target uninstall | grep 'has not been installed'
}

check_install()
{
    need install
    local prefix=$scratch/install/prefix
    shipped_tree
    set_record_aside "$scratch/install/record"
    trap restore_record EXIT

    cmake --install "$tree" --prefix "$prefix"
    names "$prefix" >"$scratch/install/names"
    "$prefix/bin/vsurf-play" --version
    tests/install/check_sbom.py "$prefix/share/doc/vsurf/vsurf.spdx.json" "$prefix" .
    docs/site/links.py "$prefix/share/doc/vsurf"
    find_here "$prefix"
    use_vsurf "$prefix"
    use_otherwise "$prefix"
    use_readme
    use_example docs/subpictures.md
    use_header "$prefix/include"

    mkdir -p "$scratch/install/elsewhere"
    mv "$prefix" "$scratch/install/elsewhere/moved"
    find_here "$scratch/install/elsewhere/moved"
    use_vsurf "$scratch/install/elsewhere/moved"

    use_source
    use_presets

    check_uninstall "$prefix" "$scratch/install/names"
    DESTDIR=$scratch/install/stage check_uninstall /opt/anywhere "$scratch/install/names"
}
