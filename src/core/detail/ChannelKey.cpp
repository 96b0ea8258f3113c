#include "core/detail/ChannelKey.h"

#include <charconv>
#include <iterator>
#include <string_view>

#include "core/CoreSite.h"

namespace vantix {

std::string getDevDetailInfoMapKey(const std::string& serial, int ch) {
    constexpr size_t kLongestSerial = 128;
    if (serial.empty() || serial.size() > kLongestSerial) {
        VANTIX_LOG_ERROR(VANTIX_CORE_HERE("getDevDetailInfoMapKey"), level::kError, "%s, Serial:%s Channel:%d",
                         "设备序列号参数错误", serial.c_str(), ch);
        return serial;
    }
    char digits[12];
    const char* const end = std::to_chars(std::begin(digits), std::end(digits), ch).ptr;
    const std::string_view number(digits, static_cast<size_t>(end - digits));
    const std::string_view text = serial.c_str();  // up to a zero
    std::string key;
    key.reserve(text.size() + 1 + number.size());
    return key.append(text).append("_").append(number);
}

}  // namespace vantix
