# Removes the files that MANIFEST lists, below DESTDIR where that is set in the environment, and then the folders of ours
# that this leaves empty. What was put into these folders by others stays.
cmake_minimum_required(VERSION 3.22)
if(NOT EXISTS ${MANIFEST})
    message(FATAL_ERROR "Nothing was installed from this build: there is no ${MANIFEST}")
endif()

file(STRINGS ${MANIFEST} files)
set(folders "")
foreach(file IN LISTS files)
    string(PREPEND file "$ENV{DESTDIR}")
    file(REMOVE ${file})
    get_filename_component(folder ${file} DIRECTORY)
    while(folder MATCHES "/(include|cmake|share)/tavelin(/|$)")
        list(APPEND folders ${folder})
        get_filename_component(folder ${folder} DIRECTORY)
    endwhile()
endforeach()

# The inner ones first.
list(REMOVE_DUPLICATES folders)
list(SORT folders ORDER DESCENDING)
foreach(folder IN LISTS folders)
    file(GLOB content ${folder}/*)
    if(NOT content)
        file(REMOVE_RECURSE ${folder})
    endif()
endforeach()
file(REMOVE ${MANIFEST})
