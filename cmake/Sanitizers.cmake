# VANTIX_SANITIZE instruments everything that this build compiles:
#   address   AddressSanitizer with leak detection, and UndefinedBehaviorSanitizer; the first finding ends the program
#   thread    ThreadSanitizer
# VANTIX_COVERAGE counts lines and branches (gcov).

set(VANTIX_SANITIZE "" CACHE STRING "Sanitizers to build with: empty, address or thread")
set_property(CACHE VANTIX_SANITIZE PROPERTY STRINGS "" address thread)
option(VANTIX_COVERAGE "Count executed lines and branches" OFF)

if(VANTIX_SANITIZE STREQUAL "address")
    set(_sanitize -fsanitize=address,undefined -fno-sanitize-recover=all)
elseif(VANTIX_SANITIZE STREQUAL "thread")
    set(_sanitize -fsanitize=thread)
elseif(NOT VANTIX_SANITIZE STREQUAL "")
    message(FATAL_ERROR "VANTIX_SANITIZE is '${VANTIX_SANITIZE}': it can be empty, address or thread")
endif()

if(_sanitize)
    add_compile_options(${_sanitize} -fno-omit-frame-pointer)
    add_link_options(${_sanitize})
endif()

if(VANTIX_COVERAGE)
    add_compile_options(--coverage -fprofile-update=atomic)
    add_link_options(--coverage)
endif()
