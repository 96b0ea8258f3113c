// Which server family a fetch goes to, which credential it carries, and when it is repeated with a renewed one.

#include "base/LastError.h"
#include "core/CVantixDataCenter.h"
#include "log/Logger.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

/// The answer 401 of the consumer servers, bare or as the code of a parser.
constexpr int kSessionExpired = 401;

bool IsSessionExpired(int result) {
    return result == kSessionExpired || result == VANTIX_PLATFORM_ERROR_BASE + kSessionExpired;
}

}  // namespace

bool CVantixDataCenter::hasCredential(const CallSite& site, const std::string& credential) {
    if (credential.empty()) {
        VANTIX_LOG_ERROR(site, level::kError, "get strToken error");
        SetThreadLastError(VANTIX_ERROR);
    }
    return !credential.empty();
}

std::string CVantixDataCenter::ownCredential(const std::string& serial, int ch, int tkType) {
    if (m_settings.permissionMode.Copy() == permission_mode::kSmall) {
        return getDeviceTkTokens(tkType, serial, ch);
    }
    return m_settings.accessToken.Copy();
}

std::string CVantixDataCenter::detailCredential(const std::string& serial, int ch) {
    if (m_settings.permissionMode.Copy() == permission_mode::kB2C) {
        return getB2CTokens(serial, ch);
    }
    return ownCredential(serial, ch, tk::kVideo);
}

bool CVantixDataCenter::isServedByConsumer(const std::string& token) {
    return m_settings.permissionMode.Copy() == permission_mode::kB2C && isB2CSharedDevice(token);
}

bool CVantixDataCenter::isServedByConsumer(const std::string& serial, int ch) {
    return m_settings.permissionMode.Copy() == permission_mode::kB2C && isB2CSharedDevice(serial, ch);
}

Caller CVantixDataCenter::callerFor(const std::string& domain, const std::string& token) {
    return {domain, token, getAppId()};
}

FetchTokens CVantixDataCenter::tokensOf(const std::string& token) { return {token, m_settings.accessToken.Copy()}; }

FetchTokens CVantixDataCenter::tokensOf(const std::string& serial, int ch, int tkType) {
    std::string carried = ownCredential(serial, ch, tkType);
    const bool isB2C = m_settings.permissionMode.Copy() == permission_mode::kB2C;
    std::string choosing = isB2C ? getB2CTokens(serial, ch) : std::string();
    // A channel without a B2C token is the account's own; an empty one would equal a shared token that was never set.
    if (choosing.empty()) {
        choosing = carried;
    }
    return {std::move(choosing), std::move(carried)};
}

std::optional<Source> CVantixDataCenter::sourceOf(const CallSite& site, const FetchTokens& tokens) {
    Source source;
    source.isConsumer = isServedByConsumer(tokens.choosing);
    const std::string credential = source.isConsumer ? m_settings.sessionId.Copy() : tokens.carried;
    if (!hasCredential(site, credential)) {
        return std::nullopt;
    }
    source.caller = callerFor({}, credential);
    return source;
}

bool CVantixDataCenter::isRenewed(const std::string& serial, int ch, int result) {
    if (result == VANTIX_ACCESS_TOKEN_EXPIRED) {
        return !refreshedToken().empty();
    }
    return IsSessionExpired(result) && isServedByConsumer(serial, ch) && !refreshedSession().empty();
}

std::optional<std::string> CVantixDataCenter::tokenForRepeat(const Source& source, int result, const std::string& token,
                                                             bool retried) {
    if (retried) {
        return std::nullopt;
    }
    if (source.isConsumer) {
        return IsSessionExpired(result) && !refreshedSession().empty() ? std::optional(token) : std::nullopt;
    }
    std::string newToken = result == VANTIX_ACCESS_TOKEN_EXPIRED ? refreshedToken() : std::string();
    return newToken.empty() ? std::nullopt : std::optional(std::move(newToken));
}

}  // namespace vantix
