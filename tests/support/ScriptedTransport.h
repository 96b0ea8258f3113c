#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vantix::test {

/// A request as it was handed to libcurl.
struct SentRequest {
    std::string method;  ///< "GET", "POST" or "PUT".
    std::string url;
    std::string body;
    std::vector<std::string> headers;  ///< As given, "key: value".

    /// The value of a parameter, from the body or else from the query; "<none>" when it is not there.
    std::string Param(const std::string& key) const;
    /// The keys of all parameters, in the order sent.
    std::vector<std::string> Keys() const;
    /// The value of a header; "<none>" when it is not there.
    std::string Header(const std::string& key) const;
    /// The address without domain and query.
    std::string Path() const;
};

/// What a request gets: libcurl's code, and a body.
struct ScriptedResponse {
    int code = 0;
    std::string body;
};

/// While it exists, no transfer leaves the process: each gets the next response of a script, and code 7 (nothing there)
/// when the script is at its end. One at a time; requests may come from any thread. The program is linked with the
/// options that support/ScriptedTransport.cpp names.
class ScriptedTransport {
public:
    ScriptedTransport();
    ~ScriptedTransport();
    ScriptedTransport(const ScriptedTransport&) = delete;
    ScriptedTransport& operator=(const ScriptedTransport&) = delete;

    using Maker = std::function<ScriptedResponse(const SentRequest&)>;

    /// Adds a response with this body.
    void Respond(const std::string& body, int times = 1);
    /// Adds a transfer that fails with a code of libcurl.
    void Fail(int code);
    /// Adds a response that is made when the request comes, on its thread and under no lock.
    void Make(const Maker& maker);
    /// Forgets what is left of the script.
    void DropScript();
    /// Responds to all requests beyond the script.
    void Always(const Maker& maker);
    /// Responds to all requests from now on, without a script, a record or a lock: what threads do stays unordered, so
    /// that a race detector sees it. Call it before they start.
    void AlwaysUnrecorded(const Maker& maker);

    /// What was sent so far, in order.
    std::vector<SentRequest> Sent() const;
    size_t Count() const { return Sent().size(); }
};

}  // namespace vantix::test
