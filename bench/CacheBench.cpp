// Cache hits, through the interface, as a host calls it.

#include <cstddef>
#include <cstdio>
#include <future>
#include <string>
#include <vector>

#include "Cases.h"
#include "vantix/IVantixDataCenter.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"

namespace vantix::bench {
namespace {

constexpr int kQuiet = 6;
constexpr int kUsual = 3;

IVantixDataCenter& Center() {
    static IVantixDataCenter* const center = CreateVantixDataCenterInstance();
    return *center;
}

std::vector<std::string>& CachedSerials() {
    static std::vector<std::string> serials;
    return serials;
}

/// Fetches the details of so many devices; the canned responses stand for a server.
void FillCache(size_t devices) {
    std::vector<std::string>& serials = CachedSerials();
    if (serials.size() == devices) {
        return;
    }
    Center().setLogLevel(kQuiet);
    Center().setDomain("https://cloud.example.test", "");
    Center().setAccessToken("bench-token");
    Center().ClearAllCache();
    serials.clear();
    for (size_t i = 0; i < devices; ++i) {
        serials.push_back("C" + std::to_string(10000000 + i));
        DevChannelInfo channel;
        DevDetailInfo detail;
        if (Center().getDevDetailInfoSync(serials.back(), 1, true, channel, detail) != VANTIX_NOERROR) {
            std::puts("the cache could not be filled: its figures are invalid");
        }
    }
}

template <size_t Devices, int LogLevel>
void Prepare() {
    FillCache(Devices);
    Center().setLogLevel(LogLevel);
}

/// The serials of the cached devices in turn, for each thread.
const std::string& NextSerial() {
    thread_local size_t next = 0;
    const std::vector<std::string>& serials = CachedSerials();
    next = next + 1 < serials.size() ? next + 1 : 0;
    return serials[next];
}

struct Records {
    DevChannelInfo channel;
    DevDetailInfo detail;
};

Records& ReusedRecords() {
    thread_local Records records;
    return records;
}

void Read(Records& records) {
    benchmark::DoNotOptimize(Center().getDevInfoCache(NextSerial(), 1, records.channel, records.detail));
}

void ReadFresh() {
    Records records;
    Read(records);
}

void ReadReused() { Read(ReusedRecords()); }

void Get(Records& records) {
    std::future<int32_t> untouched;
    benchmark::DoNotOptimize(Center().getDevDetailInfo(NextSerial(), 1, records.channel, records.detail, untouched));
}

void GetFresh() {
    Records records;
    Get(records);
}

void GetReused() { Get(ReusedRecords()); }

}  // namespace

std::vector<Case> CacheCases() {
    return {
        MakeCase<Prepare<1, kUsual>, ReadFresh>("Cache/getDevInfoCache/fresh/1"),
        MakeCase<Prepare<1, kUsual>, ReadReused>("Cache/getDevInfoCache/reused/1"),
        MakeCase<Prepare<1000, kUsual>, ReadFresh>("Cache/getDevInfoCache/fresh/1000"),
        MakeCase<Prepare<1000, kUsual>, ReadReused>("Cache/getDevInfoCache/reused/1000"),
        MakeCase<Prepare<1000, kUsual>, ReadReused>("Cache/getDevInfoCache/reused/1000", 2),
        MakeCase<Prepare<1, kQuiet>, GetFresh>("Cache/getDevDetailInfo/quiet/fresh/1"),
        MakeCase<Prepare<1, kQuiet>, GetReused>("Cache/getDevDetailInfo/quiet/reused/1"),
        MakeCase<Prepare<1000, kQuiet>, GetFresh>("Cache/getDevDetailInfo/quiet/fresh/1000"),
        MakeCase<Prepare<1000, kQuiet>, GetReused>("Cache/getDevDetailInfo/quiet/reused/1000"),
        MakeCase<Prepare<1000, kUsual>, GetReused>("Cache/getDevDetailInfo/logged/reused/1000"),
    };
}

}  // namespace vantix::bench
