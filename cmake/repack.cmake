# SPDX-License-Identifier: MIT
# Run by CPack on the finished packages, which depend on who made them and where: on the order in which a folder gives
# its files, on names, on the umask. Packed again by the system's own tools they are the same everywhere.
set(modes u=rwX,go=rX)

function(run)
    execute_process(${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(repack_archive archive)
    string(TIMESTAMP seconds "%s" UTC)      # of SOURCE_DATE_EPOCH, if that is set
    get_filename_component(folder ${CPACK_TEMPORARY_DIRECTORY} DIRECTORY)
    get_filename_component(name ${CPACK_TEMPORARY_DIRECTORY} NAME)
    run(COMMAND tar --create --sort=name --format=gnu --owner=0 --group=0 --numeric-owner --mode=${modes}
            --mtime=@${seconds} --directory ${folder} ${name}
        COMMAND gzip -9n OUTPUT_FILE ${archive})
endfunction()

# CPack lets scripts of its own call ldconfig; the trigger does.
function(repack_debian_package package)
    set(folder ${package}.unpacked)
    file(REMOVE_RECURSE ${folder})
    run(COMMAND dpkg-deb --raw-extract ${package} ${folder})
    file(REMOVE ${folder}/DEBIAN/postinst ${folder}/DEBIAN/postrm)
    run(COMMAND chmod -R ${modes} ${folder})
    run(COMMAND dpkg-deb --root-owner-group --build ${folder} ${package} OUTPUT_QUIET)
    file(REMOVE_RECURSE ${folder})
endfunction()

foreach(package IN LISTS CPACK_PACKAGE_FILES)
    if(CPACK_GENERATOR STREQUAL "DEB")
        repack_debian_package(${package})
    elseif(CPACK_GENERATOR STREQUAL "TGZ" AND CMAKE_HOST_SYSTEM_NAME STREQUAL "Linux")
        repack_archive(${package})
    endif()
endforeach()
