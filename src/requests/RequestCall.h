#pragma once

/// @file
/// The one road that every request takes: build, send, time, log, check, compose the return code. What differs from
/// request to request is a row.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "log/Logger.h"
#include "requests/ClientInfo.h"
#include "requests/MessageText.h"
#include "requests/Route.h"
#include "transport/ParamMap.h"

namespace vantix {

/// How a request travels.
enum class Way {
    Form,          ///< Form POST.
    Json,          ///< POST of a JSON text, to the path of the cloud recordings' details.
    Ticket,        ///< GET of the ticket path.
    Get,           ///< GET with headers.
    BodylessPost,  ///< POST with headers and without a body.
    Put,           ///< PUT with headers and without a body, to the login path.
};

/// What requests carry besides their own parameters.
namespace carries {
inline constexpr unsigned kAccessToken = 1U << 0U;
inline constexpr unsigned kClientSet = 1U << 1U;
inline constexpr unsigned kAppKey = 1U << 2U;
inline constexpr unsigned kFormHeader = 1U << 3U;     ///< The header "Content-Type" of a form.
inline constexpr unsigned kSessionHeader = 1U << 4U;  ///< The header "sessionId" alone.
inline constexpr unsigned kHeadersA = 1U << 5U;       ///< The consumer servers' smaller set of headers.
inline constexpr unsigned kHeadersB = 1U << 6U;       ///< Their larger one.
}  // namespace carries

/// A parameter whose value never changes.
struct FixedParameter {
    const char* key = nullptr;
    const char* value = nullptr;
};

/// One request, as data.
struct RequestRow {
    static constexpr size_t kMostParameters = 9;

    const char* name = nullptr;  ///< The request function's.
    Way way = Way::Form;
    uint32_t endpoint = 0;
    unsigned carried = 0;                   ///< Of `carries`.
    const char* own[kMostParameters] = {};  ///< Keys of the request's own parameters, in the order of its values.
    FixedParameter fixed[2] = {};           ///< Those without a key are none.
    CodeText transportFailure = "SyncRequest error:%d";
    BodyCodeText checkFailure = {};   ///< Of a first check of the answer, where there is one before the parser.
    BodyCodeText parserFailure = {};  ///< Its label need not be the parser's name.
    CostText cost = {};               ///< Absent when the elapsed time is not logged.
};

/// One request on its way. Log lines bear the name of the function that makes it.
class RequestCall {
public:
    /// Takes a body and returns a response code.
    using Reader = std::function<int(const std::string& body)>;

    /// `client` is what the headers tell of this computer, where several requests or parameters must tell the same;
    /// without it the call makes its own.
    RequestCall(const CallSite& site, const RequestRow& row, const ConsumerRoute& route,
                const ClientInfo* client = nullptr);
    RequestCall(const CallSite& site, const RequestRow& row, const PlatformRoute& route);
    RequestCall(const CallSite& site, const RequestRow& row, const AuthorizationRoute& route);

    /// Gives the row's own parameters their values, in the row's order; none may be left out.
    template <class... Values>
    RequestCall& With(const Values&... values) {
        static_assert(sizeof...(values) <= RequestRow::kMostParameters);
        size_t index = 0;
        (m_params.Add(m_row.own[index++], values), ...);
        return *this;
    }
    /// Adds a parameter that not every call of this request has.
    template <class Value>
    RequestCall& WithOptional(const char* key, const Value& value) {
        m_params.Add(key, value);
        return *this;
    }
    /// The text that a JSON POST sends.
    RequestCall& Body(const std::string& json);
    /// Where the elapsed milliseconds go, whatever the outcome.
    RequestCall& CostInto(int32_t& milliseconds);

    /// Sends the request and hands the body to `parse`. Returns 0, 100000 + the transport's code (then nothing was
    /// parsed), or 300000 + the response code.
    int Run(const Reader& parse);
    /// The same with a check before the parser; a failure of either has its own line.
    int Run(const Reader& check, const Reader& parse);

    /// Sends the request and copies the body out: 0, or 100000 + the transport's code.
    int Fetch(std::string& body);

private:
    int Send(char** response, uint32_t* length) const;
    int Judge(const Reader& reader, BodyCodeText failure, const std::string& body) const;
    void NoteCost(int32_t milliseconds) const;

    CallSite m_site;
    const RequestRow& m_row;
    std::string m_url;
    ParamMap m_params;
    ParamMap m_headers;
    std::string m_json;
    int32_t* m_cost = nullptr;
};

}  // namespace vantix
