// The one road of all one-shot queries; what differs from query to query is a row.

#include "core/CVantixDataCenter.h"
#include "log/Logger.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

bool IsTransient(int result) { return result == VANTIX_PLATFORM_CODE_49999 || result == VANTIX_PLATFORM_CODE_50000; }

}  // namespace

std::string CVantixDataCenter::domainInPlace(const CallSite& site, bool isShared) {
    VANTIX_LOG_INFO(site, level::kInfo, "%s", isShared ? "Returning C domain for shared device" : "Returning B domain");
    return (isShared ? m_settings.CDomain : m_settings.AreaBDomain).Copy();
}

std::string CVantixDataCenter::queryDomain(const CallSite& site, const QueryRow& row, const Subject& subject,
                                           const std::string& token) {
    switch (row.domain) {
        case DomainRule::DeviceInPlace: return domainInPlace(site, isServedByConsumer(subject.serial, subject.ch));
        case DomainRule::Token: return getDomainByToken(token).Copy();
        case DomainRule::TokenInPlace: return domainInPlace(site, isServedByConsumer(token));
        case DomainRule::Device: break;
    }
    return getDomain(subject.serial, subject.ch).Copy();
}

bool CVantixDataCenter::isRenewedFor(const QueryRow& row, const Subject& subject, int result) {
    if (row.hasConsumerForm) {
        return isRenewed(subject.serial, subject.ch, result);
    }
    return result == VANTIX_ACCESS_TOKEN_EXPIRED && !refreshedToken().empty();
}

int CVantixDataCenter::query(const CallSite& site, const QueryRow& row, const Subject& subject, bool retried,
                             const SendQuery& send) {
    bool mayRenew = row.isRefreshed && !retried;
    bool mayRepeat = row.repeatsTransient;
    for (;;) {
        const std::string token = row.tkType == tk::kNone ? m_settings.accessToken.Copy()
                                                          : ownCredential(subject.serial, subject.ch, row.tkType);
        if (!hasCredential(site, token)) {
            return VANTIX_ERROR;
        }
        const int result = send(callerFor(queryDomain(site, row, subject, token), token));
        if (mayRepeat && IsTransient(result)) {
            mayRepeat = false;
        } else if (mayRenew && isRenewedFor(row, subject, result)) {
            mayRenew = false;
        } else {
            return result;
        }
    }
}

}  // namespace vantix
