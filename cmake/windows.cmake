# SPDX-License-Identifier: MIT
# What vsurf.dll has beyond the shared library of other systems: an entry point, names for every kind of linker, a version
# resource. Built with GCC for MinGW-w64.
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(windows_arch x86_64)
    set(dlltool_machine i386:x86-64)
    # Only 16 bytes of alignment are certain on the stack, yet GCC (except Debian's, which is patched) spills wider vectors
    # as if they were aligned.
    target_compile_options(vsurf_options INTERFACE -Wa,-muse-unaligned-vector-move)
else()
    set(windows_arch i686)
    set(dlltool_machine i386)
    # Callers align the stack to 4 bytes, vectors are spilled to multiples of 16.
    target_compile_options(vsurf_options INTERFACE -mstackrealign)
endif()
include(cmake/windows_names.cmake)

enable_language(RC)
configure_file(${PROJECT_SOURCE_DIR}/frame/vsurf.rc.in ${PROJECT_BINARY_DIR}/vsurf.rc @ONLY)
function(vsurf_complete_dll target)
    target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/frame/dllmain.cpp ${windows_exports}
        ${PROJECT_BINARY_DIR}/vsurf.rc)
    # The compiler's own library goes in, no C++ runtime is needed; time stamps are left out, so that equal sources give equal
    # files.
    target_link_options(${target} PRIVATE -static-libgcc -Wl,--no-insert-timestamp)
    set_target_properties(${target} PROPERTIES PREFIX "" OUTPUT_NAME vsurf LINKER_LANGUAGE C)
endfunction()
vsurf_complete_dll(vsurf)
target_compile_definitions(vsurf_static INTERFACE VSURF_STATIC)

# The linker makes libvsurf.dll.a for GNU tools. Those of the platform's own compilers, lld-link among them, take vsurf.lib.
find_program(LLVM_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14 DOC "Makes vsurf.lib")
if(LLVM_DLLTOOL)
    set(import_library ${PROJECT_BINARY_DIR}/vsurf.lib)
    add_custom_command(OUTPUT ${import_library}
        COMMAND ${LLVM_DLLTOOL} -m ${dlltool_machine} -d ${windows_exports} -l ${import_library}
        DEPENDS ${windows_exports} VERBATIM)
    add_custom_target(vsurf_lib ALL DEPENDS ${import_library})
    install(FILES ${import_library} DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
else()
    message(STATUS "No llvm-dlltool: vsurf.lib is not made")
endif()
