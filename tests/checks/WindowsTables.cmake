# What the Windows libraries export and import, read from the built files.

if(WIN32 AND MINGW)
    add_test(NAME windows_tables COMMAND "${Python3_EXECUTABLE}" "${CMAKE_CURRENT_SOURCE_DIR}/checks/windows-tables.py"
        "${CMAKE_OBJDUMP}" "$<TARGET_FILE:vantixdatacenter>" "$<TARGET_FILE:tvllog>"
        "${CMAKE_CURRENT_SOURCE_DIR}/data/exported-symbols.txt" "${PROJECT_VERSION}")
endif()
