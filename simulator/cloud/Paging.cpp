#include "Paging.h"

#include <algorithm>

namespace vantix::simulator {

Json Slice(const Json& list, long long from, long long count) {
    Json slice = Json::array();
    const auto size = static_cast<long long>(list.size());
    const long long begin = std::clamp(from, 0LL, size);
    const long long end = begin + std::clamp(count, 0LL, size - begin);
    for (long long at = begin; at < end; ++at) {
        slice.push_back(list[static_cast<std::size_t>(at)]);
    }
    return slice;
}

}  // namespace vantix::simulator
