#pragma once

#include "../Json.h"
#include "../Simulator.h"
#include "Parameters.h"

#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace vantix::simulator {

/// What is to happen to coming requests for one path, as the control interface was told.
class Plans {
public:
    /// Adds one plan, or each of an array of plans. Returns what is wrong with it, empty when it was taken.
    std::string Add(const Json& plan);

    /// The first plan that fits, in the order in which they were added; one of its times is used up.
    std::optional<Json> Take(Domain domain, const std::string& path, const Parameters& parameters);

    /// What is still to come.
    [[nodiscard]] Json List() const;
    void Clear();

private:
    struct Plan {
        Json content;
        long long left;  ///< 0: for ever
    };

    mutable std::mutex m_mutex;
    std::vector<Plan> m_plans;
};

/// The extra headers of a plan, from its object or its array of [name, value].
HeaderList PlannedHeaders(const Json& plan);

/// The body that the plan gives ("body", "bodyHex", "json"), nothing when it gives none.
std::optional<std::string> PlannedBody(const Json& plan);

}  // namespace vantix::simulator
