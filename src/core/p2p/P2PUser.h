#pragma once

#include <cstdint>
#include <future>
#include <string>

#include "core/fetch/SingleRecordFetch.h"
#include "vantix/records/P2PUserInfo.h"

namespace vantix {

/// The user's P2P identity, cached as one record. Lines bear the core's tags.
class P2PUser {
public:
    /// The parts outlive this one, and this one outlives its tasks.
    P2PUser(const Routes& routes, Renewal& renewal);

    int getP2PUserInfo(P2PUserInfo& userInfo, const std::string& token, std::future<int32_t>& future, bool retried);
    int getP2PUserInfo(const std::string& token, P2PUserInfo& userInfo, bool retried);
    int getP2PUserInfo(const std::string& serial, int ch, P2PUserInfo& userInfo, bool retried);

    /// The record is not served any more.
    void Invalidate() { m_record.Invalidate(); }

private:
    SingleRecordFetch<P2PUserInfo> m_record;
};

}  // namespace vantix
