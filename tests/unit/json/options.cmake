# A locale with a decimal comma of the tests' own, where the system's locale compiler and sources are installed.
find_program(VANTIX_LOCALEDEF localedef)
mark_as_advanced(VANTIX_LOCALEDEF)
if(UNIX AND VANTIX_LOCALEDEF)
    set(_locales "${CMAKE_CURRENT_BINARY_DIR}/locales")
    if(NOT EXISTS "${_locales}/de_DE.UTF-8")
        file(MAKE_DIRECTORY "${_locales}")
        execute_process(COMMAND "${VANTIX_LOCALEDEF}" -i de_DE -f UTF-8 --no-archive "${_locales}/de_DE.UTF-8"
            OUTPUT_QUIET ERROR_QUIET)
    endif()
    target_compile_definitions(${VANTIX_TEST} PRIVATE VANTIX_TEST_LOCALES="${_locales}")
endif()
