#include "Host.h"

#include <cstdlib>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace vantix::life {
namespace {

#if defined(_WIN32)
void* Load(const char* path) { return LoadLibraryA(path); }
void* Find(void* library, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}
bool Free(void* library) { return FreeLibrary(static_cast<HMODULE>(library)) != 0; }
bool IsThere(const char* path) { return GetModuleHandleA(path) != nullptr; }
#else
void* Load(const char* path) { return dlopen(path, RTLD_NOW | RTLD_LOCAL); }
void* Find(void* library, const char* name) { return dlsym(library, name); }
bool Free(void* library) { return dlclose(library) == 0; }
bool IsThere(const char* path) {
    void* library = dlopen(path, RTLD_NOW | RTLD_NOLOAD);
    return library != nullptr && dlclose(library) == 0;
}
#endif

void* Needed(void* found, int status) {
    if (found == nullptr) {
        std::exit(status);
    }
    return found;
}

}  // namespace

Library::Library(const char* path)
    : m_library(Needed(Load(path), 3)),
      m_create(
          reinterpret_cast<IVantixDataCenter* (*)()>(Needed(Find(m_library, "CreateVantixDataCenterInstance"), 4))),
      m_destroy(reinterpret_cast<void (*)(IVantixDataCenter*)>(
          Needed(Find(m_library, "DestroyVantixDataCenterInstance"), 4))) {}

bool Library::Unload() { return Free(m_library); }

bool Library::IsLoaded(const char* path) { return IsThere(path); }

void Configure(IVantixDataCenter& center, const Setting& setting) {
    center.setDomain(setting.domain.c_str(), "");
    center.setAppId("life-probe");
    center.setAccessToken(setting.token.c_str());
}

int FetchNow(IVantixDataCenter& center, const Setting& setting) {
    DevChannelInfo channel;
    DevDetailInfo device;
    return center.getDevDetailInfoSync(setting.serial, 1, true, channel, device);
}

int FetchLater(IVantixDataCenter& center, const Setting& setting) {
    DevChannelInfo channel;
    DevDetailInfo device;
    std::future<int32_t> fetch;
    center.SetDevInfoCache(setting.serial, 1);
    const int result = center.getDevDetailInfo(setting.serial, 1, channel, device, fetch);
    return fetch.valid() ? fetch.get() : result;
}

}  // namespace vantix::life
