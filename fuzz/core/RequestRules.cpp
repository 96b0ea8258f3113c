// What holds for each request of a run.

#include <algorithm>

#include "Fuzzer.h"
#include "core/CoreRun.h"

namespace vantix::fuzz {
namespace {

constexpr std::string_view kSessionHeader = "sessionId";

bool StartsWith(const std::string& text, std::string_view start) { return text.compare(0, start.size(), start) == 0; }

bool HasSessionHeader(const SentRequest& request) {
    return std::any_of(request.headers.begin(), request.headers.end(),
                       [](const std::string& line) { return StartsWith(line, kSessionHeader); });
}

/// Whether a credential with this prefix stands anywhere in a request.
bool Holds(const SentRequest& request, std::string_view prefix) {
    const auto has = [&](const std::string& text) { return text.find(prefix) != std::string::npos; };
    return has(request.url) || has(request.body) ||
           std::any_of(request.headers.begin(), request.headers.end(),
                       [&](const std::string& line) { return StartsWith(line, kSessionHeader) && has(line); });
}

bool HoldsAnyOf(const SentRequest& request, std::initializer_list<std::string_view> prefixes) {
    return std::any_of(prefixes.begin(), prefixes.end(),
                       [&](std::string_view prefix) { return Holds(request, prefix); });
}

bool IsDetailPath(const std::string& path) {
    return path == "/api/device/detail" || path == "/v3/userdevices/v1/devices/pagelist";
}

}  // namespace

TransferResult CoreRun::Respond(const SentRequest& request) {
    Trace(request.method + " " + request.url + " " + request.body);
    Require(m_rule != nullptr && ++m_requests <= m_rule->mostRequests && m_state.SendsInThisMode(*m_rule));
    const std::string path = PathOf(request.url);
    if (path == "/oauth/token/refreshToken" || path == "/v3/apigateway/login") {
        RequireRenewal(request);
    } else if (StartsWith(path, "/v3/") || path == "/api/user/token/get") {
        RequireConsumerRequest(request);
    } else {
        RequirePlatformRequest(request);
    }
    const std::string stamp = std::to_string(++m_stamp);
    MadeResponse response = MakeResponse(m_input, request, stamp);
    Trace("  gets " + std::to_string(response.result.code) + " " + response.result.body);
    m_book.Note(request, stamp, response);
    m_failed += response.verdict == Verdict::Failed ? 1 : 0;
    m_mayStoreDetail =
        m_mayStoreDetail ||
        (IsDetailPath(path) && (response.verdict == Verdict::Good || response.verdict == Verdict::Unknown));
    return std::move(response.result);
}

/// A consumer request has the session id, goes to the C domain alone, and has no credential of the platform.
void CoreRun::RequireConsumerRequest(const SentRequest& request) {
    Require(StartsWith(request.url, std::string(kCDomain) + "/"));
    Require(m_state.mode == 2 || m_rule->slot == 18);
    Require(m_state.IsConsumer(*m_rule, m_arguments, m_accessTokenBefore));
    const std::string session = m_core.getSessionId();
    Require(!session.empty() && HasSessionHeader(request));
    if (!m_book.AreCredentialsUnknown()) {
        const std::string line = "sessionId: " + session;
        Require(std::count(request.headers.begin(), request.headers.end(), line) == 1);
        Require(!HoldsAnyOf(request, {"at-", "tk2-", "tk3-", "gt-", "b2-", "sh-", "rt-", "rs-", "app-"}));
    }
}

/// A platform request has the operation's credential, never a session, and goes where the operation's row says.
void CoreRun::RequirePlatformRequest(const SentRequest& request) {
    const std::string domain = m_state.Domain(*m_rule, m_arguments, m_accessTokenBefore);
    Require(StartsWith(request.url, domain + "/api/"));
    Require(!m_state.IsConsumer(*m_rule, m_arguments, m_accessTokenBefore));
    Require(!HasSessionHeader(request));
    if (!m_book.AreCredentialsUnknown()) {
        Require(!HoldsAnyOf(request, {"se-", "rs-", "rt-"}));
    }
    RequireCredential(request);
}

void CoreRun::RequireCredential(const SentRequest& request) {
    const std::string sent = ParameterOf(request, "accessToken");
    const bool isTk = m_rule->sends == Sends::Tk1 || m_rule->sends == Sends::Tk2 || m_rule->sends == Sends::Tk3;
    if (m_rule->sends == Sends::Nothing) {
        Require(sent.empty());
    } else if (m_book.AreCredentialsUnknown()) {
        return;
    } else if (m_rule->sends == Sends::GivenToken && !m_isRenewed) {
        Require(!sent.empty() && sent == m_arguments.token);
    } else if (m_state.mode == 1 && (isTk || m_rule->sends == Sends::ChannelToken)) {
        const Sends kind = isTk ? m_rule->sends : Sends::Tk3;
        Require(!sent.empty() && sent == m_state.TkToken(kind, m_arguments.serial, ChannelOf(*m_rule, m_arguments)));
    } else if (m_state.mode == 2 && m_rule->sends == Sends::ChannelToken) {
        Require(!sent.empty() && sent == m_state.TokenOfChannel(m_arguments.serial, m_arguments.ch));
    } else {
        Require(!sent.empty() && sent == m_core.getAccessToken());
    }
}

/// At most one renewal, never in the small-permission mode; the refresh token and the refresh session go nowhere else.
void CoreRun::RequireRenewal(const SentRequest& request) {
    Require(!m_isRenewed && m_state.mode != 1);
    const bool isAsked = m_rule->slot == 36 || m_rule->slot == 72;
    Require(isAsked || m_rule->mostRequests > 1);
    Require(!m_arguments.retried || std::find(std::begin(kSlotsWithRetried), std::end(kSlotsWithRetried),
                                              m_rule->slot) == std::end(kSlotsWithRetried));
    m_isRenewed = true;
    if (PathOf(request.url) == "/v3/apigateway/login") {
        Require(m_state.mode == 2 && StartsWith(request.url, std::string(kCDomain) + "/v3/"));
        Require(HasSessionHeader(request) && !ParameterOf(request, "refreshSessionId").empty());
        Require(m_book.AreCredentialsUnknown() || !HoldsAnyOf(request, {"at-", "tk2-", "tk3-", "b2-", "sh-", "rt-"}));
    } else {
        Require(StartsWith(request.url, std::string(kAuthAddress) + "/oauth/") && !HasSessionHeader(request));
        Require(ParameterOf(request, "refresh_token") == "rt-1" && ParameterOf(request, "client_id") == "app-1");
        Require(m_book.AreCredentialsUnknown() || !HoldsAnyOf(request, {"at-", "tk2-", "tk3-", "b2-", "sh-", "se-"}));
    }
}

}  // namespace vantix::fuzz
