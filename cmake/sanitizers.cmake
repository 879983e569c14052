# Sanitizers and counters. The alignment check is left out for one reason: a mark is a byte-packed
# record that holds texts and lists, and these are then at odd addresses. For the same reason the leak check
# wants LSAN_OPTIONS=use_unaligned=1, which the test preset "sanitize" and scripts/fuzz set.
add_library(vomar_sanitizers INTERFACE)
set(sanitizers address,undefined)
if(VOMAR_SANITIZE STREQUAL "thread")
    set(sanitizers thread)
endif()
if(VOMAR_SANITIZE)
    target_compile_options(vomar_sanitizers INTERFACE
        -fsanitize=${sanitizers} -fno-sanitize=alignment -fno-sanitize-recover=all
        -fno-omit-frame-pointer -D_GLIBCXX_ASSERTIONS)
    target_link_options(vomar_sanitizers INTERFACE -fsanitize=${sanitizers})
endif()
if(VOMAR_FUZZ)
    target_compile_options(vomar_sanitizers INTERFACE -fsanitize=fuzzer-no-link)
    target_link_options(vomar_sanitizers INTERFACE -fsanitize=fuzzer-no-link)
endif()
# Clang's counters of conditions. They lie in a file that is mapped (LLVM_PROFILE_FILE with %c), so that what a process
# has counted is kept when it ends by _exit or by a signal. Processes share the file, and some outcomes are differences
# of two counters: a lost increment would show as an outcome that never was.
set(counters -fprofile-instr-generate)
if(VOMAR_COVERAGE)
    target_compile_options(vomar_sanitizers INTERFACE
        ${counters} -fprofile-update=atomic -fcoverage-mapping "SHELL:-mllvm -runtime-counter-relocation")
    target_link_options(vomar_sanitizers INTERFACE ${counters})
endif()

# What a program outside this tree must be built with to link the library: the same sanitizers and counters, and no
# alignment check.
set(flags_outside ${CMAKE_CXX_FLAGS})
if(VOMAR_SANITIZE)
    string(APPEND flags_outside " -fsanitize=${sanitizers} -fno-sanitize=alignment -fno-sanitize-recover=all")
endif()
if(VOMAR_FUZZ)
    string(APPEND flags_outside " -fsanitize=fuzzer-no-link")
endif()
if(VOMAR_COVERAGE)
    string(APPEND flags_outside " ${counters} -mllvm -runtime-counter-relocation")
endif()
