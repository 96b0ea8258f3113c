# The mutex entry points are counted and made to fail: calls to them reach LockClassesTest.cpp first.
target_link_options(${VANTIX_TEST} PRIVATE
    "LINKER:--wrap=TVL_MutexCreate" "LINKER:--wrap=TVL_MutexLock" "LINKER:--wrap=TVL_MutexUnlock")

if(UNIX)
    # What the system and its cryptographic library refuse: calls reach TvlPosixTest.cpp and CryptoWrapTest.cpp first.
    target_link_options(${VANTIX_TEST} PRIVATE
        "LINKER:--wrap=EVP_Digest" "LINKER:--wrap=pthread_mutex_init" "LINKER:--wrap=pthread_key_create")
endif()
