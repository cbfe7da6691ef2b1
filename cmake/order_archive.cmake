# SPDX-License-Identifier: MIT
# Run by CPack on the finished packages. An archive has its files in the order in which the folder gave them, with the
# names of who built it: packed again, sorted and without names, it is the same everywhere.
if(CPACK_GENERATOR STREQUAL "TGZ" AND CMAKE_HOST_SYSTEM_NAME STREQUAL "Linux")
    string(TIMESTAMP seconds "%s" UTC)      # of SOURCE_DATE_EPOCH, if that is set
    get_filename_component(folder ${CPACK_TEMPORARY_DIRECTORY} DIRECTORY)
    get_filename_component(name ${CPACK_TEMPORARY_DIRECTORY} NAME)
    foreach(archive IN LISTS CPACK_PACKAGE_FILES)
        execute_process(COMMAND_ERROR_IS_FATAL ANY
            COMMAND tar --create --sort=name --format=gnu --owner=0 --group=0 --numeric-owner --mtime=@${seconds}
                --directory ${folder} ${name}
            COMMAND gzip -9n
            OUTPUT_FILE ${archive})
    endforeach()
endif()
