#pragma once

/// @file
/// How every request runs: build, send, time, log, check, compose the return code. What differs from request to request
/// is its row.
///
///     return RequestCall<platform_requests::kTicket>(VANTIX_HERE, route, "deviceSerial"_key = deviceSerial,
///                                                    "channelNo"_key = channelNo)
///         .Run([&](TextView body) { return ParseTicketInfoFromPlatform(body, ticket); });

#include <cstdint>
#include <initializer_list>
#include <string>
#include <type_traits>

#include "base/FunctionRef.h"
#include "base/TextView.h"
#include "log/CallSite.h"
#include "requests/ClientInfo.h"
#include "requests/RequestKeys.h"
#include "requests/RequestRow.h"
#include "requests/RequestRowChecks.h"
#include "requests/Route.h"
#include "transport/ParamMap.h"
#include "transport/ResponseBody.h"

namespace vantix {

/// One request with all its parameters. Log lines bear the tag of the call site. Only `RequestCall` makes one, and
/// checks its parameters.
class PreparedRequest {
public:
    /// Takes a body and returns a response code.
    using Reader = FunctionRef<int(TextView body)>;

    /// Where the elapsed milliseconds go, whatever the outcome.
    PreparedRequest& CostInto(int32_t& milliseconds);

    /// Sends the request and hands the body to `parse`. Returns 0, 100000 + the transport's code (then nothing was
    /// parsed), or 300000 + the response code; -1, and nothing is sent, when a parameter has a zero byte.
    int Run(Reader parse);
    /// The same with a check before the parser; a failure of either has its own line.
    int Run(Reader check, Reader parse);

    /// Sends the request alone: 0, 100000 + the transport's code, or -1 as above. `body` is an empty one.
    int Fetch(ResponseBody& body);
    /// The same with the body copied out.
    int FetchText(std::string& text);

protected:
    PreparedRequest(const CallSite& site, const RequestRow& row, const PlatformRoute& route);
    PreparedRequest(const CallSite& site, const RequestRow& row, const AuthorizationRoute& route);
    /// Headers use `client`; without it the request makes one when needed.
    PreparedRequest(const CallSite& site, const RequestRow& row, const ConsumerRoute& route,
                    const ClientInfo* client = nullptr);

    void Add(std::initializer_list<Parameter> parameters);
    void SetJson(const std::string& json) { m_json = json; }

private:
    PreparedRequest(const CallSite& site, const RequestRow& row, std::string address);

    bool HasZeroByte() const;
    int Send(char** response, uint32_t* length) const;
    void StoreAndLogCost(int32_t milliseconds) const;

    CallSite m_site;
    const RequestRow& m_row;
    std::string m_address;
    ParamMap m_params;
    ParamMap m_headers;
    std::string m_json;
    int32_t* m_cost = nullptr;
};

/// The type of the routes of a family.
template <RequestFamily Family>
struct RouteOfFamily;
template <>
struct RouteOfFamily<RequestFamily::Platform> : std::type_identity<PlatformRoute> {};
template <>
struct RouteOfFamily<RequestFamily::Consumer> : std::type_identity<ConsumerRoute> {};
template <>
struct RouteOfFamily<RequestFamily::Authorization> : std::type_identity<AuthorizationRoute> {};

/// The text that a JSON post sends.
struct JsonBody {
    const std::string& text;
};

/// Whether a call gives a value of the right type for each key of the row, and for no other.
template <const RequestRow& Row, class... Parameters>
concept GivesKeysOf = Row.kind != RequestKind::JsonPost && (kIsKeyedParameter<Parameters> && ...) &&
                      AreKeysOf(Row, {Parameters::kKey...});
/// The same for a request whose headers describe this computer.
template <const RequestRow& Row, class... Parameters>
concept GivesKeysOfConsumer = (Row.family == RequestFamily::Consumer) && GivesKeysOf<Row, Parameters...>;

/// Prepares one request. Route and parameters must be those of its row, or the call does not compile.
template <const RequestRow& Row>
class RequestCall : public PreparedRequest {
    static_assert(IsConsistent(Row), "the row has something that its kind or family ignores");

public:
    using Route = typename RouteOfFamily<Row.family>::type;

    template <class... Parameters>
    requires GivesKeysOf<Row, Parameters...> RequestCall(const CallSite& site, const Route& route,
                                                         const Parameters&... parameters)
        : PreparedRequest(site, Row, route) {
        Add({parameters...});
    }
    /// For several requests, or a request and its parameters, that must describe this computer alike.
    template <class... Parameters>
    requires GivesKeysOfConsumer<Row, Parameters...> RequestCall(const CallSite& site, const Route& route,
                                                                 const ClientInfo& client,
                                                                 const Parameters&... parameters)
        : PreparedRequest(site, Row, route, &client) {
        Add({parameters...});
    }
    RequestCall(const CallSite& site, const Route& route,
                const JsonBody& body) requires(Row.kind == RequestKind::JsonPost)
        : PreparedRequest(site, Row, route) {
        SetJson(body.text);
    }

    RequestCall& CostInto(int32_t& milliseconds) {
        PreparedRequest::CostInto(milliseconds);
        return *this;
    }
    // Only for rows that have a line for the failure.
    int Run(Reader parse) requires(Row.parserFailure.IsThere()) { return PreparedRequest::Run(parse); }
    int Run(Reader check, Reader parse) requires(Row.checkFailure.IsThere() && Row.parserFailure.IsThere()) {
        return PreparedRequest::Run(check, parse);
    }
};

/// Logs that a response was refused, under the request's label, and returns 300000 + the code. A code that a server
/// cannot have meant, such as a negative one, counts as malformed. Code 0 is no refusal: nothing is logged, and 0
/// returned.
int LogRefusal(const CallSite& site, BodyCodeText label, TextView body, int code);

}  // namespace vantix
