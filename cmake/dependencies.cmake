# The two libraries that ours needs. Neither brings a CMake package. The archive is
# preferred to the shared object, since each shared object costs the start of a run some time.
function(vomar_find_library name header archive library package)
    if(TARGET ${name}::${name})
        return()
    endif()
    find_path(${name}_INCLUDE_DIR NAMES ${header})
    find_library(${name}_LIBRARY NAMES ${archive} ${library})
    mark_as_advanced(${name}_INCLUDE_DIR ${name}_LIBRARY)
    if(NOT ${name}_INCLUDE_DIR OR NOT ${name}_LIBRARY)
        message(FATAL_ERROR "${name} was not found: install ${package}, or run scripts/install_dependencies")
    endif()
    # Global: a project around this one links the library, and so these too.
    add_library(${name}::${name} INTERFACE IMPORTED GLOBAL)
    target_include_directories(${name}::${name} SYSTEM INTERFACE ${${name}_INCLUDE_DIR})
    target_link_libraries(${name}::${name} INTERFACE ${${name}_LIBRARY})
endfunction()

vomar_find_library(tinyxml tinyxml.h libtinyxml.a tinyxml libtinyxml-dev)
include(cmake/tinyxml_check.cmake)
vomar_find_library(erfa erfa.h liberfa.a erfa liberfa-dev)
