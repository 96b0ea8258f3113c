#include "transport/CRequest.h"

#include <cstring>
#include <string>

#include "base/ProcessSwitches.h"
#include "log/Logger.h"
#include "transport/CodePage.h"
#include "transport/CurlTransfer.h"

namespace vantix {
namespace {

constexpr size_t kLongestLoggedBody = 10240;

bool ParametersGiven(const CallSite& site, const void* first, const void* second, const void* third) {
    if (first != nullptr && second != nullptr && third != nullptr) {
        return true;
    }
    VANTIX_LOG_ERROR(site, level::kError, "param is NULL");
    return false;
}

std::string WithQuery(const char* address, const char* parameters) {
    std::string url;
    url.reserve(std::strlen(address) + 1 + std::strlen(parameters));
    return url.append(address).append("?").append(parameters);
}

/// Runs the transfer and hands out its body, whatever the result.
int Finish(const CallSite& site, CurlTransfer& transfer, char** response, uint32_t* length) {
    int result = transfer.Perform();
    ResponseBody& body = transfer.Body();
    if (!bUtf8) {
        Utf8ToAnsi(body);
    }
    const TextView text = body.Text();  // of the same block after it has been handed out
    *length = static_cast<uint32_t>(text.size());
    if (response != nullptr) {
        *response = body.Release();
        result = *response != nullptr ? result : CURLE_OUT_OF_MEMORY;
    }
    if (text.size() <= kLongestLoggedBody) {
        VANTIX_LOG_INFO(site, level::kInfo, "strRsp:%s", text.c_str());
    } else {
        VANTIX_LOG_INFO(site, level::kInfo, "strRsp outlen");
    }
    return result;
}

}  // namespace

int CRequest::SyncRequest(const char* address, const char* parameters, RequestMode mode, char** response,
                          uint32_t* length) const {
    const CallSite site = VANTIX_HERE;
    if (!ParametersGiven(site, address, parameters, length)) {
        return kNullParameter;
    }
    CurlTransfer transfer(m_verbose);
    const std::string query = mode == RequestMode::Get ? WithQuery(address, parameters) : std::string();
    if (mode == RequestMode::JsonPost) {
        transfer.AddHeader("Content-Type:application/json");
        transfer.ApplyHeaders();
    }
    if (mode != RequestMode::Get) {
        transfer.Set(CURLOPT_POST, 1L);
        transfer.Set(CURLOPT_POSTFIELDS, parameters);
    }
    transfer.SetCommonOptions(mode == RequestMode::Get ? query.c_str() : address, true);
    return Finish(site, transfer, response, length);
}

int CRequest::SyncRequestHeader(const char* address, const char* parameters, const ParamMap& headers, char** response,
                                uint32_t* length) const {
    const CallSite site = VANTIX_HERE;
    if (!ParametersGiven(site, address, parameters, length)) {
        return kNullParameter;
    }
    CurlTransfer transfer(m_verbose);
    transfer.SetCommonOptions(WithQuery(address, parameters).c_str(), true);
    transfer.AddHeaders(headers);
    transfer.ApplyHeaders();
    return Finish(site, transfer, response, length);
}

int CRequest::SyncRequesPostHeader(const char* address, const char* parameters, const ParamMap& headers,
                                   char** response, uint32_t* length) const {
    const CallSite site = VANTIX_HERE;
    if (!ParametersGiven(site, address, parameters, length)) {
        return kNullParameter;
    }
    CurlTransfer transfer(m_verbose);
    transfer.Set(CURLOPT_CUSTOMREQUEST, "POST");
    transfer.SetCommonOptions(WithQuery(address, parameters).c_str(), true);
    transfer.AddHeaders(headers);
    transfer.ApplyHeaders();
    return Finish(site, transfer, response, length);
}

int CRequest::SyncPutRequestHeader(const char* address, const char* parameters, const ParamMap& headers,
                                   const std::string& body, char** response, uint32_t* length) const {
    const CallSite site = VANTIX_HERE;
    if (!ParametersGiven(site, address, parameters, length)) {
        return kNullParameter;
    }
    CurlTransfer transfer(m_verbose);
    transfer.Set(CURLOPT_CUSTOMREQUEST, "PUT");
    if (!body.empty()) {
        transfer.Set(CURLOPT_POSTFIELDS, body.c_str());
        transfer.Set(CURLOPT_POSTFIELDSIZE, static_cast<long>(body.size()));
    }
    transfer.SetCommonOptions(WithQuery(address, parameters).c_str(), false);
    transfer.AddHeaders(headers);
    transfer.ApplyHeaders();
    return Finish(site, transfer, response, length);
}

int CRequest::SyncRequestUpload(const char* address, const char* localPath, const ParamMap& form, char** response,
                                uint32_t* length) const {
    const CallSite site = VANTIX_HERE;
    if (!ParametersGiven(site, address, localPath, length)) {
        return kNullParameter;
    }
    CurlTransfer transfer(m_verbose);
    for (size_t i = 0; i < form.Size(); ++i) {
        transfer.AddFormText(form.At(i));
    }
    transfer.AddFormFile("file", localPath);
    transfer.ApplyForm();
    transfer.SetCommonOptions(address, true);
    return Finish(site, transfer, response, length);
}

}  // namespace vantix
