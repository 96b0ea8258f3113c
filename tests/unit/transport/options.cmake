# libcurl's functions, calloc and realloc, and the conversion to the code page (by its mangled name) are led to
# CurlSpy.cpp first, which watches them and lets them fail.
foreach(_function
        curl_easy_init curl_easy_setopt curl_easy_perform curl_easy_cleanup curl_slist_append curl_slist_free_all
        curl_mime_init curl_mime_addpart curl_mime_name curl_mime_data curl_mime_filedata curl_mime_free calloc realloc
        _ZN6vantix10Utf8ToAnsiERNS_12ResponseBodyE)
    target_link_options(${VANTIX_TEST} PRIVATE "LINKER:--wrap=${_function}")
endforeach()
