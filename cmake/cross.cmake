# SPDX-License-Identifier: MIT
# What all cross builds with Debian's compilers share. A toolchain file names its processor and system, sets `triple` and,
# where the compilers' names end in one, `variant`, and includes this one.
set(CMAKE_C_COMPILER ${triple}-gcc${variant})
set(CMAKE_CXX_COMPILER ${triple}-g++${variant})
set(CMAKE_FIND_ROOT_PATH /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
