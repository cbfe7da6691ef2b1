# SPDX-License-Identifier: MIT
# What `cmake --install` puts where, and what a project needs to find it again: a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

foreach(library vsurf vsurf_static)
    target_include_directories(${library} INTERFACE
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/frame> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
endforeach()
set_target_properties(vsurf_static PROPERTIES OUTPUT_NAME vsurf)

install(TARGETS vsurf vsurf_static EXPORT vsurf-targets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES ${PROJECT_SOURCE_DIR}/frame/vsurf.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vsurf)
install(EXPORT vsurf-targets NAMESPACE vsurf:: DESTINATION ${package_dir})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/vsurf-config.cmake.in ${PROJECT_BINARY_DIR}/vsurf-config.cmake
    INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vsurf-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/vsurf-config.cmake ${PROJECT_BINARY_DIR}/vsurf-config-version.cmake
    DESTINATION ${package_dir})

# Relative to the file itself, so that an installed tree may be moved and `--prefix` at install time counts.
file(RELATIVE_PATH up_to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" up_to_prefix "${up_to_prefix}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/vsurf.pc.in ${PROJECT_BINARY_DIR}/vsurf.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vsurf.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
