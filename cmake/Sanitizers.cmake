# VANTIX_SANITIZE instruments everything that this build compiles:
#   address   AddressSanitizer with leak detection, and UndefinedBehaviorSanitizer; the first finding ends the program
#   thread    ThreadSanitizer
#   fuzz      as address, with the counters that libFuzzer follows (clang only)
# VANTIX_COVERAGE counts lines and branches (gcov).

set(VANTIX_SANITIZE "" CACHE STRING "Sanitizers to build with: empty, address, thread or fuzz")
set_property(CACHE VANTIX_SANITIZE PROPERTY STRINGS "" address thread fuzz)
option(VANTIX_COVERAGE "Count executed lines and branches" OFF)

if(VANTIX_SANITIZE STREQUAL "address")
    set(_sanitize -fsanitize=address,undefined -fno-sanitize-recover=all)
elseif(VANTIX_SANITIZE STREQUAL "thread")
    set(_sanitize -fsanitize=thread)
elseif(VANTIX_SANITIZE STREQUAL "fuzz")
    set(_sanitize -fsanitize=address,undefined,fuzzer-no-link -fno-sanitize-recover=all)
elseif(NOT VANTIX_SANITIZE STREQUAL "")
    message(FATAL_ERROR "VANTIX_SANITIZE is '${VANTIX_SANITIZE}': it can be empty, address, thread or fuzz")
endif()

if(_sanitize)
    add_compile_options(${_sanitize} -fno-omit-frame-pointer)
    add_link_options(${_sanitize})
endif()

if(VANTIX_COVERAGE)
    add_compile_options(--coverage -fprofile-update=atomic)
    add_link_options(--coverage)
endif()
