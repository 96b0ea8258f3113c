# The command-line tool, driven as a person or a script does. Each class of the three scripts is a test. Where a program
# start is slow (an emulator), and the tool has no loopback cloud of its own, a few of them stand for all.

set(_shows Usage Explain Tour Detail)
set(_does Configuration Logs Operations Prefetch Watch Remote Completion Example)
set(_operations EveryOperation Values Terminal)
set(_cloud "")
if(CMAKE_CROSSCOMPILING)
    set(_shows Explain)
    set(_does Remote)
    set(_operations "")
elseif(TARGET vantix-simulator)
    set(_cloud "VANTIX_SIMULATOR_PROGRAM=$<TARGET_FILE:vantix-simulator>")
else()
    set(_shows Explain)
    set(_does "")
    set(_operations "")
endif()

# The launcher of a cross build would start a cloud for each program; these tests have one of their own.
if(TARGET vantixctl)
    list(JOIN CMAKE_CROSSCOMPILING_EMULATOR " " _launcher)
    foreach(_script shows does operations)
        foreach(_case ${_${_script}})
            add_test(NAME vantixctl.${_case}
                COMMAND "${Python3_EXECUTABLE}" -B "${CMAKE_CURRENT_SOURCE_DIR}/tools/vantixctl-${_script}.py" -v ${_case})
            set(_environment
                "VANTIXCTL_UNDER_TEST=${_launcher} '$<TARGET_FILE:vantixctl>'" ${_cloud}
                "VANTIX_SIMULATOR=none"
                "VANTIX_HOST_EXAMPLE=$<TARGET_FILE:host_example>"
                "VANTIX_RECORDS=${PROJECT_SOURCE_DIR}/src/records"
                "VANTIX_INTERFACE=${PROJECT_SOURCE_DIR}/include/vantix/IVantixDataCenter.h")
            set_tests_properties(vantixctl.${_case} PROPERTIES TIMEOUT 300 ENVIRONMENT "${_environment}")
        endforeach()
    endforeach()
endif()
