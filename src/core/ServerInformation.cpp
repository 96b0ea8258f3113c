// The media servers of the user's area, cached as one record, and the video relays of a device, which are not.

#include "base/AsyncTask.h"
#include "core/CVantixDataCenter.h"
#include "cserver/Server.h"
#include "json/JsonText.h"
#include "log/Logger.h"
#include "platform/Server.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

std::string RelayList(const std::vector<VtmAddr>& relays) {
    auto list = json::JsonBuilder::Array();
    for (const VtmAddr& relay : relays) {
        list.Append(json::JsonBuilder::Object().Set("addr", relay.strVtmAddr).Set("port", relay.iVtmPort));
    }
    return json::JsonBuilder::Object().Set("vtmBackups", list).Compact();
}

}  // namespace

int CVantixDataCenter::getServerInfo(const std::string& token, ServerInfo& serverInfo, bool retried) {
    if (m_serverInfo.Serve(serverInfo)) {
        return VANTIX_NOERROR;
    }
    return refillServerInfo(VANTIX_HERE, token, serverInfo, retried);
}

int CVantixDataCenter::getServerInfo(const std::string& token, ServerInfo& serverInfo, std::future<int32_t>& future,
                                     bool retried) {
    if (m_serverInfo.Serve(serverInfo)) {
        return VANTIX_NOERROR;
    }
    future = StartTask([this, strToken = token, &serverInfo, retried]() -> int32_t {
        // No error, and kept at this level.
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "futureServerInfo async");
        return refillServerInfo(VANTIX_HERE, strToken, serverInfo, retried);
    });
    return VANTIX_NOERROR;
}

int CVantixDataCenter::refillServerInfo(const CallSite& site, const std::string& token, ServerInfo& serverInfo,
                                        bool retried) {
    ServerInfo fresh;
    fresh.iRequestCost = serverInfo.iRequestCost;
    int result = VANTIX_ERROR;
    if (auto source = sourceOf(site, tokensOf(token))) {
        source->caller.url = getDomainByToken(token).Copy();
        result = source->isConsumer ? GetServerInfoFromCServer(source->caller, fresh)
                                    : GetServerInfoFromPlatform(source->caller, fresh);
        if (const auto next = tokenForRepeat(*source, result, token, retried)) {
            return getServerInfo(*next, serverInfo, true);
        }
    }
    if (result != VANTIX_NOERROR) {
        m_serverInfo.Invalidate();
        serverInfo.iRequestCost = fresh.iRequestCost;
        return result;
    }
    m_serverInfo.Keep(fresh);
    serverInfo = std::move(fresh);
    return VANTIX_NOERROR;
}

void CVantixDataCenter::expireServerInfo() {
    constexpr int32_t kServedSeconds = 120;
    m_serverInfo.InvalidateOlderThan(kServedSeconds);
}

int CVantixDataCenter::getVideoVtmAddr(const std::string& serial, int ch, std::string& json, bool retried) {
    const std::string token = ownCredential(serial, ch, tk::kVideo);
    return videoRelays(VANTIX_HERE, token, serial, ch, json, retried);
}

int CVantixDataCenter::getServerInfoEx(const std::string& token, std::string& vtmAddr, const std::string& serial,
                                       int ch, bool retried) {
    return videoRelays(VANTIX_HERE, token, serial, ch, vtmAddr, retried);
}

int CVantixDataCenter::videoRelays(const CallSite& site, const std::string& token, const std::string& serial, int ch,
                                   std::string& json, bool retried) {
    if (!hasCredential(site, token)) {
        return VANTIX_ERROR;
    }
    ServerInfo servers;
    const int result = GetServerInfoFromPlatform(callerFor(getDomain(serial, ch).Copy(), token), serial, ch, servers);
    if (result == VANTIX_ACCESS_TOKEN_EXPIRED && !retried) {
        if (const std::string newToken = refreshedToken(); !newToken.empty()) {
            return getServerInfoEx(newToken, json, serial, ch, true);
        }
    }
    if (result != VANTIX_NOERROR || servers.vtmBackups.empty()) {
        VANTIX_LOG_ERROR(site, level::kError, "lVideoVtmAddr size 0");
        return VANTIX_ERROR;
    }
    for (const VtmAddr& relay : servers.vtmBackups) {
        VANTIX_LOG_INFO(site, level::kInfo, " addr = [%s]", relay.strVtmAddr.c_str());
        VANTIX_LOG_INFO(site, level::kInfo, " port = [%d]", relay.iVtmPort);
    }
    json = RelayList(servers.vtmBackups);
    VANTIX_LOG_ERROR(site, level::kError, "stVideoVtmAddr %s", json.c_str());
    return VANTIX_NOERROR;
}

}  // namespace vantix
