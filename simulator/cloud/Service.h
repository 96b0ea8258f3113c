#pragma once

#include "../http/Faults.h"
#include "../http/RequestDelays.h"
#include "Cloud.h"
#include "FaultRate.h"
#include "Journal.h"
#include "ScriptedResponses.h"

namespace vantix::simulator {

/// What both ports do with a request: record it in the journal, then respond as scripted, with a fault by chance, or
/// from the account's data.
class Service {
public:
    explicit Service(RequestDelays& delays) : m_delays(delays) {}

    /// Creates the cloud with the sample data for these addresses. Call once, before the first request.
    void CreateCloud(std::string bDomain, std::string cDomain);

    Response Handle(Domain domain, const Request& request);
    void Reset();

    Cloud& GetCloud() { return *m_cloud; }
    Journal& GetJournal() { return m_journal; }
    ScriptedResponses& GetScriptedResponses() { return m_scripted; }
    RequestDelays& GetDelays() { return m_delays; }
    FaultRate& GetFaultRate() { return m_faultRate; }
    Faults& GetFaults() { return m_faults; }

private:
    RequestDelays& m_delays;
    std::unique_ptr<Cloud> m_cloud;
    Journal m_journal;
    ScriptedResponses m_scripted;
    FaultRate m_faultRate;
    Faults m_faults;
};

}  // namespace vantix::simulator
