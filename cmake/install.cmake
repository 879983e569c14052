# The tool, the library with its headers, and the files by which builds find it.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

if(VOMAR_BUILD_TOOL)
    install(TARGETS vomar RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
if(TARGET tavelin_command)
    install(TARGETS tavelin_command RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(FILES companion/completion/tavelin.bash RENAME tavelin
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
    install(FILES companion/completion/_tavelin
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
    install(FILES companion/completion/tavelin.fish
        DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
    install(DIRECTORY companion/schema/ DESTINATION ${CMAKE_INSTALL_DATADIR}/tavelin/schema
        FILES_MATCHING PATTERN *.xsd PATTERN *.json)
    install(DIRECTORY companion/workflow DESTINATION ${CMAKE_INSTALL_DATADIR}/tavelin USE_SOURCE_PERMISSIONS)
endif()
include(cmake/install_manual.cmake)
install(TARGETS tavelin ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
if(TARGET tavelin_shared)
    install(TARGETS tavelin_shared LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()
# The public headers are those that the header of the whole library names.
file(STRINGS library/tavelin.h public_headers REGEX "^#include \"")
list(TRANSFORM public_headers REPLACE "^#include \"(.*)\"$" "\\1")
foreach(header IN LISTS public_headers ITEMS tavelin.h)
    get_filename_component(folder ${header} DIRECTORY)
    install(FILES library/${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tavelin/${folder})
endforeach()

# Where TinyXML and ERFA are, if the compiler does not look there by itself: those who link the library find them too.
set(outside_libraries "")
set(outside_headers "")
foreach(name tinyxml erfa)
    get_filename_component(folder "${${name}_LIBRARY}" DIRECTORY)
    if(folder AND NOT folder IN_LIST CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES)
        list(APPEND outside_libraries ${folder})
    endif()
endforeach()
if(tinyxml_INCLUDE_DIR AND NOT tinyxml_INCLUDE_DIR IN_LIST CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES)
    set(outside_headers ${tinyxml_INCLUDE_DIR})
endif()
list(REMOVE_DUPLICATES outside_libraries)

configure_package_config_file(packaging/tavelinConfig.cmake.in
    ${PROJECT_BINARY_DIR}/packaging/tavelinConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tavelin)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/packaging/tavelinConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/packaging/tavelinConfig.cmake
    ${PROJECT_BINARY_DIR}/packaging/tavelinConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tavelin)

# For pkg-config. The shared library brings ERFA itself; what the headers use of TinyXML is in programs too.
set(pc_libraries "-ltinyxml -lerfa")
set(pc_libraries_of_the_archive "")
if(TARGET tavelin_shared)
    set(pc_libraries "-ltinyxml")
    set(pc_libraries_of_the_archive "-lerfa")
endif()
foreach(folder IN LISTS outside_libraries)
    string(PREPEND pc_libraries "-L${folder} ")
endforeach()
set(pc_flags "")
foreach(folder IN LISTS outside_headers)
    string(APPEND pc_flags " -isystem ${folder}")
endforeach()
file(RELATIVE_PATH pc_to_prefix
    ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(packaging/tavelin.pc.in ${PROJECT_BINARY_DIR}/packaging/tavelin.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/packaging/tavelin.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(PROJECT_IS_TOP_LEVEL)
    add_custom_target(uninstall
        COMMAND ${CMAKE_COMMAND} -D MANIFEST=${PROJECT_BINARY_DIR}/install_manifest.txt
            -P ${PROJECT_SOURCE_DIR}/cmake/uninstall.cmake
        COMMENT "Removing what was installed last"
        VERBATIM)
endif()
