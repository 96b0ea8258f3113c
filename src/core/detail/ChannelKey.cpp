#include "core/detail/ChannelKey.h"

#include <cstdio>

#include "core/CoreSite.h"

namespace vantix {

std::string getDevDetailInfoMapKey(const std::string& serial, int ch) {
    constexpr size_t kLongestSerial = 128;
    if (serial.empty() || serial.size() > kLongestSerial) {
        VANTIX_LOG_ERROR(VANTIX_CORE_HERE("getDevDetailInfoMapKey"), level::kError, "%s, Serial:%s Channel:%d",
                         "设备序列号参数错误", serial.c_str(), ch);
        return serial;
    }
    char key[256] = {};
    std::snprintf(key, sizeof(key), "%s_%d", serial.c_str(), ch);
    return key;
}

}  // namespace vantix
