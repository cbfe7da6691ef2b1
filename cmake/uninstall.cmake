# SPDX-License-Identifier: MIT
# The target `uninstall`, and the list of files that it removes. CMake's own manifest cannot be used: CPack overwrites it,
# and the target would remove what the system has installed.
install(CODE "
    if(NOT \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\" MATCHES \"/_CPack_Packages/\")
        string(REPLACE \";\" \"\\n\" installed \"\${CMAKE_INSTALL_MANIFEST_FILES}\")
        file(WRITE \"${PROJECT_BINARY_DIR}/installed_\${CMAKE_INSTALL_COMPONENT}.txt\" \"\${installed}\")
    endif()" ALL_COMPONENTS)
add_custom_target(uninstall VERBATIM
    COMMAND ${CMAKE_COMMAND} -P ${CMAKE_CURRENT_LIST_DIR}/remove_installed.cmake)
