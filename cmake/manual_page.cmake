# A manual page from its source: -D SCDOC=... -D SOURCE=... -D PAGE=... -D VERSION=...
execute_process(COMMAND ${SCDOC}
    INPUT_FILE ${SOURCE}
    OUTPUT_VARIABLE page
    RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "scdoc refuses ${SOURCE}")
endif()
string(REGEX REPLACE "\n(.TH \"[^\"]*\" \"1\") \"[^\"]*\"" "\n\\1 \"\" \"tavelin ${VERSION}\" \"User Commands\"" page "${page}")
file(WRITE ${PAGE} "${page}")
