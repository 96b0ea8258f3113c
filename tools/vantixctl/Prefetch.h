#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vantix {
class IVantixDataCenter;
}

namespace vantix::ctl {

/// One channel of the account, and how its detail came.
struct Fetched {
    std::string serial;
    int channel = 1;
    std::string name;
    int32_t code = 0;  ///< of the fetch
    int32_t cost = 0;  ///< milliseconds
    bool isOnline = false;
    std::string release;
};

/// All channels of the account's device list, page after page. Returns the code of the page that failed, else 0.
int32_t ListChannels(IVantixDataCenter& center, int pageSize, std::vector<Fetched>& channels);

/// Fetches the details of all channels, `tasks` at once. `progress` hears, on any thread but never on two at once,
/// how many are done.
void FetchAll(IVantixDataCenter& center, int tasks, std::vector<Fetched>& channels,
              const std::function<void(size_t)>& progress);

}  // namespace vantix::ctl
