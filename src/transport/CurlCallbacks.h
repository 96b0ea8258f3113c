#pragma once

#include <curl/curl.h>

#include <cstddef>

namespace vantix {

/// Appends a piece of the body to the `std::string` behind `body`. Returns `count` (libcurl always passes size 1),
/// or a value that makes libcurl abort when a pointer is null or memory runs out.
size_t AppendToBody(char* data, size_t size, size_t count, void* body);

/// libcurl's trace: headers and data to standard output, everything to the debugger channel. Always 0.
int PrintTrace(CURL* handle, curl_infotype type, char* data, size_t size, void* user);

}  // namespace vantix
