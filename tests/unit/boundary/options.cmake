# Transfers are scripted, and the locks that a thread holds are counted: the linker sends the calls to the tests' own
# functions.
target_link_options(${VANTIX_TEST} PRIVATE
    "LINKER:--wrap=curl_easy_setopt" "LINKER:--wrap=curl_easy_perform" "LINKER:--wrap=curl_easy_cleanup"
    "LINKER:--wrap=TVL_MutexLock" "LINKER:--wrap=TVL_MutexUnlock")
# So that a response's body, which grows by them, can run out of memory.
if(NOT WIN32)
    foreach(_function malloc calloc realloc)
        target_link_options(${VANTIX_TEST} PRIVATE "LINKER:--wrap=${_function}")
    endforeach()
endif()
