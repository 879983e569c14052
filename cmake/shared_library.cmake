# The shared library, of the objects of the static one. CONTRIBUTING.md says when its number is raised; it is in this
# line alone.
set(VOMAR_SOVERSION 0)

add_library(tavelin_shared SHARED $<TARGET_OBJECTS:tavelin>)
add_library(tavelin::shared ALIAS tavelin_shared)
target_include_directories(tavelin_shared PUBLIC ${PROJECT_BINARY_DIR}/include)
target_compile_features(tavelin_shared PUBLIC cxx_std_20)
target_link_libraries(tavelin_shared
    PUBLIC tinyxml::shared
    PRIVATE erfa::shared vomar_build vomar_hardening)

# Instances of the standard library's templates stay inside whatever they hold, and the names carry the number.
set(exports ${PROJECT_BINARY_DIR}/packaging/tavelin.map)
configure_file(packaging/abi/tavelin.map.in ${exports} @ONLY)
target_link_options(tavelin_shared PRIVATE LINKER:--version-script=${exports})
if(NOT VOMAR_SANITIZE AND NOT VOMAR_FUZZ AND NOT VOMAR_COVERAGE)
    target_link_options(tavelin_shared PRIVATE LINKER:--no-undefined LINKER:--gc-sections)
endif()
set_target_properties(tavelin_shared PROPERTIES
    OUTPUT_NAME tavelin
    LINKER_LANGUAGE CXX
    SOVERSION ${VOMAR_SOVERSION}
    VERSION ${PROJECT_VERSION}
    LINK_DEPENDS ${exports}
    # A TinyXML that the system does not search for is found from the installed library too.
    INSTALL_RPATH_USE_LINK_PATH ON)
