# The library from its SOURCE: as a folder of the consumer, or FETCHED, and then as the shared library that the consumer
# asks for.

include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)

set(kind static)
if(FETCHED)
    set(kind shared)
    set(fetched -D TAVELIN_FETCHED=ON -D BUILD_SHARED_LIBS=ON)
endif()
build_consumer(-D TAVELIN_SOURCE=${SOURCE} ${fetched})
expect("${printed_by_consumer}" ${WORK}/build/consumer ${NIGHT})
expect_kind(${WORK}/build/consumer ${kind})

# The consumer got the library and nothing else: the one test and the two installed files are its own, and nobody wrote
# into its folder or chose its kind of build.
run(${CMAKE_CTEST_COMMAND} --test-dir ${WORK}/build)
if(NOT printed MATCHES "0 tests failed out of 1\n")
    message(FATAL_ERROR "${printed}")
endif()
run(${CMAKE_COMMAND} --install ${WORK}/build)
file(GLOB_RECURSE installed RELATIVE ${WORK}/installed ${WORK}/installed/*)
if(NOT installed STREQUAL "bin/consumer;lib/libnight.so")
    message(FATAL_ERROR "Installed: ${installed}")
endif()
file(GLOB written RELATIVE ${WORK}/build ${WORK}/build/include ${WORK}/build/vomar* ${WORK}/build/*.json)
file(STRINGS ${WORK}/build/CMakeCache.txt kind_of_build REGEX "^CMAKE_BUILD_TYPE:[A-Z]*=.")
if(written OR kind_of_build)
    message(FATAL_ERROR "Written into the consumer's folder: ${written} ${kind_of_build}")
endif()
