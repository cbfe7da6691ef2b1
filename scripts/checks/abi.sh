# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
titles[abi]="exported names and types, size of the shared library"
packages[abi]="abigail-tools"

# The largest that the stripped shared library may be with every instruction set of x86-64 in it, and that one of them may
# be (docs/design.md, "Size").
readonly abi_size_limit=$((900 * 1024)) isa_size_limit=$((320 * 1024)) show_size_limit=$((600 * 1024))

# describe_abi LIBRARY: its exported functions and their types, without anything of this machine.
describe_abi()
{
    abidw --exported-interfaces-only --headers-dir frame --drop-private-types --drop-undefined-syms --no-elf-needed \
        --no-corpus-path --no-comp-dir-path --no-show-locs --no-parameter-names --no-write-default-sizes \
        --type-id-style hash "$1"
}

# The plain C++ kernels compile fastest; the types of the exports are those of every build.
abi_library()
{
    build_tree abi -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS="-g -O0" -DVSURF_MAX_ISA=scalar -DVSURF_WITH_SCALAR=ON \
        "${library_only[@]}"
}

# print_size TREE LIBRARY LIMIT
print_size()
{
    local size
    cp "$1/$2" "$scratch/stripped.so"
    strip "$scratch/stripped.so"
    size=$(stat -c %s "$scratch/stripped.so")
    echo "$2 of $1, stripped: $size bytes; the limit is $3"
    ((size <= $3))
}

# print_sizes TREE: of what each instruction set brings, and of the stripped library; each has its limit.
print_sizes()
{
    local folder size fits=0
    for folder in "$1"/CMakeFiles/vsurf_{scalar,sse2,avx2,avx512,neon}.dir; do
        [[ -d $folder ]] || continue
        size=$(find "$folder" -name '*.o' -exec size --totals {} + | awk 'END { print $1 }')
        echo "$(basename "$folder" .dir): $size bytes of code and tables; the limit is $isa_size_limit"
        ((size <= isa_size_limit)) || fits=1
    done
    print_size "$1" libvsurf.so "$abi_size_limit" || fits=1
    print_size "$1" libvsurf-show.so "$show_size_limit" || fits=1
    return "$fits"
}

check_abi()
{
    need_or_skip abi
    if [[ $(uname -m) != x86_64 ]]; then
        echo "the description of the interface is that of x86-64"
        exit "$skipped"
    fi
    if [[ -e build/libvsurf.so ]]; then
        print_sizes build
    else
        not_done "the size: check 'native' has not built the library that users get"
    fi
    abi_library
    tests/symbols/exports.sh nm build/check/abi/libvsurf.so frame/exports.inc get_contrast_data
    tests/symbols/exports.sh nm build/check/abi/libvsurf-show.so show/exports.inc
    abidiff --no-show-locs --harmless frame/libvsurf.abi build/check/abi/libvsurf.so
}
