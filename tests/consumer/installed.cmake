# The installed library of the given KIND by find_package; with MOVED the folder gets another name after the installation.

include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)

set(prefix ${WORK}/prefix)
install_into(${prefix})
if(MOVED)
    file(RENAME ${prefix} ${WORK}/moved)
    set(prefix ${WORK}/moved)
endif()
build_consumer(-D CMAKE_PREFIX_PATH=${prefix} -D TAVELIN_KIND=${KIND})
expect("${printed_by_consumer}" ${WORK}/build/consumer ${NIGHT})
expect_kind(${WORK}/build/consumer ${KIND})
