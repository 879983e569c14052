# The two libraries that ours needs. Neither brings a CMake package. The archive is
# preferred to the shared object, since each shared object costs the start of a run some time.
function(vomar_find_library name header archive library package)
    if(TARGET ${name}::${name})
        return()
    endif()
    find_library(${name}_LIBRARY NAMES ${archive} ${library} NAMES_PER_DIR)
    get_filename_component(folder "${${name}_LIBRARY}" DIRECTORY)
    find_path(${name}_INCLUDE_DIR NAMES ${header} HINTS ${folder}/../include ${folder})
    mark_as_advanced(${name}_INCLUDE_DIR ${name}_LIBRARY)
    if(NOT ${name}_INCLUDE_DIR OR NOT ${name}_LIBRARY)
        message(FATAL_ERROR "${name} was not found: install ${package}, or run scripts/install_dependencies")
    endif()
    vomar_add_imported(${name}::${name} ${${name}_INCLUDE_DIR} ${${name}_LIBRARY})
endfunction()

# Global: a project around this one links the library, and so these too.
function(vomar_add_imported target folder library)
    add_library(${target} INTERFACE IMPORTED GLOBAL)
    target_include_directories(${target} SYSTEM INTERFACE ${folder})
    target_link_libraries(${target} INTERFACE ${library})
endfunction()

# The same as a shared object, in the folder of the one that was found: a copy of TinyXML inside our shared library would
# not share its flags with that of the program. Where there is an archive alone, that is taken in.
function(vomar_find_shared name)
    if(NOT ${name}_LIBRARY)
        add_library(${name}::shared ALIAS ${name}::${name})
        return()
    endif()
    get_filename_component(folder ${${name}_LIBRARY} DIRECTORY)
    find_library(${name}_SHARED_LIBRARY NAMES ${name} HINTS ${folder})
    mark_as_advanced(${name}_SHARED_LIBRARY)
    vomar_add_imported(${name}::shared ${${name}_INCLUDE_DIR} ${${name}_SHARED_LIBRARY})
endfunction()

vomar_find_library(tinyxml tinyxml.h libtinyxml.a tinyxml libtinyxml-dev)
include(cmake/tinyxml_check.cmake)
vomar_find_library(erfa erfa.h liberfa.a erfa liberfa-dev)
if(VOMAR_SHARED)
    vomar_find_shared(tinyxml)
    vomar_find_shared(erfa)
endif()
