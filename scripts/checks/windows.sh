# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
titles[windows]="vsurf.dll for x86-64: names, clients of each kind, tests under Wine"
titles[win32]="vsurf.dll for 32-bit x86: names, clients of each kind"
titles[win32_run]="vsurf.dll for 32-bit x86: clients and tests under Wine"
packages[windows]="g++-mingw-w64-x86-64-posix googletest clang lld llvm wine wine64 python3"
packages[win32]="g++-mingw-w64-i686-posix googletest clang lld llvm"
packages[win32_run]="wine wine32:i386"

# check_definition NAME ARCH: the DLL's list of names is what a compiler of the platform's kind generates from the header.
check_definition()
{
    scripts/defs.sh "$2" | LC_ALL=C sort >"$scratch/$1.def"
    [[ -s $scratch/$1.def ]]
    diff -u "$scratch/$1.def" <(grep '^ ' "build/check/$1/vsurf.def" | LC_ALL=C sort)
}

# configure_windows NAME ARCH CMAKE-ARGUMENT...
configure_windows()
{
    local name=$1 toolchain=$root/cmake/$2-w64-mingw32.cmake
    shift 2
    cmake -S . -B "build/check/$name" -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_COMPILE_WARNING_AS_ERROR=ON \
        "${with_tests[@]}" "$@"
}

# run_under_wine TREE: the whole suite, and then the pixels once more as a machine without AVX2 computes them. That faults
# are caught is shown by some of the exports: each such test starts a program of its own, which takes long here and, once
# in hundreds of times, takes the program that started it along; hence the second try.
run_under_wine()
{
    local tree=$root/$1
    export WINEPREFIX=$tree/wine VSURF_TEST_EFFORT=quick
    cmake/wine.sh "$tree" wineboot --init
    trap 'wineserver -k || true' EXIT
    run_tests "$tree" -E harness_selfcheck
    GTEST_FILTER='*rgb32*:*opt_yuy2*' run_tests "$tree" -R harness_selfcheck --repeat until-pass:2
    WINEPATH="Z:$tree/tests/windows/lowest;Z:$tree" run_tests "$tree" -R 'exactness|edges|large_surfaces'
    not_done "a real Windows; AVX-512; cases beyond the quick part; faults of most exports; the player"
}

# The archive for Windows holds the DLL, an import library for each kind of linker, and what CMake and pkg-config need.
check_zip()
{
    (cd "$1" && cpack -B "$scratch/packages")
    mkdir "$scratch/unpacked"
    (cd "$scratch/unpacked" && cmake -E tar xf "$scratch"/packages/*.zip)
    local top
    top=$(echo "$scratch"/unpacked/*)
    diff - <(cd "$top" && find . -type f -not -path './share/*' | LC_ALL=C sort) <<'FILES'
./bin/vsurf-show.dll
./bin/vsurf.dll
./include/vsurf.h
./include/vsurf_show.h
./lib/cmake/vsurf/vsurfConfig.cmake
./lib/cmake/vsurf/vsurfConfigVersion.cmake
./lib/cmake/vsurf/vsurfTargets-release.cmake
./lib/cmake/vsurf/vsurfTargets.cmake
./lib/libvsurf-show.a
./lib/libvsurf-show.dll.a
./lib/libvsurf.a
./lib/libvsurf.dll.a
./lib/pkgconfig/vsurf-show.pc
./lib/pkgconfig/vsurf.pc
./lib/vsurf-show.lib
./lib/vsurf.lib
FILES
    tests/install/check_sbom.py "$top/share/doc/vsurf/vsurf.spdx.json" "$top" .
}

check_windows()
{
    need_or_skip windows
    configure_windows windows x86_64 -DCMAKE_CXX_FLAGS=-Wno-error=restrict
    check_definition windows x86_64
    cmake --build build/check/windows --parallel "$jobs"
    check_zip build/check/windows
    run_under_wine build/check/windows
}

# The plain C++ code, which takes long to build, is left out.
configure_win32()
{
    configure_windows win32 i686 -DCMAKE_CXX_FLAGS="-msse2 -Wno-error=restrict" -DVSURF_MAX_ISA=avx2
}

check_win32()
{
    need_or_skip win32
    configure_win32
    check_definition win32 i686
    cmake --build build/check/win32 --parallel "$jobs" --target vsurf vsurf_static vsurf_show vsurf_show_static windows_clients
    run_tests build/check/win32 -L symbols
    not_done "the clients and tests were not run, that is check win32_run; AVX-512 and plain C++"
}

# Debian has a 32-bit Wine for machines that take i386 packages; whether they do is their owner's choice.
check_win32_run()
{
    if ! is_installed wine32:i386 && ! dpkg --print-foreign-architectures | grep -qx i386; then
        echo "no 32-bit Wine here, it is an i386 package"
        exit "$skipped"
    fi
    need_or_skip win32
    need_or_skip win32_run
    configure_win32
    cmake --build build/check/win32 --parallel "$jobs"
    run_under_wine build/check/win32
}
