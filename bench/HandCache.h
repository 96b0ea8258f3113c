#pragma once

#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>

#include "Center.h"

namespace vantix::bench {

/// The cache of details as it is written by hand: channels in a hash table, devices in a tree, a lock for each, and
/// copies under the lock.
class HandCache {
public:
    bool Read(const std::string& serial, int channel, Records& records) const;
    void Store(const std::string& serial, int channel, const Records& records);

private:
    mutable std::mutex m_channelMutex;
    mutable std::mutex m_deviceMutex;
    std::unordered_map<std::string, DevChannelInfo> m_channels;
    std::map<std::string, DevDetailInfo> m_devices;
};

}  // namespace vantix::bench
