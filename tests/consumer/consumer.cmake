# A project that uses the library, linked in each way that there is: how it is built is the question, and that is the
# same under sanitizers. There a shared object and the program, which both hold the library, would disagree.
if(VOMAR_SANITIZE OR VOMAR_COVERAGE OR NOT VOMAR_INSTALL)
    return()
endif()

# Of a script in the folder consumer; further arguments are values for it, NAME=value.
function(add_consumer_test name script)
    set(values ${ARGN})
    list(TRANSFORM values PREPEND -D)
    add_test(NAME ${name} ${configurations} COMMAND ${CMAKE_COMMAND}
        ${values}
        -DCONSUMER=${CMAKE_CURRENT_SOURCE_DIR}/consumer
        -DWORK=${CMAKE_CURRENT_BINARY_DIR}/consumer/${name}
        -DNIGHT=${PROJECT_SOURCE_DIR}/examples/K88_20240120.mea
        -DGENERATOR=${CMAKE_GENERATOR}
        -DCOMPILER=${CMAKE_CXX_COMPILER}
        -DFLAGS=${CMAKE_CXX_FLAGS}
        -P ${CMAKE_CURRENT_SOURCE_DIR}/consumer/${script}.cmake)
    set_tests_properties(${name} PROPERTIES TIMEOUT 600)
endfunction()

set(configurations "")
set(installed BUILD=${PROJECT_BINARY_DIR} LIBDIR=${CMAKE_INSTALL_LIBDIR})
find_program(PKG_CONFIG pkg-config)
mark_as_advanced(PKG_CONFIG)
add_consumer_test(consumer_of_the_static_library installed ${installed} KIND=static)
if(PKG_CONFIG)
    add_consumer_test(consumer_of_the_static_library_by_pkg_config pkg_config ${installed} KIND=static)
endif()
if(TARGET tavelin_shared)
    add_consumer_test(consumer_of_the_shared_library installed ${installed} KIND=shared)
    add_consumer_test(consumer_of_the_moved_library installed ${installed} KIND=shared MOVED=ON)
    add_consumer_test(plugin_with_the_library_inside plugin ${installed})
endif()
if(TARGET tavelin_shared AND PKG_CONFIG)
    add_consumer_test(consumer_of_the_shared_library_by_pkg_config pkg_config ${installed} KIND=shared)
    add_consumer_test(consumer_with_a_tinyxml_of_its_own own_tinyxml ${installed}
        SOURCE=${PROJECT_SOURCE_DIR} TINYXML=${tinyxml_SHARED_LIBRARY} HEADERS=${tinyxml_INCLUDE_DIR})
endif()

# These build the library anew, which takes as long as a third of all tests: scripts/check asks for them.
set(configurations CONFIGURATIONS Check)
add_consumer_test(consumer_around_the_sources sources SOURCE=${PROJECT_SOURCE_DIR})
add_consumer_test(consumer_that_fetches_the_sources sources SOURCE=${PROJECT_SOURCE_DIR} FETCHED=ON)
