# SPDX-License-Identifier: MIT
# Makes the linkers' version maps of the shared libraries from their indexes of exports: each name in the node of the heading
# above it. What an index does not name stays hidden.

# vsurf_version_map(<library> <index> [<name>...]): sets version_map_of_<library>. The names are of the first node, though
# the index does not hold them.
function(vsurf_version_map library index)
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
        elseif(line MATCHES "^EXPORT\\(([A-Za-z0-9_]+)[,)]")
            list(APPEND names_of_${node} ${CMAKE_MATCH_1})
        endif()
    endforeach()

    set(map_text "")
    set(hidden "    local:\n        *;\n")
    foreach(node IN LISTS nodes)
        if(hidden)
            list(APPEND names_of_${node} ${ARGN})
        endif()
        list(JOIN names_of_${node} ";\n        " names)
        string(APPEND map_text "${node} {\n    global:\n        ${names};\n${hidden}};\n")
        set(hidden "")
    endforeach()

    set(map ${PROJECT_BINARY_DIR}/${library}.map)
    file(CONFIGURE OUTPUT ${map} CONTENT "${map_text}" @ONLY)
    set(version_map_of_${library} ${map} PARENT_SCOPE)
endfunction()

vsurf_version_map(vsurf ${PROJECT_SOURCE_DIR}/frame/exports.inc get_contrast_data)     # older than any other, and not in the index
vsurf_version_map(vsurf_show ${PROJECT_SOURCE_DIR}/show/exports.inc)
