#pragma once

#include <string>
#include <utility>
#include <vector>

#include "support/TestJson.h"

namespace vantix::test {

/// One request that the cloud received, as it came: nothing is decoded.
struct ReceivedRequest {
    std::string domain;  ///< "B" or "C".
    std::string method;
    std::string path;
    std::string query;  ///< Without the "?".
    std::string body;
    std::vector<std::pair<std::string, std::string>> headers;

    /// The parameters of the query and then of the body, in the order sent, as "key=value".
    std::vector<std::string> Parameters() const;
    /// The value of a parameter, "<none>" when it is not there.
    std::string Parameter(const std::string& key) const;
    /// The value of a header whatever the case of its name, "<none>" when it is not there.
    std::string Header(const std::string& name) const;
    /// The names of all headers in lower case, sorted.
    std::vector<std::string> HeaderNames() const;
};

/// The control interface of the loopback cloud, whose address stands in the environment as VANTIX_SIMULATOR.
///
/// Every call is one plain HTTP request, made past any proxy. What the cloud refuses, and a cloud that is not there, is
/// a `std::runtime_error` that says so.
class SimulatorClient {
public:
    SimulatorClient();

    Json Get(const std::string& path) const;
    Json Post(const std::string& path, const Json& content = Json::object()) const;
    Json Put(const std::string& path, const Json& content) const;
    void Delete(const std::string& path) const;

    /// Back to the sample data: no script, faults or uploads, an empty journal. Returns the addresses and the account.
    Json Reset() const { return Post("/reset"); }
    Json Device(const std::string& serial) const { return Get("/devices/" + serial); }
    /// The stored channel of a device.
    Json Camera(const std::string& serial, int cameraNo) const;

    /// Adds a scripted response: what happens to coming requests for one path.
    void Script(const Json& response) const { Post("/scripted-responses", response); }
    /// Drops what is left of the script, and lets held requests go on.
    void ForgetScript() const { Delete("/scripted-responses"); }
    /// Opens a port that fails below HTTP, in this way; its address.
    std::string Fault(const Json& fault) const { return Post("/faults", fault).at("address"); }
    /// The address of a port that was open and is closed now.
    std::string ClosedPort() const;

    /// Waits until so many requests are held under this name; false when that took longer than a minute.
    bool WaitUntilHeld(const std::string& hold, int count) const;
    void Release(const std::string& hold) const { Post("/release", {{"hold", hold}}); }

    std::vector<ReceivedRequest> Requests() const;
    std::vector<ReceivedRequest> Requests(const std::string& path) const;
    /// Takes the oldest entries out of the journal, at most so many.
    std::vector<ReceivedRequest> TakeRequests(size_t most) const;
    size_t RequestCount() const { return Requests().size(); }
    void ForgetRequests() const { Delete("/journal"); }

private:
    Json Call(const char* method, const std::string& path, const Json* content) const;

    std::string m_address;
};

}  // namespace vantix::test
