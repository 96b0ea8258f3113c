#pragma once

#include <cstdint>
#include <string>

#include "transport/ParamMap.h"

namespace vantix {

/// Who sends a request. Made anew for each request.
struct ClientInfo {
    ClientInfo();

    int32_t clientType = 19;
    std::string featureCode;  ///< Empty when it could not be made.
    std::string osVersion = "wins";
    std::string clientVersion = "v5.25.0";
    std::string sdkVersion = "v5.25.0.20260515";
    std::string netType = "UNKNOWN";
};

/// A parameter of the client set, and where its text stands.
struct ClientText {
    const char* key;
    std::string ClientInfo::*text;
};
/// The client set: this number, and these texts.
inline constexpr const char* kClientTypeKey = "clientType";
inline constexpr ClientText kClientTexts[] = {
    {.key = "featureCode", .text = &ClientInfo::featureCode},     {.key = "osVersion", .text = &ClientInfo::osVersion},
    {.key = "clientVersion", .text = &ClientInfo::clientVersion}, {.key = "netType", .text = &ClientInfo::netType},
    {.key = "sdkVersion", .text = &ClientInfo::sdkVersion},
};

/// Customer number, sent as "customno" or "clientNo".
inline constexpr const char* kCustomerNumber = "100002";
/// Language, sent as "lang".
inline constexpr const char* kLanguage = "EN";

/// Adds the client set, which most platform requests include.
void AddClientSet(ParamMap& params, const ClientInfo& client);

/// Adds the headers of device pagelists on the consumer servers: neither feature code nor language.
void AddHeaderSetA(ParamMap& headers, const ClientInfo& client, const std::string& sessionId);

/// Adds the headers of most other requests there.
void AddHeaderSetB(ParamMap& headers, const ClientInfo& client, const std::string& sessionId);

}  // namespace vantix
