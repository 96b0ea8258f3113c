# Transfers are scripted: the linker sends libcurl's calls to the tests' own functions.
target_link_options(${VANTIX_TEST} PRIVATE
    "LINKER:--wrap=curl_easy_setopt" "LINKER:--wrap=curl_easy_perform" "LINKER:--wrap=curl_easy_cleanup")
