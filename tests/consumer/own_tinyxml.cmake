# A TinyXML in a folder of its own, made of the library TINYXML and its HEADERS: the consumer gets it where it names the
# folder or the library, and also by itself, where the library was built with it.

include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)

set(own ${WORK}/tinyxml)
file(GLOB headers ${HEADERS}/tinyxml.h ${HEADERS}/tinystr.h)
file(COPY ${headers} DESTINATION ${own}/include)
file(APPEND ${own}/include/tinyxml.h "#define OWN_TINYXML\n")
file(REAL_PATH ${TINYXML} shared_object)
file(COPY ${shared_object} DESTINATION ${own}/lib)
get_filename_component(name ${shared_object} NAME)
file(CREATE_LINK ${name} ${own}/lib/libtinyxml.so SYMBOLIC)
install_into(${WORK}/prefix)

# The program starts with what it was linked with.
function(expect_own program)
    expect("${printed_by_consumer}" ${program} ${NIGHT})
    run(ldd ${program})
    string(REGEX MATCHALL "libtinyxml[^\n]* => [^ ]*" found "${printed}")
    list(REMOVE_DUPLICATES found)
    if(NOT found STREQUAL "${name} => ${own}/lib/${name}")
        message(FATAL_ERROR "${program} starts with ${found}")
    endif()
endfunction()

function(expect_found_own)
    file(STRINGS ${WORK}/build/CMakeCache.txt found REGEX "^tinyxml_(LIBRARY|INCLUDE_DIR):")
    list(TRANSFORM found REPLACE ":.*=" "=")
    if(NOT found STREQUAL "tinyxml_INCLUDE_DIR=${own}/include;tinyxml_LIBRARY=${own}/lib/libtinyxml.so")
        message(FATAL_ERROR "Found: ${found}")
    endif()
    file(REMOVE_RECURSE ${WORK}/build)
endfunction()

# Named by its folder.
string(APPEND FLAGS " -DOWN_TINYXML_EXPECTED")
set(ENV{CMAKE_PREFIX_PATH} ${WORK}/prefix:${own})
build_consumer(-D TAVELIN_KIND=shared)
expect_own(${WORK}/build/consumer)
expect_found_own()

# Named as a library: the header is looked for beside it.
set(ENV{CMAKE_PREFIX_PATH} ${WORK}/prefix)
configure_consumer(-D tinyxml_LIBRARY=${own}/lib/libtinyxml.so)
expect_found_own()

# The package files of a build that has it, and the static library alone.
run(${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/configured -G ${GENERATOR} -D CMAKE_CXX_COMPILER=${COMPILER}
    -D tinyxml_LIBRARY=${own}/lib/libtinyxml.so -D VOMAR_BUILD_TOOL=OFF)
file(COPY ${WORK}/configured/packaging/tavelinConfig.cmake DESTINATION ${WORK}/prefix/${LIBDIR}/cmake/tavelin)
file(COPY ${WORK}/configured/packaging/tavelin.pc DESTINATION ${WORK}/prefix/${LIBDIR}/pkgconfig)
file(GLOB shared_library ${WORK}/prefix/${LIBDIR}/libtavelin.so*)
file(REMOVE ${shared_library})
configure_consumer()
expect_found_own()
set(ENV{LD_RUN_PATH} ${own}/lib)
build_by_pkg_config()
expect_own(${WORK}/consumer)
