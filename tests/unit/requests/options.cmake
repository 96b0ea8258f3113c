# libcurl's functions are led to the transport's CurlSpy first.
include("${CMAKE_CURRENT_SOURCE_DIR}/unit/transport/options.cmake")
target_sources(${VANTIX_TEST} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/unit/transport/CurlSpy.cpp")
# The hardware library's queries are counted on their way.
target_link_options(${VANTIX_TEST} PRIVATE "LINKER:--wrap=HWP_GetDiskSerial" "LINKER:--wrap=HWP_GetMacAddr")
