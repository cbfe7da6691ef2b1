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

# man_pages FOLDER: neither those in the folder nor the player's has a flaw, `man -k` finds each export in one of them, and
# the player's page has each of its options.
man_pages()
{
    local page option pages=("$1"/*.3 man/vsurf-play.1)
    mandoc -T lint -W warning "${pages[@]}"
    for page in "${pages[@]}"; do
        groff -man -ww -z "$page"
    done 2>&1 | tee "$scratch/groff"
    [[ ! -s $scratch/groff ]]

    { echo vsurf get_contrast_data; sed -nE 's/^EXPORT\((\w+),.*/\1/p' frame/exports.inc; } | xargs -n 1 |
        sort >"$scratch/exports"
    lexgrog "$1"/*.3 | sed -nE 's/.*: "(\w+) - .*/\1/p' | sort | diff "$scratch/exports" -

    for option in $(grep -oE '"(-.,)?--[a-z-]+"' tools/options.cpp | grep -oE '[a-z-]{3,}' | cut -c3-); do
        grep -qE "^\.It .*Fl Fl $option( |$)" man/vsurf-play.1 || { echo "vsurf-play.1: no --$option"; return 1; }
    done
}

check_docs()
{
    need_or_skip docs
    cmake -S . -B build/check/docs "${library_only[@]}"
    cmake --build build/check/docs --target docs man
    docs/site/check.py build/check/docs/docs/html build/check/docs/docs/xml
    run_examples
    man_pages build/check/docs/man
}
