# Runs a task file by the built tool in a fresh copy of this folder, and fails unless the run printed nothing,
# its result says code 0, and its output holds the words, an expression.

file(REMOVE_RECURSE ${COPY})
file(MAKE_DIRECTORY ${COPY}/out)
file(GLOB files ${EXAMPLES}/*.mea ${EXAMPLES}/*.tel ${EXAMPLES}/*.tdm ${EXAMPLES}/*.ssm ${EXAMPLES}/*.xml)
file(COPY ${files} DESTINATION ${COPY})

execute_process(COMMAND ${TOOL} ${TASK} WORKING_DIRECTORY ${COPY}
    RESULT_VARIABLE status OUTPUT_VARIABLE printed ERROR_VARIABLE printed)
if(NOT status EQUAL 0 OR NOT printed STREQUAL "")
    message(FATAL_ERROR "${TASK}: status ${status}, printed: ${printed}")
endif()
if(NOT EXISTS ${COPY}/${RESULT})
    message(FATAL_ERROR "${TASK}: no result file ${RESULT}")
endif()
file(READ ${COPY}/${RESULT} result)
if(NOT result MATCHES "<Code>0</Code>|Code=0//")
    message(FATAL_ERROR "${TASK}: ${result}")
endif()
if(NOT EXISTS ${COPY}/${OUTPUT})
    message(FATAL_ERROR "${TASK}: no output ${OUTPUT}")
endif()
file(READ ${COPY}/${OUTPUT} output)
if(NOT output MATCHES "${WORDS}")
    message(FATAL_ERROR "${TASK}: ${OUTPUT} does not hold ${WORDS}:\n${output}")
endif()
