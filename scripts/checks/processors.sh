# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
titles[processors]="what older and newer x86 processors choose and run, emulated"
packages[processors]="qemu-user-static"

# chooses PROGRAM EMULATOR ISA PROCESSOR...: on each of the processors PROGRAM says that ISA is chosen.
chooses()
{
    local program=$1 emulator=$2 isa=$3 processor chosen
    shift 3
    for processor in "$@"; do
        chosen=$("$emulator" -cpu "$processor" "$program" 2>/dev/null) || { echo "$processor: status $?"; return 1; }
        echo "$processor: $chosen"
        [[ $chosen == "$isa" ]] || { echo "expected: $isa"; return 1; }
    done
}

# build_active_isa TREE COMPILER...: a program that prints the choice, as TREE/active_isa.
build_active_isa()
{
    local tree=$1
    shift
    "$@" -std=c++20 -static -I. tests/dispatch/isa_in_use.cpp "$tree/libvsurf.a" -o "$tree/active_isa"
}

# A processor without AVX, one with only AVX, and one whose operating system does not keep the wide registers must
# all select SSE2. The tests by hand and those of all records and bands then run where a wider instruction faults.
check_processors()
{
    need_or_skip processors
    local tree=build program
    [[ -x build/tests/test_edges ]] || { tree=build/check/processors; build_tree processors "${with_tests[@]}"; }
    build_active_isa "$tree" g++
    chooses "$tree/active_isa" qemu-x86_64-static sse2 \
        Opteron_G1 Conroe Nehalem SandyBridge Haswell,-xsave Haswell,-avx2
    chooses "$tree/active_isa" qemu-x86_64-static avx2 Haswell EPYC
    VSURF_ISA=sse2 chooses "$tree/active_isa" qemu-x86_64-static sse2 Haswell
    # The build holds these, the processors do not run them.
    VSURF_ISA=avx2 chooses "$tree/active_isa" qemu-x86_64-static sse2 Conroe
    VSURF_ISA=avx512 chooses "$tree/active_isa" qemu-x86_64-static avx2 Haswell
    for program in edges job_exactness band_exactness initial_state; do
        VSURF_TEST_EFFORT=quick qemu-x86_64-static -cpu Conroe "$tree/tests/test_$program" --gtest_brief=1
    done
    not_done "other tests without AVX; a processor with AVX-512, which the emulator does not know"
}
