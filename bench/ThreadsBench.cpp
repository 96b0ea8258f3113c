// Cache hits a second by several threads, while one more thread refills the cache, a thousand times a second.

#include <atomic>
#include <chrono>
#include <cstdio>
#include <future>
#include <thread>

#include "Cases.h"
#include "Center.h"
#include "HandCache.h"

namespace vantix::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr size_t kDevices = 1000;

/// The cache of the library.
struct OfLibrary {
    explicit OfLibrary(const std::vector<Channel>& /*channels*/) { Center().setLogLevel(kQuiet); }

    void Hit(const Channel& channel, Records& records) {
        std::future<int32_t> untouched;
        Require(Center().getDevDetailInfo(channel.serial, channel.number, records.channel, records.detail, untouched) ==
                    VANTIX_NOERROR,
                "the cache was missed");
    }
    void Refill(const Channel& channel, Records& records) { Fetch(channel, records); }
};

/// The one that is written by hand. A refill fetches as well: only the store differs.
class OfHand {
public:
    explicit OfHand(const std::vector<Channel>& channels) {
        Records records;
        for (const Channel& channel : channels) {
            Center().getDevInfoCache(channel.serial, channel.number, records.channel, records.detail);
            m_cache.Store(channel.serial, channel.number, records);
        }
    }
    void Hit(const Channel& channel, Records& records) {
        Require(m_cache.Read(channel.serial, channel.number, records), "the cache was missed");
    }
    void Refill(const Channel& channel, Records& records) {
        Fetch(channel, records);
        m_cache.Store(channel.serial, channel.number, records);
    }

private:
    HandCache m_cache;
};

template <class Cache, size_t Threads>
void HitsOfThreads(long milliseconds) {
    const std::vector<Channel> channels = FilledCache(kDevices);
    Cache cache(channels);
    std::atomic<bool> isOver{false};
    std::atomic<long> hits{0};
    std::vector<std::thread> threads;
    for (size_t number = 0; number < Threads; ++number) {
        threads.emplace_back([&, number] {
            Records records;
            long own = 0;
            for (size_t at = number; !isOver.load(std::memory_order_relaxed); at = NextPlace(at, kDevices)) {
                cache.Hit(channels[at], records);
                ++own;
            }
            hits += own;
        });
    }
    Records records;
    const Clock::time_point start = Clock::now();
    const Clock::time_point end = start + std::chrono::milliseconds(milliseconds);
    for (Clock::time_point next = start; next < end; next += std::chrono::milliseconds(1)) {
        std::this_thread::sleep_until(next);
        cache.Refill(channels[0], records);
    }
    isOver = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
    const std::chrono::duration<double> seconds = Clock::now() - start;
    std::printf("{\"hits_per_second\": %.1f}\n", static_cast<double>(hits) / seconds.count());
}

}  // namespace

std::vector<OneShot> ThreadRuns() {
    return {
        {"threads/1", HitsOfThreads<OfLibrary, 1>},    {"threads/2", HitsOfThreads<OfLibrary, 2>},
        {"threads/8", HitsOfThreads<OfLibrary, 8>},    {"threads/32", HitsOfThreads<OfLibrary, 32>},
        {"floor/threads/1", HitsOfThreads<OfHand, 1>}, {"floor/threads/2", HitsOfThreads<OfHand, 2>},
        {"floor/threads/8", HitsOfThreads<OfHand, 8>}, {"floor/threads/32", HitsOfThreads<OfHand, 32>},
    };
}

}  // namespace vantix::bench
