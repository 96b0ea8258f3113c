#include "core/p2p/P2PDevices.h"

#include <utility>

#include "base/AsyncTask.h"
#include "core/CoreSite.h"
#include "cserver/P2P.h"
#include "platform/P2P.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

/// The token decides which family gets the request, the channel where the platform's request goes.
constexpr RouteRow kByToken{.family = FamilyRule::ByToken};
constexpr RouteRow kByDevice{
    .credential = Credential::TkToken,
    .tkKind = tk::kDevice,
    .family = FamilyRule::ByToken,
};
static_assert(IsConsistent(kByToken) && IsConsistent(kByDevice));
constexpr CallSite kSite = VANTIX_CORE_HERE("getP2PDevInfo");

}  // namespace

int P2PDevices::getP2PDevInfoFromLocal(const std::string& serial, P2PDevInfo& devInfo) const {
    if (!m_mapP2PDevInfo.CopyOut(serial, devInfo)) {
        return VANTIX_ERROR;
    }
    devInfo.iRequestCost = 0;
    return VANTIX_NOERROR;
}

void P2PDevices::Store(const P2PDevInfo& devInfo) {
    m_mapP2PDevInfo.Put(decltype(m_mapP2PDevInfo)::EntryFor(devInfo.deviceSerial, devInfo));
}

int P2PDevices::fetchP2PDevInfo(const CallSite& site, const RouteRow& row, const Subject& subject, P2PDevInfo& fresh,
                                int32_t& costOfFailure, bool retried, Decision* first) {
    ServerFamily family = ServerFamily::Platform;
    bool isSent = false;
    const int result = m_renewal.Run(site, {}, retried, subject, [&](const Attempt& attempt) {
        fresh = {};
        const Outcome outcome = SendAlong(
            first != nullptr && attempt.reason == AttemptReason::First ? m_routes.Decide(site, *first)
                                                                       : m_routes.Decide(site, row, attempt.subject),
            [&](const PlatformRoute& route) { return GetP2PDevInfoFromPlatform(route, subject.serial, fresh); },
            [&](const ConsumerRoute& route) { return GetP2PDevInfoFromCServer(route, subject.serial, fresh); });
        family = outcome.family;
        isSent = !outcome.isCredentialMissing;
        return outcome;
    });
    if (result == VANTIX_NOERROR) {
        fresh.deviceSerial = subject.serial;
    } else if (isSent && family == ServerFamily::Platform) {
        costOfFailure = fresh.iRequestCost;
    }
    return result;
}

int P2PDevices::updateP2PDevInfo(const CallSite& site, const RouteRow& row, const Subject& subject, P2PDevInfo& devInfo,
                                 bool retried, Decision* first) {
    P2PDevInfo fresh;
    const int result = fetchP2PDevInfo(site, row, subject, fresh, devInfo.iRequestCost, retried, first);
    if (result == VANTIX_NOERROR) {
        Store(fresh);
        devInfo = std::move(fresh);
    }
    return result;
}

bool P2PDevices::Serve(const std::string& serial, P2PDevInfo& devInfo, int& result) const {
    result = getP2PDevInfoFromLocal(serial, devInfo);
    if (result != VANTIX_NOERROR || devInfo.isUpdate) {
        return false;
    }
    VANTIX_LOG_INFO(kSite, level::kInfo, "getP2PDevInfoFromLocal SUCCESS iRet = %d stP2PDevInfo.isUpdate = %d", result,
                    static_cast<int>(devInfo.isUpdate));
    return true;
}

int P2PDevices::getP2PDevInfo(P2PDevInfo& devInfo, const std::string& token, const std::string& serial,
                              std::future<int32_t>& future) {
    int result = VANTIX_ERROR;
    if (!Serve(serial, devInfo, result)) {
        future = StartTask([this, subject = Subject::OfBoth(serial, kFirstChannel, token), &devInfo]() -> int32_t {
            const CallSite site = VANTIX_CORE_HERE("getP2PDevInfo::<lambda()>");
            VANTIX_LOG_INFO(site, level::kInfo, "futureDevInfo async strDeviceSerial = %s ", subject.serial.c_str());
            return updateP2PDevInfo(site, kByToken, subject, devInfo, false);
        });
    }
    return result;
}

int P2PDevices::getP2PDevInfo(const std::string& serial, int ch, const std::string& token, P2PDevInfo& devInfo,
                              bool retried) {
    int result = VANTIX_ERROR;
    if (Serve(serial, devInfo, result)) {
        return result;
    }
    return updateP2PDevInfo(kSite, kByToken, Subject::OfBoth(serial, ch, token), devInfo, retried);
}

int P2PDevices::getP2PDevInfoCached(const std::string& serial, std::vector<P2PServerAddr>& servers, P2PDevInfo& devInfo,
                                    bool forceFetch) {
    if (!forceFetch && getP2PDevInfoFromLocal(serial, devInfo) == VANTIX_NOERROR) {
        servers = devInfo.serverInfos;
        return VANTIX_NOERROR;
    }
    P2PDevInfo fresh;
    const int result =
        fetchP2PDevInfo(VANTIX_CORE_HERE("getP2PDevInfoCached"), kByDevice, Subject::OfChannel(serial, kFirstChannel),
                        fresh, devInfo.iRequestCost, false, nullptr);
    if (result == VANTIX_NOERROR) {
        auto list = fresh.serverInfos;  // all that can fail comes before anything is stored
        Store(fresh);
        devInfo = std::move(fresh);
        servers = std::move(list);
    }
    return result;
}

int P2PDevices::isP2PV3download(const std::string& serial, int ch) {
    const CallSite site = VANTIX_CORE_HERE("isP2PV3download");
    const Subject subject = Subject::OfChannel(serial, ch);
    Decision decision = m_routes.Begin(kByDevice, subject);
    if (decision.IsCredentialMissing()) {
        RefuseWithoutCredential(site);
        return 1;  // without a credential the newer download is assumed
    }
    P2PDevInfo devInfo;
    if (getP2PDevInfoFromLocal(serial, devInfo) != VANTIX_NOERROR &&
        updateP2PDevInfo(site, kByDevice, subject, devInfo, false, &decision) != VANTIX_NOERROR) {
        VANTIX_LOG_ERROR(site, level::kError, "%s", "get p2p device info failed");
        return 0;
    }
    VANTIX_LOG_INFO(site, level::kInfo, "strV3Download[%s]", devInfo.strV3Download.c_str());
    return devInfo.strV3Download == "1" ? 1 : 0;
}

}  // namespace vantix
