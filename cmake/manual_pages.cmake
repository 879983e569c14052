# Manual pages, where scdoc is. It dates a page by the day that it is made, which would make each build another.
find_program(SCDOC scdoc)
mark_as_advanced(SCDOC)
if(NOT SCDOC)
    message(STATUS "The manual pages are not built: missing is scdoc")
endif()

# add_manual_pages(TARGET FOLDER SOURCE...): the pages of the sources "name.section.scd", in the folder of the build.
function(add_manual_pages target folder)
    if(NOT SCDOC)
        return()
    endif()
    set(script ${PROJECT_SOURCE_DIR}/cmake/manual_page.cmake)
    set(pages "")
    foreach(source IN LISTS ARGN)
        get_filename_component(name ${source} NAME_WLE)
        set(page ${folder}/${name})
        add_custom_command(OUTPUT ${page}
            COMMAND ${CMAKE_COMMAND} -D SCDOC=${SCDOC} -D SOURCE=${source} -D PAGE=${page}
                -D VERSION=${PROJECT_VERSION} -P ${script}
            DEPENDS ${source} ${script}
            COMMENT "Manual page ${name}"
            VERBATIM)
        list(APPEND pages ${page})
    endforeach()
    add_custom_target(${target} ALL DEPENDS ${pages})
    set_target_properties(${target} PROPERTIES MANUAL_PAGES "${pages}")
endfunction()
