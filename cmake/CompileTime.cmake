# What makes a cold build short: what is not the library is compiled for the compiler's time, not for the program's.
# Each file of the library is compiled alone, with the optimisation of the build.

option(VANTIX_COMPILE_TOGETHER "Compile files of the tests, the tools and the loopback cloud in groups" ON)

# vantix_compile_fast(TARGET OPTIMISATION): with less optimisation, with line numbers as the debug information, and up
# to eight files of a folder as one: most of the time goes into headers and templates, which they share. Their unnamed
# namespaces are one as well.
function(vantix_compile_fast TARGET OPTIMISATION)
    if(NOT MSVC)
        target_compile_options(${TARGET} PRIVATE $<$<CONFIG:RelWithDebInfo>:${OPTIMISATION};-g1>)
    endif()
    if(NOT VANTIX_COMPILE_TOGETHER)
        return()
    endif()
    get_target_property(_sources ${TARGET} SOURCES)
    foreach(_source ${_sources})
        file(REAL_PATH "${_source}" _path)
        file(RELATIVE_PATH _path "${CMAKE_CURRENT_SOURCE_DIR}" "${_path}")
        get_filename_component(_folder "${_path}" DIRECTORY)
        string(MAKE_C_IDENTIFIER "${_folder}" _folder)
        math(EXPR _${_folder}_files "${_${_folder}_files} + 1")
        math(EXPR _group "(${_${_folder}_files} + 7) / 8")
        set_source_files_properties("${_source}" PROPERTIES UNITY_GROUP "${_folder}_${_group}")
    endforeach()
    set_target_properties(${TARGET} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # It takes a class of an included source file for one of a header.
        target_compile_options(${TARGET} PRIVATE -Wno-subobject-linkage)
    endif()
endfunction()
