# SPDX-License-Identifier: MIT
if(windows_arch STREQUAL i686)
    set(linker_machine x86)
    set(exit_process ExitProcess@4)
else()
    set(linker_machine x64)
    set(exit_process ExitProcess)
endif()
set(here ${CMAKE_CURRENT_BINARY_DIR})
file(WRITE ${here}/kernel32.def "LIBRARY kernel32.dll\nEXPORTS\n    ${exit_process}\n")
add_custom_command(OUTPUT kernel32.lib DEPENDS ${here}/kernel32.def VERBATIM
    COMMAND ${LLVM_DLLTOOL} -k -m ${dlltool_machine} -d ${here}/kernel32.def -l kernel32.lib)

set(clients)
foreach(language c c++)
    set(client client_${language})
    add_custom_command(OUTPUT ${client}.exe VERBATIM
        COMMAND ${CLANG} --target=${windows_arch}-pc-windows-msvc -ffreestanding -fno-exceptions -O1
            -Wall -Wextra -Wpedantic -Werror -I${PROJECT_SOURCE_DIR}/frame
            -x ${language} -c ${CMAKE_CURRENT_SOURCE_DIR}/client.c -o ${client}.obj
        COMMAND ${LLD_LINK} /nologo /nodefaultlib /subsystem:console /entry:start /machine:${linker_machine}
            /out:${client}.exe ${client}.obj ${PROJECT_BINARY_DIR}/vsurf.lib kernel32.lib
        DEPENDS client.c ${PROJECT_SOURCE_DIR}/frame/vsurf.h ${PROJECT_BINARY_DIR}/vsurf.lib kernel32.lib)
    list(APPEND clients ${client}.exe)
    add_test(NAME Client.${language} COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} ${here}/${client}.exe)
    set_tests_properties(Client.${language} PROPERTIES LABELS client)
endforeach()
add_custom_target(windows_clients ALL DEPENDS ${clients})
add_dependencies(windows_clients vsurf_lib)
