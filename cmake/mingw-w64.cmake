# SPDX-License-Identifier: MIT
# Cross builds for Windows: Debian's MinGW-w64 compilers, the variant with C++'s own threads, which the tests use, and Wine
# for what the build runs. The toolchain files for each processor set CMAKE_SYSTEM_PROCESSOR and include this one.
set(CMAKE_SYSTEM_NAME Windows)
set(triple ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32)
set(variant -posix)
include(${CMAKE_CURRENT_LIST_DIR}/cross.cmake)
set(CMAKE_RC_COMPILER ${triple}-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine.sh ${CMAKE_BINARY_DIR})
