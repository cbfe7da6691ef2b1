# SPDX-License-Identifier: MIT
# Makes the linker's version map of the shared library from the index of exports: each name in the node of the heading
# above it. What the index does not name stays hidden.
set(index ${PROJECT_SOURCE_DIR}/frame/exports.inc)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${index})

set(nodes)
file(STRINGS ${index} lines REGEX "^(// Since |EXPORT)")
foreach(line IN LISTS lines)
    if(line MATCHES "^// Since ([A-Za-z0-9_.]+):$")
        set(node ${CMAKE_MATCH_1})
        if(NOT node IN_LIST nodes)
            list(APPEND nodes ${node})
            set(names_of_${node})
        endif()
    elseif(line MATCHES "^EXPORT\\(([A-Za-z0-9_]+),")
        list(APPEND names_of_${node} ${CMAKE_MATCH_1})
    endif()
endforeach()

set(map_text "")
set(hidden "    local:\n        *;\n")
foreach(node IN LISTS nodes)
    if(hidden)
        list(APPEND names_of_${node} get_contrast_data)     # older than any other, and not in the index
    endif()
    list(JOIN names_of_${node} ";\n        " names)
    string(APPEND map_text "${node} {\n    global:\n        ${names};\n${hidden}};\n")
    set(hidden "")
endforeach()

set(version_map ${PROJECT_BINARY_DIR}/vsurf.map)
file(CONFIGURE OUTPUT ${version_map} CONTENT "${map_text}" @ONLY)
