# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
titles[scalar]="a build limited to scalar"
titles[sse2]="a build limited to SSE2"

# limited_build ISA FORBIDDEN-REGISTERS: the build chooses ISA at most and holds no wider code.
limited_build()
{
    local isa=$1 wider=$2 tree=build/check/$1
    build_tree "$isa" -DVSURF_MAX_ISA="$isa" "${library_only[@]}" -DCMAKE_CXX_FLAGS_RELEASE="-O0 -DNDEBUG"
    build_active_isa "$tree" g++
    echo "the dispatch chooses: $("$tree/active_isa")"
    [[ $("$tree/active_isa") == "$isa" ]]
    if objdump -d --no-show-raw-insn "$tree/libvsurf.so" | grep -E "$wider" | head -n 5 | grep .; then
        echo "the library limited to $isa holds wider code"
        return 1
    fi
    not_done "tests with this build, which is not optimised"
}

check_scalar() { limited_build scalar '%[yz]mm|%k[0-7]'; }
check_sse2() { limited_build sse2 '%[yz]mm|%k[0-7]'; }
