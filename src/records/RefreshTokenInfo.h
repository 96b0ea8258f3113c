#pragma once

#include <string>

namespace vantix {

/// What the authorisation service returns for a refresh.
struct RefreshTokenInfo {
    std::string access_token;
    std::string openId;
    std::string refresh_token;
    std::string expires_in;  ///< Seconds as decimal text.
};

}  // namespace vantix
