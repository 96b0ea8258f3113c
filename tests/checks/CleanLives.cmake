# A host ends cleanly and survives what the system does to it, each scenario as often as its row says.

add_subdirectory(life)
if(TARGET vantix-simulator)
    set(_cloud "VANTIX_SIMULATOR_PROGRAM=$<TARGET_FILE:vantix-simulator>")
else()
    set(_cloud "")  # comes from the environment
endif()
set(_lives exit:20 unload:20 busy-exit:20 busy-unload:20 destroyed-exit:20 cold-exit:20 reload:1 cold-threads:10)
if(NOT VANTIX_SANITIZE STREQUAL "thread")
    list(APPEND _lives left-exit:20)  # to ThreadSanitizer the threads that it leaves on purpose are a finding
endif()
if(NOT WIN32)
    list(APPEND _lives fork:1 signals:1 few-descriptors:1)
    if(NOT VANTIX_SANITIZE)
        list(APPEND _lives little-memory:1 no-thread:1)  # sanitizers need the address space themselves
    endif()
endif()
foreach(_life ${_lives})
    string(REPLACE ":" ";" _life ${_life})
    list(GET _life 0 _scenario)
    list(GET _life 1 _runs)
    add_test(NAME clean_lives.${_scenario}
        COMMAND "${Python3_EXECUTABLE}" -B "${CMAKE_CURRENT_SOURCE_DIR}/checks/clean-lives.py" ${_runs} ${_scenario}
            "$<TARGET_FILE:vantixdatacenter>" ${CMAKE_CROSSCOMPILING_EMULATOR} "$<TARGET_FILE:life_probe>")
    set_tests_properties(clean_lives.${_scenario} PROPERTIES TIMEOUT 600 ENVIRONMENT "VANTIX_SIMULATOR=none;${_cloud}")
endforeach()
