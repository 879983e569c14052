# Runs a report's task by the built tool in a fresh copy of this folder, and fails unless the run printed
# nothing, its result says code 0 and lists the files in their order, these and no others are in out/, and the
# file OUTPUT holds the text.

file(REMOVE_RECURSE ${COPY})
file(MAKE_DIRECTORY ${COPY}/out)
file(COPY ${EXAMPLES}/${TASK} ${EXAMPLES}/series DESTINATION ${COPY})

execute_process(COMMAND ${TOOL} ${TASK} WORKING_DIRECTORY ${COPY}
    RESULT_VARIABLE status OUTPUT_VARIABLE printed ERROR_VARIABLE printed)
if(NOT status EQUAL 0 OR NOT printed STREQUAL "")
    message(FATAL_ERROR "${TASK}: status ${status}, printed: ${printed}")
endif()

string(REPLACE "|" ";" names "${OUTPUTS}")
set(description "")
set(wanted result.xml)
foreach(name ${names})
    string(APPEND description "out/${name};")
    list(APPEND wanted ${name})
endforeach()
file(READ ${COPY}/out/result.xml result)
string(FIND "${result}" "<Code>0</Code>" code)
string(FIND "${result}" "<Description>${description}</Description>" place)
if(code EQUAL -1 OR place EQUAL -1)
    message(FATAL_ERROR "${TASK}: ${result} does not list ${description}")
endif()
file(GLOB left RELATIVE ${COPY}/out ${COPY}/out/*)
list(SORT left)
list(SORT wanted)
if(NOT left STREQUAL wanted)
    message(FATAL_ERROR "${TASK}: left ${left} and not ${wanted}")
endif()

file(READ ${COPY}/out/${OUTPUT} output)
string(FIND "${output}" "${TEXT}" place)
if(place EQUAL -1)
    message(FATAL_ERROR "${TASK}: ${OUTPUT} does not hold ${TEXT}:\n${output}")
endif()
