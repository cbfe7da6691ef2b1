# SPDX-License-Identifier: MIT
# Makes the linkers' version maps of the shared libraries. That of vsurf comes from the index of exports: each name in the
# node of the heading above it. That of vsurf-show has what show/exports.txt lists. All other names stay hidden.
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

set(version_map_of_vsurf ${PROJECT_BINARY_DIR}/vsurf.map)
file(CONFIGURE OUTPUT ${version_map_of_vsurf} CONTENT "${map_text}" @ONLY)

set(show_index ${PROJECT_SOURCE_DIR}/show/exports.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${show_index})
file(STRINGS ${show_index} show_names REGEX "^vsurf_")
list(JOIN show_names ";\n        " names)
set(version_map_of_vsurf_show ${PROJECT_BINARY_DIR}/vsurf-show.map)
file(CONFIGURE OUTPUT ${version_map_of_vsurf_show}
    CONTENT "VSURF_SHOW_0 {\n    global:\n        ${names};\n    local:\n        *;\n};\n" @ONLY)
