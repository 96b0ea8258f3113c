#pragma once

/// @file
/// What the requests of the jobs and of their floors have in common.

#include <string>

#include "BareRequest.h"

namespace vantix::bench {

inline constexpr char kSerial[] = "C10000000";
inline constexpr char kAlarmId[] = "2601020304055f3c8a71d2e94b06";
inline constexpr char kSession[] = "hcs.7d41f0b2c9e84a35a1c6-5e8b2f0d9c7a4136";
inline constexpr char kDay[] = "2026-01-02";

/// The form post for the recording of an alarm, and the GET with header set B for the recordings of a day, as the
/// library sends them.
BareRequest AlarmPost(bool tls);
BareRequest RecordsGet(bool tls);

}  // namespace vantix::bench
