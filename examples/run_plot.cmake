# Makes a light curve by the built tool in a fresh copy of this folder and plots it, and fails unless the
# pictures show it: a point for each mark, the later and brighter ones further right and up, the object's name,
# the axes.

file(REMOVE_RECURSE ${COPY})
file(MAKE_DIRECTORY ${COPY}/out)
file(COPY ${EXAMPLES}/K88_20240120.mea ${EXAMPLES}/mea_to_mag.xml ${EXAMPLES}/plot_light_curve.gp
    DESTINATION ${COPY})

# Runs a command, which must succeed and print nothing.
function(run)
    execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${COPY}
        RESULT_VARIABLE status OUTPUT_VARIABLE printed ERROR_VARIABLE printed)
    if(NOT status EQUAL 0 OR NOT printed STREQUAL "")
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${command}: status ${status}, printed: ${printed}")
    endif()
endfunction()

# Runs the recipe on arguments that it must refuse with the words.
function(refuse words)
    execute_process(COMMAND ${GNUPLOT} -c plot_light_curve.gp ${ARGN} WORKING_DIRECTORY ${COPY}
        RESULT_VARIABLE status OUTPUT_VARIABLE printed ERROR_VARIABLE printed)
    if(status EQUAL 0 OR NOT printed MATCHES "${words}")
        message(FATAL_ERROR "${ARGN}: status ${status}, printed: ${printed}")
    endif()
endfunction()

set(table out/K88_20240120.mag.txt)
run(${TOOL} mea_to_mag.xml)
run(${GNUPLOT} -c plot_light_curve.gp ${table} out/light_curve.png)
run(${GNUPLOT} -c plot_light_curve.gp ${table} out/light_curve.svg)

# The signature of a PNG, then width and height, 900 and 540, in the first chunk.
file(READ ${COPY}/out/light_curve.png head LIMIT 24 HEX)
if(NOT head STREQUAL "89504e470d0a1a0a0000000d49484452000003840000021c")
    message(FATAL_ERROR "light_curve.png begins with ${head}")
endif()

file(READ ${COPY}/out/light_curve.svg picture)
foreach(words "K24B01X" "apparent magnitude" "UTC, from 2024-01-20 on" ">22:00<" ">00:00<")
    if(NOT picture MATCHES "${words}")
        message(FATAL_ERROR "light_curve.svg does not say ${words}")
    endif()
endforeach()
string(REGEX MATCHALL "<use [^>]*translate\\([0-9.]+,[0-9.]+\\)" points "${picture}")
list(LENGTH points count)
if(NOT count EQUAL 130)
    message(FATAL_ERROR "light_curve.svg has ${count} points and not 130")
endif()
list(GET points 0 first)
list(GET points 129 last)
string(REGEX MATCH "translate\\(([0-9]+)[0-9.]*,([0-9]+)" place "${first}")
set(first_x ${CMAKE_MATCH_1})
set(first_y ${CMAKE_MATCH_2})
string(REGEX MATCH "translate\\(([0-9]+)[0-9.]*,([0-9]+)" place "${last}")
if(NOT first_x LESS CMAKE_MATCH_1 OR NOT first_y GREATER CMAKE_MATCH_2)
    message(FATAL_ERROR "marks go from ${first_x},${first_y} to ${CMAKE_MATCH_1},${CMAKE_MATCH_2}")
endif()

file(WRITE ${COPY}/out/no_marks.txt
    "JD geocentric\tapparent\tensemble\tinstrumental\tinstr1000km\tinstrComp\tobject\n")
refuse("usage: gnuplot" ${table})
refuse("colour: no such column" ${table} out/no_column.png colour)
refuse("no_marks.txt: not a mark in it" out/no_marks.txt out/no_marks.png)
refuse("nowhere.txt: not a mark in it" nowhere.txt out/nowhere.png)
