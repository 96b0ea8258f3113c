# What is installed is enough for a host's own project: found, compiled, linked and run.

if(NOT CMAKE_CROSSCOMPILING AND NOT VANTIX_SANITIZE AND NOT MSVC)
    add_test(NAME installed COMMAND "${Python3_EXECUTABLE}" "${CMAKE_CURRENT_SOURCE_DIR}/checks/installed.py"
        "${CMAKE_COMMAND}" "${PROJECT_BINARY_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}/checks/installed-host"
        "${PROJECT_SOURCE_DIR}/examples/host_example.cpp" "${CMAKE_CXX_COMPILER}")
endif()
