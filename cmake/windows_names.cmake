# SPDX-License-Identifier: MIT
# Makes the module definition of vsurf.dll, ${windows_exports}: each function under its plain name, and under the one by
# which C++ callers of the platform's own compilers know it. They decorate a name with the types of what is returned and
# passed. The checks compare the result with what clang, as such a compiler, generates from the header.
# X is void, E unsigned char, H int, I unsigned int, Uname@@ a record, * marks a pointer to what follows, and a digit
# repeats the type of an earlier pointer or record, counted from 0.
set(types_Picture "*X000HHHH*Uajust_contrast_info@@")
set(types_PlaneEnlargement "*E0HHHH")
set(types_AdjustedPlaneEnlargement "*E0HHHH*Uajust_contrast_info@@H")
set(types_BandEnlargement "*UtagVideoFrame@@HH*EH*Uajust_contrast_info@@")
set(types_PackedEnlargement "*X000HHH")
set(types_AdjustedPackedEnlargement "*X000HHH*Uajust_contrast_info@@")
set(types_Job "*UMIX_INFO@@")
set(types_Fill "I*XHHHH")
set(types_MaskReplacement "*E0IIHHH")
set(types_Setter "*X")
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(pointer PEA)
else()
    set(pointer PA)
endif()

set(index ${PROJECT_SOURCE_DIR}/frame/exports.inc)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${index})
file(STRINGS ${index} lines REGEX "^EXPORT")
set(definition "LIBRARY vsurf.dll\nEXPORTS\n")
foreach(line IN LISTS lines ITEMS "EXPORT(get_contrast_data, Setter)")
    string(REGEX REPLACE "^EXPORT\\(([A-Za-z0-9_]+), *([A-Za-z]+)\\)$" "\\1;\\2" name_and_call "${line}")
    list(GET name_and_call 0 name)
    list(GET name_and_call -1 call)
    if(NOT DEFINED types_${call})
        message(FATAL_ERROR "${index}: the types of this export are not known: ${line}")
    endif()
    string(REPLACE "*" ${pointer} types ${types_${call}})
    string(APPEND definition "    ${name}\n    \"?${name}@@YAX${types}@Z\" = ${name}\n")
endforeach()

function(vsurf_write_definition path definition)
    file(WRITE ${path}.new "${definition}")
    file(COPY_FILE ${path}.new ${path} ONLY_IF_DIFFERENT)
endfunction()
set(windows_exports ${PROJECT_BINARY_DIR}/vsurf.def)
vsurf_write_definition(${windows_exports} "${definition}")

# The functions of vsurf-show.dll have C linkage for every compiler.
set(index ${PROJECT_SOURCE_DIR}/show/exports.inc)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${index})
file(STRINGS ${index} lines REGEX "^EXPORT")
list(TRANSFORM lines REPLACE "^EXPORT\\(([A-Za-z0-9_]+)\\)$" "    \\1\n")
list(JOIN lines "" names)
vsurf_write_definition(${PROJECT_BINARY_DIR}/vsurf-show.def "LIBRARY vsurf-show.dll\nEXPORTS\n${names}")
