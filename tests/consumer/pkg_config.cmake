# The installed library of the given KIND by pkg-config, in a folder that has both kinds.

include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)

install_into(${WORK}/prefix)
if(KIND STREQUAL "static")
    # The linker takes the archive where the program is static as a whole.
    set(PKG_CONFIG --static)
    build_by_pkg_config(-static)
else()
    build_by_pkg_config()
endif()
set(ENV{LD_LIBRARY_PATH} ${WORK}/prefix/${LIBDIR})
expect("${printed_by_consumer}" ${WORK}/consumer ${NIGHT})
expect_kind(${WORK}/consumer ${KIND})
