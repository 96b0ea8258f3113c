#pragma once

#include <vantix/IVantixDataCenter.h>

#include <memory>
#include <optional>

#include "session/Cloud.h"
#include "session/Configuration.h"
#include "session/LogSink.h"
#include "session/StandardError.h"

namespace vantix::ctl {

/// The options of a session.
struct SessionChoice {
    Configuration configuration;
    LogChoice log;
    bool utf8 = true;  ///< texts in UTF-8 instead of the system's code page
};

/// A configured data center, without log lines unless the choice wants them. Without a domain it uses the loopback
/// cloud, and the cloud's account for what the configuration does not set.
class Session {
public:
    explicit Session(const SessionChoice& choice);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    IVantixDataCenter& Center() const { return *m_center; }
    /// The loopback cloud, null with a real cloud.
    const Cloud* Loopback() const { return m_cloud ? &*m_cloud : nullptr; }
    /// The settings of the data center, including those from the loopback cloud.
    const Configuration& AppliedConfiguration() const { return m_configuration; }

private:
    struct Destroy {
        void operator()(IVantixDataCenter* center) const { DestroyVantixDataCenterInstance(center); }
    };

    StandardError m_standardError;
    LogSink m_log;
    std::optional<Cloud> m_cloud;
    Configuration m_configuration;
    std::unique_ptr<IVantixDataCenter, Destroy> m_center;
};

}  // namespace vantix::ctl
