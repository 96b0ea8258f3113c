#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

namespace vantix {

/// The Tk tokens of one channel, one for each use.
struct DeviceTkTokens {
    std::string deviceTkToken;
    std::string deviceVideoTkToken;
    std::string previewTkToken;
    std::string playTackTkToken;
    std::string talkTkToken;
    std::string deviceSerial;
    std::string channelNo;
};

/// The B2C token of one channel, and whether the channel is shared with the account.
struct B2CToken {
    std::string token;
    std::string deviceSerial;
    std::string channelNo;
    int32_t isShared = 0;
};

/// By serial and channel without a separator.
using DeviceTkTokenMap = std::unordered_map<std::string, DeviceTkTokens>;
/// By serial, "_" and channel.
using B2CTokenMap = std::unordered_map<std::string, B2CToken>;

}  // namespace vantix
