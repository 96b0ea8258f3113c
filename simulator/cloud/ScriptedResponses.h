#pragma once

#include "../Json.h"
#include "../Simulator.h"
#include "Parameters.h"

#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace vantix::simulator {

/// The responses that the control interface scripts for coming requests. Safe from any thread.
class ScriptedResponses {
public:
    /// Adds one scripted response, or each of an array. Returns what is wrong with them; empty when they were added.
    std::string Add(const Json& script);

    /// Returns the first that fits the request, in the order in which they were added, and uses it up once.
    std::optional<Json> Take(Domain domain, const std::string& path, const Parameters& parameters);

    /// Those that are not used up yet, with "times" left.
    [[nodiscard]] Json List() const;
    void Clear();

private:
    struct ScriptedResponse {
        Json content;
        long long left;  ///< times; 0: without limit
    };

    mutable std::mutex m_mutex;
    std::vector<ScriptedResponse> m_scripted;
};

/// What is wrong with a scripted response; empty when nothing is.
std::string ProblemOfScript(const Json& script);

/// Whether a scripted response is one for this request.
bool FitsRequest(const Json& script, Domain domain, const std::string& path, const Parameters& parameters);

/// The extra headers of a scripted response, from its object or its array of [name, value].
HeaderList ScriptedHeaders(const Json& script);

/// The body of a scripted response ("body", "bodyHex" or "json"), nothing when it has none.
std::optional<std::string> ScriptedBody(const Json& script);

}  // namespace vantix::simulator
