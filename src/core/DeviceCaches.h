#pragma once

#include <map>
#include <string>
#include <unordered_map>

#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"
#include "vantix/records/P2PDevInfo.h"

namespace vantix {

using ChannelMap = std::unordered_map<std::string, DevChannelInfo>;
using DeviceMap = std::map<std::string, DevDetailInfo>;
using P2PDevMap = std::map<std::string, P2PDevInfo>;

}  // namespace vantix
