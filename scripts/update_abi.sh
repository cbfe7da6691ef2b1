#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# scripts/update_abi.sh: writes frame/libvsurf.abi again, from the sources as they are, after the interface was changed
# on purpose.
source "$(dirname "$0")/common.sh"
declare -A titles=()
source scripts/checks.sh
need build abi
abi_library
describe_abi build/check/abi/libvsurf.so >"$scratch/libvsurf.abi"
cp "$scratch/libvsurf.abi" frame/libvsurf.abi
