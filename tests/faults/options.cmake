# A thread that cannot be started: the linker sends the call to the tests' own function.
target_link_options(${VANTIX_TEST} PRIVATE
    "LINKER:--wrap=_ZNSt6thread15_M_start_threadESt10unique_ptrINS_6_StateESt14default_deleteIS1_EEPFvvE")
include("${CMAKE_CURRENT_SOURCE_DIR}/unit/json/options.cmake")
