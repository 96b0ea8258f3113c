#include "core/detail/DeviceDetail.h"

#include "base/AsyncTask.h"
#include "core/CoreSite.h"
#include "core/detail/DetailCaches.h"
#include "core/routes/Routes.h"
#include "core/settings/Settings.h"
#include "cserver/DeviceDetail.h"
#include "platform/DeviceDetail.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

constexpr CallSite kSite = VANTIX_CORE_HERE("updateDevDetailInfo");
constexpr RouteRow kRoute{
    .credential = Credential::ChannelToken,
    .tkKind = tk::kVideo,
    .family = FamilyRule::ByChannel,
};
static_assert(IsConsistent(kRoute));
constexpr RepeatRules kRepeats{.tokenCodeFromAnyFamily = true, .transientRepeats = 2};

}  // namespace

Outcome DeviceDetail::Fetch(const Subject& subject, DevChannelInfo& channelInfo, DevDetailInfo& detail,
                            std::optional<BelongDevInfo>& parent) const {
    return SendAlong(
        m_routes.Decide(kSite, kRoute, subject),
        [&](const PlatformRoute& route) {
            return GetDevDetailInfoFromPlatformBySerial(route, subject.serial, subject.ch, channelInfo, detail, parent);
        },
        [&](const ConsumerRoute& route) {
            return GetDevDetailInfoFromCServerBySerial(route, subject.serial, subject.ch, channelInfo, detail);
        });
}

Outcome DeviceDetail::updateDevDetailInfo(const Attempt& attempt, DevChannelInfo& channelInfo, DevDetailInfo& detail) {
    std::optional<BelongDevInfo> parent;
    const Outcome outcome = Fetch(attempt.subject, channelInfo, detail, parent);
    if (outcome.result == VANTIX_NOERROR) {
        m_caches.Store(attempt.subject.serial, attempt.subject.ch, channelInfo, detail, parent);
    }
    return outcome;
}

int DeviceDetail::getDevDetailInfo(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                   DevDetailInfo& detail, std::future<int32_t>& future, bool retried) {
    const int cached = m_caches.getDevInfoCache(serial, ch, channelInfo, detail);
    if (cached == VANTIX_NOERROR && !m_settings.isExpired(detail.tCacheTime) && !detail.isUpdate) {
        // Logs a success with the word and level of an error. The text is fixed.
        VANTIX_LOG_ERROR(VANTIX_CORE_HERE("getDevDetailInfo"), level::kError,
                         "getDevDetailInfo FromLocal SUCCESS  isUpdate = %d", cached);
        return VANTIX_NOERROR;
    }
    future = StartTask([this, subject = Subject::OfChannel(serial, ch), &channelInfo, &detail, retried]() -> int32_t {
        VANTIX_LOG_INFO(VANTIX_CORE_HERE("getDevDetailInfo::<lambda()>"), level::kInfo,
                        "futureDetailInfo async strDeviceSerial = %s iChannel = %d", subject.serial.c_str(),
                        subject.ch);
        return m_renewal.Run(kSite, kRepeats, retried, subject,
                             [&](const Attempt& attempt) { return updateDevDetailInfo(attempt, channelInfo, detail); });
    });
    return cached;
}

int DeviceDetail::getDevDetailInfoSync(const std::string& serial, int ch, bool force, DevChannelInfo& channelInfo,
                                       DevDetailInfo& detail, bool retried) {
    return m_renewal.Run(kSite, kRepeats, retried, Subject::OfChannel(serial, ch), [&](const Attempt& attempt) {
        if (!force && attempt.reason != AttemptReason::Transient &&
            m_caches.getDevDetailInfoFromLocal(serial, ch, channelInfo, detail) == VANTIX_NOERROR) {
            return Outcome{VANTIX_NOERROR};
        }
        return updateDevDetailInfo(attempt, channelInfo, detail);
    });
}

int DeviceDetail::getDevDetailInfoByRelation(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                             DevDetailInfo& detail, bool retried) {
    const auto read = [&] { return m_relation.getDevDetailInfoFromLocalByRelation(serial, ch, channelInfo, detail); };
    return m_renewal.Run(kSite, kRepeats, retried, Subject::OfChannel(serial, ch), [&](const Attempt& attempt) {
        if (attempt.reason != AttemptReason::Transient && read() == VANTIX_NOERROR) {
            // Read twice on purpose: the second read sees the relation that the first one wrote into the record.
            return Outcome{read()};
        }
        Outcome outcome = updateDevDetailInfo(attempt, channelInfo, detail);
        if (outcome.result == VANTIX_NOERROR) {
            outcome.result = read();
        }
        return outcome;
    });
}

}  // namespace vantix
