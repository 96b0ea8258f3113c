#include "core/streams/StreamTokens.h"

#include <utility>

#include "core/CoreSite.h"
#include "core/settings/Settings.h"
#include "cserver/Tokens.h"
#include "platform/Tokens.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

constexpr int kBatch = 20;

constexpr RouteRow kBatchRoute{
    .credential = Credential::GivenToken,
    .family = FamilyRule::ByToken,
    .address = AddressRule::ByToken,
};
constexpr RouteRow kOneTokenRoute{
    .credential = Credential::GivenToken,
    .address = AddressRule::ByToken,
    .wording = Wording::OfOperation,
};
static_assert(IsConsistent(kBatchRoute) && IsConsistent(kOneTokenRoute));

}  // namespace

int StreamTokens::FetchBatch(const CallSite& site, std::string& token, int count, std::string& response, bool retried) {
    return m_renewal.Run(site, {}, retried, Subject::OfToken(token), [&](const Attempt& attempt) {
        token = attempt.subject.token.value_or(std::string());
        return SendAlong(
            m_routes.Decide(site, kBatchRoute, attempt.subject),
            [&](const PlatformRoute& route) { return GetStreamTokensFromPlatform(route, count, response); },
            [&](const ConsumerRoute& route) { return GetStreamTokensFromCServer(route, response); });
    });
}

int StreamTokens::getStreamTokens(const std::string& token, int count, std::string& response, bool retried) {
    std::string used = token;
    return FetchBatch(VANTIX_CORE_HERE("getStreamTokens"), used, count, response, retried);
}

bool StreamTokens::TakeQueued(const std::string& accessToken, std::string& token) {
    const bool isCurrent = m_settings.accessToken.Copy() == accessToken;
    return m_queue.With([&](std::deque<std::string>& queue) {
        if (!isCurrent) {
            queue.clear();
        }
        if (queue.empty()) {
            return false;
        }
        token = std::move(queue.front());
        queue.pop_front();
        return true;
    });
}

int StreamTokens::getOneStreamToken(const std::string& accessToken, std::string& token) {
    const CallSite site = VANTIX_CORE_HERE("getOneStreamToken");
    const Subject subject = Subject::OfToken(accessToken);
    Decision decision = m_routes.Begin(kOneTokenRoute, subject);
    if (decision.Mode() == permission_mode::kSmall) {
        VANTIX_LOG_INFO(site, level::kInfo, "Small permissions do not need to use the following logic.");
        return VANTIX_ERROR;
    }
    if (TakeQueued(accessToken, token)) {
        return VANTIX_NOERROR;
    }
    std::deque<std::string> batch;
    const PlatformOnlyRoute route = m_routes.DecidePlatform(site, decision);
    if (std::holds_alternative<MissingCredential>(route)) {
        return RefuseWithoutCredential(site);
    }
    const int result = GetStreamTokensFromPlatform(std::get<PlatformRoute>(route), kBatch, batch);
    if (result != VANTIX_NOERROR || batch.empty()) {
        VANTIX_LOG_ERROR(site, level::kError, "GetStreamTokensFromPlatform failed, iRet:%d", result);
        return result == VANTIX_NOERROR ? static_cast<int>(VANTIX_ERROR) : result;
    }
    std::string first = std::move(batch.front());
    batch.pop_front();
    if (m_settings.accessToken.Copy() != accessToken) {
        m_settings.accessToken.Assign(accessToken);
    }
    m_queue.Assign(std::move(batch));
    token = std::move(first);  // only now: the host may use one text for both
    return VANTIX_NOERROR;
}

}  // namespace vantix
