# Hardening of what people run: what the distributions' own lists ask for. Tests and benchmarks go without, and so do the
# builds of sanitizers, which look closer. The programs are position-independent in any case.
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

add_library(vomar_hardening INTERFACE)
if(VOMAR_HARDEN AND NOT VOMAR_SANITIZE AND NOT VOMAR_FUZZ AND NOT VOMAR_COVERAGE)
    target_compile_options(vomar_hardening INTERFACE
        -fstack-protector-strong
        -fstack-clash-protection
        # They need an optimiser. Some compilers set another level themselves.
        $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE>
        $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-D_FORTIFY_SOURCE=2>)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
        target_compile_options(vomar_hardening INTERFACE -fcf-protection)
    endif()
    target_link_options(vomar_hardening INTERFACE LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)
endif()
