# SPDX-License-Identifier: MIT
# What `cmake --install` puts where, and what a project needs to find it again: a CMake package and a pkg-config file.
# Components: runtime (the shared library), development, tools.
include(CMakePackageConfigHelpers)

set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
    GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)      # the same for every umask

set(libraries vsurf vsurf_static vsurf_show vsurf_show_static)
foreach(library IN LISTS libraries)
    target_include_directories(${library} INTERFACE
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/frame> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
endforeach()
foreach(library vsurf_show vsurf_show_static)
    target_include_directories(${library} INTERFACE $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/show>)
endforeach()

install(TARGETS ${libraries} EXPORT vsurfTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(FILES ${PROJECT_SOURCE_DIR}/frame/vsurf.h ${PROJECT_SOURCE_DIR}/show/vsurf_show.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vsurf)
install(EXPORT vsurfTargets NAMESPACE vsurf:: DESTINATION ${package_dir} COMPONENT development)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/vsurfConfig.cmake.in ${PROJECT_BINARY_DIR}/vsurfConfig.cmake
    INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vsurfConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/vsurfConfig.cmake ${PROJECT_BINARY_DIR}/vsurfConfigVersion.cmake
    DESTINATION ${package_dir} COMPONENT development)

# Relative to the file itself, so that an installed tree may be moved and `--prefix` at install time counts.
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH up_to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" up_to_prefix "${up_to_prefix}")
file(RELATIVE_PATH libdir_in_prefix ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH includedir_in_prefix ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
# On x86 the compiler's own runtime detects the processor. Compilers link it by default; with `-nodefaultlibs` it
# has to be named.
set(private_libraries)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|i.86" AND "gcc" IN_LIST CMAKE_C_IMPLICIT_LINK_LIBRARIES)
    set(private_libraries -lgcc)
endif()
set(private_flags)
if(WIN32)
    set(private_flags -DVSURF_STATIC)
endif()
set(description_of_vsurf ${PROJECT_DESCRIPTION})
set(description_of_vsurf-show "Any picture on any surface")
foreach(library vsurf vsurf-show)
    set(description ${description_of_${library}})
    configure_file(${CMAKE_CURRENT_LIST_DIR}/vsurf.pc.in ${PROJECT_BINARY_DIR}/${library}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${library}.pc DESTINATION ${pkgconfig_dir} COMPONENT development)
endforeach()

# Pages and documents.
if(VSURF_BUILD_TOOLS)
    install(FILES ${PROJECT_SOURCE_DIR}/man/vsurf-play.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md
    ${PROJECT_SOURCE_DIR}/SECURITY.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development
    FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN "*.jpg" PATTERN "*.svg" PATTERN "examples/*.[ch]" PATTERN "examples/*.cpp"
    PATTERN site EXCLUDE)
