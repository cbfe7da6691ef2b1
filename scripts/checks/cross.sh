# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
titles[neon]="aarch64 cross build, tests under qemu-user"
titles[i686]="32-bit x86 cross build"
packages[neon]="g++-aarch64-linux-gnu qemu-user-static googletest"
packages[i686]="g++-i686-linux-gnu googletest qemu-user-static"

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
    not_done "an Arm processor, the tests run under qemu; cases beyond the quick part; the player"
}

check_i686()
{
    need_or_skip i686
    cross_check i686 i686-linux-gnu -DVSURF_MAX_ISA=avx2 -DCMAKE_CXX_FLAGS_RELEASE="-O1 -DNDEBUG"

    build_active_isa build/check/i686 i686-linux-gnu-g++
    chooses build/check/i686/active_isa qemu-i386-static scalar pentium3
    chooses build/check/i686/active_isa qemu-i386-static sse2 n270
    chooses build/check/i686/active_isa qemu-i386-static avx2 Haswell
    not_done "AVX-512; cases beyond the quick part; the player; the optimisation of a release"
}
