#pragma once

#include <cstdint>
#include <string>

#include "transport/ParamMap.h"

namespace vantix {

/// Who sends a request. Made afresh for each.
struct ClientInfo {
    ClientInfo();

    int32_t clientType = 19;
    std::string featureCode;  ///< Empty when it could not be made.
    std::string osVersion = "wins";
    std::string clientVersion = "v5.25.0";
    std::string sdkVersion = "v5.25.0.20260515";
    std::string netType = "UNKNOWN";
};

/// Customer number, sent as "customno" or "clientNo".
inline constexpr const char* kCustomerNumber = "100002";
/// Language, sent as "lang".
inline constexpr const char* kLanguage = "EN";

/// Adds the six parameters that most platform requests carry.
void AddClientSet(ParamMap& params, const ClientInfo& client);

/// Headers of the consumer servers' device pages. They carry neither feature code nor language.
ParamMap ConsumerHeadersA(const ClientInfo& client, const std::string& sessionId);

/// Headers of their other requests.
ParamMap ConsumerHeadersB(const ClientInfo& client, const std::string& sessionId);

}  // namespace vantix
