# SPDX-License-Identifier: MIT
# Run by CPack on the tree that is about to be packed: gives a Debian package what an installed tree has not.
get_filename_component(project ${CPACK_RESOURCE_FILE_LICENSE} DIRECTORY)
string(TIMESTAMP seconds "%s" UTC)      # of SOURCE_DATE_EPOCH, if that is set

function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(write_changelog path)
    execute_process(COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C date -u -R -d @${seconds} OUTPUT_VARIABLE date
        OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    set(version ${CPACK_PACKAGE_VERSION})
    file(WRITE ${path} "${CPACK_PACKAGE_NAME} (${version}) unstable; urgency=medium\n\n  * Release ${version}.\n\n"
        " -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
    run(gzip -9n ${path})
endfunction()

# Who holds which rights, as .reuse/dep5 has it, and the texts of the licences.
function(write_copyright path)
    file(READ ${project}/.reuse/dep5 copyright)
    file(GLOB licences ${project}/LICENSES/*.txt)
    foreach(licence IN LISTS licences)
        get_filename_component(name ${licence} NAME)
        string(REGEX REPLACE "\\.txt$" "" name ${name})
        file(READ ${licence} text)
        string(REGEX REPLACE "\n+$" "" text "${text}")
        string(REGEX REPLACE "\n" "\n " text "${text}")
        string(REGEX REPLACE "\n +\n" "\n .\n" text "${text}")
        string(APPEND copyright "\nLicense: ${name}\n ${text}\n")
    endforeach()
    file(WRITE ${path} "${copyright}")
endfunction()

function(finish_debian_package folder package)
    set(documents ${folder}/usr/share/doc/${package})
    if(EXISTS ${folder}/usr/share/doc/vsurf)
        file(RENAME ${folder}/usr/share/doc/vsurf ${documents})
    endif()
    file(REMOVE ${documents}/LICENSE)
    write_copyright(${documents}/copyright)
    write_changelog(${documents}/changelog)
    file(GLOB pages ${folder}/usr/share/man/man?/*)
    if(pages)
        run(gzip -9n ${pages})
    endif()
endfunction()

if(CPACK_GENERATOR STREQUAL "DEB")
    foreach(component IN LISTS CPACK_COMPONENTS_ALL)
        string(TOUPPER ${component} key)
        finish_debian_package(${CPACK_TEMPORARY_DIRECTORY}/${component} ${CPACK_DEBIAN_${key}_PACKAGE_NAME})
    endforeach()
endif()
