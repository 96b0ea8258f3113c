# Every header that a host may include compiles on its own, as C++17, without a warning.

if(NOT MSVC)
    file(GLOB_RECURSE _headers RELATIVE "${PROJECT_SOURCE_DIR}/include" CONFIGURE_DEPENDS
        "${PROJECT_SOURCE_DIR}/include/vantix/*.h")
    add_test(NAME public_headers COMMAND "${Python3_EXECUTABLE}" "${CMAKE_CURRENT_SOURCE_DIR}/checks/public-headers.py"
        "${CMAKE_CXX_COMPILER}" "${PROJECT_SOURCE_DIR}/include" -- ${_headers})
endif()
