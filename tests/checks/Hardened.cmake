# The built libraries have what cmake/Hardening.cmake asks for.

if(CMAKE_OBJDUMP AND NOT VANTIX_SANITIZE AND NOT VANTIX_COVERAGE AND NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
    foreach(_library vantixdatacenter tvllog)
        add_test(NAME hardened.${_library}
            COMMAND "${Python3_EXECUTABLE}" "${CMAKE_CURRENT_SOURCE_DIR}/checks/hardened.py" "${CMAKE_OBJDUMP}"
                "$<TARGET_FILE:${_library}>")
    endforeach()
endif()
