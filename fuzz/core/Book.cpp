#include "core/Book.h"

#include <utility>

namespace vantix::fuzz {
namespace {

/// Which records a path fills.
constexpr std::pair<std::string_view, std::string_view> kKinds[] = {
    {"/api/device/detail", "detail"},
    {"/v3/userdevices/v1/devices/pagelist", "detail"},
    {"/v3/userdevices/v1/devices/pagelist", "P2P"},
    {"/api/sdk/p2p/dev/info/get", "P2P"},
    {"/api/service/media/server/info", "servers"},
    {"/v3/configurations/system/info", "servers"},
    {"/api/sdk/p2p/user/info/get", "user"},
    {"/v3/users/info", "user"},
    {"/v3/p2pbusiness/configurations/p2p", "user"},
    {"/api/user/token", "tokens"},
    {"/api/user/token/get", "tokens"},
    {"/oauth/token/refreshToken", "credentials"},
    {"/v3/apigateway/login", "credentials"},
};

/// Records of the account have no serial.
std::string Entry(std::string_view kind, const std::string& serial, const std::string& stamp) {
    const bool isOfDevice = kind == "detail" || kind == "P2P";
    return std::string(kind).append("/").append(isOfDevice ? serial : "").append("/").append(stamp);
}

bool Take(std::multiset<std::string>& texts, const std::string& text) {
    const auto found = texts.find(text);
    if (found == texts.end()) {
        return false;
    }
    texts.erase(found);
    return true;
}

}  // namespace

void Book::Note(const SentRequest& request, const std::string& stamp, const MadeResponse& response) {
    const std::string path = PathOf(request.url);
    for (const auto& [wanted, kind] : kKinds) {
        if (path != wanted) {
            continue;
        }
        if (response.verdict == Verdict::Unknown) {
            m_unknown.emplace(kind);
        } else if (response.verdict == Verdict::Good) {
            m_sent.insert(Entry(kind, ParameterOf(request, "deviceSerial"), "ip-" + stamp));
        }
    }
    if (path == "/api/user/token" && response.verdict == Verdict::Good) {
        m_tokens.insert("st-" + stamp + "-1");
        m_tokens.insert("st-" + stamp + "-2");
        m_tokenResponses.insert(response.result.body);
    }
}

bool Book::HasSent(std::string_view kind, const std::string& serial, const std::string& stamp) const {
    return m_unknown.contains(kind) || m_sent.contains(Entry(kind, serial, stamp));
}

bool Book::TakeToken(const std::string& token) { return m_unknown.contains("tokens") || Take(m_tokens, token); }

bool Book::TakeTokenResponse(const std::string& body) {
    return m_unknown.contains("tokens") || Take(m_tokenResponses, body);
}

}  // namespace vantix::fuzz
