# What the shared library shows is what the list says, no more and no less.

if(UNIX AND NOT CMAKE_CROSSCOMPILING)
    add_test(NAME exported_symbols COMMAND "${Python3_EXECUTABLE}" "${CMAKE_CURRENT_SOURCE_DIR}/checks/exported-symbols.py"
        "${CMAKE_NM}" "$<TARGET_FILE:vantixdatacenter>" "${CMAKE_CURRENT_SOURCE_DIR}/data/exported-symbols.txt")
endif()
