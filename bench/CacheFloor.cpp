// The same hits in a cache that is written by hand.

#include <memory>

#include "Cases.h"
#include "Center.h"
#include "HandCache.h"

namespace vantix::bench {
namespace {

std::vector<Channel> g_handChannels;
std::unique_ptr<HandCache> g_handCache;

template <size_t Devices>
void Prepare() {
    if (g_handChannels.size() == Devices) {
        return;
    }
    UseCannedResponses();
    g_handChannels = ChannelsOfDevices(Devices);
    g_handCache = std::make_unique<HandCache>();
    Records records;
    Fetch(g_handChannels[0], records);
    for (const Channel& channel : g_handChannels) {
        records.channel.deviceSerial = channel.serial;
        records.detail.deviceSerial = channel.serial;
        g_handCache->Store(channel.serial, channel.number, records);
    }
}

void Hit(Records& records) {
    static size_t next = 0;
    next = NextPlace(next, g_handChannels.size());
    const Channel& channel = g_handChannels[next];
    Require(g_handCache->Read(channel.serial, channel.number, records), "the cache was missed");
}

void HitFresh() {
    Records records;
    Hit(records);
}

void HitReused() {
    static Records records;
    Hit(records);
}

}  // namespace

std::vector<Case> CacheFloors() {
    return {
        MakeCase<Prepare<1>, HitReused>("floor/cache/hit/reused/1", kSomeRounds),
        MakeCase<Prepare<1>, HitFresh>("floor/cache/hit/fresh/1", kSomeRounds),
        MakeCase<Prepare<1000>, HitReused>("floor/cache/hit/reused/1000", kSomeRounds),
        MakeCase<Prepare<1000>, HitFresh>("floor/cache/hit/fresh/1000", kSomeRounds),
        MakeCase<Prepare<100000>, HitReused>("floor/cache/hit/reused/100000", kSomeRounds),
        MakeCase<Prepare<100000>, HitFresh>("floor/cache/hit/fresh/100000", kSomeRounds),
    };
}

}  // namespace vantix::bench
