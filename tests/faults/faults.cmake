# Runs that are disturbed: calls of the system that fail, memory that lacks, kills, full disks. Not under sanitizers, whose
# runtime asks for memory first and wants no preloaded object before itself, and not with counters, whose files the
# faults would meet too. The driver knows the registers of x86-64.
if(VOMAR_SANITIZE OR VOMAR_COVERAGE OR NOT CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    return()
endif()
add_executable(fault_driver ${CMAKE_CURRENT_SOURCE_DIR}/faults/fault_driver.cpp)
target_link_libraries(fault_driver PRIVATE vomar_build)
add_library(fault_shim SHARED ${CMAKE_CURRENT_SOURCE_DIR}/faults/fault_shim.cpp)
target_link_libraries(fault_shim PRIVATE vomar_build)
# Nothing can be preloaded into the tool, which holds its C library: this one asks the system's for memory.
add_executable(vomar_of_shared_libraries ${PROJECT_SOURCE_DIR}/tool/main.cpp)
target_link_libraries(vomar_of_shared_libraries PRIVATE vomar_works vomar_build)

# By the name a part of the numbers is tried; scripts/check --nightly tries every one.
function(add_faults_test name work tool)
    set(call ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/faults/faults_test.py ${work} $<TARGET_FILE:${tool}>
        $<TARGET_FILE:tavelin_command> ${PROJECT_SOURCE_DIR} $<TARGET_FILE:fault_driver> $<TARGET_FILE:fault_shim>)
    add_test(NAME ${name} COMMAND ${call})
    add_test(NAME ${name}_by_every_number CONFIGURATIONS Nightly COMMAND ${call} --every)
    set_tests_properties(${name} ${name}_by_every_number PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 600)
    set_tests_properties(${name}_by_every_number PROPERTIES LABELS every_fault TIMEOUT 7200)
endfunction()
add_faults_test(calls_that_fail_tear_no_file calls vomar)
add_faults_test(requests_for_memory_that_fail_tear_no_file memory vomar_of_shared_libraries)
add_faults_test(limits_of_memory_tear_no_file room vomar)
add_faults_test(kills_tear_no_file kills vomar)
add_faults_test(signals_tear_no_file signals vomar)
add_faults_test(limits_of_file_sizes_are_reported sizes vomar)
add_faults_test(full_disks_are_reported disk vomar)
add_faults_test(limits_of_descriptors_tear_no_file descriptors vomar)
