# Steps of the tests that build the consumer. Each script gets CONSUMER, the folder WORK of its own, NIGHT, GENERATOR,
# COMPILER and FLAGS, and either BUILD, from which the library is installed with its libraries in LIBDIR, or SOURCE.

include(${CMAKE_CURRENT_LIST_DIR}/../../cmake/run_command.cmake)
set(printed_by_consumer "K24B01X of railway: 130 marks, track 1, code 7, no task\n")
file(REMOVE_RECURSE ${WORK})

# Installs the build, as its one component: what the user installed last stays known to the target uninstall.
function(install_into prefix)
    run(${CMAKE_COMMAND} --install ${BUILD} --component Unspecified --prefix ${prefix})
endfunction()

function(configure_consumer)
    run(${CMAKE_COMMAND} -S ${CONSUMER} -B ${WORK}/build -G ${GENERATOR} -D NIGHT=${NIGHT}
        -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_CXX_FLAGS=${FLAGS} -D CMAKE_INSTALL_PREFIX=${WORK}/installed ${ARGN})
endfunction()

# As a project, in WORK/build.
function(build_consumer)
    configure_consumer(${ARGN})
    run(${CMAKE_COMMAND} --build ${WORK}/build --parallel 2)
endfunction()

# By a command, as WORK/consumer, with what pkg-config says to the options in PKG_CONFIG, and the flags.
function(build_by_pkg_config)
    set(ENV{PKG_CONFIG_PATH} ${WORK}/prefix/${LIBDIR}/pkgconfig)
    run(pkg-config --cflags --libs ${PKG_CONFIG} tavelin)
    separate_arguments(flags UNIX_COMMAND "${FLAGS} ${printed}")
    run(${COMPILER} -std=c++20 -I${CONSUMER}/include ${CONSUMER}/consumer.cpp ${CONSUMER}/night.cpp ${flags} ${ARGN}
        -o ${WORK}/consumer)
endfunction()

# Runs a command, which must print the text.
function(expect text)
    run(${ARGN})
    if(NOT printed STREQUAL text)
        message(FATAL_ERROR "${ARGN}: ${printed}")
    endif()
endfunction()

# Whether the program needs the shared library says which of the two it was linked with: KIND.
function(expect_kind program kind)
    run(readelf -d ${program})
    set(is_shared FALSE)
    if(printed MATCHES "NEEDED.*libtavelin\\.so\\.0")
        set(is_shared TRUE)
    endif()
    if(kind STREQUAL "shared" AND NOT is_shared OR kind STREQUAL "static" AND is_shared)
        message(FATAL_ERROR "${program} is not linked with the ${kind} library:\n${printed}")
    endif()
endfunction()
