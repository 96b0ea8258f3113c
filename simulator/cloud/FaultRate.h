#pragma once

#include "../Json.h"
#include "../Simulator.h"
#include "Parameters.h"

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace vantix::simulator {

/// A share of all requests that gets a scripted response, chosen by chance from a list: for long runs, in which a call
/// of the control interface for each request would be too slow. Which request of a run is hit depends on the seed
/// alone. Safe from any thread.
class FaultRate {
public:
    /// Sets `{"percent":P,"seed":N,"faults":[{"name":"…","response":{…}},…]}`, and counts from 0 again. Returns what is
    /// wrong with it; empty when it was set.
    std::string Set(const Json& content);

    /// Draws for one request: the response of the fault that it gets, or nothing. A request that no fault fits gets
    /// none.
    std::optional<Json> Draw(Domain domain, const std::string& path, const Parameters& parameters);

    /// `{"percent","seed","requests","injected":{NAME:COUNT}}`: how many requests drew, and what they got.
    [[nodiscard]] Json Report() const;

    /// No request gets a fault from now on; all counts are 0.
    void Clear();

private:
    struct NamedFault {
        std::string name;
        Json response;
    };
    struct Setting {
        double percent = 0;
        std::uint64_t seed = 0;
        std::vector<NamedFault> faults;
        std::uint64_t requests = 0;
        std::map<std::string, std::uint64_t> injected;
    };

    mutable std::mutex m_mutex;
    Setting m_setting;
};

}  // namespace vantix::simulator
