# libcurl's functions, malloc, and the conversion to the code page (by its mangled name) are led to CurlSpy.cpp first,
# which watches them and lets them fail.
foreach(_function
        curl_easy_init curl_easy_setopt curl_easy_perform curl_easy_cleanup curl_slist_append curl_slist_free_all
        curl_mime_init curl_mime_addpart curl_mime_name curl_mime_data curl_mime_filedata curl_mime_free malloc
        _ZN6vantix10Utf8ToAnsiERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE)
    target_link_options(${VANTIX_TEST} PRIVATE "LINKER:--wrap=${_function}")
endforeach()
