#pragma once

/// @file
/// What the arguments of the slots that send a request become on the wire.

#include <string>
#include <vector>

#include "support/Operations.h"

namespace vantix::test {

/// A slot that sends a request.
struct ForwardRow {
    const char* operation;
    const char* path;                     ///< Method and path.
    std::vector<std::string> parameters;  ///< Those that the arguments become.
    bool takesRetried = false;
    int unreachable = 100007;  ///< The result when the transfer fails with code 7,
    int expired = 310002;      ///< and when the access token has expired.
    bool flag = false;         ///< Recordings: over the SDK's path; permissions: of the playback.
};

/// A value of its own for every argument.
Arguments DistinctArguments();

/// Those of details and servers, of lists and account, of tokens and recordings.
const std::vector<ForwardRow>& DetailForwards();
const std::vector<ForwardRow>& ListForwards();
const std::vector<ForwardRow>& RecordingForwards();

}  // namespace vantix::test
