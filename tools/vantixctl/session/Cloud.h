#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Json.h"

namespace vantix::ctl {

/// One request as the loopback cloud received it.
struct ReceivedRequest {
    std::string server;  ///< "platform" or "consumer"
    std::string method;
    std::string path;
    std::vector<std::pair<std::string, std::string>> parameters;  ///< of the query and the form, as received
    std::string otherBody;                                        ///< a body that is not a form
};

/// The loopback cloud inside this process, if the tool was built with it.
class Cloud {
public:
    /// Starts it with its sample account. Throws std::runtime_error on failure, or when it is not part of this build.
    Cloud();
    ~Cloud();
    Cloud(const Cloud&) = delete;
    Cloud& operator=(const Cloud&) = delete;

    static bool IsAvailable();

    /// Addresses and account, as `Configuration::TakeJson` reads them.
    Json Credentials() const;
    /// Address of its control interface, such as "http://127.0.0.1:40003".
    std::string ControlAddress() const;
    /// All requests received so far.
    std::vector<ReceivedRequest> ReceivedRequests() const;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

}  // namespace vantix::ctl
