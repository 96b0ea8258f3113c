// Cache hits, through the interface, as a host calls it.

#include <cstddef>
#include <future>
#include <string>
#include <vector>

#include "Cases.h"
#include "Center.h"
#include "core/detail/DetailCaches.h"
#include "core/detail/DetailRelation.h"
#include "core/settings/Settings.h"

namespace vantix::bench {
namespace {

std::vector<Channel> g_channels;

template <size_t Devices>
void Prepare() {
    g_channels = FilledCache(Devices);
    Center().setLogLevel(kQuiet);
}

/// The cached channels, each in its turn.
const Channel& NextChannel() {
    static size_t next = 0;
    next = NextPlace(next, g_channels.size());
    return g_channels[next];
}

void Hit(Records& records) {
    std::future<int32_t> untouched;
    const Channel& channel = NextChannel();
    Require(Center().getDevDetailInfo(channel.serial, channel.number, records.channel, records.detail, untouched) ==
                VANTIX_NOERROR,
            "the cache was missed");
}

void HitFresh() {
    Records records;
    Hit(records);
}

void HitReused() {
    static Records records;
    Hit(records);
}

/// The operation that resolves a channel through its parent device; it reads the caches twice.
void Relation() {
    Records records;
    const Channel& channel = NextChannel();
    Require(Center().getDevDetailInfoByRelation(channel.serial, channel.number, records.channel, records.detail) ==
                VANTIX_NOERROR,
            "the relation was missed");
}

/// One of those two reads.
struct OneRead {
    Settings settings;
    DetailCaches caches;
    DetailRelation relation{settings, caches};
};

OneRead& Reader() {
    static OneRead reader;
    return reader;
}

void PrepareOneRead() {
    Prepare<1>();
    Records records;
    HitReused();
    Fetch(g_channels[0], records);
    Reader().caches.Store(g_channels[0].serial, 1, records.channel, records.detail, BelongDevInfo());
}

void RelationOneRead() {
    Records records;
    Require(Reader().relation.getDevDetailInfoFromLocalByRelation(g_channels[0].serial, 1, records.channel,
                                                                  records.detail) == VANTIX_NOERROR,
            "the relation was missed");
}

}  // namespace

std::vector<Case> CacheCases() {
    return {
        MakeCase<Prepare<1>, HitReused>("cache/hit/reused/1", kSomeRounds),
        MakeCase<Prepare<1>, HitFresh>("cache/hit/fresh/1", kSomeRounds),
        MakeCase<Prepare<1000>, HitReused>("cache/hit/reused/1000", kSomeRounds),
        MakeCase<Prepare<1000>, HitFresh>("cache/hit/fresh/1000", kSomeRounds),
        MakeCase<Prepare<100000>, HitReused>("cache/hit/reused/100000", kSomeRounds),
        MakeCase<Prepare<100000>, HitFresh>("cache/hit/fresh/100000", kSomeRounds),
        MakeCase<Prepare<1>, Relation>("cache/relation", kSomeRounds),
        MakeCase<PrepareOneRead, RelationOneRead>("cache/relation/one_read", kSomeRounds),
    };
}

}  // namespace vantix::bench
