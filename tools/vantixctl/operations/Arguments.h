#pragma once

/// @file
/// The arguments that many operations take.

#include <vantix/IVantixDataCenter.h>

#include <string>

#include "Command.h"

namespace vantix::ctl {

inline constexpr Argument kSerial{"serial"};
inline constexpr Argument kChannel{"channel", "1"};
/// Without a value the account's access token.
inline constexpr Argument kToken{"token", ""};

inline std::string Token(const Call& call) {
    return call.Text("token").empty() ? call.center.getAccessToken() : call.Text("token");
}

}  // namespace vantix::ctl
