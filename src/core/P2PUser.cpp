// The user's P2P identity, cached as one record.

#include "base/AsyncTask.h"
#include "core/CVantixDataCenter.h"
#include "cserver/P2P.h"
#include "log/Logger.h"
#include "platform/P2P.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

/// A consumer server's refusal ends as a success without a record.
bool IsRefusal(const Source& source, const P2PUserInfo& userInfo) {
    return source.isConsumer && userInfo.userId.empty() && userInfo.data.empty();
}

}  // namespace

int CVantixDataCenter::getP2PUserInfo(P2PUserInfo& userInfo, const std::string& token, std::future<int32_t>& future,
                                      bool retried) {
    if (m_p2pUserInfo.Serve(userInfo)) {
        return VANTIX_NOERROR;
    }
    future = StartTask([this, strToken = token, &userInfo, retried]() -> int32_t {
        // No error, and kept at this level.
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "futureUserInfo async");
        return refillP2PUserInfo(VANTIX_HERE, tokensOf(strToken), userInfo, retried);
    });
    return VANTIX_NOERROR;
}

int CVantixDataCenter::getP2PUserInfo(const std::string& token, P2PUserInfo& userInfo, bool retried) {
    if (m_p2pUserInfo.Serve(userInfo)) {
        return VANTIX_NOERROR;
    }
    return refillP2PUserInfo(VANTIX_HERE, tokensOf(token), userInfo, retried);
}

int CVantixDataCenter::getP2PUserInfo(const std::string& serial, int ch, P2PUserInfo& userInfo, bool retried) {
    if (m_p2pUserInfo.Serve(userInfo)) {
        return VANTIX_NOERROR;
    }
    return refillP2PUserInfo(VANTIX_HERE, tokensOf(serial, ch, tk::kDevice), userInfo, retried);
}

int CVantixDataCenter::refillP2PUserInfo(const CallSite& site, const FetchTokens& tokens, P2PUserInfo& userInfo,
                                         bool retried) {
    P2PUserInfo fresh;
    fresh.iRequestCost = userInfo.iRequestCost;
    int result = VANTIX_ERROR;
    bool isRefused = false;
    if (auto source = sourceOf(site, tokens)) {
        source->caller.url = getDomainByToken(tokens.choosing).Copy();
        result = source->isConsumer ? GetP2PUserInfoFromCServer(source->caller, fresh)
                                    : GetP2PUserInfoFromPlatform(source->caller, fresh);
        if (const auto next = tokenForRepeat(*source, result, tokens.choosing, retried)) {
            return getP2PUserInfo(*next, userInfo, true);
        }
        isRefused = IsRefusal(*source, fresh);
    }
    if (result != VANTIX_NOERROR || isRefused) {
        m_p2pUserInfo.Invalidate();
        userInfo.iRequestCost = fresh.iRequestCost;
        return result;
    }
    m_p2pUserInfo.Keep(fresh);
    userInfo = std::move(fresh);
    return VANTIX_NOERROR;
}

}  // namespace vantix
