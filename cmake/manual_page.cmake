# A manual page from its source: -D SCDOC=... -D SOURCE=... -D PAGE=... -D VERSION=...
execute_process(COMMAND ${SCDOC}
    INPUT_FILE ${SOURCE}
    OUTPUT_VARIABLE page
    RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "scdoc refuses ${SOURCE}")
endif()
get_filename_component(name ${PAGE} NAME)
string(REGEX MATCH "^[a-z]+" program ${name})
string(REGEX MATCH "[0-9]$" section ${name})
set(manual_1 "User Commands")
set(manual_5 "File Formats")
set(manual_7 "Miscellaneous")
# Names and keys are not to be hyphenated, which .TH would turn on again. On a terminal there are no sheets, whose ends
# would leave blank lines in tables.
string(REGEX REPLACE "\n(.TH \"[^\"]*\" \"[0-9]\") \"[^\"]*\""
    "\n\\1 \"\" \"${program} ${VERSION}\" \"${manual_${section}}\"\n.nh\n.if n .pl 1000i" page "${page}")
# A cell of one word takes the room that it needs; as a block of text it would be broken.
string(REGEX REPLACE "T{\n([^ \t\n]+)\nT}" "\\1" page "${page}")
file(WRITE ${PAGE} "${page}")
