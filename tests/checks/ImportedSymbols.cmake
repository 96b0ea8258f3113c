# Of what the shared library must not do, that which its imports show: see the list.

if(UNIX AND NOT CMAKE_CROSSCOMPILING AND NOT VANTIX_SANITIZE AND NOT VANTIX_COVERAGE)
    add_test(NAME imported_symbols COMMAND "${Python3_EXECUTABLE}" "${CMAKE_CURRENT_SOURCE_DIR}/checks/imported-symbols.py"
        "${CMAKE_NM}" "$<TARGET_FILE:vantixdatacenter>" "${CMAKE_CURRENT_SOURCE_DIR}/data/imported-symbols.txt")
endif()
