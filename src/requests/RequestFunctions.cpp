#include "requests/RequestFunctions.h"

#include <optional>
#include <string>
#include <string_view>

#include "log/Logger.h"
#include "log/Masking.h"
#include "requests/EndpointTable.h"
#include "transport/CRequest.h"

namespace vantix {
namespace {

/// The whole address; nothing when the base is missing.
class Address {
public:
    Address(const char* base, uint32_t endpoint) {
        if (base != nullptr) {
            const std::string_view start = base;
            const std::string_view path = EndpointPathView(endpoint);
            m_text.emplace().reserve(start.size() + path.size());
            m_text->append(start).append(path);
        }
    }
    const char* Get() const { return m_text ? m_text->c_str() : nullptr; }
    std::string ForLog() const { return m_text.value_or(""); }

private:
    std::optional<std::string> m_text;
};

/// `masked` yields the parameters as they may be shown; it is not asked when the line is filtered out.
template <class Masked>
void LogStart(const CallSite& site, const Address& address, Masked masked) {
    VANTIX_LOG_INFO(site, level::kInfo, "start Posts url and Param = %s", (address.ForLog() + "?" + masked()).c_str());
}

std::string HeaderForLog(const ParamMap::Entry& header) {
    return std::string(header.key).append(": ").append(IsSecretHeader(header.key) ? kMask : header.value);
}

void LogHeaders(const CallSite& site, const ParamMap& headers) {
    for (size_t i = 0; i < headers.Size(); ++i) {
        VANTIX_LOG_INFO(site, level::kInfo, "heads = %s", HeaderForLog(headers.At(i)).c_str());
    }
}

int LogEnd(const CallSite& site, int result) {
    VANTIX_LOG_INFO(site, level::kInfo, "end Posts url and Param result = %d", result);
    return result;
}

/// What all functions do that send a parameter map: `send` gets the address and the serialized parameters.
template <class Send>
int SendParameters(const CallSite& site, uint32_t endpoint, const ParamMap& params, const ParamMap* headers,
                   const char* base, const uint32_t* length, Send send) {
    if (length == nullptr) {
        return kNullParameter;
    }
    const Address address(base, endpoint);
    LogStart(site, address, [&] { return params.SerializeMasked(); });
    if (headers != nullptr) {
        LogHeaders(site, *headers);
    }
    return LogEnd(site, send(address.Get(), params.Serialize()));
}

}  // namespace

int SyncRequest(uint32_t endpoint, const ParamMap& params, const char* base, char** response, uint32_t* length) {
    return SendParameters(
        VANTIX_HERE, endpoint, params, nullptr, base, length, [&](const char* address, const std::string& text) {
            return CRequest().SyncRequest(address, text.c_str(), RequestMode::FormPost, response, length);
        });
}

int SyncRequestjson(const char* json, const char* base, char** response, uint32_t* length) {
    const CallSite site = VANTIX_HERE;
    if (length == nullptr) {
        return kNullParameter;
    }
    const Address address(base, endpoint::kCloudFileDetails);
    LogStart(site, address, [&] { return json == nullptr ? std::string() : MaskedJson(json); });
    return LogEnd(site, CRequest().SyncRequest(address.Get(), json, RequestMode::JsonPost, response, length));
}

int SyncRequest_v2(const ParamMap& params, const char* base, char** response, uint32_t* length) {
    return SendParameters(VANTIX_HERE, endpoint::kTicket, params, nullptr, base, length,
                          [&](const char* address, const std::string& text) {
                              return CRequest().SyncRequest(address, text.c_str(), RequestMode::Get, response, length);
                          });
}

int SyncRequestHeader(uint32_t endpoint, const ParamMap& params, const ParamMap& headers, const char* base,
                      char** response, uint32_t* length) {
    return SendParameters(VANTIX_HERE, endpoint, params, &headers, base, length,
                          [&](const char* address, const std::string& text) {
                              return CRequest().SyncRequestHeader(address, text.c_str(), headers, response, length);
                          });
}

int SyncRequestHeaderPost(uint32_t endpoint, const ParamMap& params, const ParamMap& headers, const char* base,
                          char** response, uint32_t* length) {
    return SendParameters(VANTIX_HERE, endpoint, params, &headers, base, length,
                          [&](const char* address, const std::string& text) {
                              return CRequest().SyncRequesPostHeader(address, text.c_str(), headers, response, length);
                          });
}

int SyncPutRequestHeader(uint32_t /*endpoint*/, const ParamMap& params, const ParamMap& headers, const char* base,
                         char** response, uint32_t* length) {
    return SendParameters(VANTIX_HERE, endpoint::kConsumerLogin, params, &headers, base, length,
                          [&](const char* address, const std::string& text) {
                              return CRequest().SyncPutRequestHeader(address, text.c_str(), headers, std::string(),
                                                                     response, length);
                          });
}

}  // namespace vantix
