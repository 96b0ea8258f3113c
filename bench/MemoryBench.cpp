// Memory that a full cache takes, and what its records need: their sizes and, once each, their texts.

#include <malloc.h>

#include <cstdio>
#include <set>

#include "Cases.h"
#include "Center.h"
#include "DetailResponse.h"

namespace vantix::bench {
namespace {

size_t BytesInUse() {
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

/// A text of 15 characters or less stands in the record itself.
size_t HeapOf(const std::string& text) {
    constexpr size_t kInside = 15;
    return text.size() > kInside ? text.size() + 1 : 0;
}

size_t SizeOf(const DevChannelInfo& record) {
    size_t size = sizeof(record);
    for (const std::string* text : {&record.deviceSerial, &record.cameraId, &record.capability, &record.isShared,
                                    &record.streamBizUrl, &record.isTrust}) {
        size += HeapOf(*text);
    }
    for (const VideoQualityInfo& quality : record.videoQualityInfos) {
        size += sizeof(quality) + HeapOf(quality.videoQualityName);
    }
    return size;
}

size_t SizeOf(const DevDetailInfo& record) {
    size_t size = sizeof(record);
    for (const std::string* text :
         {&record.deviceSerial, &record.deviceIP, &record.localIp, &record.ppvsAddr, &record.casIp,
          &record.releaseVersion, &record.belongSerial, &record.encryptPwd, &record.vtmIp, &record.ttsIp,
          &record.supportExtShort, &record.gbJtTtsIP, &record.publicKey, &record.support_ecdh_v2}) {
        size += HeapOf(*text);
    }
    for (const VtmAddr& backup : record.vtmBackups) {
        size += sizeof(backup) + HeapOf(backup.strVtmAddr);
    }
    return size;
}

void Print(size_t bytes, size_t channels) {
    std::printf("{\"bytes_per_channel\": %.1f}\n", static_cast<double>(bytes) / static_cast<double>(channels));
}

using ChannelsOf = std::vector<Channel> (*)(size_t count);

/// What the heap grows by while the channels are fetched.
template <ChannelsOf Channels>
void InCache(long count) {
    UseCannedResponses();
    const std::vector<Channel> channels = Channels(static_cast<size_t>(count));
    Records records;
    Fetch({.serial = "W10000000"}, records);  // what the first request makes is none of the cache's
    const size_t before = BytesInUse();
    for (const Channel& channel : channels) {
        Fetch(channel, records);
    }
    Print(BytesInUse() - before, channels.size());
}

/// A record for each channel and one for each device.
template <ChannelsOf Channels>
void InRecords(long count) {
    UseCannedResponses();
    const std::vector<Channel> channels = Channels(static_cast<size_t>(count));
    std::set<std::string> devices;
    Records records;
    Fetch(channels[0], records);  // all records are of one size
    size_t bytes = 0;
    for (const Channel& channel : channels) {
        bytes += SizeOf(records.channel);
        bytes += devices.insert(channel.serial).second ? SizeOf(records.detail) : 0;
    }
    Print(bytes, channels.size());
}

}  // namespace

std::vector<OneShot> MemoryRuns() {
    return {
        {"memory/devices", InCache<ChannelsOfDevices>},
        {"memory/recorders", InCache<ChannelsOfRecorders>},
        {"floor/memory/devices", InRecords<ChannelsOfDevices>},
        {"floor/memory/recorders", InRecords<ChannelsOfRecorders>},
    };
}

}  // namespace vantix::bench
