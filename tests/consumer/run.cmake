# Builds and runs the consumer, with the sources in SOURCE if that is given, otherwise with the build BUILD installed
# into a folder of its own.

include(${CMAKE_CURRENT_LIST_DIR}/../../cmake/run_command.cmake)

file(REMOVE_RECURSE ${WORK})
if(SOURCE)
    set(found_by -D TAVELIN_SOURCE=${SOURCE})
else()
    run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)
    set(found_by -D CMAKE_PREFIX_PATH=${WORK}/prefix)
endif()
run(${CMAKE_COMMAND} -S ${CONSUMER} -B ${WORK}/build -G ${GENERATOR} ${found_by} -D NIGHT=${NIGHT}
    -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_CXX_FLAGS=${FLAGS} -D CMAKE_INSTALL_PREFIX=${WORK}/installed)
run(${CMAKE_COMMAND} --build ${WORK}/build --parallel 2)
run(${WORK}/build/consumer ${NIGHT})
if(NOT printed STREQUAL "K24B01X of railway: 130 marks, track 1\n")
    message(FATAL_ERROR "${printed}")
endif()

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
file(STRINGS ${WORK}/build/CMakeCache.txt kind REGEX "^CMAKE_BUILD_TYPE:[A-Z]*=.")
if(written OR kind)
    message(FATAL_ERROR "Written into the consumer's folder: ${written} ${kind}")
endif()
