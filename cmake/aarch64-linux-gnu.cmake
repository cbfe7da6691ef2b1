# SPDX-License-Identifier: MIT
# 64-bit Arm on another Linux machine: Debian's cross compiler, and qemu's user emulation for what the build runs.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(triple aarch64-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/cross.cmake)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64-static -L /usr/${triple})
