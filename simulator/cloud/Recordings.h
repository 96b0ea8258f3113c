#pragma once

#include "Endpoint.h"
#include "Times.h"

namespace vantix::simulator {

/// What a recording query asks for.
struct RecordingFilter {
    std::string_view place;  ///< "device", "cloud" or "platform"; empty: anywhere
    long long channel = 1;
    TimeSpan span;
    long long type = 0;  ///< 0: every type
};

/// The device's recordings that fit, in stored order, in the form of the responses.
Json FindRecordings(const Json& device, const RecordingFilter& filter);

}  // namespace vantix::simulator
