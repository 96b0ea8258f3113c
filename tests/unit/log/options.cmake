# The sinks of these tests are scripted, and the end of the process can be caught: the linker sends the calls to the
# tests' own functions.
target_link_options(${VANTIX_TEST} PRIVATE "LINKER:--wrap=TVL_OutputDebugString" "LINKER:--wrap=abort")
