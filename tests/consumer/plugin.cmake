# A plugin that takes the static library in, loaded by a program that uses the shared one.

include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)

install_into(${WORK}/prefix)
build_consumer(-D CMAKE_PREFIX_PATH=${WORK}/prefix -D PLUGIN=ON)
expect("plugin: K24B01X of railway, 130 marks, track 1\nhost: 130 marks\nhost: code 7 of the plugin\n"
    ${WORK}/build/host ${WORK}/build/plugin.so ${NIGHT})
expect_kind(${WORK}/build/plugin.so static)
expect_kind(${WORK}/build/host shared)

# Nothing of the library can be mistaken for the program's.
run(nm -D --defined-only --format=posix ${WORK}/build/plugin.so)
string(REGEX REPLACE " [^\n]*" "" names "${printed}")
if(NOT names STREQUAL "describeNight\nwriteNowhere\n")
    message(FATAL_ERROR "The plugin shows ${names}")
endif()
