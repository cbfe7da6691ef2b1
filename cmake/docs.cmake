# SPDX-License-Identifier: MIT
# `cmake --build build --target docs`: the reference site, in docs/html of the build tree, and what checks look at in
# docs/xml. Needs Doxygen and Python.
find_program(VSURF_DOXYGEN doxygen)
mark_as_advanced(VSURF_DOXYGEN)
if(VSURF_DOXYGEN)
    set(docs_environment ${CMAKE_COMMAND} -E env VSURF_VERSION=${PROJECT_VERSION} VSURF_DOCS=${PROJECT_BINARY_DIR}/docs)
    add_custom_target(docs
        COMMAND ${CMAKE_COMMAND} -E rm -rf ${PROJECT_BINARY_DIR}/docs
        COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/docs
        COMMAND ${docs_environment} ${VSURF_DOXYGEN} docs/Doxyfile
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} VERBATIM
        COMMENT "Reference site in ${PROJECT_BINARY_DIR}/docs/html")
endif()
