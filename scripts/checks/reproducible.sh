# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
titles[reproducible]="two builds in different folders give the same bytes"
titles[licence]="a licence for every file, named in every source"
packages[reproducible]="dpkg-dev file"
packages[licence]="git reuse"

# build_copy FROM SOURCE TREE: library and packages, up to SSE2, from a copy of the sources. -g1 brings in file and
# folder names, as __FILE__ would.
build_copy()
{
    mkdir -p "$2"
    tar --exclude-vcs --exclude='./build*' --exclude=./out -C "$1" -c . | tar -x -C "$2"
    cmake -S "$2" -B "$3" -DCMAKE_INSTALL_PREFIX=/usr -DVSURF_MAX_ISA=sse2 -DCMAKE_CXX_FLAGS=-g1 "${library_only[@]}"
    cmake --build "$3" --parallel "$jobs"
    (cd "$3" && cpack)
}

check_reproducible()
{
    need_or_skip reproducible
    local first=$scratch/reproducible/a/build second=$scratch/reproducible/b/a-folder-with-a-longer-name/build
    local name names
    export SOURCE_DATE_EPOCH=1700000000
    (
        umask 022
        export LC_ALL=C TZ=UTC
        build_copy . "$scratch/reproducible/a/source" "$first"
    )
    (
        umask 027
        export LC_ALL=C.UTF-8 TZ=Asia/Kathmandu HOME=/
        build_copy "$scratch/reproducible/a/source" "$scratch/reproducible/b/other-sources" "$second"
    )
    names=$(cd "$first" && printf '%s\n' libvsurf.so.*.*.* libvsurf.a vsurf.spdx.json vsurf-*.tar.gz libvsurf*.deb)
    [[ $(wc -l <<<"$names") == 6 ]]
    for name in $names; do
        cmp "$first/$name" "$second/$name"
        sha256sum "$first/$name"
    done
    if grep -l "$scratch" "$first"/libvsurf.{so,a}; then
        echo "these name the folder that they were built in"
        return 1
    fi
    grep '"created" : "2023-11-14T22:13:20Z"' "$first/vsurf.spdx.json"
    readelf -nW "$first/libvsurf.so" | grep 'Build ID'
    not_done "kernels above SSE2, the player"
}

# What cannot contain a comment has its licence in .reuse/dep5; everything else states it.
check_licence()
{
    need_or_skip licence
    reuse lint
    local name missing=0
    while read -r name; do
        if [[ ! -L $name ]] && ! head -n 2 "$name" | grep -qE 'SPDX-License-Identifier[:] MIT( \*/| -->)?$'; then
            echo "no licence in the first lines of $name"
            missing=1
        fi
    done < <(git ls-files --cached --others --exclude-standard -- ':!*.md' ':!*.png' ':!*.jpg' ':!*.svg' ':!*.abi' ':!*.json' \
        ':!.gitignore' ':!.reuse/*' ':!LICENSE*')
    return "$missing"
}
