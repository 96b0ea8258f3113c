#pragma once

#include <cstdint>
#include <string>

#include "transport/ParamMap.h"

namespace vantix {

/// The result of a call with a null pointer where one is required: libcurl's code for "could not connect".
inline constexpr int kNullParameter = 7;

/// What `CRequest::SyncRequest` sends.
enum class RequestMode {
    Get = 0,       ///< GET of address + "?" + parameters.
    FormPost = 1,  ///< POST of the parameters as a form.
    JsonPost = 2,  ///< POST of the parameters as a JSON text.
};

/// The synchronous HTTP layer: each operation runs one transfer on a connection of its own and hands the body back.
///
/// Results are libcurl's codes; 7 when a required pointer is null (nothing is sent, the out-pointers stay as they
/// were), 2 when no handle could be made. An HTTP error status is no failure here. The body arrives as a `malloc` block
/// of length + 1 bytes with a terminating zero that the caller frees in every case, also after a failure; a null
/// response pointer drops it. Unless the UTF-8 switch is on, the body has been converted to the system's code page.
///
/// Every call blocks for up to 20 seconds to connect and 30 in all. Any number may run at once.
class CRequest {
public:
    CRequest() = default;
    /// `verbose` turns libcurl's trace on.
    explicit CRequest(bool verbose) : m_verbose(verbose) {}

    int SyncRequest(const char* address, const char* parameters, RequestMode mode, char** response,
                    uint32_t* length) const;
    /// GET of address + "?" + parameters.
    int SyncRequestHeader(const char* address, const char* parameters, const ParamMap& headers, char** response,
                          uint32_t* length) const;
    /// POST of address + "?" + parameters, without a body.
    int SyncRequesPostHeader(const char* address, const char* parameters, const ParamMap& headers, char** response,
                             uint32_t* length) const;
    /// PUT of address + "?" + parameters, with `body` unless it is empty.
    int SyncPutRequestHeader(const char* address, const char* parameters, const ParamMap& headers,
                             const std::string& body, char** response, uint32_t* length) const;
    /// POST of a multipart form: a text part for each entry, then the local file as "file".
    int SyncRequestUpload(const char* address, const char* localPath, const ParamMap& form, char** response,
                          uint32_t* length) const;

private:
    bool m_verbose = false;
};

}  // namespace vantix
