# Warnings of every target of ours. They are errors for developers and in CI, not for users, whose
# compilers may know warnings that ours do not.
add_library(vomar_warnings INTERFACE)
target_compile_options(vomar_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference -Wextra-semi)
if(VOMAR_DEVELOPER)
    target_compile_options(vomar_warnings INTERFACE -Werror)
endif()
