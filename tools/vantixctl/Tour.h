#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/Session.h"

namespace vantix::ctl {

/// One step of the tour: the call and its outcome.
struct Step {
    std::string section;
    std::string title;
    std::string call;
    std::string remark;
    std::optional<int32_t> returned = std::nullopt;
    std::optional<int32_t> future = std::nullopt;  ///< what the future yielded, when there was one
    std::optional<int32_t> cost = std::nullopt;    ///< milliseconds, from the record
    bool takesFuture = false;                      ///< the call may return a future
    bool asExpected = false;                       ///< the outcome is the expected one
};

/// A tour of the data center against the loopback cloud, step by step.
class Tour {
public:
    /// Uses the log and the text encoding of the choice, but not its configuration: a tour never leaves the machine.
    explicit Tour(const SessionChoice& choice);

    /// Runs all steps. Call once.
    void Run();

    const std::vector<Step>& Steps() const { return m_steps; }
    /// Whether every step had the expected outcome.
    bool Succeeded() const;
    /// The requests that the loopback cloud received.
    std::vector<ReceivedRequest> ReceivedRequests() const { return m_session.Loopback()->ReceivedRequests(); }

private:
    struct Expected {
        int32_t returned = 0;
        std::optional<int32_t> future;
    };

    std::string Token() const;
    void BeginSection(std::string_view section) { m_section = section; }
    Step& Add(std::string title, std::string call, std::string remark);

    void Configure();
    void Fetch(const std::string& title, const std::string& serial, const Expected& expected,
               const std::string& remark);
    void ReadCache(const std::string& title, const std::string& serial, int32_t expected, const std::string& remark);
    void Mark();
    void ReadCapabilities();
    void Clear();
    void ListDevices();
    void GetServers();
    void GetP2PServers();
    void GetStreamTokens();
    void FetchFromUnreachableServer();

    Session m_session;
    std::string m_section;
    std::vector<Step> m_steps;
};

}  // namespace vantix::ctl
