# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
titles[docs]="reference site, example programs and man pages"
packages[docs]="doxygen python3 mandoc groff man-db"

# example_tree: the tree of the native check, or one of its own, for its static libraries.
example_tree()
{
    local tree=build
    if [[ ! -e $tree/libvsurf.a || ! -e $tree/libvsurf-show.a ]]; then
        tree=build/check/docs
        build_tree docs -DVSURF_MAX_ISA=sse2 "${library_only[@]}" >&2
    fi
    echo "$tree"
}

# compile_example SOURCE PROGRAM FLAG...: in the language of its name.
compile_example()
{
    local compiler=(gcc -std=c99)
    [[ $1 != *.cpp ]] || compiler=(g++ -std=c++20)
    "${compiler[@]}" -Wall -Wextra -Wpedantic -Werror -pthread -Iframe -Ishow "$1" -o "$2" "${@:3}"
}

# Programs that show pictures with other libraries name these in their first lines, in a command with pkg-config.
run_examples()
{
    local tree source program packages flags
    tree=$(example_tree)
    mkdir -p "$scratch/examples"
    for source in docs/examples/*.c docs/examples/*.cpp; do
        program=$scratch/examples/$(basename "${source%.*}")
        echo "== $source"
        packages=$(sed -nE '1,4s/.*pkg-config --cflags --libs vsurf-show *([^)]*).*/\1/p' "$source")
        # shellcheck disable=SC2086
        if [[ -n $packages ]] && ! pkg-config --exists $packages; then
            not_done "$source: it takes $packages"
            continue
        fi
        # shellcheck disable=SC2086
        flags=$([[ -z $packages ]] || pkg-config --cflags --libs $packages)
        # shellcheck disable=SC2086
        compile_example "$source" "$program" "$tree/libvsurf.a" "$tree/libvsurf-show.a" $flags
        (cd "$scratch/examples" && run_without_display "$packages" "$program")
    done
}

# run_without_display PACKAGES PROGRAM: those that want a display get one that nobody sees.
run_without_display()
{
    case " $1 " in
        *" x11 "*) xvfb-run -a -s "-screen 0 1024x768x24" "$2" ;;
        *) SDL_VIDEODRIVER=dummy "$2" ;;
    esac
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

    { echo vsurf get_contrast_data; sed -nE 's/^EXPORT\((\w+).*/\1/p' frame/exports.inc show/exports.inc; } | xargs -n 1 |
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
