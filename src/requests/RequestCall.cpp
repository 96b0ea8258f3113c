#include "requests/RequestCall.h"

#include <limits>
#include <utility>

#include "base/Clock.h"
#include "log/Logger.h"
#include "requests/RequestFunctions.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

constexpr char kFormContentType[] = "application/x-www-form-urlencoded";

/// A row without a set does not compile here.
void AddSession(ParamMap& headers, HeaderSet set, const std::string& sessionId, const ClientInfo* client) {
    if (set == HeaderSet::SessionOnly) {
        headers.Add("sessionId", sessionId);
        return;
    }
    const auto addSet = set == HeaderSet::A ? AddHeaderSetA : AddHeaderSetB;
    addSet(headers, client != nullptr ? *client : ClientInfo(), sessionId);
}

/// Adds the base to a response code. The sum must neither leave its range nor look like a success.
int Composed(int code) {
    constexpr int kLargest = std::numeric_limits<int32_t>::max() - VANTIX_PLATFORM_ERROR_BASE;
    const bool isPossible = code > 0 && code <= kLargest;
    return VANTIX_PLATFORM_ERROR_BASE + (isPossible ? code : static_cast<int>(VANTIX_RESP_BAD_FORMAT));
}

}  // namespace

PreparedRequest::PreparedRequest(const CallSite& site, const RequestRow& row, std::string address)
    : m_site(site), m_row(row), m_address(std::move(address)) {
    if (row.common.clientSet) {
        AddClientSet(m_params, ClientInfo());
    }
    for (const FixedParameter& fixed : row.fixed) {
        m_params.Add(fixed.key, fixed.value);
    }
    if (row.headers.formContentType) {
        m_headers.Add("Content-Type", kFormContentType);
    }
}

PreparedRequest::PreparedRequest(const CallSite& site, const RequestRow& row, const PlatformRoute& route)
    : PreparedRequest(site, row, route.Address()) {
    if (row.common.accessToken) {
        m_params.Add("accessToken", route.AccessToken());
    }
    if (row.common.appKey) {
        m_params.Add("appKey", route.AppKey());
    }
}

PreparedRequest::PreparedRequest(const CallSite& site, const RequestRow& row, const AuthorizationRoute& route)
    : PreparedRequest(site, row, route.Address()) {
    if (row.common.appKey) {
        m_params.Add("appKey", route.AppKey());
    }
}

PreparedRequest::PreparedRequest(const CallSite& site, const RequestRow& row, const ConsumerRoute& route,
                                 const ClientInfo* client)
    : PreparedRequest(site, row, route.Address()) {
    AddSession(m_headers, row.headers.set, route.SessionId(), client);
}

void PreparedRequest::Add(std::initializer_list<Parameter> parameters) {
    for (const Parameter& parameter : parameters) {
        parameter.AddTo(m_params);
    }
}

PreparedRequest& PreparedRequest::CostInto(int32_t& milliseconds) {
    m_cost = &milliseconds;
    return *this;
}

int PreparedRequest::Send(char** response, uint32_t* length) const {
    const char* base = m_address.c_str();
    const uint32_t endpoint = m_row.endpoint;
    switch (m_row.kind) {
        case RequestKind::JsonPost: return SyncRequestjson(m_json.c_str(), base, response, length);
        case RequestKind::TicketGet: return SyncRequest_v2(m_params, base, response, length);
        case RequestKind::Get: return SyncRequestHeader(endpoint, m_params, m_headers, base, response, length);
        case RequestKind::BodylessPost:
            return SyncRequestHeaderPost(endpoint, m_params, m_headers, base, response, length);
        case RequestKind::Put: return SyncPutRequestHeader(endpoint, m_params, m_headers, base, response, length);
        case RequestKind::FormPost: break;
    }
    return SyncRequest(endpoint, m_params, base, response, length);
}

void PreparedRequest::StoreAndLogCost(int32_t milliseconds) const {
    if (m_cost != nullptr) {
        *m_cost = milliseconds;
    }
    if (m_row.cost.IsThere()) {
        LogInfo(m_site, m_row.cost, milliseconds);
    }
}

bool PreparedRequest::HasZeroByte() const {
    return m_params.HasZeroByte() || m_headers.HasZeroByte() || m_json.find('\0') != std::string::npos ||
           m_address.find('\0') != std::string::npos;
}

int PreparedRequest::Fetch(ResponseBody& body) {
    if (HasZeroByte()) {
        VANTIX_LOG_ERROR(m_site, level::kError, "a parameter has a zero byte, nothing is sent");
        return VANTIX_ERROR;
    }
    const Stopwatch stopwatch;
    const int sent = Send(body.Data(), body.Length());
    StoreAndLogCost(stopwatch.ElapsedMilliseconds());
    if (sent != 0) {
        LogError(m_site, TransportFailureOf(m_row), sent);
        return VANTIX_NET_ERROR_BASE + sent;
    }
    return VANTIX_NOERROR;
}

int PreparedRequest::FetchText(std::string& text) {
    ResponseBody body;
    const int fetched = Fetch(body);
    if (fetched == VANTIX_NOERROR) {
        text.assign(body.Text().begin(), body.Text().end());
    }
    return fetched;
}

int PreparedRequest::Run(Reader parse) {
    ResponseBody body;
    const int fetched = Fetch(body);
    return fetched != VANTIX_NOERROR ? fetched
                                     : LogRefusal(m_site, m_row.parserFailure, body.Text(), parse(body.Text()));
}

int PreparedRequest::Run(Reader check, Reader parse) {
    ResponseBody body;
    int result = Fetch(body);
    if (result == VANTIX_NOERROR) {
        result = LogRefusal(m_site, m_row.checkFailure, body.Text(), check(body.Text()));
    }
    return result != VANTIX_NOERROR ? result : LogRefusal(m_site, m_row.parserFailure, body.Text(), parse(body.Text()));
}

int LogRefusal(const CallSite& site, BodyCodeText label, TextView body, int code) {
    if (code == 0) {
        return VANTIX_NOERROR;
    }
    LogError(site, label, body, code);
    return Composed(code);
}

}  // namespace vantix
