#include "Center.h"

#include "Case.h"

namespace vantix::bench {

namespace {

/// What the cache was filled with; nothing once it has been cleared.
std::vector<Channel> g_cached;

}  // namespace

IVantixDataCenter& Center() {
    static IVantixDataCenter* const center = CreateVantixDataCenterInstance();
    return *center;
}

std::vector<Channel> ChannelsOfDevices(size_t count) {
    constexpr size_t kFirst = 10000000;
    std::vector<Channel> channels;
    for (size_t i = 0; i < count; ++i) {
        channels.push_back({.serial = "C" + std::to_string(kFirst + i)});
    }
    return channels;
}

std::vector<Channel> ChannelsOfRecorders(size_t count) {
    constexpr size_t kFirst = 20000000;
    constexpr size_t kOnEach = 64;
    std::vector<Channel> channels;
    for (size_t i = 0; i < count; ++i) {
        channels.push_back(
            {.serial = "R" + std::to_string(kFirst + i / kOnEach), .number = static_cast<int>(i % kOnEach) + 1});
    }
    return channels;
}

size_t NextPlace(size_t place, size_t count) {
    constexpr size_t kStep = 7919;  // a prime, so that every place gets its turn
    return (place + kStep) % count;
}

void UseAddress(const std::string& address) {
    Center().setLogLevel(kQuiet);
    Center().setDomain(address, address);
    Center().setAccessToken("at.4r7v0c2c8pqn6mzk1x9h5d3b-6tfu2w8y4j-1s0aq7e-lkn5vbxdr");
    Center().setAppId("5f3c8a71d2e94b06b7c1");
    Center().ClearAllCache();
    g_cached.clear();
}

void UseCannedResponses() { UseAddress(kCannedAddress); }

void Fetch(const Channel& channel, Records& records) {
    Require(Center().getDevDetailInfoSync(channel.serial, channel.number, true, records.channel, records.detail) ==
                VANTIX_NOERROR,
            "a detail could not be fetched");
}

const std::vector<Channel>& FilledCache(size_t devices) {
    if (g_cached.size() != devices) {
        UseCannedResponses();
        g_cached = ChannelsOfDevices(devices);
        for (const Channel& channel : g_cached) {
            Records records;
            Fetch(channel, records);
        }
    }
    return g_cached;
}

}  // namespace vantix::bench
