# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
titles[package]="Debian packages and archive: contents, installation, removal"
packages[package]="dpkg-dev file lintian python3"

readonly debian_packages=(libvsurf0 libvsurf-dev vsurf-play)

# pack GENERATOR: from `tree` into $scratch/package/packages.
pack() { cpack --config "$tree/CPackConfig.cmake" -G "$1" -B "$scratch/package/packages"; }

restore_layout()
{
    cp "$scratch/package/CMakeCache.txt" "$tree/CMakeCache.txt"
    cmake -S . -B "$tree"
    cmake --build "$tree" --target sbom
}

# Debian's folders are those of /usr; nothing is compiled again because of them.
pack_debian()
{
    cp "$tree/CMakeCache.txt" "$scratch/package/CMakeCache.txt"
    trap restore_layout EXIT
    cmake -S . -B "$tree" -DCMAKE_INSTALL_PREFIX=/usr
    pack DEB
    trap - EXIT
    restore_layout
}

# What the packages shall hold: the checked-in list, the documents and the pages.
expected_files()
{
    sed "/^#/d; s/@ARCH@/$(dpkg-architecture -q DEB_HOST_MULTIARCH)/" tests/install/debian_files.txt
    find docs -name '*.md' -o -name '*.png' -o -name '*.jpg' -o -name '*.svg' -o -path 'docs/examples/*.[ch]' \
        -o -path 'docs/examples/*.cpp' |
        sed 's,^,libvsurf-dev /usr/share/doc/libvsurf-dev/,'
    find "$tree/man" -name '*.3' -printf 'libvsurf-dev /usr/share/man/man3/%f.gz\n'
    find man -name '*.1' -printf 'vsurf-play /usr/share/man/man1/%f.gz\n'
}

found_files()
{
    local name
    for name in "${debian_packages[@]}"; do
        dpkg-deb --fsys-tarfile "$scratch/package/packages/$name"_*.deb | tar -t | sed "/\/\$/d; s,^\.,$name ,"
    done
}

check_contents()
{
    local name unpacked
    diff <(expected_files | LC_ALL=C sort) <(found_files | LC_ALL=C sort)
    for name in "${debian_packages[@]}"; do
        dpkg-deb --info "$scratch/package/packages/$name"_*.deb
        dpkg-deb --extract "$scratch/package/packages/$name"_*.deb "$scratch/package/unpacked"
    done
    unpacked=$scratch/package/unpacked/usr
    tests/install/check_sbom.py "$unpacked/share/doc/libvsurf-dev/vsurf.spdx.json" "$unpacked" .
    lintian --fail-on error,warning "$scratch"/package/packages/*.deb
}

# The archive holds what `cmake --install` puts in place, and works from where it is unpacked.
check_archive()
{
    set_record_aside "$scratch/package/record"
    cmake --install "$tree" --prefix "$scratch/package/prefix" >/dev/null
    restore_record
    mkdir "$scratch/package/archive"
    tar -xzf "$scratch"/package/packages/*.tar.gz -C "$scratch/package/archive" --strip-components=1
    diff -r --no-dereference "$scratch/package/prefix" "$scratch/package/archive"
    find_here "$scratch/package/archive"
    use_vsurf "$scratch/package/archive"
    unset PKG_CONFIG_PATH LD_LIBRARY_PATH
}

# Who has vsurf here from elsewhere keeps it.
check_absence()
{
    local found
    found=$(
        ldconfig -p | grep libvsurf
        command -v vsurf-play
        find /usr/include /usr/local/include -name vsurf.h
    ) || true
    if [[ -n $found ]]; then
        echo "the packages are right, but not installed: vsurf is here already: ${found//$'\n'/, }"
        exit "$skipped"
    fi
    if [[ $(id -u) != 0 ]] && ! sudo -n true; then
        echo "the packages are right, but not installed: that takes root rights"
        exit "$skipped"
    fi
}

remove_packages() { as_root apt-get -q -y purge "${debian_packages[@]}"; }

check_installation()
{
    trap remove_packages EXIT
    as_root apt-get -q -y --no-install-recommends install "$scratch"/package/packages/*.deb
    vsurf-play --version
    use_vsurf /usr
    use_readme
    trap - EXIT
    remove_packages
    found_files | while read -r _ path; do
        [[ ! -e $path && ! -L $path ]] || { echo "left by the removal: $path"; exit 1; }
    done
    if ldconfig -p | grep libvsurf; then
        return 1
    fi
}

check_package()
{
    need_or_skip package
    mkdir "$scratch/package"
    shipped_tree
    pack TGZ
    check_archive
    pack_debian
    check_contents
    check_absence
    check_installation
}
