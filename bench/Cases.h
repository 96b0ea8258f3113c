#pragma once

#include <vector>

#include "Case.h"

namespace vantix::bench {

// Jobs of the library, and behind each its floors: the same effect, written by hand.

/// One request on a new connection, against the server that the environment names.
std::vector<Case> RequestCases();
std::vector<Case> RequestFloors();
/// Responses read into records; the floors read them with the JSON library alone.
std::vector<Case> ParseCases();
std::vector<Case> ParseFloors();
/// A device's detail from the cache, with 1, 1,000 and 100,000 devices in it.
std::vector<Case> CacheCases();
std::vector<Case> CacheFloors();
/// Log lines that are filtered out, and log lines that are written.
std::vector<Case> LogCases();
/// A detail that is fetched by a task, from its start to the value.
std::vector<Case> AsyncCases();

/// Prints the body that the server of the requests is to return.
std::vector<OneShot> RequestRuns();
/// Cache hits a second by several threads while another one refills.
std::vector<OneShot> ThreadRuns();
/// Many channels fetched over TLS by several tasks.
std::vector<OneShot> PrefetchRuns();
/// Bytes that a full cache takes.
std::vector<OneShot> MemoryRuns();

}  // namespace vantix::bench
