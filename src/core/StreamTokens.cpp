// Tokens that open streams: a queue filled in batches, and one token that is fetched ahead of time.

#include "core/StreamTokens.h"

#include <cstring>

#include "base/Clock.h"
#include "base/NumberText.h"
#include "core/CVantixDataCenter.h"
#include "cserver/Tokens.h"
#include "json/JsonCppReader.h"
#include "log/Logger.h"
#include "platform/ResponseChecks.h"
#include "platform/Tokens.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

constexpr int kBatch = 20;
constexpr int kPrefetched = 10;
/// From this age on, in seconds, a prefetched token is refused: five hours and one second.
constexpr int32_t kRefusedAge = 18001;

/// Whether the answer to the prefetch is one to keep: JSON whose textual "resultCode", if there is one, is a success.
bool IsGoodAnswer(const CallSite& site, const std::string& answer) {
    json::JsonCppDocument document;
    if (!document.Parse(answer)) {
        VANTIX_LOG_INFO(site, level::kInfo, "getStreamToken failed");
        return false;
    }
    std::string resultCode;
    if (document.Root().Member("resultCode").Read(resultCode) &&
        ConvertVerifyErrorCode(DecimalPrefix(resultCode)) != VANTIX_NOERROR) {
        VANTIX_LOG_INFO(site, level::kInfo, "getStreamToken resultCode Error");
        return false;
    }
    return true;
}

int32_t SecondsNow() { return static_cast<int32_t>(WallSeconds()); }

}  // namespace

int CVantixDataCenter::getStreamTokens(const std::string& token, int count, std::string& answer, bool retried) {
    const auto source = sourceOf(VANTIX_HERE, {token, token});
    if (!source) {
        return VANTIX_ERROR;
    }
    Caller caller = source->caller;
    caller.url = getDomainByToken(token).Copy();
    if (source->isConsumer) {
        return GetStreamTokensFromCServer(caller, answer);
    }
    const int result = GetStreamTokensFromPlatform(caller, count, answer);
    if (const auto next = tokenForRepeat(*source, result, token, retried)) {
        return getStreamTokens(*next, count, answer, true);
    }
    return result;
}

bool CVantixDataCenter::takeQueuedToken(const std::string& accessToken, std::string& token) {
    const bool isCurrent = m_settings.accessToken.Copy() == accessToken;
    return m_streamTokens.With([&](std::deque<std::string>& queue) {
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

int CVantixDataCenter::getOneStreamToken(const std::string& accessToken, std::string& token) {
    if (m_settings.permissionMode.Copy() == permission_mode::kSmall) {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "Small permissions do not need to use the following logic.");
        return VANTIX_ERROR;
    }
    if (takeQueuedToken(accessToken, token)) {
        return VANTIX_NOERROR;
    }
    if (!hasCredential(VANTIX_HERE, accessToken)) {
        return VANTIX_ERROR;
    }
    const std::string domain = domainInPlace(VANTIX_HERE, isServedByConsumer(accessToken));
    std::deque<std::string> batch;
    const int result = GetStreamTokensFromPlatform(callerFor(domain, accessToken), kBatch, batch);
    if (result != VANTIX_NOERROR || batch.empty()) {
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "GetStreamTokensFromPlatform failed, iRet:%d", result);
        return result == VANTIX_NOERROR ? VANTIX_ERROR : result;
    }
    std::string first = std::move(batch.front());
    batch.pop_front();
    if (m_settings.accessToken.Copy() != accessToken) {
        setAccessToken(accessToken);
    }
    m_streamTokens.Assign(std::move(batch));
    token = std::move(first);  // only now: the host may use one text for both
    return VANTIX_NOERROR;
}

int CVantixDataCenter::GetStreamTokenFast() {
    const int mode = m_settings.permissionMode.Copy();
    if (mode == permission_mode::kSmall) {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "Small permissions do not need to use the following logic.");
        return VANTIX_NOERROR;
    }
    if (mode == permission_mode::kB2C) {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "4200 B2c do not need to use the following logic.");
        return VANTIX_NOERROR;
    }
    if (m_firstToken.With([](const FirstToken& first) { return !first.m_strFirstToken.empty(); })) {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "m_strFirstToken is not NULL");
        return VANTIX_NOERROR;
    }
    prefetchStreamToken(VANTIX_HERE);
    return VANTIX_NOERROR;
}

void CVantixDataCenter::prefetchStreamToken(const CallSite& site) {
    std::string accessToken = m_settings.accessToken.Copy();
    if (accessToken.empty()) {
        VANTIX_LOG_INFO(site, level::kInfo, "getAccessToken is NULL");
        return;
    }
    // Repeated here and not by the request: the token that it was renewed to is the owner.
    std::string answer;
    int result = getStreamTokens(accessToken, kPrefetched, answer, true);
    if (result == VANTIX_ACCESS_TOKEN_EXPIRED) {
        if (std::string newToken = refreshedToken(); !newToken.empty()) {
            accessToken = std::move(newToken);
            result = getStreamTokens(accessToken, kPrefetched, answer, true);
        }
    }
    if (result != VANTIX_NOERROR) {
        VANTIX_LOG_INFO(site, level::kInfo, "getStreamToken failed");
        return;
    }
    if (!IsGoodAnswer(site, answer)) {
        return;
    }
    if (answer.size() > kLongestFirstToken) {
        VANTIX_LOG_INFO(site, level::kInfo, "strTokens length is over limited,length= %d ",
                        static_cast<int>(answer.size()));
        return;
    }
    m_firstToken.Assign({std::move(answer), std::move(accessToken), SecondsNow()});
}

int CVantixDataCenter::GetStreamTokenFromQueue(const std::string& accessToken, char* buffer) {
    enum class Outcome { Served, Refused, NotOwner };
    const int32_t now = SecondsNow();
    const Outcome outcome = m_firstToken.With([&](FirstToken& first) {
        if (first.owner.empty() || first.owner != accessToken) {
            return Outcome::NotOwner;
        }
        const auto age = static_cast<int32_t>(static_cast<uint32_t>(now) - static_cast<uint32_t>(first.fetchTime));
        if (age >= kRefusedAge || first.m_strFirstToken.empty() || buffer == nullptr) {
            return Outcome::Refused;
        }
        std::memcpy(buffer, first.m_strFirstToken.c_str(), first.m_strFirstToken.size() + 1);
        first.m_strFirstToken.clear();
        first.fetchTime = 0;
        return Outcome::Served;
    });
    if (outcome == Outcome::Served) {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "GetStreamTokenFromQueue SUC");
        return VANTIX_NOERROR;
    }
    if (outcome == Outcome::Refused) {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "GetStreamTokenFromQueue failed");
    }
    return VANTIX_ERROR;
}

}  // namespace vantix
