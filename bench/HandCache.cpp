#include "HandCache.h"

#include <array>
#include <charconv>

namespace vantix::bench {
namespace {

std::string Key(const std::string& serial, int channel) {
    std::array<char, 12> number{};
    const auto written = std::to_chars(number.data(), number.data() + number.size(), channel);
    std::string key;
    key.append(serial).append(1, '_').append(number.data(), written.ptr);
    return key;
}

}  // namespace

bool HandCache::Read(const std::string& serial, int channel, Records& records) const {
    const std::string key = Key(serial, channel);
    {
        const std::lock_guard<std::mutex> guard(m_channelMutex);
        const auto found = m_channels.find(key);
        if (found == m_channels.end()) {
            return false;
        }
        records.channel = found->second;
    }
    const std::lock_guard<std::mutex> guard(m_deviceMutex);
    const auto found = m_devices.find(key);
    if (found == m_devices.end()) {
        return false;
    }
    records.detail = found->second;
    records.detail.isFromCache = true;
    records.detail.iRequestCost = 0;
    return true;
}

void HandCache::Store(const std::string& serial, int channel, const Records& records) {
    const std::string key = Key(serial, channel);
    {
        const std::lock_guard<std::mutex> guard(m_channelMutex);
        m_channels[key] = records.channel;
    }
    const std::lock_guard<std::mutex> guard(m_deviceMutex);
    m_devices[key] = records.detail;
}

}  // namespace vantix::bench
