# vantix_warnings: the warnings of the project, all of them errors. Every target of the project links it privately.

add_library(vantix_warnings INTERFACE)

if(MSVC)
    target_compile_options(vantix_warnings INTERFACE /W4 /WX /permissive- /utf-8 /Zc:preprocessor)
else()
    target_compile_options(vantix_warnings INTERFACE
        -Wall -Wextra -Wpedantic -Werror
        -Wshadow -Wconversion -Wsign-conversion -Wdouble-promotion
        -Wold-style-cast -Wcast-align -Wcast-qual
        -Wnon-virtual-dtor -Woverloaded-virtual -Wextra-semi
        -Wformat=2 -Wimplicit-fallthrough -Wunused -Wundef)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(vantix_warnings INTERFACE
            -Wduplicated-cond -Wduplicated-branches -Wlogical-op -Wsuggest-override)
    endif()
endif()
