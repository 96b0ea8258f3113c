# The mutex entry points are counted and made to fail: calls to them reach LockClassesTest.cpp first.
target_link_options(${VANTIX_TEST} PRIVATE
    "LINKER:--wrap=TVL_MutexCreate" "LINKER:--wrap=TVL_MutexLock" "LINKER:--wrap=TVL_MutexUnlock")
