#include "core/detail/ChannelKey.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "core/CoreSite.h"

namespace vantix {

std::string getDevDetailInfoMapKey(const std::string& serial, int ch) {
    constexpr size_t kLongestSerial = 128;
    constexpr size_t kLongestNumber = 11;
    if (serial.empty() || serial.size() > kLongestSerial) {
        VANTIX_LOG_ERROR(VANTIX_CORE_HERE("getDevDetailInfoMapKey"), level::kError, "%s, Serial:%s Channel:%d",
                         "设备序列号参数错误", serial.c_str(), ch);
        return serial;
    }
    const std::string_view text = serial.c_str();  // up to a zero
    std::array<char, kLongestSerial + 1 + kLongestNumber> key;
    char* end = std::copy(text.begin(), text.end(), key.data());
    *end++ = '_';
    end = std::to_chars(end, key.data() + key.size(), ch).ptr;
    return {key.data(), end};
}

}  // namespace vantix
