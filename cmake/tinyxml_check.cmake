# Refuses a TinyXML without the two published fixes. Both documents are tried, as distributions mend the library without
# a new version. Not where the programs are built for another machine, on which they would have to run.
option(VOMAR_ALLOW_OLD_TINYXML "Build with a TinyXML that documents made for it can hang or stop" OFF)

function(vomar_check_tinyxml)
    if(VOMAR_ALLOW_OLD_TINYXML OR CMAKE_CROSSCOMPILING OR tinyxml_CHECKED STREQUAL tinyxml_LIBRARY)
        return()
    endif()
    set(program ${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/tinyxml_check)
    # An archive's assertions are those that it was built with.
    try_compile(compiles ${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/tinyxml_check_build
        ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/tinyxml_check.cpp
        CMAKE_FLAGS "-DINCLUDE_DIRECTORIES=${tinyxml_INCLUDE_DIR}"
        LINK_LIBRARIES ${tinyxml_LIBRARY}
        OUTPUT_VARIABLE messages
        COPY_FILE ${program})
    if(NOT compiles)
        message(FATAL_ERROR "A program with TinyXML does not compile:\n${messages}")
    endif()
    execute_process(COMMAND ${program} end TIMEOUT 10 RESULT_VARIABLE declaration OUTPUT_QUIET ERROR_QUIET)
    execute_process(COMMAND ${program} TIMEOUT 10 RESULT_VARIABLE character OUTPUT_QUIET ERROR_QUIET)
    set(missing "")
    if(NOT declaration STREQUAL "0")
        list(APPEND missing CVE-2023-34194)
    endif()
    if(NOT character STREQUAL "0")
        list(APPEND missing CVE-2021-42260)
    endif()
    if(missing)
        list(JOIN missing " and " missing)
        message(FATAL_ERROR "${tinyxml_LIBRARY} lacks the fix of ${missing}: a file made for it can hang or stop every "
            "program that reads XML. Install a TinyXML with the fix, such as that of Debian 12 or Ubuntu 24.04, and "
            "name it by -D tinyxml_LIBRARY and -D tinyxml_INCLUDE_DIR where it is not found; or configure with "
            "-D VOMAR_ALLOW_OLD_TINYXML=ON, where nobody else's files are read.")
    endif()
    set(tinyxml_CHECKED ${tinyxml_LIBRARY} CACHE INTERNAL "The TinyXML that has both fixes")
endfunction()

vomar_check_tinyxml()
