# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
titles[docs]="reference site, example programs and man pages"
packages[docs]="doxygen python3 mandoc groff man-db"

# example_library: the static library of the native check, or one of its own.
example_library()
{
    local tree=build
    if [[ ! -e $tree/libvsurf.a ]]; then
        tree=build/check/docs
        build_tree docs -DVSURF_MAX_ISA=sse2 "${library_only[@]}" >&2
    fi
    echo "$tree/libvsurf.a"
}

run_examples()
{
    local library source program
    library=$(example_library)
    for source in docs/examples/*.c; do
        program=$scratch/$(basename "$source" .c)
        echo "== $source"
        gcc -std=c99 -Wall -Wextra -Wpedantic -Werror -pthread -Iframe "$source" "$library" -o "$program"
        "$program"
    done
}

# man_pages: none with a flaw, and each export in exactly one of them.
man_pages()
{
    mandoc -T lint -W warning man/*.[13]
    local page name
    for page in man/*.[13]; do
        groff -man -ww -z "$page" 2>&1
    done >"$scratch/groff"
    if [[ -s $scratch/groff ]]; then
        cat "$scratch/groff"
        return 1
    fi
    for name in get_contrast_data $(sed -nE 's/^EXPORT\((\w+),.*/\1/p' frame/exports.inc); do
        if [[ $(grep -lE "^\.Nm $name( ,)?$" man/*.3 | wc -l) != 1 ]]; then
            echo "man/: not one page has $name among its names"
            return 1
        fi
    done
}

check_docs()
{
    need_or_skip docs
    cmake -S . -B build/check/docs "${library_only[@]}"
    cmake --build build/check/docs --target docs
    docs/site/check.py build/check/docs/docs/html build/check/docs/docs/xml frame/exports.inc
    run_examples
    man_pages
}
