# What this build's logger does with a text that fills its buffer.
if(VANTIX_OVERLONG_LINE STREQUAL "drop")
    target_compile_definitions(${VANTIX_TEST} PRIVATE VANTIX_DROP_OVERLONG_LINE)
endif()

# The sinks of these tests are scripted, and the end of the process can be caught: the linker sends the calls to the
# tests' own functions.
target_link_options(${VANTIX_TEST} PRIVATE "LINKER:--wrap=TVL_OutputDebugString" "LINKER:--wrap=abort")

# It compiles the logger once more, with another setting.
set_source_files_properties(unit/log/LoggerThatDrops.cpp PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
