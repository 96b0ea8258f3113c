# The command-line tool, driven as a person or a script does. Each class of the three scripts is a test. A cross-built
# tool has no loopback cloud of its own, so that one beside it stands in; it cannot make the tour, which looks into its
# own, and is not shown on a terminal, which the emulator does not pass on.

set(_shows Usage Explain Tour Detail)
set(_does Configuration Logs Operations Prefetch Watch Remote Completion Example)
set(_operations EveryOperation Values Terminal)
set(_cloud "")
if(CMAKE_CROSSCOMPILING)
    set(_cloud VANTIX_TOOL_HAS_NO_CLOUD=1)
    list(REMOVE_ITEM _shows Tour)
    list(REMOVE_ITEM _operations Terminal)
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
                "VANTIX_HOST_EXAMPLE=${_launcher} '$<TARGET_FILE:host_example>'"
                "VANTIX_RECORDS=${PROJECT_SOURCE_DIR}/include/vantix/records"
                "VANTIX_INTERFACE=${PROJECT_SOURCE_DIR}/include/vantix/IVantixDataCenter.h")
            set_tests_properties(vantixctl.${_case} PROPERTIES TIMEOUT 300 ENVIRONMENT "${_environment}")
        endforeach()
    endforeach()
endif()
