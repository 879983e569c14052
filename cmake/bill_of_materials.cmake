# A bill of materials beside each program and shared object, of what the linker says that it took. Other linkers than GNU
# ld write other maps.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

# vomar_bill_of_materials(TARGET NAME TYPE [HEADER ...]): TYPE is application or library; headers are those of others that
# bring code of their own.
function(vomar_bill_of_materials target name type)
    set(map ${PROJECT_BINARY_DIR}/bill_of_materials/${target}.map)
    target_link_options(${target} PRIVATE LINKER:-Map=${map})
    set(bill ${PROJECT_BINARY_DIR}/bill_of_materials/${name}.cdx.json)
    list(TRANSFORM ARGN PREPEND --header= OUTPUT_VARIABLE headers)
    add_custom_command(OUTPUT ${bill}
        COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/cmake/bill_of_materials.py
            --name ${name} --type ${type} --version ${PROJECT_VERSION} --program $<TARGET_FILE:${target}> --map ${map}
            --build ${PROJECT_BINARY_DIR} ${headers} --output ${bill}
        DEPENDS ${target} ${PROJECT_SOURCE_DIR}/cmake/bill_of_materials.py
        COMMENT "Bill of materials of ${name}"
        VERBATIM)
    add_custom_target(bill_of_materials_of_${target} ALL DEPENDS ${bill})
    if(VOMAR_INSTALL)
        install(FILES ${bill} DESTINATION ${CMAKE_INSTALL_DATADIR}/sbom)
    endif()
endfunction()

file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/bill_of_materials)
set(headers_of_the_command ${cli11_INCLUDE_DIR}/CLI/CLI.hpp ${nlohmann_json_INCLUDE_DIR}/nlohmann/json.hpp
    ${xxhash_INCLUDE_DIR}/xxhash.h)
if(TARGET vomar)
    vomar_bill_of_materials(vomar vomar application)
endif()
if(TARGET tavelin_command)
    vomar_bill_of_materials(tavelin_command tavelin application ${headers_of_the_command})
endif()
if(TARGET tavelin_shared)
    vomar_bill_of_materials(tavelin_shared libtavelin library)
endif()
if(TARGET tavelin_python)
    vomar_bill_of_materials(tavelin_python python3-tavelin library ${headers_of_the_command}
        ${VOMAR_PYTHON_HEADER})
endif()
