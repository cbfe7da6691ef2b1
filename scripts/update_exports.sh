#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# scripts/update_exports.sh: writes frame/exports-*.def and frame/libvsurf.abi anew, from the header, the index and the
# sources as they are, after the interface was changed on purpose.
source "$(dirname "$0")/common.sh"
declare -A titles=()
source scripts/checks.sh
need build abi defs
for arch in i686 x86_64; do
    scripts/defs.sh "$arch" >"$scratch/exports-$arch.def"
done
abi_library
describe_abi build/check/abi/libvsurf.so >"$scratch/libvsurf.abi"
cp "$scratch"/exports-*.def "$scratch/libvsurf.abi" frame/
