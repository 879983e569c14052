# The manual pages that were built, those of the tool and those of the command, each in the folder of its section.
foreach(target tool_manuals companion_manuals)
    if(TARGET ${target})
        get_target_property(pages ${target} MANUAL_PAGES)
        foreach(page IN LISTS pages)
            string(REGEX MATCH "[0-9]$" section ${page})
            install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section})
        endforeach()
    endif()
endforeach()

# The manual, where scripts/manual has made it.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/build/manual/html
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/tavelin OPTIONAL)
