#include "support/ProcessUsage.h"

#include <chrono>
#include <filesystem>
#include <iterator>
#include <thread>

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

#if defined(__SANITIZE_THREAD__)
// With the first thread of a process ThreadSanitizer starts one of its own, which stays: it comes before any count.
[[maybe_unused]] const bool g_sanitizerHasItsThread = (std::thread([] {}).join(), true);
#endif

}  // namespace

ProcessUsage ProcessUsage::Now() { return {EntriesOf("/proc/self/fd"), EntriesOf("/proc/self/task")}; }

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
