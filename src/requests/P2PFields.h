#pragma once

/// @file
/// P2P members that responses of both families have.

#include <string>

#include "json/Fields.h"
#include "json/JsonCppReader.h"
#include "requests/ResponseReader.h"
#include "vantix/records/P2PDevInfo.h"

namespace vantix {

inline constexpr json::Field<P2PServerAddr> kP2PServerFields[] = {
    {"ip", &P2PServerAddr::ip},
    {"port", &P2PServerAddr::port},
};

/// Reads a capability text, each family under its own keys: 0, or 1 when it is not JSON.
template <const auto& Fields>
int ReadP2PCapabilities(const CallSite& site, TextView text, P2PDevInfo& devInfo) {
    json::JsonCppDocument document;
    const int code = ParseBody(site, text, document);
    if (code == 0) {
        json::ReadFields<Fields>(document.Root(), devInfo);
    }
    return code;
}

}  // namespace vantix
