#include "support/ProcessUsage.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace vantix::test {
namespace {

#if defined(__linux__)
size_t EntriesOf(const char* folder) {
    std::error_code failed;
    const std::filesystem::directory_iterator entries(folder, failed);
    return failed ? 0 : static_cast<size_t>(std::distance(begin(entries), end(entries)));
}
#else
size_t EntriesOf(const char* /*folder*/) { return 0; }
#endif

#if defined(__linux__) && !defined(__SANITIZE_THREAD__) && !defined(__SANITIZE_ADDRESS__)
constexpr bool kIsMemoryRead = true;
#else
constexpr bool kIsMemoryRead = false;
#endif

/// A line of the process's status, which is in KiB.
size_t StatusMiB(const std::string& key) {
    std::ifstream status(kIsMemoryRead ? "/proc/self/status" : "");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind(key + ":", 0) == 0) {
            return std::strtoul(line.c_str() + key.size() + 1, nullptr, 10) / 1024;
        }
    }
    return 0;
}

#if defined(__SANITIZE_THREAD__)
// With the first thread of a process ThreadSanitizer starts one of its own, which stays: it comes before any count.
[[maybe_unused]] const bool g_sanitizerHasItsThread = (std::thread([] {}).join(), true);
#endif

}  // namespace

ProcessUsage ProcessUsage::Now() { return {EntriesOf("/proc/self/fd"), EntriesOf("/proc/self/task")}; }

size_t ResidentMiB() {
#if defined(__GLIBC__)
    malloc_trim(0);
#endif
    return StatusMiB("VmRSS");
}

size_t PeakMiB() { return StatusMiB("VmHWM"); }

void ForgetPeak() {
    if (kIsMemoryRead) {
        std::ofstream("/proc/self/clear_refs") << 5;
    }
}

void KeepOneHeap() {
#if defined(__GLIBC__)
    mallopt(M_ARENA_MAX, 1);
#endif
}

bool FellBackTo(const ProcessUsage& before) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (std::chrono::steady_clock::now() < deadline) {
        const ProcessUsage now = ProcessUsage::Now();
        if (now.descriptors <= before.descriptors && now.threads <= before.threads) {
            return true;
        }
        std::this_thread::yield();
    }
    return false;
}

}  // namespace vantix::test
