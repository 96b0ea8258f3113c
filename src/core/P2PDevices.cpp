// What a player needs to reach a device by P2P, cached by serial.

#include "base/AsyncTask.h"
#include "core/CVantixDataCenter.h"
#include "cserver/P2P.h"
#include "log/Logger.h"
#include "platform/P2P.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
int CVantixDataCenter::getP2PDevInfoFromLocal(const std::string& serial, P2PDevInfo& devInfo) {
    return m_mapP2PDevInfo.With([&](const P2PDevMap& map) -> int {
        const auto found = map.find(serial);
        if (found == map.end()) {
            return VANTIX_ERROR;
        }
        devInfo = found->second;
        devInfo.iRequestCost = 0;
        return VANTIX_NOERROR;
    });
}

int CVantixDataCenter::updateP2PDevInfo(const CallSite& site, const std::string& serial, int ch,
                                        const FetchTokens& tokens, P2PDevInfo& devInfo, bool retried) {
    auto source = sourceOf(site, tokens);
    if (!source) {
        return VANTIX_ERROR;
    }
    source->caller.url = getDomain(serial, ch).Copy();
    if (source->isConsumer) {
        // The token can be that of another channel of the device: the session goes to its own servers only.
        source->caller.url = m_settings.CDomain.Copy();
    }
    P2PDevInfo fresh;
    const int result = source->isConsumer ? GetP2PDevInfoFromCServer(source->caller, serial, fresh)
                                          : GetP2PDevInfoFromPlatform(source->caller, serial, fresh);
    if (const auto next = tokenForRepeat(*source, result, tokens.choosing, retried)) {
        return updateP2PDevInfo(site, serial, ch, tokensOf(*next), devInfo, true);
    }
    if (result != VANTIX_NOERROR) {
        if (!source->isConsumer) {
            devInfo.iRequestCost = fresh.iRequestCost;
        }
        return result;
    }
    fresh.deviceSerial = serial;
    P2PDevMap one;
    one.emplace(serial, fresh);
    m_mapP2PDevInfo.With([&](P2PDevMap& map) {
        map.erase(serial);
        map.insert(one.extract(one.begin()));
    });
    devInfo = std::move(fresh);
    return VANTIX_NOERROR;
}

bool CVantixDataCenter::serveP2PDevInfo(const CallSite& site, const std::string& serial, P2PDevInfo& devInfo,
                                        int& result) {
    result = getP2PDevInfoFromLocal(serial, devInfo);
    if (result != VANTIX_NOERROR || devInfo.isUpdate) {
        return false;
    }
    VANTIX_LOG_INFO(site, level::kInfo, "getP2PDevInfoFromLocal SUCCESS iRet = %d stP2PDevInfo.isUpdate = %d", result,
                    devInfo.isUpdate ? 1 : 0);
    return true;
}

int CVantixDataCenter::getP2PDevInfo(P2PDevInfo& devInfo, const std::string& token, const std::string& serial,
                                     std::future<int32_t>& future) {
    int result = VANTIX_ERROR;
    if (serveP2PDevInfo(VANTIX_HERE, serial, devInfo, result)) {
        return result;
    }
    future = StartTask([this, strToken = token, strDeviceSerial = serial, &devInfo]() -> int32_t {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "futureDevInfo async strDeviceSerial = %s ",
                        strDeviceSerial.c_str());
        return updateP2PDevInfo(VANTIX_HERE, strDeviceSerial, kFirstChannel, tokensOf(strToken), devInfo, false);
    });
    return result;
}

int CVantixDataCenter::getP2PDevInfo(P2PDevInfo& devInfo, const std::string& token, const std::string& serial,
                                     bool retried) {
    return getP2PDevInfo(serial, kFirstChannel, token, devInfo, retried);
}

int CVantixDataCenter::getP2PDevInfo(const std::string& serial, int ch, const std::string& token, P2PDevInfo& devInfo,
                                     bool retried) {
    int result = VANTIX_ERROR;
    if (serveP2PDevInfo(VANTIX_HERE, serial, devInfo, result)) {
        return result;
    }
    return updateP2PDevInfo(VANTIX_HERE, serial, ch, tokensOf(token), devInfo, retried);
}

int CVantixDataCenter::getP2PDevInfoCached(const std::string& serial, std::vector<P2PServerAddr>& servers,
                                           P2PDevInfo& devInfo, bool forceFetch) {
    int result = forceFetch ? VANTIX_ERROR : getP2PDevInfoFromLocal(serial, devInfo);
    if (result != VANTIX_NOERROR) {
        result = updateP2PDevInfo(VANTIX_HERE, serial, kFirstChannel, tokensOf(serial, kFirstChannel, tk::kDevice),
                                  devInfo, false);
    }
    if (result == VANTIX_NOERROR) {
        servers = devInfo.serverInfos;
    }
    return result;
}

int CVantixDataCenter::isP2PV3download(const std::string& serial, int ch) {
    const std::string token = ownCredential(serial, ch, tk::kDevice);
    if (!hasCredential(VANTIX_HERE, token)) {
        return 1;  // without a credential the newer way is assumed
    }
    P2PDevInfo devInfo;
    if (getP2PDevInfoFromLocal(serial, devInfo) != VANTIX_NOERROR &&
        updateP2PDevInfo(VANTIX_HERE, serial, ch, tokensOf(serial, ch, tk::kDevice), devInfo, false) !=
            VANTIX_NOERROR) {
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "%s", "get p2p device info failed");
        return 0;
    }
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "strV3Download[%s]", devInfo.strV3Download.c_str());
    return devInfo.strV3Download == "1" ? 1 : 0;
}

}  // namespace vantix
