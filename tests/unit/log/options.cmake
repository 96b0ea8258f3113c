# What this build's logger does with a text that fills its buffer.
if(VANTIX_OVERLONG_LINE STREQUAL "drop")
    target_compile_definitions(${VANTIX_TEST} PRIVATE VANTIX_DROP_OVERLONG_LINE)
endif()

# The sinks of these tests are scripted, and the end of the process can be caught: the linker sends the calls to the
# tests' own functions.
target_link_options(${VANTIX_TEST} PRIVATE "LINKER:--wrap=TVL_OutputDebugString" "LINKER:--wrap=abort")
