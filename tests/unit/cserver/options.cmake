# Transfers are scripted: the linker sends libcurl's calls to the tests' own functions.
target_link_options(${VANTIX_TEST} PRIVATE
    "LINKER:--wrap=curl_easy_setopt" "LINKER:--wrap=curl_easy_perform" "LINKER:--wrap=curl_easy_cleanup")
# Both families fill the same detail records.
target_sources(${VANTIX_TEST} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/unit/platform/DetailRecords.cpp")
