#pragma once

#include <cstdint>
#include <string>

namespace vantix {

/// One picture quality that a channel offers.
struct VideoQualityInfo {
    std::string videoQualityName;  ///< Name to display; empty when the server sends none.
    int32_t videoLevel = 0;        ///< Level for `setVideoDefinition`.
    int32_t streamType = 0;        ///< 1 main stream, 2 sub stream.
};

}  // namespace vantix
