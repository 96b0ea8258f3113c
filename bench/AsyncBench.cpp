// A detail that a task fetches, from the start of the task to its value: the cache is cold, responses are canned. The
// floor is a task that makes the synchronous call itself.

#include <array>
#include <future>

#include "Cases.h"
#include "Center.h"

namespace vantix::bench {
namespace {

constexpr size_t kMost = 64;

std::vector<Channel> g_coldChannels;
std::array<Records, kMost> g_coldRecords;

void Prepare() {
    UseCannedResponses();
    g_coldChannels = ChannelsOfDevices(kMost);
}

std::future<int32_t> StartByLibrary(size_t at) {
    std::future<int32_t> future;
    Records& records = g_coldRecords[at];
    Center().getDevDetailInfo(g_coldChannels[at].serial, 1, records.channel, records.detail, future);
    Require(future.valid(), "the cache is not cold");
    return future;
}

std::future<int32_t> StartByHand(size_t at) {
    return std::async(std::launch::async, [at]() -> int32_t {
        Records& records = g_coldRecords[at];
        return Center().getDevDetailInfoSync(g_coldChannels[at].serial, 1, true, records.channel, records.detail);
    });
}

template <size_t Count, std::future<int32_t> (*Start)(size_t at)>
void FetchByTasks() {
    Center().ClearAllCache();
    std::array<std::future<int32_t>, Count> futures;
    for (size_t i = 0; i < Count; ++i) {
        futures[i] = Start(i);
    }
    for (std::future<int32_t>& future : futures) {
        Require(future.get() == VANTIX_NOERROR, "a fetch failed");
    }
}

}  // namespace

std::vector<Case> AsyncCases() {
    return {
        MakeCase<Prepare, FetchByTasks<1, StartByLibrary>>("async/1", kFewRounds),
        MakeCase<Prepare, FetchByTasks<1, StartByHand>>("floor/async/1", kFewRounds),
        MakeCase<Prepare, FetchByTasks<kMost, StartByLibrary>>("async/64", kFewRounds),
        MakeCase<Prepare, FetchByTasks<kMost, StartByHand>>("floor/async/64", kFewRounds),
    };
}

}  // namespace vantix::bench
