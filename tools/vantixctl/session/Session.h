#pragma once

#include <vantix/IVantixDataCenter.h>

#include <memory>
#include <optional>

#include "session/Cloud.h"
#include "session/Configuration.h"
#include "session/LogSink.h"
#include "session/StandardError.h"

namespace vantix::ctl {

/// How a session is to be set up.
struct SessionChoice {
    Configuration configuration;
    LogChoice log;
    bool utf8 = true;  ///< texts in UTF-8, not in the system's code page
};

/// A configured data center, quiet unless log lines were asked for. Without a domain it stands against the loopback
/// cloud and uses its account for whatever the configuration leaves open.
class Session {
public:
    explicit Session(const SessionChoice& choice);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    IVantixDataCenter& Center() const { return *m_center; }
    /// The loopback cloud, null when a real one is spoken to.
    const Cloud* Loopback() const { return m_cloud ? &*m_cloud : nullptr; }
    /// What the data center was told, with what came from the loopback cloud.
    const Configuration& Told() const { return m_told; }

private:
    struct Destroy {
        void operator()(IVantixDataCenter* center) const { DestroyVantixDataCenterInstance(center); }
    };

    StandardError m_standardError;
    LogSink m_log;
    std::optional<Cloud> m_cloud;
    Configuration m_told;
    std::unique_ptr<IVantixDataCenter, Destroy> m_center;
};

}  // namespace vantix::ctl
