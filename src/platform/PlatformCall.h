#pragma once

/// @file
/// The one road that every platform request takes: build, send, time, log, check, compose the return code.

#include <cstdint>
#include <functional>
#include <string>

#include "boundary/Logger.h"
#include "transport/MessageText.h"
#include "transport/ParamMap.h"

namespace vantix {

/// Whom a platform request is made for.
struct PlatformAccount {
    std::string url;          ///< Base address.
    std::string accessToken;  ///< Or the per-device token that stands in for it.
    std::string appKey;       ///< The host's app id.
};

/// How a request travels.
enum class Way {
    Form,          ///< Form POST.
    Get,           ///< GET with headers.
    BodylessPost,  ///< POST with headers and without a body.
    Ticket,        ///< GET of the ticket path.
};

/// What most requests carry besides their own parameters.
namespace carries {
inline constexpr unsigned kAccessToken = 1;
inline constexpr unsigned kClientSet = 2;
inline constexpr unsigned kAppKey = 4;
}  // namespace carries

/// A parameter whose value never changes.
struct FixedParameter {
    const char* key = nullptr;
    const char* value = nullptr;
};

/// One request, as data.
struct RequestRow {
    Way way;
    uint32_t endpoint;
    unsigned carried;            ///< Of `carries`.
    FixedParameter fixed[2];     ///< Those without a key are none.
    CodeText transportFailure;   ///< The line of a failed transfer.
    BodyCodeText parserFailure;  ///< The line of an answer that was refused; its label is part of it.
    CostText cost;               ///< The line of the elapsed time; absent when it is not logged.
};

/// One request on its way. Log lines bear the name of the function that makes it.
class PlatformCall {
public:
    PlatformCall(const CallSite& site, const RequestRow& row, const PlatformAccount& account);

    /// Adds a parameter of this request.
    template <class Value>
    PlatformCall& Param(const char* key, const Value& value) {
        m_params.Add(key, value);
        return *this;
    }
    PlatformCall& Header(const char* key, const char* value);
    /// Where the elapsed milliseconds go, whatever the outcome.
    PlatformCall& CostInto(int32_t& milliseconds);

    /// Sends the request and hands the body to `parse`, which yields a response code. Returns 0, 100000 + the
    /// transport's code (then `parse` was not called), or 300000 + the response code.
    int Run(const std::function<int(const std::string& body)>& parse);

private:
    int Send(char** response, uint32_t* length) const;
    void NoteCost(int32_t milliseconds) const;

    CallSite m_site;
    const RequestRow& m_row;
    std::string m_url;
    ParamMap m_params;
    ParamMap m_headers;
    int32_t* m_cost = nullptr;
};

}  // namespace vantix
