// The details of many channels, fetched over TLS by 16 tasks, and the same requests with libcurl alone.

#include <sys/resource.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <future>
#include <thread>

#include "BareRequest.h"
#include "Cases.h"
#include "Center.h"
#include "requests/FeatureCode.h"

namespace vantix::bench {
namespace {

constexpr size_t kTasks = 16;

double Seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

double ProcessorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
}

/// Calls `fetch(channel)` for each channel from 16 threads, and prints how long it took.
template <class Fetch>
void FetchAll(const std::vector<Channel>& channels, Fetch fetch) {
    curl_global_init(CURL_GLOBAL_DEFAULT);  // as hosts do before they start threads
    std::atomic<size_t> next{0};
    std::array<std::future<void>, kTasks> tasks;
    const auto start = std::chrono::steady_clock::now();
    const double processor = ProcessorSeconds();
    for (std::future<void>& task : tasks) {
        task = std::async(std::launch::async, [&] {
            for (size_t at = next++; at < channels.size(); at = next++) {
                fetch(channels[at]);
            }
        });
    }
    for (std::future<void>& task : tasks) {
        task.get();
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    std::printf("{\"seconds\": %.4f, \"processor_seconds\": %.4f}\n", seconds.count(), ProcessorSeconds() - processor);
}

void ByLibrary(long count) {
    UseAddress(ServerAddress(true));
    FetchAll(ChannelsOfDevices(static_cast<size_t>(count)), [](const Channel& channel) {
        Records records;
        Fetch(channel, records);
    });
}

void ByHand(long count) {
    const std::string before =
        "accessToken=at.4r7v0c2c8pqn6mzk1x9h5d3b-6tfu2w8y4j-1s0aq7e-lkn5vbxdr&appKey=5f3c8a71d2e94b06b7c1&cameraNo=1&"
        "clientType=19&clientVersion=v5.25.0&deviceSerial=";
    const std::string behind =
        "&featureCode=" + PublicGetHDSign() +
        "&isNewVersion=true&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515&version=4.0";
    const std::string url = ServerAddress(true) + "/api/device/detail";
    FetchAll(ChannelsOfDevices(static_cast<size_t>(count)), [&](const Channel& channel) {
        BareBody body;
        const BareRequest request{.url = url, .form = before + channel.serial + behind, .headers = {}};
        Require(Send(request, body) == CURLE_OK && body.Size() > 0, "libcurl failed");
    });
}

}  // namespace

std::vector<OneShot> PrefetchRuns() { return {{"prefetch/tls", ByLibrary}, {"floor/prefetch/tls", ByHand}}; }

}  // namespace vantix::bench
