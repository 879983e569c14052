# Sanitizers and counters. The alignment check is left out for one reason: a mark is a byte-packed
# record that holds texts and lists, and these are then at odd addresses. For the same reason the leak check
# wants LSAN_OPTIONS=use_unaligned=1, which the test preset "sanitize" and scripts/fuzz set.
add_library(vomar_sanitizers INTERFACE)
set(sanitizers address,undefined)
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
if(VOMAR_COVERAGE)
    target_compile_options(vomar_sanitizers INTERFACE --coverage)
    target_link_options(vomar_sanitizers INTERFACE --coverage)
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
    string(APPEND flags_outside " --coverage")
endif()
