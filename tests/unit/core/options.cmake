# Transfers are scripted, and a thread that cannot be started can be had: the linker sends the calls to the tests' own
# functions.
target_link_options(${VANTIX_TEST} PRIVATE
    "LINKER:--wrap=curl_easy_setopt" "LINKER:--wrap=curl_easy_perform" "LINKER:--wrap=curl_easy_cleanup"
    "LINKER:--wrap=_ZNSt6thread15_M_start_threadESt10unique_ptrINS_6_StateESt14default_deleteIS1_EEPFvvE")
# Which mutexes are taken, in which order and how many at once, is watched.
target_link_options(${VANTIX_TEST} PRIVATE "LINKER:--wrap=TVL_MutexLock" "LINKER:--wrap=TVL_MutexUnlock")
