# Configures the sources with a TinyXML that lacks its fixes: SOURCE, WORK, GENERATOR, COMPILER and LIBRARY, any archive.
set(configure ${CMAKE_COMMAND} -S ${SOURCE} -G ${GENERATOR} -D CMAKE_CXX_COMPILER=${COMPILER}
    -D tinyxml_INCLUDE_DIR=${CMAKE_CURRENT_LIST_DIR} -D tinyxml_LIBRARY=${LIBRARY} -D BUILD_TESTING=OFF)
file(REMOVE_RECURSE ${WORK})

execute_process(COMMAND ${configure} -B ${WORK}/refused TIMEOUT 120 RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE messages)
string(REGEX REPLACE "[ \n]+" " " messages "${messages}")
if(result STREQUAL "0" OR NOT messages MATCHES "lacks the fix of CVE-2023-34194 and CVE-2021-42260")
    message(FATAL_ERROR "An old TinyXML is not refused (${result}): ${messages}")
endif()
if(NOT messages MATCHES "-D VOMAR_ALLOW_OLD_TINYXML=ON")
    message(FATAL_ERROR "Nothing says what to do: ${messages}")
endif()

execute_process(COMMAND ${configure} -B ${WORK}/allowed -D VOMAR_ALLOW_OLD_TINYXML=ON TIMEOUT 120
    RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE messages)
if(NOT result STREQUAL "0")
    message(FATAL_ERROR "An old TinyXML that is allowed is refused: ${messages}")
endif()
