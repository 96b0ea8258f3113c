# vantix_hardening: what makes a fault of memory harder to use, in the libraries that hosts load. A test looks for it in
# the built libraries. Sanitizers and coverage look closer themselves.

add_library(vantix_hardening INTERFACE)
if(MSVC OR VANTIX_SANITIZE OR VANTIX_COVERAGE)
    return()  # Visual C++ does the like by default
endif()

target_compile_options(vantix_hardening INTERFACE -fstack-protector-strong)
# Checked copies and formats. They need an optimising build.
target_compile_options(vantix_hardening INTERFACE
    "$<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")
if(WIN32)
    target_link_libraries(vantix_hardening INTERFACE ssp)  # the functions that checked code calls
    target_link_options(vantix_hardening INTERFACE
        "LINKER:--dynamicbase" "LINKER:--nxcompat" "LINKER:--high-entropy-va")
else()
    # No jump over the guard page, as the 40-KiB buffer of a log line could do. (Windows code always goes page by page.)
    target_compile_options(vantix_hardening INTERFACE -fstack-clash-protection)
    target_link_options(vantix_hardening INTERFACE "LINKER:-z,relro,-z,now,-z,noexecstack")
endif()
