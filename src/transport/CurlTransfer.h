#pragma once

#include <curl/curl.h>

#include <string>

#include "transport/ParamMap.h"
#include "transport/ResponseBody.h"

namespace vantix {

/// One transfer: a curl handle with everything that it owns. It is made, gets its options, runs once and is destroyed.
///
/// Only http and https are spoken, also after a redirect; any other scheme ends with libcurl's code 1. The first step
/// that fails decides the result, and nothing is sent then.
class CurlTransfer {
public:
    explicit CurlTransfer(bool verbose);
    ~CurlTransfer();
    CurlTransfer(const CurlTransfer&) = delete;
    CurlTransfer& operator=(const CurlTransfer&) = delete;

    /// Sets one option; the value's type is the option's.
    template <class Value>
    void Set(CURLoption option, Value value) {
        if (m_result == CURLE_OK) {
            m_result = curl_easy_setopt(m_handle, option, value);
        }
    }

    /// Adds a header line ("key: value"). Line breaks are removed: one entry never becomes two headers.
    void AddHeader(std::string line);
    /// Adds every entry as a header; one with an empty value is sent too.
    void AddHeaders(const ParamMap& headers);
    /// Hands the collected headers to the handle.
    void ApplyHeaders();

    /// Adds a text part to the form.
    void AddFormText(const ParamMap::Entry& text);
    /// Adds a part whose data is read from a regular file; libcurl's code 26 when there is none.
    void AddFormFile(const std::string& name, const char* localPath);
    /// Makes the collected parts the request's body.
    void ApplyForm();

    /// Sets the address and what every transfer has in common, in the order that all of them share.
    void SetCommonOptions(const char* address, bool withReadFunction);

    /// Performs the transfer; libcurl's code, or that of the first step that failed before it.
    int Perform();

    /// The body that the server sent.
    ResponseBody& Body() { return m_body; }

private:
    curl_mimepart* AddFormPart(std::string name);

    CURL* m_handle;
    CURLcode m_result;
    curl_slist* m_headers = nullptr;
    curl_mime* m_form = nullptr;
    ResponseBody m_body;
};

}  // namespace vantix
