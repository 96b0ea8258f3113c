# The command-line tool, driven as a person or a script does. Each class of tools/vantixctl.py is a test.

if(TARGET vantixctl AND TARGET vantix-simulator AND NOT CMAKE_CROSSCOMPILING)
    foreach(_case Usage Explain Tour Detail Configuration Logs Operations Prefetch Watch Completion Example)
        add_test(NAME vantixctl.${_case}
            COMMAND Python3::Interpreter "${CMAKE_CURRENT_SOURCE_DIR}/tools/vantixctl.py" -v ${_case})
        set_tests_properties(vantixctl.${_case} PROPERTIES TIMEOUT 300 ENVIRONMENT
            "VANTIXCTL_UNDER_TEST=$<TARGET_FILE:vantixctl>;VANTIX_SIMULATOR_PROGRAM=$<TARGET_FILE:vantix-simulator>;VANTIX_HOST_EXAMPLE=$<TARGET_FILE:host_example>;VANTIX_RECORDS=${PROJECT_SOURCE_DIR}/src/records;VANTIX_INTERFACE=${PROJECT_SOURCE_DIR}/include/vantix/IVantixDataCenter.h")
    endforeach()
endif()
