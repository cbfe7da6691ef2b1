# SPDX-License-Identifier: MIT
# `cpack` in the build folder: an archive of everything, and on Debian a package for each component: libvsurf0,
# libvsurf-dev and, where the tools were built, vsurf-play.
set(CPACK_PACKAGE_NAME ${PROJECT_NAME})
set(CPACK_PACKAGE_VENDOR "The vsurf authors")
set(CPACK_PACKAGE_CONTACT "The vsurf authors <authors@vsurf.invalid>")     # Debian wants an address; this one is none
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")       # each component has its own
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGE_FILE_NAME ${PROJECT_NAME}-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/finish_package.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/repack.cmake)
set(CPACK_VERBATIM_VARIABLES ON)

set(CPACK_COMPONENTS_ALL runtime development)
if(VSURF_BUILD_TOOLS)
    list(APPEND CPACK_COMPONENTS_ALL tools)
endif()
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)

# Archives for any place; Debian packages where the build is laid out for /usr, with the libraries in the folder of the
# architecture.
if(WIN32)
    set(CPACK_GENERATOR ZIP)
else()
    set(CPACK_GENERATOR TGZ)
    find_program(VSURF_DPKG dpkg-deb)
    mark_as_advanced(VSURF_DPKG)
    if(VSURF_DPKG AND NOT CMAKE_CROSSCOMPILING AND CMAKE_INSTALL_PREFIX STREQUAL "/usr")
        list(APPEND CPACK_GENERATOR DEB)
    endif()
endif()

set(about "vsurf is a C library that puts decoded video pictures (I420, NV12, YUY2 and
their like) on display surfaces: RGB of 32, 24 and 16 bits, YUY2, I420 and
NV12. On the way it crops, converts colours, adjusts brightness, contrast,
saturation and hue, and blends subtitles onto the picture. Its output is the
same to the byte on every processor.
")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "decoded video pictures onto display surfaces
${about}
This package holds the shared libraries: libvsurf-show, whose one function
shows any picture on any surface, and libvsurf with its 68 functions, which
also enlarge and halve pictures.")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "decoded video pictures onto display surfaces (development files)
${about}
This package holds the headers, the static libraries, the files with which
CMake and pkg-config find the libraries, and their documentation.")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "video player that shows what the vsurf library does
${about}
This package holds vsurf-play, which shows any file that FFmpeg reads, or a
test pattern, through the library: with every surface format, enlarger and
mixer.")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libvsurf${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libvsurf-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME vsurf-play)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION video)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
file(WRITE ${PROJECT_BINARY_DIR}/triggers "activate-noawait ldconfig\n")
file(CHMOD ${PROJECT_BINARY_DIR}/triggers PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/triggers)
include(CPack)
