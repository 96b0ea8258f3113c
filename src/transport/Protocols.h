#pragma once

/// @file
/// libcurl's options that say which protocols it speaks, first and after a redirect. Without them it would read local
/// files, too, when a server gives their address.

#include <curl/curl.h>

namespace vantix::protocols {

#if CURL_AT_LEAST_VERSION(7, 85, 0)
inline constexpr CURLoption kFirstOption = CURLOPT_PROTOCOLS_STR;
inline constexpr CURLoption kRedirectOption = CURLOPT_REDIR_PROTOCOLS_STR;
inline constexpr const char* kHttpAlone = "http,https";
#else
inline constexpr CURLoption kFirstOption = CURLOPT_PROTOCOLS;
inline constexpr CURLoption kRedirectOption = CURLOPT_REDIR_PROTOCOLS;
inline constexpr long kHttpAlone = CURLPROTO_HTTP | CURLPROTO_HTTPS;
#endif

}  // namespace vantix::protocols
