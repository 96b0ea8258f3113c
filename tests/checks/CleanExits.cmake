# A host ends cleanly, by leaving main or by unloading the library first, also right after requests: 50 times of 50.

add_subdirectory(exits)
if(TARGET vantix-simulator)
    set(_cloud "VANTIX_SIMULATOR_PROGRAM=$<TARGET_FILE:vantix-simulator>")
else()
    set(_cloud "")  # comes from the environment
endif()
set(_ends exit unload busy-exit busy-unload)
if(NOT VANTIX_SANITIZE STREQUAL "thread")
    list(APPEND _ends left-exit)  # to ThreadSanitizer the threads that it leaves on purpose are a finding
endif()
foreach(_end ${_ends})
    add_test(NAME clean_exits.${_end}
        COMMAND "${Python3_EXECUTABLE}" -B "${CMAKE_CURRENT_SOURCE_DIR}/checks/clean-exits.py" 50 ${_end}
            "$<TARGET_FILE:vantixdatacenter>" ${CMAKE_CROSSCOMPILING_EMULATOR} "$<TARGET_FILE:exit_probe>")
    set_tests_properties(clean_exits.${_end} PROPERTIES TIMEOUT 600 ENVIRONMENT "VANTIX_SIMULATOR=none;${_cloud}")
endforeach()
