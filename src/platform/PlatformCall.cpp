#include "platform/PlatformCall.h"

#include "base/Clock.h"
#include "transport/ClientInfo.h"
#include "transport/RequestFunctions.h"
#include "transport/ResponseBody.h"
#include "vantix/ReturnCodes.h"

namespace vantix {

PlatformCall::PlatformCall(const CallSite& site, const RequestRow& row, const PlatformAccount& account)
    : m_site(site), m_row(row), m_url(account.url) {
    if ((row.carried & carries::kAccessToken) != 0) {
        m_params.Add("accessToken", account.accessToken);
    }
    if ((row.carried & carries::kClientSet) != 0) {
        AddClientSet(m_params, ClientInfo());
    }
    if ((row.carried & carries::kAppKey) != 0) {
        m_params.Add("appKey", account.appKey);
    }
    for (const FixedParameter& fixed : row.fixed) {
        m_params.Add(fixed.key, fixed.value);
    }
}

PlatformCall& PlatformCall::Header(const char* key, const char* value) {
    m_headers.Add(key, value);
    return *this;
}

PlatformCall& PlatformCall::CostInto(int32_t& milliseconds) {
    m_cost = &milliseconds;
    return *this;
}

int PlatformCall::Send(char** response, uint32_t* length) const {
    switch (m_row.way) {
        case Way::Get: return SyncRequestHeader(m_row.endpoint, m_params, m_headers, m_url.c_str(), response, length);
        case Way::BodylessPost:
            return SyncRequestHeaderPost(m_row.endpoint, m_params, m_headers, m_url.c_str(), response, length);
        case Way::Ticket: return SyncRequest_v2(m_params, m_url.c_str(), response, length);
        case Way::Form: break;
    }
    return SyncRequest(m_row.endpoint, m_params, m_url.c_str(), response, length);
}

void PlatformCall::NoteCost(int32_t milliseconds) const {
    if (m_cost != nullptr) {
        *m_cost = milliseconds;
    }
    if (m_row.cost.IsThere()) {
        LogInfo(m_site, level::kInfo, m_row.cost, milliseconds);
    }
}

int PlatformCall::Run(const std::function<int(const std::string& body)>& parse) {
    ResponseBody response;
    const Stopwatch stopwatch;
    const int sent = Send(response.Data(), response.Length());
    NoteCost(stopwatch.ElapsedMilliseconds());
    if (sent != 0) {
        LogError(m_site, level::kError, m_row.transportFailure, sent);
        return VANTIX_NET_ERROR_BASE + sent;
    }
    const std::string body = response.Text();
    const int parsed = parse(body);
    if (parsed != 0) {
        LogError(m_site, level::kError, m_row.parserFailure, body, parsed);
        return VANTIX_PLATFORM_ERROR_BASE + parsed;
    }
    return VANTIX_NOERROR;
}

}  // namespace vantix
