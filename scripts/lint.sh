#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# scripts/lint.sh [--all | FILE...]: clang-format and clang-tidy on the named sources; on what changed against the upstream
# branch (or, when that holds nothing new, against the commit before) where none is named; on all where there is no base.
source "$(dirname "$0")/common.sh"

all_sources() { git ls-files --cached --others --exclude-standard -- '*.h' '*.c' '*.cpp'; }

changed_sources()
{
    local base
    base=$(git merge-base HEAD '@{upstream}' 2>/dev/null || git merge-base HEAD origin/main 2>/dev/null || true)
    if [[ -z $base || $base == "$(git rev-parse HEAD)" ]]; then
        base=$(git rev-parse --verify --quiet HEAD~1 || true)
    fi
    if [[ -z $base ]]; then
        all_sources
    else
        # Changes in comments only do not matter.
        git diff --name-only --diff-filter=d "$base" -- '*.h' '*.c' '*.cpp' | while read -r name; do
            [[ -z $(git diff -U0 -I'^[[:space:]]*//' "$base" -- "$name") ]] || echo "$name"
        done
        git ls-files --others --exclude-standard -- '*.h' '*.c' '*.cpp'
    fi
}

need build player tests bench lint

if [[ ${1:-} == --all ]]; then
    mapfile -t sources < <(all_sources)
elif (($#)); then
    sources=("$@")
else
    mapfile -t sources < <(changed_sources)
fi
if ((!${#sources[@]})); then
    echo "no source has changed"
    exit 0
fi

status=0
clang-format --dry-run --Werror "${sources[@]}" || status=1

# clang's own view of the flags; the units are chosen so that every changed header is seen by one of them at least.
tree=build/check/lint
cmake -S . -B "$tree" -DCMAKE_BUILD_TYPE=Release -DCMAKE_EXPORT_COMPILE_COMMANDS=ON \
    -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON \
    -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ >"$scratch/configure" || { cat "$scratch/configure"; exit 1; }
python3 scripts/lint_units.py "$tree" "${sources[@]}" >"$scratch/units"
echo "clang-tidy on $(wc -l <"$scratch/units") files, for ${#sources[@]} changed ones"
xargs -r -P "$jobs" -n 1 timeout 300 clang-tidy --quiet -p "$tree/units" <"$scratch/units" || status=1
exit "$status"
