#include "core/detail/ChannelKey.h"

#include <algorithm>
#include <charconv>
#include <iterator>
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
    char key[kLongestSerial + 1 + kLongestNumber];
    char* end = std::copy(text.begin(), text.end(), std::begin(key));
    *end++ = '_';
    end = std::to_chars(end, std::end(key), ch).ptr;
    return {std::begin(key), end};
}

}  // namespace vantix
