#if !defined(_WIN32)
#include <pthread.h>
#endif

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

#include "Scenarios.h"

namespace vantix::life {
namespace {

#if defined(_WIN32)
/// MinGW's own runtime leaves one of the process's 1,088 slots for thread-local values behind each time.
constexpr int kReloads = 1'000;
bool HasSlotsLeft() { return true; }
#else
/// More than a process has slots for thread-local values.
constexpr int kReloads = 1'100;
/// Whether the library gave its slot back each time: most of the process's can still be had.
bool HasSlotsLeft() {
    for (int i = 0; i < 500; ++i) {
        pthread_key_t key = 0;
        if (pthread_key_create(&key, nullptr) != 0) {
            return false;
        }
    }
    return true;
}
#endif

}  // namespace

int Reload(const Setting& setting) {
    for (int time = 1; time <= kReloads; ++time) {
        Library library(setting.libraryPath);
        IVantixDataCenter* center = library.Create();
        Configure(*center, setting);
        const int fetched = FetchNow(*center, setting);
        center->setAccessToken("");
        const int refused = FetchNow(*center, setting);  // uses the thread's last error
        library.Destroy(center);
        if (fetched != 0 || refused != -1 || !library.Unload() || Library::IsLoaded(setting.libraryPath)) {
            std::printf("time %d: fetched %d, refused %d\n", time, fetched, refused);
            return EXIT_FAILURE;
        }
    }
    return HasSlotsLeft() ? EXIT_SUCCESS : EXIT_FAILURE;
}

int ColdThreads(const Setting& setting) {
    const Library library(setting.libraryPath);
    IVantixDataCenter* center = library.Create();
    Configure(*center, setting);
    std::atomic<bool> go{false};
    std::atomic<int> good{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 32; ++i) {
        threads.emplace_back([&] {
            while (!go) {
                std::this_thread::yield();
            }
            good += FetchNow(*center, setting) == 0 ? 1 : 0;
        });
    }
    go = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
    library.Destroy(center);
    std::printf("%d of 32 threads got their record\n", good.load());
    return good == 32 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace vantix::life
