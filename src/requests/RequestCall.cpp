#include "requests/RequestCall.h"

#include <limits>

#include "base/Clock.h"
#include "requests/ClientInfo.h"
#include "requests/RequestFunctions.h"
#include "transport/ResponseBody.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

constexpr char kFormContentType[] = "application/x-www-form-urlencoded";

bool Carries(const RequestRow& row, unsigned what) { return (row.carried & what) != 0; }

ParamMap HeadersOf(const RequestRow& row, const std::string& credential, const ClientInfo* client) {
    ParamMap headers;
    if (Carries(row, carries::kHeadersA)) {
        headers = ConsumerHeadersA(client != nullptr ? *client : ClientInfo(), credential);
    } else if (Carries(row, carries::kHeadersB)) {
        headers = ConsumerHeadersB(client != nullptr ? *client : ClientInfo(), credential);
    } else if (Carries(row, carries::kSessionHeader)) {
        headers.Add("sessionId", credential);
    }
    if (Carries(row, carries::kFormHeader)) {
        headers.Add("Content-Type", kFormContentType);
    }
    return headers;
}

ParamMap CommonParameters(const RequestRow& row, const std::string& credential, const std::string& appKey) {
    ParamMap params;
    if (Carries(row, carries::kAccessToken)) {
        params.Add("accessToken", credential);
    }
    if (Carries(row, carries::kClientSet)) {
        AddClientSet(params, ClientInfo());
    }
    if (Carries(row, carries::kAppKey)) {
        params.Add("appKey", appKey);
    }
    for (const FixedParameter& fixed : row.fixed) {
        params.Add(fixed.key, fixed.value);
    }
    return params;
}

}  // namespace

RequestCall::RequestCall(const CallSite& site, const RequestRow& row, const ConsumerRoute& route,
                         const ClientInfo* client)
    : m_site(site),
      m_row(row),
      m_url(route.Address()),
      m_params(CommonParameters(row, {}, {})),
      m_headers(HeadersOf(row, route.SessionId(), client)) {}

RequestCall::RequestCall(const CallSite& site, const RequestRow& row, const PlatformRoute& route)
    : m_site(site),
      m_row(row),
      m_url(route.Address()),
      m_params(CommonParameters(row, route.AccessToken(), route.AppKey())),
      m_headers(HeadersOf(row, {}, nullptr)) {}

RequestCall::RequestCall(const CallSite& site, const RequestRow& row, const AuthorizationRoute& route)
    : m_site(site),
      m_row(row),
      m_url(route.Address()),
      m_params(CommonParameters(row, {}, route.AppKey())),
      m_headers(HeadersOf(row, {}, nullptr)) {}

RequestCall& RequestCall::Body(const std::string& json) {
    m_json = json;
    return *this;
}

RequestCall& RequestCall::CostInto(int32_t& milliseconds) {
    m_cost = &milliseconds;
    return *this;
}

int RequestCall::Send(char** response, uint32_t* length) const {
    const char* base = m_url.c_str();
    switch (m_row.way) {
        case Way::Json: return SyncRequestjson(m_json.c_str(), base, response, length);
        case Way::Ticket: return SyncRequest_v2(m_params, base, response, length);
        case Way::Get: return SyncRequestHeader(m_row.endpoint, m_params, m_headers, base, response, length);
        case Way::BodylessPost:
            return SyncRequestHeaderPost(m_row.endpoint, m_params, m_headers, base, response, length);
        case Way::Put: return SyncPutRequestHeader(m_row.endpoint, m_params, m_headers, base, response, length);
        case Way::Form: break;
    }
    return SyncRequest(m_row.endpoint, m_params, base, response, length);
}

void RequestCall::NoteCost(int32_t milliseconds) const {
    if (m_cost != nullptr) {
        *m_cost = milliseconds;
    }
    if (m_row.cost.IsThere()) {
        VANTIX_LOG_INFO(m_site, level::kInfo, "%s", Filled(m_row.cost, milliseconds).c_str());
    }
}

int RequestCall::Fetch(std::string& body) {
    ResponseBody response;
    const Stopwatch stopwatch;
    const int sent = Send(response.Data(), response.Length());
    NoteCost(stopwatch.ElapsedMilliseconds());
    if (sent != 0) {
        VANTIX_LOG_ERROR(m_site, level::kError, "%s", Filled(m_row.transportFailure, sent).c_str());
        return VANTIX_NET_ERROR_BASE + sent;
    }
    body = response.Text();
    return VANTIX_NOERROR;
}

namespace {

/// Adds the base to a response code. A code that a server cannot have meant, such as a negative one, counts as
/// malformed: the sum must neither leave its range nor look like a success.
int Composed(int code) {
    constexpr int kLargest = std::numeric_limits<int32_t>::max() - VANTIX_PLATFORM_ERROR_BASE;
    const bool possible = code > 0 && code <= kLargest;
    return VANTIX_PLATFORM_ERROR_BASE + (possible ? code : static_cast<int>(VANTIX_RESP_BAD_FORMAT));
}

}  // namespace

int RequestCall::Judge(const Reader& reader, BodyCodeText failure, const std::string& body) const {
    const int code = reader(body);
    if (code == 0) {
        return VANTIX_NOERROR;
    }
    VANTIX_LOG_ERROR(m_site, level::kError, "%s", Filled(failure, body, code).c_str());
    return Composed(code);
}

int RequestCall::Run(const Reader& parse) {
    std::string body;
    const int fetched = Fetch(body);
    return fetched != VANTIX_NOERROR ? fetched : Judge(parse, m_row.parserFailure, body);
}

int RequestCall::Run(const Reader& check, const Reader& parse) {
    std::string body;
    int result = Fetch(body);
    if (result == VANTIX_NOERROR) {
        result = Judge(check, m_row.checkFailure, body);
    }
    return result != VANTIX_NOERROR ? result : Judge(parse, m_row.parserFailure, body);
}

}  // namespace vantix
