# What is built. A project that includes this one by add_subdirectory gets the library alone, unless it asks for more;
# its own BUILD_TESTING does not ask for our tests.
include(CMakeDependentOption)

set(tests_by_default OFF)
if(PROJECT_IS_TOP_LEVEL AND BUILD_TESTING)
    set(tests_by_default ON)
endif()
option(VOMAR_BUILD_TESTING "Build the tests and the examples, which they run" ${tests_by_default})
option(VOMAR_DEVELOPER "Offer benchmarks and the header check, as target developer; warnings are errors" OFF)
option(VOMAR_FUZZ "Build the fuzz targets" OFF)
cmake_dependent_option(VOMAR_BUILD_TOOL "Build the command vomar" ${PROJECT_IS_TOP_LEVEL}
    "NOT VOMAR_BUILD_TESTING; NOT VOMAR_DEVELOPER; NOT VOMAR_FUZZ" ON)
cmake_dependent_option(VOMAR_COMPANION "Build the command tavelin, where what it needs is found" ON
    "VOMAR_BUILD_TOOL" OFF)
cmake_dependent_option(VOMAR_SHARED "Build the shared library too, of the objects of the static one" OFF
    "NOT BUILD_SHARED_LIBS" ON)
option(VOMAR_PYTHON "Build the Python package" OFF)
option(VOMAR_INSTALL "Install what is built" ${PROJECT_IS_TOP_LEVEL})
option(VOMAR_BILL_OF_MATERIALS "Write what is linked into each program as a bill of materials; needs Python and GNU ld" OFF)
option(VOMAR_HARDEN "Guard the stack, check copies, and bind and protect relocations at the start" ON)
set(VOMAR_SANITIZE OFF CACHE STRING "Build with the address and undefined behaviour sanitizers (ON), or with that of threads (thread)")
option(VOMAR_COVERAGE "Build with Clang's counters of conditions" OFF)
option(VOMAR_PRECOMPILE "Compile the standard library's headers once for all sources" OFF)
