#pragma once

#include "../http/Pause.h"
#include "../http/Traps.h"
#include "Cloud.h"
#include "Journal.h"
#include "Plans.h"

namespace vantix::simulator {

/// What both ports share: a request is written down, meets its plan, and is answered from the account's data.
class Service {
public:
    explicit Service(Pause& pause) : m_pause(pause) {}

    /// Call once, before the first request.
    void Open(std::string bDomain, std::string cDomain);

    Answer Handle(Domain domain, const Request& request);
    void Reset();

    Cloud& CloudOf() { return *m_cloud; }
    Journal& JournalOf() { return m_journal; }
    Plans& PlansOf() { return m_plans; }
    Pause& PauseOf() { return m_pause; }
    Traps& TrapsOf() { return m_traps; }

private:
    Pause& m_pause;
    std::unique_ptr<Cloud> m_cloud;
    Journal m_journal;
    Plans m_plans;
    Traps m_traps;
};

}  // namespace vantix::simulator
