# Installs the build into a folder of its own, then configures, builds and runs a program that finds the library
# there. The component is the one that there is: what the user installed last stays known to the target uninstall.

include(${CMAKE_CURRENT_LIST_DIR}/../cmake/run_command.cmake)

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --component Unspecified --prefix ${WORK}/prefix)
run(${CMAKE_COMMAND} -S ${EXAMPLES}/installed -B ${WORK}/build -G ${GENERATOR}
    -D CMAKE_PREFIX_PATH=${WORK}/prefix -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_CXX_FLAGS=${FLAGS}
    -D CMAKE_BUILD_TYPE=Release)
run(${CMAKE_COMMAND} --build ${WORK}/build)
run(${WORK}/build/first_program ${EXAMPLES}/K88_20240120.mea)
if(NOT printed MATCHES "^K24B01X  130 marks, first 2024-01-20 21:48:27\\.36 at 07 46 28\\.66  45 23 28\\.3\n$")
    message(FATAL_ERROR "${printed}")
endif()
