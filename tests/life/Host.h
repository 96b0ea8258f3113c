#pragma once

/// @file
/// A host that loads the library by hand, as the scenarios see it.

#include <vantix/IVantixDataCenter.h>
#include <vantix/records/DevChannelInfo.h>
#include <vantix/records/DevDetailInfo.h>

#include <string>

namespace vantix::life {

/// The library as a host loads and unloads it. What it cannot load or find ends the program with status 3 or 4.
class Library {
public:
    explicit Library(const char* path);

    IVantixDataCenter* Create() const { return m_create(); }
    void Destroy(IVantixDataCenter* center) const { m_destroy(center); }
    /// Whether the system says that it is done; the library may stay for its tasks.
    bool Unload();
    /// Whether the process has it, still or again.
    static bool IsLoaded(const char* path);

private:
    void* m_library;
    IVantixDataCenter* (*m_create)();
    void (*m_destroy)(IVantixDataCenter*);
};

/// Where the program finds everything.
struct Setting {
    const char* libraryPath;
    std::string domain;
    std::string token;
    std::string serial;
};

/// Tells the library where the cloud is and who asks.
void Configure(IVantixDataCenter& center, const Setting& setting);

/// Fetches the detail of channel 1 in the foreground, past every cache; the return code.
int FetchNow(IVantixDataCenter& center, const Setting& setting);

/// The same by a task that is waited for.
int FetchLater(IVantixDataCenter& center, const Setting& setting);

}  // namespace vantix::life
