#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vantix {
class IVantixDataCenter;
}

namespace vantix::ctl {

/// One channel of the account, and the outcome of fetching its detail.
struct FetchedChannel {
    std::string serial;
    int channel = 1;
    std::string name;
    int32_t code = 0;  ///< of the fetch
    int32_t cost = 0;  ///< milliseconds
    bool isOnline = false;
    std::string release;
};

/// Reads all pages of the account's device list. Returns the code of the page that failed, else 0.
int32_t ListChannels(IVantixDataCenter& center, int pageSize, std::vector<FetchedChannel>& channels);

/// Fetches the details of all channels with `tasks` threads. `progress` is called with the number of channels done, on
/// any thread but never on two at once.
void FetchAll(IVantixDataCenter& center, int tasks, std::vector<FetchedChannel>& channels,
              const std::function<void(size_t)>& progress);

}  // namespace vantix::ctl
