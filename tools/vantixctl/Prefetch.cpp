#include "Prefetch.h"

#include <vantix/IVantixDataCenter.h>
#include <vantix/records/DevChannelInfo.h>
#include <vantix/records/DevDetailInfo.h>
#include <vantix/records/DeviceList.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <set>
#include <thread>

namespace vantix::ctl {
namespace {

constexpr int kMaxPages = 10000;

using KnownChannels = std::set<std::pair<std::string, int>>;

/// Adds the channels that were not on an earlier page. Returns whether there were any.
bool AddNewChannels(const DeviceList& page, KnownChannels& known, std::vector<FetchedChannel>& channels) {
    bool any = false;
    for (const DeviceListItem& item : page.devices) {
        // A list may name devices without a channel number; every device has channel 1.
        const int channel = std::max(item.channelNo, 1);
        if (known.emplace(item.deviceSerial, channel).second) {
            channels.push_back(
                {item.deviceSerial, channel, item.name.empty() ? item.deviceName : item.name, 0, 0, false, {}});
            any = true;
        }
    }
    return any;
}

void FetchOne(IVantixDataCenter& center, FetchedChannel& fetched) {
    DevChannelInfo channel;
    DevDetailInfo device;
    fetched.code = center.getDevDetailInfoSync(fetched.serial, fetched.channel, true, channel, device);
    fetched.cost = device.iRequestCost;
    if (fetched.code == VANTIX_NOERROR) {
        fetched.isOnline = channel.status == 1;
        fetched.release = device.releaseVersion;
    }
}

}  // namespace

int32_t ListChannels(IVantixDataCenter& center, int pageSize, std::vector<FetchedChannel>& channels) {
    KnownChannels known;
    // A page without new channels is the last one, also with a server that repeats its first page without end.
    for (int number = 0; number < kMaxPages; ++number) {
        DeviceList page;
        const int32_t code = center.getDevList(number, pageSize, page);
        if (code != VANTIX_NOERROR) {
            return code;
        }
        if (!AddNewChannels(page, known, channels)) {
            break;
        }
    }
    return VANTIX_NOERROR;
}

void FetchAll(IVantixDataCenter& center, int tasks, std::vector<FetchedChannel>& channels,
              const std::function<void(size_t)>& progress) {
    std::atomic<size_t> next{0};
    size_t done = 0;
    std::mutex mutex;
    const auto work = [&] {
        for (size_t index = next++; index < channels.size(); index = next++) {
            FetchOne(center, channels[index]);
            const std::lock_guard guard(mutex);
            progress(++done);
        }
    };
    std::vector<std::jthread> threads;
    const size_t count = std::min(static_cast<size_t>(tasks), channels.size());
    threads.reserve(count);
    for (size_t index = 0; index < count; ++index) {
        threads.emplace_back(work);
    }
}

}  // namespace vantix::ctl
