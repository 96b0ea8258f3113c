#include "core/streams/FirstStreamToken.h"

#include <cstring>
#include <optional>
#include <utility>

#include "base/Clock.h"
#include "core/CoreSite.h"
#include "core/settings/Settings.h"
#include "core/streams/StreamTokens.h"
#include "platform/ResponseChecks.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

constexpr int kPrefetched = 10;
/// From this age on, in seconds, a stored token is refused: five hours and one second.
constexpr int32_t kRefusedAge = 18001;

/// Whether a response is one to store: a success, and not too long.
bool IsToStore(const CallSite& site, const std::string& response) {
    const std::optional<int> error = VerifyErrorOf(response);
    if (!error) {
        VANTIX_LOG_INFO(site, level::kInfo, "getStreamToken failed");
        return false;
    }
    if (*error != VANTIX_NOERROR) {
        VANTIX_LOG_INFO(site, level::kInfo, "getStreamToken resultCode Error");
        return false;
    }
    if (response.size() > FirstStreamToken::kLongest) {
        VANTIX_LOG_INFO(site, level::kInfo, "strTokens length is over limited,length= %d ",
                        static_cast<int>(response.size()));
        return false;
    }
    return true;
}

}  // namespace

void FirstStreamToken::GetStreamTokenFast() {
    const CallSite site = VANTIX_CORE_HERE("GetStreamTokenFast");
    const int mode = m_settings.permissionMode.Copy();
    if (mode == permission_mode::kSmall) {
        VANTIX_LOG_INFO(site, level::kInfo, "Small permissions do not need to use the following logic.");
        return;
    }
    if (mode == permission_mode::kB2C) {
        VANTIX_LOG_INFO(site, level::kInfo, "4200 B2c do not need to use the following logic.");
        return;
    }
    if (m_stored.With([](const Stored& stored) { return !stored.m_strFirstToken.empty(); })) {
        VANTIX_LOG_INFO(site, level::kInfo, "m_strFirstToken is not NULL");
        return;
    }
    std::string owner = m_settings.accessToken.Copy();
    if (owner.empty()) {
        VANTIX_LOG_INFO(site, level::kInfo, "getAccessToken is NULL");
        return;
    }
    std::string response;
    if (m_tokens.FetchBatch(VANTIX_CORE_HERE("getStreamTokens"), owner, kPrefetched, response, false) !=
        VANTIX_NOERROR) {
        VANTIX_LOG_INFO(site, level::kInfo, "getStreamToken failed");
    } else if (IsToStore(site, response)) {
        m_stored.Assign({std::move(response), std::move(owner), TruncatedWallSeconds()});
    }
}

int FirstStreamToken::GetStreamTokenFromQueue(const std::string& accessToken, char* buffer) {
    enum class Served { Yes, Refused, OfAnotherOwner };
    const CallSite site = VANTIX_CORE_HERE("GetStreamTokenFromQueue");
    const int32_t now = TruncatedWallSeconds();
    const Served served = m_stored.With([&](Stored& stored) {
        if (stored.owner.empty() || stored.owner != accessToken) {
            return Served::OfAnotherOwner;
        }
        if (SecondsBetween(stored.fetchTime, now) >= kRefusedAge || stored.m_strFirstToken.empty() ||
            buffer == nullptr) {
            return Served::Refused;
        }
        std::memcpy(buffer, stored.m_strFirstToken.c_str(), stored.m_strFirstToken.size() + 1);
        stored.m_strFirstToken.clear();
        stored.fetchTime = 0;
        return Served::Yes;
    });
    if (served == Served::Yes) {
        VANTIX_LOG_INFO(site, level::kInfo, "GetStreamTokenFromQueue SUC");
        return VANTIX_NOERROR;
    }
    if (served == Served::Refused) {
        VANTIX_LOG_INFO(site, level::kInfo, "GetStreamTokenFromQueue failed");
    }
    return VANTIX_ERROR;
}

}  // namespace vantix
