# SPDX-License-Identifier: MIT
# The bill of materials of a build (SPDX 2.3, JSON): what was built, from which sources, with the checksums of both.
set(sbom ${PROJECT_BINARY_DIR}/vsurf.spdx.json)
file(GLOB library_sources CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} */*.cpp */*.h */*.inc)
list(FILTER library_sources EXCLUDE REGEX "^(bench|build[^/]*|docs|tests|tools)/")

# Each built file behind the folder that it is installed to.
set(built ${CMAKE_INSTALL_INCLUDEDIR} ${PROJECT_SOURCE_DIR}/frame/vsurf.h
    ${CMAKE_INSTALL_INCLUDEDIR} ${PROJECT_SOURCE_DIR}/show/vsurf_show.h
    ${CMAKE_INSTALL_LIBDIR} $<TARGET_FILE:vsurf_static> ${CMAKE_INSTALL_LIBDIR} $<TARGET_FILE:vsurf_show_static>)
foreach(library vsurf vsurf_show)
    if(WIN32)
        list(APPEND built ${CMAKE_INSTALL_BINDIR} $<TARGET_FILE:${library}>
            ${CMAKE_INSTALL_LIBDIR} $<TARGET_LINKER_FILE:${library}>)
    else()
        list(APPEND built ${CMAKE_INSTALL_LIBDIR} $<TARGET_FILE:${library}>)
    endif()
endforeach()

# In a file of its own: the document is made again when one of these changes.
set(input ${PROJECT_BINARY_DIR}/sbom-input.cmake)
file(GENERATE OUTPUT ${input} CONTENT "set(name ${PROJECT_NAME})
set(version ${PROJECT_VERSION})
set(built \"${built}\")
set(source_folder \"${PROJECT_SOURCE_DIR}\")
set(sources \"${library_sources}\")
")
set(writer ${CMAKE_CURRENT_LIST_DIR}/write_sbom.cmake)
add_custom_command(OUTPUT ${sbom} VERBATIM
    COMMAND ${CMAKE_COMMAND} -D input=${input} -D output=${sbom} -P ${writer}
    DEPENDS vsurf vsurf_static vsurf_show vsurf_show_static ${library_sources} ${writer} ${input}
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} COMMENT "Writing the bill of materials")
add_custom_target(sbom ALL DEPENDS ${sbom})
install(FILES ${sbom} DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
