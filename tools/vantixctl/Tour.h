#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/Session.h"

namespace vantix::ctl {

/// One step of the tour: what was done, and what came of it.
struct Step {
    std::string chapter;
    std::string title;
    std::string call;
    std::string remark;
    std::optional<int32_t> returned = std::nullopt;
    std::optional<int32_t> future = std::nullopt;  ///< what it yielded, when one was handed back
    std::optional<int32_t> cost = std::nullopt;    ///< milliseconds, as the record tells
    bool takesFuture = false;                      ///< the call could hand one back
    bool asExpected = false;                       ///< this is what a healthy data center does
};

/// What the data center does for a host, step by step, against the loopback cloud.
class Tour {
public:
    /// Uses the choice's log and text form; its configuration stays aside, so that a tour never leaves the machine.
    explicit Tour(const SessionChoice& choice);

    /// Takes all steps, once.
    void Take();

    const std::vector<Step>& Steps() const { return m_steps; }
    /// Whether every step went as it should.
    bool WentWell() const;
    /// What the loopback cloud saw.
    std::vector<ReceivedRequest> ReceivedRequests() const { return m_session.Loopback()->ReceivedRequests(); }

private:
    struct Expected {
        int32_t returned = 0;
        std::optional<int32_t> future;
    };

    std::string Token() const;
    void BeginChapter(std::string_view chapter) { m_chapter = chapter; }
    Step& Add(std::string title, std::string call, std::string remark);

    void Configure();
    void Fetch(const std::string& title, const std::string& serial, const Expected& expected,
               const std::string& remark);
    void ReadCache(const std::string& title, const std::string& serial, int32_t expected, const std::string& remark);
    void Mark();
    void ReadCapabilities();
    void Clear();
    void ListDevices();
    void FindServers();
    void FindDevice();
    void TakeStreamToken();
    void LoseServer();

    Session m_session;
    std::string m_chapter;
    std::vector<Step> m_steps;
};

}  // namespace vantix::ctl
