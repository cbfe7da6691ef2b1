# SPDX-License-Identifier: MIT
# Cross build for Windows on 32-bit x86.
set(CMAKE_SYSTEM_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
