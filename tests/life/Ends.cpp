#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>

#include "Scenarios.h"

namespace vantix::life {
namespace {

/// What a task writes to, and its future.
struct Fetch {
    DevChannelInfo channel;
    DevDetailInfo device;
    std::future<int32_t> future;
};
using Fetches = std::array<Fetch, 16>;

Fetches g_fetches;  // lives longer than main

IVantixDataCenter* g_center = nullptr;  // still known at the end, so that it is no leak

/// Loads the library and fetches twice; whether both fetches are a success.
bool Begin(const Library& library, const Setting& setting) {
    g_center = library.Create();
    Configure(*g_center, setting);
    return FetchNow(*g_center, setting) == 0 && FetchLater(*g_center, setting) == 0;
}

bool IsUnderWay(const Fetch& fetch) {
    return fetch.future.valid() && fetch.future.wait_for(std::chrono::seconds(0)) == std::future_status::timeout;
}

/// Whether one of them is still under way when it returns. A task may be done before the next one starts, which a cache
/// serves then.
bool Start(Fetches& fetches, const Setting& setting) {
    for (int attempt = 0; attempt < 100; ++attempt) {
        for (Fetch& fetch : fetches) {
            g_center->ClearAllCache();
            g_center->getDevDetailInfo(setting.serial, 1, fetch.channel, fetch.device, fetch.future);
        }
        if (std::any_of(fetches.begin(), fetches.end(), IsUnderWay)) {
            return true;
        }
    }
    return false;
}

bool DestroyAndUnload(Library& library) {
    library.Destroy(g_center);
    return library.Unload();
}

}  // namespace

int Exit(const Setting& setting) { return Begin(Library(setting.libraryPath), setting) ? EXIT_SUCCESS : EXIT_FAILURE; }

int Unload(const Setting& setting) {
    Library library(setting.libraryPath);
    const bool isFetched = Begin(library, setting);
    return DestroyAndUnload(library) && isFetched ? EXIT_SUCCESS : EXIT_FAILURE;
}

int BusyExit(const Setting& setting) {
    return Begin(Library(setting.libraryPath), setting) && Start(g_fetches, setting) ? EXIT_SUCCESS : EXIT_FAILURE;
}

int DestroyedExit(const Setting& setting) {
    const Library library(setting.libraryPath);
    const bool isBusy = Begin(library, setting) && Start(g_fetches, setting);
    library.Destroy(g_center);
    return isBusy ? EXIT_SUCCESS : EXIT_FAILURE;
}

int ColdExit(const Setting& setting) {
    const Library library(setting.libraryPath);
    g_center = library.Create();
    Configure(*g_center, setting);
    return Start(g_fetches, setting) ? EXIT_SUCCESS : EXIT_FAILURE;
}

int BusyUnload(const Setting& setting) {
    Library library(setting.libraryPath);
    const bool isBusy = Begin(library, setting) && Start(g_fetches, setting);
    return DestroyAndUnload(library) && isBusy && Library::IsLoaded(setting.libraryPath) ? EXIT_SUCCESS : EXIT_FAILURE;
}

int LeftExit(const Setting& setting) {
    static auto* left = new Fetches();  // nobody destroys it
    return Begin(Library(setting.libraryPath), setting) && Start(*left, setting) ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace vantix::life
