# Warnings of every target of ours. They are errors for developers and in CI, not for users, whose
# compilers may know warnings that ours do not.
add_library(vomar_warnings INTERFACE)
target_compile_options(vomar_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wextra-semi
    $<$<CXX_COMPILER_ID:Clang>:-Wreserved-identifier>
    # GCC 12 takes a text appended to a literal for overlapping or endless memory.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict> $<$<CXX_COMPILER_ID:GNU>:-Wno-stringop-overflow>)
if(VOMAR_DEVELOPER)
    target_compile_options(vomar_warnings INTERFACE -Werror)
endif()
