# The command-line tool, driven as a person or a script does. Each class of the two scripts is a test.

if(TARGET vantixctl AND TARGET vantix-simulator AND NOT CMAKE_CROSSCOMPILING)
    set(_shows Usage Explain Tour Detail)
    set(_does Configuration Logs Operations Prefetch Watch Completion Example)
    foreach(_script shows does)
        foreach(_case ${_${_script}})
            add_test(NAME vantixctl.${_case}
                COMMAND Python3::Interpreter -B "${CMAKE_CURRENT_SOURCE_DIR}/tools/vantixctl-${_script}.py" -v ${_case})
            set(_environment
                "VANTIXCTL_UNDER_TEST=$<TARGET_FILE:vantixctl>"
                "VANTIX_SIMULATOR_PROGRAM=$<TARGET_FILE:vantix-simulator>"
                "VANTIX_HOST_EXAMPLE=$<TARGET_FILE:host_example>"
                "VANTIX_RECORDS=${PROJECT_SOURCE_DIR}/src/records"
                "VANTIX_INTERFACE=${PROJECT_SOURCE_DIR}/include/vantix/IVantixDataCenter.h")
            set_tests_properties(vantixctl.${_case} PROPERTIES TIMEOUT 300 ENVIRONMENT "${_environment}")
        endforeach()
    endforeach()
endif()
