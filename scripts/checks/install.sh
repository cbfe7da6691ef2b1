# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154
titles[install]="install, then build C programs against the result"

check_install()
{
    local prefix=$scratch/prefix
    cmake --install build --prefix "$prefix"

    cmake -S tests/install -B "$scratch/consumer" -DCMAKE_PREFIX_PATH="$prefix"
    cmake --build "$scratch/consumer"
    run_tests "$scratch/consumer"

    local link_options library_path
    PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name vsurf.pc)")
    export PKG_CONFIG_PATH
    read -ra link_options < <(pkg-config --cflags --libs vsurf)
    library_path=$(pkg-config --variable=libdir vsurf)
    gcc -std=c99 -Wall -Wextra -Wpedantic -Werror tests/install/consumer.c -o "$scratch/with_pkg_config" "${link_options[@]}"
    LD_LIBRARY_PATH=$library_path "$scratch/with_pkg_config"

    # The example that README.md shows is compiled as it stands there.
    sed -n '/^```c$/,/^```$/p' README.md | sed '/^```/d' >"$scratch/readme.c"
    [[ -s $scratch/readme.c ]]
    gcc -std=c99 -Wall -Wextra -Wpedantic -Werror "$scratch/readme.c" -o "$scratch/readme" "${link_options[@]}"
    (cd "$scratch" && LD_LIBRARY_PATH=$library_path ./readme)

    local compiler
    for compiler in gcc clang; do
        printf '#include <vsurf.h>\n' | "$compiler" -std=c99 -Wall -Wextra -Wpedantic -Werror -fsyntax-only \
            -I"$prefix/include" -x c -
        printf '#include <vsurf.h>\n' | "$compiler" -std=c++11 -Wall -Wextra -Wpedantic -Werror -fsyntax-only \
            -I"$prefix/include" -x c++ -
    done
}
