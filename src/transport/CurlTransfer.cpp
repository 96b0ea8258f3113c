#include "transport/CurlTransfer.h"

#include <string>
#include <utility>

#include "transport/CurlCallbacks.h"
#include "transport/Protocols.h"
#include "transport/RegularFile.h"

namespace vantix {
namespace {

std::string WithoutLineBreaks(std::string text) {
    std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
    return text;
}

/// libcurl drops "key:" with nothing but blanks behind it, and sends "key;" as a header without a value.
std::string HeaderLine(const ParamMap::Entry& header) {
    constexpr size_t kMostBehindTheKey = 2;
    std::string line;
    line.reserve(header.key.size() + kMostBehindTheKey + header.value.size());
    line.append(header.key);
    const bool isBlank = header.value.find_first_not_of(" \t\n\v\f\r") == std::string_view::npos;
    return isBlank ? line.append(";") : line.append(": ").append(header.value);
}

}  // namespace

CurlTransfer::CurlTransfer(bool verbose)
    : m_handle(curl_easy_init()), m_result(m_handle != nullptr ? CURLE_OK : CURLE_FAILED_INIT) {
    if (verbose) {
        Set(CURLOPT_VERBOSE, 1L);
        Set(CURLOPT_DEBUGFUNCTION, &PrintTrace);
    }
}

CurlTransfer::~CurlTransfer() {
    curl_slist_free_all(m_headers);
    curl_mime_free(m_form);
    curl_easy_cleanup(m_handle);
}

void CurlTransfer::AddHeader(std::string line) {
    if (m_result != CURLE_OK) {
        return;
    }
    // A list that could not grow must stop the request: without its headers it would reach the server as another one.
    curl_slist* grown = curl_slist_append(m_headers, WithoutLineBreaks(std::move(line)).c_str());
    if (grown == nullptr) {
        m_result = CURLE_OUT_OF_MEMORY;
    } else {
        m_headers = grown;
    }
}

void CurlTransfer::AddHeaders(const ParamMap& headers) {
    for (size_t i = 0; i < headers.Size(); ++i) {
        AddHeader(HeaderLine(headers.At(i)));
    }
}

void CurlTransfer::ApplyHeaders() { Set(CURLOPT_HTTPHEADER, m_headers); }

curl_mimepart* CurlTransfer::AddFormPart(std::string name) {
    if (m_result != CURLE_OK) {
        return nullptr;
    }
    if (m_form == nullptr) {
        m_form = curl_mime_init(m_handle);
    }
    curl_mimepart* part = m_form == nullptr ? nullptr : curl_mime_addpart(m_form);
    m_result = part == nullptr ? CURLE_OUT_OF_MEMORY : curl_mime_name(part, WithoutLineBreaks(std::move(name)).c_str());
    return m_result == CURLE_OK ? part : nullptr;
}

void CurlTransfer::AddFormText(const ParamMap::Entry& text) {
    if (curl_mimepart* part = AddFormPart(std::string(text.key))) {
        m_result = curl_mime_data(part, text.value.data(), text.value.size());
    }
}

void CurlTransfer::AddFormFile(const std::string& name, const char* localPath) {
    if (m_result == CURLE_OK && IsNoRegularFile(localPath)) {
        m_result = CURLE_READ_ERROR;
    }
    if (curl_mimepart* part = AddFormPart(name)) {
        m_result = curl_mime_filedata(part, localPath);
    }
}

void CurlTransfer::ApplyForm() { Set(CURLOPT_MIMEPOST, m_form); }

void CurlTransfer::SetCommonOptions(const char* address, bool withReadFunction) {
    constexpr long kConnectTimeoutSeconds = 20;
    constexpr long kTransferTimeoutSeconds = 30;
    Set(CURLOPT_URL, address);
    if (withReadFunction) {
        Set(CURLOPT_READFUNCTION, static_cast<curl_read_callback>(nullptr));
    }
    Set(CURLOPT_WRITEFUNCTION, &AppendToBody);
    Set(CURLOPT_WRITEDATA, &m_body);
    Set(CURLOPT_NOSIGNAL, 1L);
    // The servers' certificates are deliberately not checked.
    Set(CURLOPT_SSL_VERIFYPEER, 0L);
    Set(CURLOPT_SSL_VERIFYHOST, 0L);
    Set(CURLOPT_CONNECTTIMEOUT, kConnectTimeoutSeconds);
    Set(CURLOPT_TIMEOUT, kTransferTimeoutSeconds);
    Set(CURLOPT_FOLLOWLOCATION, 1L);
    Set(protocols::kFirstOption, protocols::kHttpAlone);
    Set(protocols::kRedirectOption, protocols::kHttpAlone);
}

int CurlTransfer::Perform() {
    if (m_result == CURLE_OK) {
        m_result = curl_easy_perform(m_handle);
    }
    return m_result;
}

}  // namespace vantix
