# SPDX-License-Identifier: MIT
# Cross build for Windows on x86-64.
set(CMAKE_SYSTEM_PROCESSOR x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
