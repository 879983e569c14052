# Runs a command of a test script and leaves what it printed in `printed`; a failure ends the script.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE printed ERROR_VARIABLE printed)
    if(NOT status EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${command}\n${printed}")
    endif()
    set(printed ${printed} PARENT_SCOPE)
endfunction()
