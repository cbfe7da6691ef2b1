# SPDX-License-Identifier: MIT
# The documents that are made from the headers. The man pages of section 3 are made with every build, in man of the build
# tree; they need Python, and are left out without it. `cmake --build build --target docs` makes the reference site, in
# docs/html of the build tree, and what checks read, in docs/xml. It needs Doxygen and Python.
find_package(Python3 COMPONENTS Interpreter)
if(Python3_FOUND)
    set(man_folder ${PROJECT_BINARY_DIR}/man)
    set(man_sources docs/site/man.py docs/site/header.py frame/vsurf.h show/vsurf_show.h CHANGELOG.md README.md)
    list(TRANSFORM man_sources PREPEND ${PROJECT_SOURCE_DIR}/)
    add_custom_command(OUTPUT ${man_folder}/vsurf.3
        COMMAND ${CMAKE_COMMAND} -E rm -rf ${man_folder}
        COMMAND ${CMAKE_COMMAND} -E env PYTHONDONTWRITEBYTECODE=1
            ${Python3_EXECUTABLE} docs/site/man.py ${PROJECT_VERSION} ${man_folder}
        DEPENDS ${man_sources} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} VERBATIM
        COMMENT "Man pages in ${man_folder}")
    add_custom_target(man ALL DEPENDS ${man_folder}/vsurf.3)
    install(DIRECTORY ${man_folder}/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man3 COMPONENT development)
else()
    message(STATUS "No Python: the man pages of the functions are left out")
endif()

find_program(VSURF_DOXYGEN doxygen)
mark_as_advanced(VSURF_DOXYGEN)
if(VSURF_DOXYGEN)
    set(docs_environment ${CMAKE_COMMAND} -E env VSURF_VERSION=${PROJECT_VERSION} VSURF_DOCS=${PROJECT_BINARY_DIR}/docs)
    file(GLOB diagrams CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/diagrams/*.svg)
    add_custom_target(docs
        COMMAND ${CMAKE_COMMAND} -E rm -rf ${PROJECT_BINARY_DIR}/docs
        COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/docs
        COMMAND ${docs_environment} ${VSURF_DOXYGEN} docs/Doxyfile
        COMMAND ${CMAKE_COMMAND} -E copy ${diagrams} ${PROJECT_BINARY_DIR}/docs/html
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} VERBATIM
        COMMENT "Reference site in ${PROJECT_BINARY_DIR}/docs/html")
endif()
