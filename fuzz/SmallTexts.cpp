// Small readers and writers: numbers in texts, times, cache keys, paths.

#include <cstdint>
#include <cstring>
#include <limits>

#include "base/NumberText.h"
#include "core/detail/ChannelKey.h"
#include "requests/EndpointTable.h"
#include "requests/TimeText.h"
#include "support/Records.h"

namespace vantix::fuzz {
namespace {

void ReadNumber(const std::string& text) {
    const int32_t number = DecimalPrefix(text);
    Require(DecimalPrefix(" \t" + text) == number);
    Require(DecimalPrefix(std::to_string(number)) == number);
    Require(DecimalPrefix(text + "x") == number);  // nothing behind the digits counts
    if (!text.empty() && text[0] >= '0' && text[0] <= '9') {
        constexpr int32_t kLargest = std::numeric_limits<int32_t>::max();
        const int32_t negative = DecimalPrefix("-" + text);
        Require(number >= 0 && (negative == -number || number == kLargest));
    }
}

/// Of a time only the first blank is escaped.
void WriteTime(const std::string& text) {
    const std::string escaped = WithFirstBlankEscaped(text);
    const size_t blank = text.find(' ');
    Require(blank == std::string::npos ? escaped == text
                                       : escaped.size() == text.size() + 2 && escaped.compare(blank, 3, "%20") == 0 &&
                                             escaped.substr(blank + 3) == text.substr(blank + 1));
}

/// The first four bytes are the channel. The key is serial and channel, or the serial alone when it is unusual.
void MakeKey(const std::string& text) {
    int32_t ch = 0;
    std::memcpy(&ch, text.data(), text.size() < sizeof(ch) ? text.size() : sizeof(ch));
    const std::string serial(text, text.size() < sizeof(ch) ? text.size() : sizeof(ch));
    const std::string key = getDevDetailInfoMapKey(serial, ch);
    const bool isUsual = !serial.empty() && serial.size() <= 128;
    const std::string visible = serial.substr(0, serial.find('\0'));
    Require(key == (isUsual ? visible + "_" + std::to_string(ch) : serial));
}

void FindPath(const std::string& text) {
    uint32_t index = 0;
    std::memcpy(&index, text.data(), text.size() < sizeof(index) ? text.size() : sizeof(index));
    Require(EndpointPath(index).empty() == (index >= 46));
}

constexpr Reader kRows[] = {
    {"number", ReadNumber},
    {"time", WriteTime},
    {"key", MakeKey},
    {"path", FindPath},
};

}  // namespace

constinit const std::span<const Reader> kReaders{kRows};

}  // namespace vantix::fuzz
