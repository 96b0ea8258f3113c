# What the library's objects may use and keep, each by itself: see the list.

set(_symbols "${CMAKE_CURRENT_SOURCE_DIR}/checks/object-symbols.py")
add_test(NAME object_symbols_self_test COMMAND "${Python3_EXECUTABLE}" "${_symbols}" --self-test)
if(UNIX AND NOT CMAKE_CROSSCOMPILING AND NOT VANTIX_SANITIZE AND NOT VANTIX_COVERAGE)
    add_test(NAME object_symbols COMMAND "${Python3_EXECUTABLE}" "${_symbols}" "${CMAKE_NM}" "${CMAKE_OBJDUMP}"
        "${CMAKE_CURRENT_SOURCE_DIR}/data/object-symbols.txt" "$<TARGET_OBJECTS:vantix_objects>" COMMAND_EXPAND_LISTS)
endif()
