# A thread that cannot be started, and a thread-local slot that cannot be had: the linker sends the calls to the tests'
# own functions.
target_link_options(${VANTIX_TEST} PRIVATE
    "LINKER:--wrap=_ZNSt6thread15_M_start_threadESt10unique_ptrINS_6_StateESt14default_deleteIS1_EEPFvvE"
    "LINKER:--wrap=TVL_ThreadTls_Create" "LINKER:--wrap=TVL_ThreadTls_Destroy"
    "LINKER:--wrap=TVL_ThreadTls_SetValue")
