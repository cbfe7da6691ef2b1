#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# scripts/format.sh [FILE...]: brings the named sources, or all of them, into the project's format.
source "$(dirname "$0")/common.sh"

need lint
(($#)) || mapfile -t found < <(git ls-files --cached --others --exclude-standard -- '*.h' '*.c' '*.cpp')
clang-format -i "${@:-${found[@]}}"
