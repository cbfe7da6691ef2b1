#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# scripts/defs.sh ARCH: prints the names that vsurf.dll for i686 or x86_64 must show, as a module definition holds them: each
# function's plain one, and the decorated one by which C++ callers of the platform's own compilers know it. The decorated
# names are what clang, as such a compiler, generates from the header.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
object=$(mktemp)
trap 'rm -f "$object"' EXIT

clang++ --target="$1-pc-windows-msvc" -ffreestanding -std=c++20 -I. -x c++ -c - -o "$object" <<'SOURCE'
#include "frame/vsurf.h"
#define EXPORT(name, family) reinterpret_cast<const void*>(&name),
const void* addresses[] = {
#include "frame/exports.inc"
    reinterpret_cast<const void*>(&get_contrast_data)};
SOURCE
llvm-nm --undefined-only "$object" | sed -nE 's/^.*__imp_(\?([A-Za-z0-9_]+)@@.*)$/    \2\n    "\1" = \2/p'
