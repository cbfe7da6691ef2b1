# SPDX-License-Identifier: MIT
# Cross build for 32-bit x86. Debian's gcc-multilib conflicts with the aarch64 compiler, this one does not. An x86-64
# machine runs the programs through the cross compiler's own loader and C library.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(triple i686-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/cross.cmake)
set(CMAKE_CROSSCOMPILING_EMULATOR /usr/${triple}/lib/ld-linux.so.2 --library-path /usr/${triple}/lib)
