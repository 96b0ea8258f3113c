// A host that ends right after its requests:
//
//   exit_probe LIBRARY exit|unload|busy-exit|busy-unload|left-exit DOMAIN TOKEN SERIAL
//
// "exit" returns from main with its handle and everything that was fetched still there; "unload" destroys the handle,
// unloads the library and returns then. The busy ones do it while tasks are under way, whose futures are waited for at
// the end of the program; "left-exit" leaves them behind. Prints the results of two
// fetches before that; exit status 0 when both are a success.

#include <vantix/IVantixDataCenter.h>
#include <vantix/records/DevChannelInfo.h>
#include <vantix/records/DevDetailInfo.h>

#include <array>
#include <cstdio>
#include <string>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace {

#if defined(_WIN32)
using Library = HMODULE;
Library Load(const char* path) { return LoadLibraryA(path); }
void* Find(Library library, const char* name) {
    return reinterpret_cast<void*>(
        GetProcAddress(library, name));  // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
}
bool Unload(Library library) { return FreeLibrary(library) != 0; }
#else
using Library = void*;
Library Load(const char* path) { return dlopen(path, RTLD_NOW | RTLD_LOCAL); }
void* Find(Library library, const char* name) { return dlsym(library, name); }
bool Unload(Library library) { return dlclose(library) == 0; }
#endif

using Create = vantix::IVantixDataCenter* (*)();
using Destroy = void (*)(vantix::IVantixDataCenter*);

/// One fetch in the foreground, and one in the background that is waited for.
bool Fetches(vantix::IVantixDataCenter& center, const std::string& serial) {
    vantix::DevChannelInfo channel;
    vantix::DevDetailInfo device;
    const int now = center.getDevDetailInfoSync(serial, 1, true, channel, device);
    center.SetDevInfoCache(serial, 1);
    std::future<int32_t> fetch;
    center.getDevDetailInfo(serial, 1, channel, device, fetch);
    const int later = fetch.valid() ? fetch.get() : -1;
    std::printf("%d %d\n", now, later);
    return now == 0 && later == 0;
}

/// What a task writes to, and its future, which live longer than `main`.
struct Fetch {
    vantix::DevChannelInfo channel;
    vantix::DevDetailInfo device;
    std::future<int32_t> future;
};
std::array<Fetch, 16> g_fetches;

void StartFetches(vantix::IVantixDataCenter& center, const std::string& serial, std::array<Fetch, 16>& fetches) {
    for (Fetch& fetch : fetches) {
        center.ClearAllCache();
        center.getDevDetailInfo(serial, 1, fetch.channel, fetch.device, fetch.future);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 6) {
        return 2;
    }
    auto* library = Load(argv[1]);
    if (library == nullptr) {
        return 3;
    }
    const auto create = reinterpret_cast<Create>(Find(library, "CreateVantixDataCenterInstance"));
    const auto destroy = reinterpret_cast<Destroy>(Find(library, "DestroyVantixDataCenterInstance"));
    if (create == nullptr || destroy == nullptr) {
        return 4;
    }
    static vantix::IVantixDataCenter* center = nullptr;  // still known at the end, so that it is no leak
    center = create();
    center->setDomain(argv[3], "");
    center->setAppId("exit-probe");
    center->setAccessToken(argv[4]);
    const bool isFetched = Fetches(*center, argv[5]);
    const std::string end = argv[2];
    if (end.rfind("busy-", 0) == 0) {
        StartFetches(*center, argv[5], g_fetches);
    } else if (end == "left-exit") {
        static auto* left = new std::array<Fetch, 16>();  // nobody destroys it
        StartFetches(*center, argv[5], *left);
    }
    if (end.find("unload") != std::string::npos) {
        destroy(center);
        if (!Unload(library)) {
            return 5;
        }
    }
    return isFetched ? 0 : 1;
}
